#include "platform/storage/detail/avl_legend.h"

#include "platform/base/owned.h"
#include "platform/base/shown_number.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/storage/detail/odb_file.h"
#include "platform/storage/vx_gis_prg.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace vx::avl {
namespace {
using odb::record;
using owned_prm = vx::owned<void, &vx_stl_prm_destroy>;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

constexpr double c_mm_per_point = 25.4 / 72; ///< sizes, widths and the cells of stipples are in points
constexpr double c_hairline = 0.1;           ///< millimetres, for lines that are drawn and have no width
constexpr unsigned c_most_layers = 64;       ///< of one compound symbol
constexpr int c_deepest = 8;                 ///< compound symbols inside compound symbols
constexpr unsigned c_most_parts = 100'000;   ///< of all compound symbols together
constexpr unsigned c_largest_stipple = 256;  ///< cells in a row or column
constexpr unsigned c_western_page = 1252;    ///< of texts that are no UTF-8
constexpr unsigned c_cyrillic_page = 1251;   ///< the same where they read as Cyrillic

enum class legend_type
{
    single = 0x01,
    graduated = 0x02,
    unique = 0x08
};

bool is_utf8(std::wstring const &decoded)
{
    return decoded.find(L'\xFFFD') == std::wstring::npos;
}

/// The code page of the texts that are no UTF-8, which a legend does not tell. Cyrillic letters are the
/// accented ones of the western page, which are few among the letters of every language written with them.
unsigned page_of(odb::database const &objects)
{
    unsigned accented = 0, plain = 0;
    for (auto const &[id, object] : objects)
        for (auto const &[name, value] : object.attributes) {
            auto const text = value.starts_with('"') ? odb::to_text(value) : std::nullopt;
            if (!text || is_utf8(vx::text::utf8_to_wide(*text)))
                continue;
            for (unsigned char const c : *text) {
                accented += c >= 0xC0;
                plain += (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
            }
        }
    return accented > plain ? c_cyrillic_page : c_western_page;
}

std::string number_text(double value)
{
    vx::text::number_buffer buffer;
    return std::string(vx::text::shown_number(value == 0 ? 0.0 : value, buffer));
}

bool is_same_text(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return (x | 0x20) == (y | 0x20); });
}

/// The cells of a stipple, row by row from the top.
struct stipple
{
    unsigned columns = 0, rows = 0;
    std::vector<bool> cells;
    [[nodiscard]] bool at(unsigned row, unsigned column) const { return cells[row * columns + column]; }
};

/// One class of the legend.
struct legend_class
{
    double min = 0, max = 0;
    std::wstring text, label;
    bool no_data = false;
    owned_prm look;
};

class reader
{
public:
    reader(odb::database const &objects, char const *type)
        : f_objects(objects), f_type(type), f_page(page_of(objects))
    {
    }

    /// Fills the manager, a copy that is thrown away where the result is not `c_gp_ok`.
    int run(void *mngr);

private:
    // ---- objects. A wrong reference, type or number is a fault, after which nothing of the result counts.
    record const *object(std::string_view reference, std::initializer_list<std::string_view> types);
    record const *object_of(record const &owner, std::string_view name,
                            std::initializer_list<std::string_view> types);
    double number(record const &r, std::string_view name, double absent = 0);
    unsigned whole(record const &r, std::string_view name, unsigned absent = 0);
    std::wstring text(record const &r, std::string_view name);
    [[nodiscard]] std::wstring decoded(std::string const &text) const;
    void fault(int result = c_gp_no_legend) { f_result = f_result == c_gp_ok ? result : f_result; }

    Tvx_color color(record const &symbol, std::string_view name, Tvx_color absent);
    double millimetres(record const &symbol, std::string_view name, double absent_points);

