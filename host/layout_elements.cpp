#include "host/layout_elements.h"

#include "host/captions.h"

#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/render/vx_layout_render.h"
#include "platform/styles/vx_style.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {
struct element_kind
{
    std::string_view key;
    Tvx_layout_window_caption name;
    Tvx_pnt_d2 size; ///< of a new one, mm
};
constexpr element_kind c_kinds[] = {
    {c_lr_key_layout_page, c_lay_kind_page, {210, 297}},
    {c_lr_key_layout_scene_frame, c_lay_kind_frame, {120, 90}},
    {c_lr_key_layout_text, c_lay_kind_text, {60, 10}},
    {c_lr_key_layout_neatline, c_lay_kind_neatline, {190, 277}},
    {c_lr_key_layout_legend, c_lay_kind_legend, {60, 70}},
    {c_lr_key_layout_north_arrow, c_lay_kind_north_arrow, {16, 20}},
    {c_lr_key_layout_scale_bar, c_lay_kind_scale_bar, {70, 10}},
    {c_lr_key_layout_scale_text, c_lay_kind_scale_text, {50, 7}},
    {c_lr_key_layout_image, c_lay_kind_image, {40, 30}},
    {c_lr_key_layout_table, c_lay_kind_table, {110, 60}},
    {c_lr_key_layout_ole_object, c_lay_kind_ole_object, {60, 40}},
};

element_kind const *kind_of(std::string_view key)
{
    auto const *const found = std::ranges::find(c_kinds, key, &element_kind::key);
    return found == std::end(c_kinds) ? nullptr : found;
}

constexpr double c_edge = 10; ///< what a new page leaves free round its elements
constexpr double c_gap = 4;
constexpr double c_title_height = 12;
constexpr double c_title_letters = 7;
constexpr double c_small_letters = 3;
constexpr double c_legend_letters = 3.2;
constexpr double c_least_letters = 1.8; ///< smaller ones are hard to read on paper
constexpr double c_side_width = 62;     ///< of the column beside the map of a page that lies across
constexpr double c_foot_height = 62;
/// Round numbers that scales are made of.
constexpr double c_round[] = {1, 1.25, 1.5, 2, 2.5, 3, 4, 5, 6, 7.5, 8, 10};

void set_letters(Ivx_layer *element, double size, int align_x, int align_y, bool bold = false)
{
    Tvx_layout_writing writing = vx_layout_lr2d_get_writing(element);
    writing.size = size;
    writing.align_x = align_x;
    writing.align_y = align_y;
    writing.font.bold = bold;
    vx_layout_lr2d_set_writing(element, writing);
}

Tvx_box_d2 box_at(double x, double y, double width, double height)
{
    return {x, y, x + width, y + height};
}

/// Makes a legend of many lines smaller, so that all of them show, as far as they can be read.
void fit_legend(Ivx_scn_2d *layout, Ivx_layer *legend)
{
    constexpr int c_most_tries = 6;
    auto const shorter = [](double mm) { return std::floor(mm * 10) / 10; };
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(legend);
    for (int i = 0; i < c_most_tries; ++i) {
        Tvx_pnt_d2 const wanted = vx_layout_get_wanted_size(layout, legend);
        Tvx_layout_writing writing = vx_layout_lr2d_get_writing(legend);
        double const part = std::max(std::min(box.height() / wanted.y, box.width() / wanted.x),
                                     c_least_letters / writing.size);
        if (!(part < 1))
            return;
        writing.size = shorter(writing.size * part);
        vx_layout_lr2d_set_writing(legend, writing);
        Tvx_layout_legend lines = vx_layout_legend_lr2d_get(legend);
        lines.sample_width = shorter(lines.sample_width * part);
        lines.sample_height = shorter(lines.sample_height * part);
        lines.gap = shorter(lines.gap * part);
        vx_layout_legend_lr2d_set(legend, lines);
    }
}

/// Adds elements to a layout from the lowest.
class page_maker
{
public:
    explicit page_maker(Ivx_scn_2d *layout) : f_layout(layout) {}

