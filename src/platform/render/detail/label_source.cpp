#include "platform/render/detail/label_source.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/scale_rows.h"
#include "platform/render/detail/tos_table.h"
#include "platform/styles/detail/mngr_model.h"
#include "platform/styles/detail/style_model.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_txt_settings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vx::render {
namespace {
/// Of reading, before who waits is asked.
constexpr int c_slice_ms = 10;
/// Smaller letters nobody reads, and larger ones nobody wants.
constexpr double c_least_size_px = 2;
constexpr double c_most_size_px = 400;
/// On a fine device more pixels are no larger.
constexpr double c_most_size_mm = 100;
constexpr double c_back_margin_em = 0.15;
/// More is not written: longer texts are cut.
constexpr std::size_t c_most_characters = 64;
constexpr std::size_t c_most_lines = 8;
constexpr wchar_t c_more = L'\u2026';

[[nodiscard]] bool is_readable(double size, label_scale const &scale)
{
    return size >= c_least_size_px && size <= std::max(c_most_size_px, c_most_size_mm * scale.px_per_mm);
}

Ivx_layer *text_layer_of(Ivx_layer *layer)
{
    auto *const of_shape = vx_shp_lr2d_get_text_layer_ptr(layer);
    return of_shape ? of_shape : vx_tos_2crd_lr2d_get_text_layer_ptr(layer);
}

void *text_settings_of(Ivx_layer *layer)
{
    auto *const of_shape = vx_shp_lr2d_get_txt_settings(layer);
    return of_shape ? of_shape : vx_tos_2crd_lr2d_get_txt_settings(layer);
}

int hint_of(Ivx_layer *parent)
{
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const text(vx_dtld_lr2d_create(parent));
    return vx_textlr_info_get_hint(vx_dtld_lr2d_get_text_class(text.get()));
}

/// A line as it is written: no control characters, no spaces round it, not longer than a line may be.
std::wstring tidy(std::wstring_view text)
{
    std::wstring line;
    for (wchar_t const c : text.substr(0, 4 * c_most_characters)) {
        bool const is_space = c < L' ' || c == 0x7F;
        if (line.size() == c_most_characters) {
            line.back() = c_more;
            return line;
        }
        if ((is_space || c == L' ') && (line.empty() || line.back() == L' '))
            continue;
        line += is_space ? L' ' : c;
    }
    if (!line.empty() && line.back() == L' ')
        line.pop_back();
    return line;
}

void append_lines(std::wstring &all, std::wstring_view text)
{
    for (std::size_t lines = std::ranges::count(all, L'\n'); lines < c_most_lines; ++lines) {
        auto const end = text.find(L'\n');
        std::wstring const line = tidy(text.substr(0, end));
        if (!line.empty()) {
            if (!all.empty())
                all += L'\n';
            all += line;
        }
        if (end == std::wstring_view::npos)
            return;
        text.remove_prefix(end + 1);
    }
}

// ---- objects

class shape_objects final : public label_objects
{
public:
    explicit shape_objects(Ivx_attr_data *data)
        : f_data(vx_attr_data_retain(data)), f_files(vx_attr_files_open(data, 1, 0)), f_table(f_files.get())
    {
    }
    row_table &table() override { return f_table; }
    bool is_damaged() const override { return !f_shapes || vx_shape_files_is_damaged(f_shapes.get()); }
    bool visit(Tvx_box_d2 const &box, work_meter &meter, visitor visit) override;

private:
    vx::owned<Ivx_attr_data, &vx_attr_data_release> f_data;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> f_files;
    attr_table f_table;
    vx::owned<Ivx_shape_files, &vx_shape_files_close> f_shapes;
};

bool shape_objects::visit(Tvx_box_d2 const &box, work_meter &meter, visitor visit)
{
    f_shapes.reset(vx_shape_files_begin(f_data.get()));
    if (!f_shapes)
        return true;
    if (!vx_shape_files_is_whole(f_shapes.get()) && std::isfinite(box.width()))
        if (Ivx_shape_files *const window = vx_shape_files_begin_window(f_data.get(), &box))
            f_shapes.reset(window);
    auto const pass = [](unsigned record, Tvx_shape_view const *shape, void *user) {
        return (*static_cast<visitor *>(user))(record, *shape);
    };
    auto *const open = f_shapes.get();
    for (unsigned first = 0;;) {
        unsigned const end = vx_shape_files_get_count(open);
        vx_shape_files_visit_from(open, &box, first, pass, &visit);
        first = end;
        if (meter.stopped())
            return false;
        bool const more = vx_shape_files_read_on(open, c_slice_ms);
        if (!meter.go_on(more ? c_slice_ms * 1e6 : 0))
            return false;
        if (!more && first == vx_shape_files_get_count(open))
            return true;
    }
}

/// Points of a property file.
class property_objects final : public label_objects
{
public:
    property_objects(Ivx_layer *layer, tos_file_ptr file) : f_file(std::move(file)), f_table(f_file.get())
    {
        std::wstring name;
        vx_tos_2crd_lr2d_get_wprop_name_x(layer, Tvx_std_wstring_adapter(name));
        f_x = f_table.field_index(name);
        vx_tos_2crd_lr2d_get_wprop_name_y(layer, Tvx_std_wstring_adapter(name));
        f_y = f_table.field_index(name);
    }
    row_table &table() override { return f_table; }
    bool is_damaged() const override { return f_table.is_damaged(); }
    bool visit(Tvx_box_d2 const &box, work_meter &meter, visitor visit) override
    {
        auto const end = std::min<unsigned long long>(vx_tos4_get_object_count_64(f_file.get()),
                                                      std::numeric_limits<unsigned>::max());
        if (f_x < 0 || f_y < 0)
            return true;
        for (unsigned record = 0; record < end; ++record) {
            bool has_x = false;
            bool has_y = false;
            Tvx_pnt_d2 const at{f_table.number(f_x, record, has_x), f_table.number(f_y, record, has_y)};
            constexpr unsigned c_starts[] = {0, 1};
            bool const is_near = has_x && has_y && at.x >= box.min_x && at.x <= box.max_x &&
                                 at.y >= box.min_y && at.y <= box.max_y;
            if (is_near && !visit(record, {c_shape_point, 1, c_starts, &at, {}}))
                return false;
            if (!meter.go_on(cost::c_object))
                return false;
        }
        return true;
    }

private:
    tos_file_ptr f_file;
    tos_table f_table;
    int f_x = -1;
    int f_y = -1;
};

// ---- text classes

class class_source final : public label_source
{
public:
    class_source(unsigned layer, int hint, std::unique_ptr<label_objects> objects,
                 tld::textlr_info const &info, label_scale const &scale, label_fonts &fonts,
                 std::vector<label_look> &looks)
        : label_source(layer, hint, std::move(objects))
    {
        double const grown = info.scale ? info.initial.settled_at(scale.growth()) / scale.growth() : 1;
        double const mm = scale.px_per_mm * grown;
        f_rule.lines.push_back({field_of(info.property_name), {}});
        f_rule.encoding = info.encoding;
        f_rule.size = info.size * mm;
        f_is_readable = is_readable(f_rule.size, scale);
        f_rule.back_margin = info.back ? c_back_margin_em * f_rule.size : 0;
        f_rule.angle = hint == c_textlr_hint_lines ? 0 : info.angle;
        f_rule.pos_x = hint == c_textlr_hint_lines ? 0 : info.text_pos_x;
        f_rule.pos_y = info.text_pos_y;
        bool const moved = hint != c_textlr_hint_lines || info.line_type == c_textlr_line_level;
        f_rule.delta_x = moved ? info.delta_x * mm : 0;
        f_rule.delta_y = moved ? -info.delta_y * mm : 0;
        f_rule.priority = info.priority;
        f_rule.overlap = info.place_overlap;
        f_rule.range = info.range;
        f_rule.duplicates = info.duplicates;
        f_rule.line_type = info.line_type;
        f_rule.line_direction = info.line_direction;
        f_rule.look = static_cast<unsigned>(looks.size());
        looks.push_back({fonts.number_of(info.font), f_rule.size, info.color, info.back, info.back_clr,
                         info.outline, info.outline_clr, info.outline_width * mm, info.shadow,
                         info.shadow_clr, info.outline ? info.shadow_width * mm : 0, info.shadow_gap_x * mm,
                         -info.shadow_gap_y * mm});
    }
    [[nodiscard]] bool writes() const { return f_rule.lines.front().field >= 0 && f_is_readable; }
    bool read_on(int milliseconds) override { return read_fields(f_rule, milliseconds); }
    label_rule const *rule_of(unsigned) override { return &f_rule; }
    bool needs_whole_map() const override
    {
        return f_rule.range == c_textlr_range_name || f_rule.duplicates == c_textlr_duplicates_one;
    }

private:
    label_rule f_rule;
    bool f_is_readable;
};

bool is_within_limits(tld::textlr_info const &info, double denominator)
{
    return (!info.use_min_scale || denominator >= info.min_scale) &&
           (!info.use_max_scale || denominator <= info.max_scale);
}

// ---- text settings

class mngr_source final : public label_source
{
public:
    mngr_source(unsigned layer, int hint, std::unique_ptr<label_objects> objects,
                styles::stl_mngr const &mngr, label_scale const &scale, label_fonts &fonts,
                std::vector<label_look> &looks)
        : label_source(layer, hint, std::move(objects)), f_rows(mngr, f_objects->table()),
          f_rules(f_rows.row_count())
    {
        for (unsigned row = 0; row < f_rules.size(); ++row)
            if (auto const *style = f_rows.style(row).as<styles::txt_style>(styles::variant_of_style::base);
                style && f_rows.visible(row))
                make_rule(f_rules[row], *style, scale, fonts, looks);
    }
    [[nodiscard]] bool writes() const
    {
        return std::ranges::any_of(f_rules, [](auto const &rule) { return rule.has_value(); });
    }
    bool read_on(int milliseconds) override
    {
        return f_rows.read_on(milliseconds) || std::ranges::any_of(f_rules, [&](auto const &rule) {
                   return rule && read_fields(*rule, milliseconds);
               });
    }
    label_rule const *rule_of(unsigned record) override
    {
        auto const &rule = f_rules[f_rows.row_of(record)];
        return rule ? &*rule : nullptr;
    }

private:
    void make_rule(std::optional<label_rule> &rule, styles::txt_style const &style, label_scale const &scale,
                   label_fonts &fonts, std::vector<label_look> &looks) const
    {
        double const mm = scale.px_per_mm;
        if (style.lines.lines.empty() || !is_readable(style.font_size * mm, scale))
            return;
        rule.emplace();
        for (std::wstring const &text : style.lines.lines)
            rule->lines.push_back({field_of(text), text});
        rule->size = style.font_size * mm;
        rule->back_margin = style.back ? c_back_margin_em * rule->size : 0;
        rule->angle = style.angle;
        rule->pos_x = style.pos_x;
        rule->pos_y = style.pos_y;
        rule->delta_x = style.delta_x * mm;
        rule->delta_y = -style.delta_y * mm;
        // Along a line text follows it, unless the style turns or moves it.
        bool const follows = style.angle == 0 && style.delta_x == 0 && style.delta_y == 0;
        rule->line_type = follows ? c_textlr_line_bends : c_textlr_line_level;
        rule->look = static_cast<unsigned>(looks.size());
        looks.push_back({fonts.number_of(style.font), rule->size, style.color, style.back, style.back_clr,
                         style.outline, style.outline_clr, style.outline_size * mm, style.shadow,
                         style.shadow_clr, style.outline ? style.shadow_width * mm : 0,
                         style.shadow_gap_x * mm, -style.shadow_gap_y * mm});
    }