    // ---- symbols, into a style that is fresh
    owned_prm look(std::string_view reference);
    void fill_symbol(record const &symbol, void *pgn);
    void outline(record const &symbol, void *pgn);
    void stippled(record const &symbol, stipple const &cells, void *bpgn);
    stipple read_stipple(record const &r);
    void line_symbol(record const &symbol, void *pln);
    void line_layers(record const &symbol, void *list, int depth);
    void marker_symbol(record const &symbol, void *pnt);
    void marker_layers(record const &symbol, void *list, int depth);
    /// The font of a marker, if it is a character of one.
    bool font_of(record const &symbol, vx_fnt_type &font);
    std::vector<record const *> parts(record const &symbol, std::initializer_list<std::string_view> types);

    void read_classes(record const &legend, bool graduated);
    void set_base(void *target_prm, void *source_prm);
    void other_entry(void *prm, legend_class const *no_data);
    void fill_values(void *mngr);
    [[nodiscard]] bool do_overlap() const;
    void fill_ranges(void *mngr);

    odb::database const &f_objects;
    std::string f_type;
    unsigned f_page; ///< of texts that are no UTF-8
    int f_result = c_gp_ok;
    unsigned f_parts = 0;                ///< of compound symbols, looked at so far
    std::vector<legend_class> f_classes; ///< without the no-data class
    std::vector<legend_class> f_no_data; ///< none or one
};

record const *reader::object(std::string_view reference, std::initializer_list<std::string_view> types)
{
    auto const id = odb::to_whole(reference);
    auto const at = id ? f_objects.find(*id) : f_objects.end();
    if (at != f_objects.end() && std::ranges::count(types, at->second.type))
        return &at->second;
    fault();
    return nullptr;
}

record const *reader::object_of(record const &owner, std::string_view name,
                                std::initializer_list<std::string_view> types)
{
    auto const *const reference = owner.find(name);
    return reference ? object(*reference, types) : nullptr;
}

double reader::number(record const &r, std::string_view name, double absent)
{
    auto const value = r.number(name, absent);
    if (!value)
        fault();
    return value.value_or(absent);
}

unsigned reader::whole(record const &r, std::string_view name, unsigned absent)
{
    auto const value = r.whole(name, absent);
    if (!value)
        fault();
    return value.value_or(absent);
}

std::wstring reader::text(record const &r, std::string_view name)
{
    auto const value = r.text(name);
    if (!value)
        fault();
    return decoded(value.value_or(std::string()));
}

std::wstring reader::decoded(std::string const &text) const
{
    auto wide = vx::text::to_wide(text);
    if (vx::text::system_code_page() == vx::text::c_cp_utf8 && !is_utf8(wide))
        wide = vx::text::to_wide(text, f_page);
    return wide;
}

Tvx_color reader::color(record const &symbol, std::string_view name, Tvx_color absent)
{
    auto const *const r = object_of(symbol, name, {"TClr"});
    if (!r)
        return absent;
    auto const label = r->text("Name");
    if (!label)
        fault();
    auto const part = [&](std::string_view of) {
        unsigned const value = whole(*r, of);
        if (value > 0xFFFF)
            fault();
        return static_cast<unsigned char>(value >> 8);
    };
    bool const none = label && is_same_text(*label, "Transparent");
    return vx_clr_init_rgba(part("Red"), part("Green"), part("Blue"), none ? 0 : 255);
}

double reader::millimetres(record const &symbol, std::string_view name, double absent_points)
{
    double const points = number(symbol, name, absent_points);
    if (points < 0)
        fault();
    return points * c_mm_per_point;
}

owned_prm reader::look(std::string_view reference)
{
    owned_prm prm(vx_stl_prm_create(f_type.c_str()));
    auto const *const symbol =
        object(reference, {"BShSym", "VShSym", "BLnSym", "CLnSym", "BMkSym", "CMkSym"});
    if (!symbol)
        return prm;
    bool const is_line = symbol->type.ends_with("LnSym"), is_marker = symbol->type.ends_with("MkSym");
    if (auto *const pnt = vx_stl_prm_get_pnt_style_ptr(prm.get(), false); pnt && is_marker)
        marker_symbol(*symbol, pnt);
    else if (auto *const pln = vx_stl_prm_get_pln_style_ptr(prm.get(), false); pln && is_line)
        line_symbol(*symbol, pln);
    else if (auto *const pgn = vx_stl_prm_get_pgn_style_ptr(prm.get(), false); pgn && !is_line && !is_marker)
        fill_symbol(*symbol, pgn);
    else
        fault(c_gp_wrong_type);
    return prm;
}