    Ivx_layer *add(char const *key, Tvx_box_d2 const &box, QString const &file = {})
    {
        Tvx_layout_element_ptr element = vx_layout_make_element(key, vx_layout_kind_name(key), f_layout);
        vx_layout_lr2d_set_box(element.get(), box);
        vx_layout_set_file(element.get(), file);
        Ivx_layer *const added = element.get();
        if (!vx_scn_2d_insert(f_layout, vx_scn_2d_get_count(f_layout), added))
            return nullptr;
        static_cast<void>(element.release());
        return added;
    }

private:
    Ivx_scn_2d *f_layout;
};

bool have_equal_looks(Ivx_layer *a, Ivx_layer *b)
{
    auto const writing = [](Ivx_layer const *layer) {
        Tvx_layout_writing const w = vx_layout_lr2d_get_writing(layer);
        return std::tuple(w.font, w.size, w.color, w.align_x, w.align_y);
    };
    return writing(a) == writing(b) && vx_layout_lr2d_get_box(a) == vx_layout_lr2d_get_box(b) &&
           vx_pgn_style_equal(vx_layout_lr2d_get_pgn_style_ptr(a), vx_layout_lr2d_get_pgn_style_ptr(b));
}

bool have_equal_frames(Ivx_layer const *a, Ivx_layer const *b)
{
    double ax = 0, ay = 0, bx = 0, by = 0;
    vx_layout_scene_frame_lr2d_get_scale(a, &ax, &ay);
    vx_layout_scene_frame_lr2d_get_scale(b, &bx, &by);
    return ax == bx && ay == by &&
           vx_layout_scene_frame_lr2d_get_center(a) == vx_layout_scene_frame_lr2d_get_center(b);
}

bool have_equal_texts(Ivx_layer const *a, Ivx_layer const *b)
{
    std::wstring text, other;
    vx_layout_text_lr2d_get_wtext(a, Tvx_std_wstring_adapter(text));
    vx_layout_text_lr2d_get_wtext(b, Tvx_std_wstring_adapter(other));
    return text == other && vx_layout_text_lr2d_get_angle(a) == vx_layout_text_lr2d_get_angle(b);
}

bool have_equal_signs(Ivx_layer const *a, Ivx_layer const *b)
{
    auto const bar = [](Ivx_layer const *layer) {
        Tvx_layout_scale_bar const v = vx_layout_scale_bar_lr2d_get(layer);
        return std::tuple(v.kind, v.unit, v.divisions, v.length, v.height);
    };
    auto const arrow = [](Ivx_layer const *layer) {
        Tvx_layout_north_arrow const v = vx_layout_north_arrow_lr2d_get(layer);
        return std::tuple(v.kind, v.angle, v.has_letter);
    };
    auto const table = [](Ivx_layer const *layer) {
        Tvx_layout_table const v = vx_layout_table_lr2d_get(layer);
        return std::tuple(v.rows, v.fields);
    };
    return bar(a) == bar(b) && arrow(a) == arrow(b) && table(a) == table(b) &&
           vx_layout_image_lr2d_get_keep_ratio(a) == vx_layout_image_lr2d_get_keep_ratio(b);
}

bool have_equal_legends(Ivx_layer const *a, Ivx_layer const *b)
{
    auto const numbers = [](Tvx_layout_legend const &v) {
        return std::tie(v.title, v.columns, v.sample_width, v.sample_height, v.gap);
    };
    Tvx_layout_legend const own = vx_layout_legend_lr2d_get(a);
    Tvx_layout_legend const other = vx_layout_legend_lr2d_get(b);
    return numbers(own) == numbers(other) &&
           std::ranges::equal(
               own.items, other.items, [](Tvx_layout_legend_item const &x, Tvx_layout_legend_item const &y) {
                   return std::tie(x.is_text, x.text, x.visible) == std::tie(y.is_text, y.text, y.visible);
               });
}