    row_source f_rows;
    std::vector<std::optional<label_rule>> f_rules;
};

template <class Source>
void keep_writing(std::unique_ptr<Source> source, std::vector<std::unique_ptr<label_source>> &sources)
{
    if (source->writes())
        sources.push_back(std::move(source));
}

void add_classes(Ivx_layer *text_layer, unsigned place, label_scale const &scale, label_fonts &fonts,
                 std::vector<label_look> &looks, std::vector<std::unique_ptr<label_source>> &sources)
{
    Ivx_layer *const parent = vx_dtld_lr2d_get_parent_lr2d_ptr(text_layer);
    if (!vx_lr2d_get_visible(text_layer))
        return;
    for (int i = 0; i < vx_dtld_lr2d_count_text_class(text_layer); ++i) {
        auto const &info =
            *static_cast<tld::textlr_info const *>(vx_dtld_lr2d_get_text_class_by_index(text_layer, i));
        if (info.property_name.empty() || !is_within_limits(info, scale.denominator))
            continue;
        if (auto objects = label_objects::open(parent))
            keep_writing(std::make_unique<class_source>(place, info.hint, std::move(objects), info, scale,
                                                        fonts, looks),
                         sources);
    }
}
} // namespace

std::unique_ptr<label_objects> label_objects::open(Ivx_layer *layer)
{
    if (Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(layer))
        return vx_attr_data_open(data) ? std::make_unique<shape_objects>(data) : nullptr;
    if (!vx_tos_2crd_lr2d_get_stl_mngr(layer))
        return nullptr;
    std::wstring name;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(name));
    tos_file_ptr file(vx_tos4_file_open_w(name.c_str(), true));
    return file ? std::make_unique<property_objects>(layer, std::move(file)) : nullptr;
}