void reader::fill_symbol(record const &symbol, void *pgn)
{
    auto *const fill = vx_pgn_style_get_bpgn_style_ptr(pgn);
    auto const ink = color(symbol, "Color", vx_clr_init_rgb(0, 0, 0));
    vx_bpgn_style_set_color(fill, ink);
    vx_pgn_style_set_pgn_visible(pgn, ink.a != 0);
    vx_pgn_style_set_pnt_visible(pgn, false);
    outline(symbol, pgn);
    if (auto const *const pattern = object_of(symbol, "Stipple", {"Stipple"})) {
        auto const cells = read_stipple(*pattern);
        auto const ground = color(symbol, "BgColor", vx_clr_init_rgba(255, 255, 255, 0));
        bool const full = std::ranges::all_of(cells.cells, [](bool on) { return on; });
        if (full || f_result != c_gp_ok)
            return;
        stippled(symbol, cells, fill);
        vx_pgn_style_set_pgn_visible(pgn, ink.a != 0 || ground.a != 0);
    }
}

void reader::outline(record const &symbol, void *pgn)
{
    // A fill that names a colour or width of its outline has one unless it says otherwise.
    bool const named = symbol.has("OutlineColor") || symbol.has("OutlineWidth");
    bool const drawn = number(symbol, "Outline", named ? 1 : 0) != 0;
    auto const ink = color(symbol, "OutlineColor", vx_clr_init_rgb(0, 0, 0));
    auto *const line = vx_pgn_style_get_bpln_style_ptr(pgn);
    vx_bpln_style_set_color(line, ink);
    double const width = millimetres(symbol, "OutlineWidth", 0);
    vx_bpln_style_set_width(line, width > 0 ? width : c_hairline);
    vx_pgn_style_set_pln_visible(pgn, drawn && ink.a != 0);
}

stipple reader::read_stipple(record const &r)
{
    stipple result{whole(r, "Columns"), whole(r, "Rows"), {}};
    std::string digits;
    for (auto words : r.all("Bits"))
        while (!words.empty()) {
            auto const end = std::min(words.find_first_of(" \t"), words.size());
            auto word = words.substr(0, end);
            words.remove_prefix(std::min(end + 1, words.size()));
            if (word.size() > 2 && word[0] == '0' && (word[1] | 0x20) == 'x')
                word.remove_prefix(2);
            if (!word.empty() && !odb::to_whole("0x" + std::string(word)))
                fault();
            digits += word;
        }
    std::size_t const bits = digits.size() * 4;
    if (result.columns == 0 || result.rows == 0 || result.columns > c_largest_stipple ||
        result.rows > c_largest_stipple || bits < std::size_t{result.columns} * result.rows)
        fault();
    if (f_result != c_gp_ok)
        return {};
    // Rows are filled up to whole words of some size, unless the bits say that they are not.
    std::size_t stride = result.columns;
    for (std::size_t const word : {1, 8, 16, 32}) {
        std::size_t const padded = (result.columns + word - 1) / word * word;
        if (padded * result.rows == bits)
            stride = padded;
    }
    for (unsigned row = 0; row < result.rows; ++row)
        for (unsigned column = 0; column < result.columns; ++column) {
            std::size_t const bit = row * stride + column;
            char const digit = digits[bit / 4];
            int const value = digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
            result.cells.push_back((value >> (3 - bit % 4) & 1) != 0);
        }
    return result;
}