std::wstring name_of(Ivx_layer const *element)
{
    std::wstring name;
    vx_lr2d_get_wcaption(element, Tvx_std_wstring_adapter(name));
    return name;
}
} // namespace

QString vx_layout_kind_name(std::string_view key)
{
    element_kind const *const kind = kind_of(key);
    return vx_layout_caption(kind ? kind->name : c_lay_kind_other);
}

bool vx_layout_is(Ivx_layer const *element, std::string_view key)
{
    return element && vx_lr2d_get_lr_type(element) == key;
}

bool vx_layout_has_page_kind(Ivx_layer const *element)
{
    return vx_layout_is(element, c_lr_key_layout_page);
}

bool vx_layout_names_frame(Ivx_layer const *element)
{
    return vx_layout_is(element, c_lr_key_layout_legend) ||
           vx_layout_is(element, c_lr_key_layout_scale_bar) ||
           vx_layout_is(element, c_lr_key_layout_scale_text) ||
           vx_layout_is(element, c_lr_key_layout_north_arrow);
}

QString vx_layout_file_of(Ivx_layer const *element)
{
    std::wstring file;
    vx_lr2d_get_wfilename(element, Tvx_std_wstring_adapter(file));
    return QString::fromStdWString(file);
}

void vx_layout_set_file(Ivx_layer *element, QString const &file)
{
    vx_lr2d_set_wfilename(element, file.toStdWString().c_str());
}

Tvx_layout_element_ptr vx_layout_make_element(char const *key, QString const &name, Ivx_scn_2d const *layout)
{
    Tvx_layout_element_ptr element(vx_lr2d_create(key));
    vx_lr2d_set_wcaption(element.get(), name.toStdWString().c_str());
    Ivx_layer const *const page = vx_layout_get_page(layout);
    Tvx_box_d2 const sheet = page ? vx_layout_lr2d_get_box(page) : box_at(0, 0, 210, 297);
    element_kind const *const kind = kind_of(key);
    Tvx_pnt_d2 size = kind ? kind->size : Tvx_pnt_d2{40, 30};
    if (vx_layout_is(element.get(), c_lr_key_layout_neatline))
        size = {sheet.width() - c_edge, sheet.height() - c_edge};
    size = {std::min(size.x, sheet.width()), std::min(size.y, sheet.height())};
    if (!vx_layout_has_page_kind(element.get()))
        vx_layout_lr2d_set_box(element.get(), box_at((sheet.width() - size.x) / 2,
                                                     (sheet.height() - size.y) / 2, size.x, size.y));
    return element;
}

double vx_layout_round_scale(double scale)
{
    if (!std::isfinite(scale) || scale <= 0)
        return 1;
    double const power = std::pow(10, std::floor(std::log10(scale)));
    for (double const round : c_round)
        if (round * power >= scale * (1 - 1e-9))
            return round * power;
    return 10 * power;
}

void vx_layout_show_box(Ivx_layer *frame, Tvx_box_d2 const &box)
{
    if (box.is_empty())
        return;
    vx_layout_scene_frame_lr2d_fit(frame, box);
    double x = 0, y = 0;
    vx_layout_scene_frame_lr2d_get_scale(frame, &x, &y);
    double const scale = vx_layout_round_scale(std::max(x, y));
    vx_layout_scene_frame_lr2d_set_scale(frame, scale, scale);
}