label_source::label_source(unsigned layer, int hint, std::unique_ptr<label_objects> objects)
    : f_layer(layer), f_hint(hint), f_objects(std::move(objects))
{
}

void label_source::add_sources(Ivx_layer *layer, unsigned place, label_scale const &scale, label_fonts &fonts,
                               std::vector<label_look> &looks,
                               std::vector<std::unique_ptr<label_source>> &sources)
{
    if (!vx_lr2d_get_visible(layer))
        return;
    add_classes(layer, place, scale, fonts, looks, sources);
    add_classes(text_layer_of(layer), place, scale, fonts, looks, sources);
    void *const list = vx_txt_settings_get_stl_mngr_list(text_settings_of(layer));
    if (!list || !vx_stl_mngr_list_get_visible(list))
        return;
    int const hint = hint_of(layer);
    for (unsigned i = 0; i < vx_stl_mngr_list_get_count(list); ++i) {
        auto const &mngr = *static_cast<styles::stl_mngr const *>(vx_stl_mngr_list_get_mngr(list, i));
        if (auto objects = label_objects::open(layer))
            keep_writing(
                std::make_unique<mngr_source>(place, hint, std::move(objects), mngr, scale, fonts, looks),
                sources);
    }
}

bool label_source::has_any(Ivx_layer *layer)
{
    if (!vx_lr2d_get_visible(layer))
        return false;
    void *const texts = vx_txt_settings_get_stl_mngr_list(text_settings_of(layer));
    return vx_dtld_lr2d_count_text_class(layer) > 0 || vx_lr2d_get_visible(text_layer_of(layer)) ||
           (texts && vx_stl_mngr_list_get_visible(texts));
}

int label_source::field_of(std::wstring const &name) const
{
    return name.empty() ? -1 : f_objects->table().field_index(name);
}

bool label_source::read_fields(label_rule const &rule, int milliseconds)
{
    return std::ranges::any_of(rule.lines, [&](label_rule::line const &line) {
        return line.field >= 0 && f_objects->table().read_on(line.field, milliseconds);
    });
}

std::wstring label_source::text_of(label_rule const &rule, unsigned record)
{
    constexpr std::size_t c_most_bytes = 4 * c_most_characters * c_most_lines;
    std::wstring all;
    bool has_value = false;
    bool has_fields = false;
    for (label_rule::line const &line : rule.lines) {
        if (line.field < 0) {
            append_lines(all, line.text);
            continue;
        }
        has_fields = true;
        bool known = false;
        auto const text = vx::text::utf8_to_wide(
            f_objects->table().text(line.field, record, known).substr(0, c_most_bytes));
        if (!known || text.empty())
            continue;
        has_value = true;
        append_lines(all, rule.encoding == 0 ? text : vx_textlr_decode(text, rule.encoding));
    }
    // Words that stand before a value say nothing without one.
    return has_fields && !has_value ? std::wstring() : all;
}
} // namespace vx::render