void reader::stippled(record const &symbol, stipple const &cells, void *bpgn)
{
    auto *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(bpgn));
    if (auto const ground = color(symbol, "BgColor", vx_clr_init_rgba(255, 255, 255, 0)); ground.a != 0)
        vx_pgn_fill_lr_set_color(vx_style_lrs_add_lr(list, c_pgn_fill_style_lr), ground);
    vx_bpgn_style_set_use_complex(bpgn, true);
    auto const ink = color(symbol, "Color", vx_clr_init_rgb(0, 0, 0));
    if (ink.a == 0)
        return;
    auto *const spots = vx_style_lrs_add_lr(list, c_pgn_spot_style_lr);
    vx_pgn_spot_lr_set_spot_type(spots, 0);
    vx_pgn_spot_lr_set_dx(spots, cells.columns * c_mm_per_point);
    vx_pgn_spot_lr_set_dy(spots, cells.rows * c_mm_per_point);
    vx_pgn_spot_lr_set_use_cpx_pnt(spots, true);
    auto *const drawing = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(spots)), c_pnt_geom_style_lr);
    unsigned const side = std::max(cells.columns, cells.rows);
    vx_pnt_geom_lr_set_fill(drawing, true);
    vx_pnt_geom_lr_set_color(drawing, ink);
    vx_pnt_geom_lr_set_size(drawing, side * c_mm_per_point);
    vx_pnt_geom_lr_set_line_width(drawing, 0);
    // Each run of cells in a row is a rectangle.
    auto const x = [&](unsigned column) { return (column - cells.columns / 2.0) / side; };
    auto const y = [&](unsigned row) { return (cells.rows / 2.0 - row) / side; };
    for (unsigned row = 0; row < cells.rows; ++row)
        for (unsigned column = 0; column < cells.columns;) {
            unsigned const first = column;
            while (column < cells.columns && cells.at(row, column))
                ++column;
            if (column > first) {
                Tvx_pnt_d2 const corners[] = {
                    {x(first), y(row)}, {x(column), y(row)}, {x(column), y(row + 1)}, {x(first), y(row + 1)}};
                vx_pnt_geom_lr_add_part(drawing, corners, 4);
            } else
                ++column;
        }
}

std::vector<record const *> reader::parts(record const &symbol, std::initializer_list<std::string_view> types)
{
    auto references = symbol.all("Symbols");
    if (references.size() == 1) {
        auto const id = odb::to_whole(references.front());
        auto const at = id ? f_objects.find(*id) : f_objects.end();
        if (at != f_objects.end() && at->second.type == "SymList")
            references = at->second.all("Child");
    }
    std::vector<record const *> result;
    if (references.empty() || references.size() > c_most_layers)
        fault();
    else
        for (auto const reference : references)
            if (auto const *const part = object(reference, types))
                result.push_back(part);
    return result;
}

void reader::line_symbol(record const &symbol, void *pln)
{
    vx_pln_style_set_pnt_visible(pln, false);
    vx_pln_style_set_beg_visible(pln, false);
    vx_pln_style_set_end_visible(pln, false);
    auto *const line = vx_pln_style_get_bpln_style_ptr(pln);
    auto const ink = color(symbol, "Color", vx_clr_init_rgb(0, 0, 0));
    double const width = millimetres(symbol, "Width", 0);
    vx_bpln_style_set_color(line, ink);
    vx_bpln_style_set_width(line, width > 0 ? width : c_hairline);
    if (symbol.type == "BLnSym" && !symbol.has("Pattern")) {
        vx_pln_style_set_pln_visible(pln, ink.a != 0);
        return;
    }
    auto *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(line));
    line_layers(symbol, list, 0);
    vx_bpln_style_set_use_complex(line, true);
    vx_pln_style_set_pln_visible(pln, vx_style_lrs_get_size(list) > 0);
    if (auto *const top = vx_style_lrs_get_lr_ptr(list, 0); top && symbol.type == "CLnSym") {
        vx_bpln_style_set_color(line, vx_pln_cart_lr_get_color(top));
        vx_bpln_style_set_width(line, vx_pln_cart_lr_get_width(top));
    }
}