void vx_layout_make_page(Ivx_scn_2d *layout, Ivx_scn_2d *scene, Tvx_box_d2 const &shown, QString const &title)
{
    std::wstring scene_name;
    vx_scn_2d_get_wcaption(scene, Tvx_std_wstring_adapter(scene_name));
    bool const across = shown.is_empty() || shown.width() >= shown.height();
    double const width = across ? 297 : 210;
    double const height = across ? 210 : 297;
    double const inner_width = width - 2 * c_edge;
    double const top = c_edge + c_title_height + c_gap;
    double const map_width = across ? inner_width - c_side_width - c_gap : inner_width;
    double const map_height = height - c_edge - top - (across ? 0 : c_foot_height + c_gap);

    page_maker page(layout);
    vx_layout_lr2d_set_box(page.add(c_lr_key_layout_page, {}), box_at(0, 0, width, height));
    Ivx_layer *const frame = page.add(c_lr_key_layout_scene_frame, box_at(c_edge, top, map_width, map_height),
                                      QString::fromStdWString(scene_name));
    vx_layout_show_box(frame, shown);
    QString const name = QString::fromStdWString(name_of(frame));
    Ivx_layer *const heading =
        page.add(c_lr_key_layout_text, box_at(c_edge, c_edge, inner_width, c_title_height));
    vx_lr2d_set_wcaption(heading, vx_layout_caption(c_lay_title_element).toStdWString().c_str());
    vx_layout_text_lr2d_set_wtext(heading, title.toStdWString().c_str());
    set_letters(heading, c_title_letters, 0, 0, true);

    // Beside the map, or below it: the legend, and what tells direction and scale.
    double const left = across ? c_edge + map_width + c_gap : c_edge;
    double const side_top = across ? top : top + map_height + c_gap;
    double const legend_width = across ? c_side_width : inner_width - c_side_width - c_gap;
    double const signs_left = across ? left : c_edge + legend_width + c_gap;
    double const signs_width = c_side_width;
    double const bottom = height - c_edge;
    double const legend_height = across ? bottom - side_top - 48 : c_foot_height;
    Ivx_layer *const legend =
        page.add(c_lr_key_layout_legend, box_at(left, side_top, legend_width, legend_height), name);
    Tvx_layout_legend lines = vx_layout_legend_lr2d_get(legend);
    lines.title = vx_layout_kind_name(c_lr_key_layout_legend).toStdWString();
    lines.columns = across ? 1 : 2;
    vx_layout_legend_lr2d_set(legend, lines);
    set_letters(legend, c_legend_letters, -1, -1);
    fit_legend(layout, legend);
    page.add(c_lr_key_layout_north_arrow, box_at(signs_left + (signs_width - 18) / 2, bottom - 44, 18, 22),
             name);
    Ivx_layer *const bar =
        page.add(c_lr_key_layout_scale_bar, box_at(signs_left, bottom - 19, signs_width, 10), name);
    set_letters(bar, c_small_letters, 0, 0);
    Ivx_layer *const scale =
        page.add(c_lr_key_layout_scale_text, box_at(signs_left, bottom - 7, signs_width, 7), name);
    set_letters(scale, c_small_letters + 0.5, 0, 0);
    page.add(c_lr_key_layout_neatline, box_at(c_edge / 2, c_edge / 2, width - c_edge, height - c_edge));
}

void vx_layouts_copy(Ivx_scns_2d const &from, Ivx_scns_2d &to)
{
    for (int i = 0; i < vx_scns_2d_get_count(&from); ++i) {
        Ivx_scn_2d const *const layout = vx_scns_2d_get_scn(&from, i);
        std::wstring name;
        vx_scn_2d_get_wcaption(layout, Tvx_std_wstring_adapter(name));
        Ivx_scn_2d *const added = vx_scns_2d_add(&to, name.c_str());
        for (int place = 0; place < vx_scn_2d_get_count(layout); ++place) {
            Tvx_layout_element_ptr copy(vx_lr2d_clone(vx_scn_2d_get_layer(layout, place)));
            if (vx_scn_2d_insert(added, place, copy.get()))
                static_cast<void>(copy.release());
        }
        if (layout == vx_scns_2d_get_active_scn(&from))
            vx_scns_2d_set_active_scn(&to, added);
    }
}

bool vx_layout_are_alike(Ivx_layer *a, Ivx_layer *b)
{
    return name_of(a) == name_of(b) && vx_layout_file_of(a) == vx_layout_file_of(b) &&
           have_equal_looks(a, b) && have_equal_frames(a, b) && have_equal_texts(a, b) &&
           have_equal_signs(a, b) && have_equal_legends(a, b);
}