void reader::line_layers(record const &symbol, void *list, int depth)
{
    if (f_result != c_gp_ok || ++f_parts > c_most_parts)
        return fault();
    if (symbol.type == "CLnSym") {
        if (depth == c_deepest)
            return fault();
        for (auto const *const part : parts(symbol, {"BLnSym", "CLnSym"}))
            line_layers(*part, list, depth + 1);
        return;
    }
    if (vx_style_lrs_get_size(list) == c_most_layers)
        return fault();
    auto const ink = color(symbol, "Color", vx_clr_init_rgb(0, 0, 0));
    double const width = millimetres(symbol, "Width", 0);
    std::vector<double> dashes;
    for (auto const entry : symbol.all("Pattern")) {
        auto rest = entry;
        while (!rest.empty()) {
            auto const end = std::min(rest.find_first_of(" \t"), rest.size());
            auto const length = odb::to_number(rest.substr(0, end));
            if (!length || *length < 0)
                return fault();
            dashes.push_back(*length * c_mm_per_point);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    if (ink.a == 0)
        return;
    auto *const layer = vx_style_lrs_add_lr(list, c_pln_cart_style_lr);
    vx_pln_cart_lr_set_color(layer, ink);
    vx_pln_cart_lr_set_width(layer, width > 0 ? width : c_hairline);
    vx_pln_cart_lr_set_casing_width(layer, 0);
    bool const full = std::ranges::all_of(dashes, [](double length) { return length == 0; });
    vx_pln_cart_lr_set_dashes(layer, dashes.data(), full ? 0 : static_cast<unsigned>(dashes.size()));
}

bool reader::font_of(record const &symbol, vx_fnt_type &font)
{
    auto const *const r = object_of(symbol, "Font", {"NFont"});
    if (!r)
        return false;
    for (auto const *const name : {"Family", "Name", "FaceName"})
        if (auto const family = text(*r, name); !family.empty()) {
            font.set_wname(family.c_str());
            return true;
        }
    return false;
}

void reader::marker_symbol(record const &symbol, void *pnt)
{
    auto *const point = vx_pnt_style_get_bpnt_style_ptr(pnt);
    if (symbol.type == "BMkSym" && number(symbol, "Angle") == 0) {
        auto const ink = color(symbol, "Color", vx_clr_init_rgb(0, 0, 0));
        vx_bpnt_style_set_color(point, ink);
        if (double const size = millimetres(symbol, "Size", 0); size > 0)
            vx_bpnt_style_set_size(point, size);
        vx_fnt_type font;
        bool const is_character = font_of(symbol, font);
        vx_bpnt_style_set_use_figure(point, !is_character);
        if (is_character) {
            vx_bpnt_style_set_fnt_type(point, &font);
            vx_bpnt_style_set_symbol(point, whole(symbol, "Pattern"));
        }
        vx_pnt_style_set_pnt_visible(pnt, ink.a != 0);
        return;
    }
    auto *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpnt_style_get_complex_style(point));
    marker_layers(symbol, list, 0);
    vx_bpnt_style_set_use_complex(point, true);
    vx_pnt_style_set_pnt_visible(pnt, vx_style_lrs_get_size(list) > 0);
}

void reader::marker_layers(record const &symbol, void *list, int depth)
{
    if (f_result != c_gp_ok || ++f_parts > c_most_parts)
        return fault();
    if (symbol.type == "CMkSym") {
        if (depth == c_deepest)
            return fault();
        for (auto const *const part : parts(symbol, {"BMkSym", "CMkSym"}))
            marker_layers(*part, list, depth + 1);
        return;
    }
    if (vx_style_lrs_get_size(list) == c_most_layers)
        return fault();
    auto const ink = color(symbol, "Color", vx_clr_init_rgb(0, 0, 0));
    double const size = millimetres(symbol, "Size", 8), angle = number(symbol, "Angle");
    unsigned const glyph = whole(symbol, "Pattern");
    vx_fnt_type font;
    bool const is_character = font_of(symbol, font);
    if (ink.a == 0)
        return;
    if (is_character) {
        auto *const layer = vx_style_lrs_add_lr(list, c_pnt_symb_style_lr);
        vx_fnt_type_assign(vx_pnt_symb_lr_get_fnt_type_ptr(layer), &font);
        vx_pnt_symb_lr_set_symbol(layer, glyph);
        vx_pnt_symb_lr_set_color(layer, ink);
        vx_pnt_symb_lr_set_size(layer, size);
        vx_pnt_symb_lr_set_angle(layer, angle);
        return;
    }
    auto *const layer = vx_style_lrs_add_lr(list, c_pnt_figr_style_lr);
    vx_pnt_figr_lr_set_color(layer, ink);
    vx_pnt_figr_lr_set_size_x(layer, size);
    vx_pnt_figr_lr_set_size_y(layer, size);
    vx_pnt_figr_lr_set_angle(layer, angle);
}

void reader::read_classes(record const &legend, bool graduated)
{
    auto const *const symbols = object_of(legend, "Symbols", {"SymList"});
    auto const classes = legend.all("Class");
    auto const children = symbols ? symbols->all("Child") : std::vector<std::string_view>();
    if (classes.empty() || classes.size() != children.size())
        return fault();
    for (std::size_t i = 0; i < classes.size() && f_result == c_gp_ok; ++i) {
        auto const *const r = object(classes[i], {"LClass"});
        if (!r)
            return;
        legend_class c;
        c.min = number(*r, "MinNum");
        c.max = number(*r, "MaxNum");
        c.no_data = whole(*r, "IsNoData") != 0;
        auto const min_text = decoded(number_text(c.min)), max_text = decoded(number_text(c.max));
        c.text = whole(*r, "IsText") != 0 ? text(*r, "MinStr") : min_text;
        c.label = text(*r, "Label");
        if (c.label.empty() && !c.no_data)
            c.label = graduated && c.min != c.max ? min_text + L" - " + max_text : c.text;
        c.look = look(children[i]);
        (c.no_data ? f_no_data : f_classes).push_back(std::move(c));
    }
    if (f_classes.empty() || f_no_data.size() > 1)
        fault();
}

/// Copies the base style; that of selected objects stays.
void reader::set_base(void *target_prm, void *source_prm)
{
    vx_pnt_style_assign(vx_stl_prm_get_pnt_style_ptr(target_prm, false),
                        vx_stl_prm_get_pnt_style_ptr(source_prm, false));
    vx_pln_style_assign(vx_stl_prm_get_pln_style_ptr(target_prm, false),
                        vx_stl_prm_get_pln_style_ptr(source_prm, false));
    vx_pgn_style_assign(vx_stl_prm_get_pgn_style_ptr(target_prm, false),
                        vx_stl_prm_get_pgn_style_ptr(source_prm, false));
}

void reader::other_entry(void *prm, legend_class const *no_data)
{
    vx_scale_prm_set_visible(prm, no_data != nullptr);
    if (no_data)
        set_base(vx_scale_prm_get_stl_prm_ptr(prm), no_data->look.get());
}

void reader::fill_values(void *mngr)
{
    auto *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_val_scale_set_size(scale, 0);
    vx_val_scale_set_size(scale, static_cast<unsigned>(f_classes.size()));
    for (unsigned i = 0; i < f_classes.size(); ++i) {
        auto const &c = f_classes[i];
        vx_val_scale_set_text_w(scale, i, c.text.c_str());
        vx_val_scale_set_caption_w(scale, i, c.label.c_str());
        vx_val_scale_set_stl_prm(scale, i, c.look.get(), false);
    }
    auto const *const no_data = f_no_data.empty() ? nullptr : f_no_data.data();
    vx_val_scale_set_other_caption_w(scale, no_data ? no_data->label.c_str() : L"");
    other_entry(vx_val_scale_get_other_prm_ptr(scale), no_data);
}

/// Whether some value, but for a bound that neighbours share, lies in two classes.
bool reader::do_overlap() const
{
    std::vector<std::pair<double, double>> spans;
    for (auto const &c : f_classes)
        spans.emplace_back(c.min, c.max);
    std::ranges::sort(spans);
    double reached = -std::numeric_limits<double>::infinity();
    for (auto const &[min, max] : spans) {
        if (min < reached)
            return true;
        reached = std::max(reached, max);
    }
    return false;
}

void reader::fill_ranges(void *mngr)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    if (std::ranges::any_of(f_classes, [](auto const &c) { return c.min > c.max; }))
        return fault();
    // Of classes that overlap the first one counts, in a legend as in a scale: these keep their order.
    bool const overlap = do_overlap();
    if (!overlap)
        std::ranges::stable_sort(f_classes, {}, &legend_class::min);
    auto *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr);
    vx_rng_scale_set_size(scale, 0);
    vx_rng_scale_set_size(scale, static_cast<unsigned>(f_classes.size()));
    vx_rng_scale_set_round_digits(scale, -30);
    double least = c_infinity;
    double reached = -c_infinity; // what the classes before hold goes up to here
    for (unsigned i = 0; i < f_classes.size(); ++i) {
        auto const &c = f_classes[i];
        bool const touches = !overlap && c.min <= std::nextafter(reached, c_infinity);
        double const lower = touches ? std::min(reached, c.max) : std::nextafter(c.min, -c_infinity);
        vx_rng_scale_set_min(scale, i, lower);
        vx_rng_scale_set_max(scale, i, c.max);
        least = std::min(least, lower);
        reached = std::max(reached, c.max);
        vx_rng_scale_set_caption_w(scale, i, c.label.c_str());
        vx_rng_scale_set_stl_prm(scale, i, c.look.get(), false);
    }
    vx_rng_scale_set_min_value(scale, least);
    vx_rng_scale_set_max_value(scale, reached);
    vx_scale_prm_set_visible(vx_rng_scale_get_min_prm_ptr(scale), false);
    vx_scale_prm_set_visible(vx_rng_scale_get_max_prm_ptr(scale), false);
    auto const *const no_data = f_no_data.empty() ? nullptr : f_no_data.data();
    vx_rng_scale_set_other_caption_w(scale, no_data ? no_data->label.c_str() : L"");
    other_entry(vx_rng_scale_get_other_prm_ptr(scale), no_data);
}

int reader::run(void *mngr)
{
    auto const is_root = [](auto const &entry) { return entry.second.type == "ODB"; };
    auto const root = std::ranges::find_if(f_objects, is_root);
    if (root == f_objects.end() || root->second.text("FirstRootClassName") != "Legend")
        return c_gp_no_legend;
    auto const *const legend = object_of(root->second, "Roots", {"Legend"});
    if (!legend)
        return c_gp_no_legend;
    auto const type = static_cast<legend_type>(whole(*legend, "LegType"));
    read_classes(*legend, type == legend_type::graduated);
    std::wstring field;
    if (auto const *const name = object_of(*legend, "FieldNames", {"AVStr"}))
        field = text(*name, "S");
    if (f_result != c_gp_ok)
        return f_result;
    switch (type) {
    case legend_type::single:
        set_base(vx_stl_mngr_get_simple_sp_ptr(mngr), f_classes.front().look.get());
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_simple);
        break;
    case legend_type::unique:
        fill_values(mngr);
        if (!field.empty())
            vx_stl_mngr_set_val_prop_name_w(mngr, field.c_str());
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
        break;
    case legend_type::graduated:
        fill_ranges(mngr);
        if (!field.empty())
            vx_stl_mngr_set_rng_prop_name_w(mngr, field.c_str());
        vx_stl_mngr_set_need_scale(mngr, false);
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_range);
        break;
    default:
        fault();
    }
    return f_result;
}
} // namespace

int read_legend(std::string_view text, void *mngr)
{
    auto const objects = odb::read(text);
    if (!objects)
        return c_gp_no_legend;
    owned_mngr copy(vx_stl_mngr_clone(mngr));
    int const result = reader(*objects, vx_stl_mngr_get_style_type(mngr)).run(copy.get());
    if (result == c_gp_ok)
        vx_stl_mngr_assign(mngr, copy.get());
    return result;
}
} // namespace vx::avl
