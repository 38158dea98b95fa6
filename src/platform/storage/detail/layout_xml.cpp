#include "platform/storage/detail/layout_xml.h"

#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/storage/detail/style_xml.h"

#include <concepts>
#include <string_view>
#include <type_traits>

namespace vx::storage {
namespace {
constexpr char const *c_style = "style";

/// The settings of a kind of element that are no object of their own.
struct frame_settings
{
    Tvx_pnt_d2 scale;
    Tvx_pnt_d2 center;
    bool operator==(frame_settings const &) const = default;
};
struct text_settings
{
    std::wstring text;
    double angle = 0;
    bool operator==(text_settings const &) const = default;
};
struct image_settings
{
    bool keep_ratio = true;
    bool operator==(image_settings const &) const = default;
};

frame_settings get_frame(Ivx_layer const *layer)
{
    frame_settings frame;
    vx_layout_scene_frame_lr2d_get_scale(layer, &frame.scale.x, &frame.scale.y);
    frame.center = vx_layout_scene_frame_lr2d_get_center(layer);
    return frame;
}
void set_frame(Ivx_layer *layer, frame_settings const &frame)
{
    vx_layout_scene_frame_lr2d_set_scale(layer, frame.scale.x, frame.scale.y);
    vx_layout_scene_frame_lr2d_set_center(layer, frame.center);
}

text_settings get_text(Ivx_layer const *layer)
{
    text_settings text;
    vx_layout_text_lr2d_get_wtext(layer, Tvx_std_wstring_adapter(text.text));
    text.angle = vx_layout_text_lr2d_get_angle(layer);
    return text;
}
void set_text(Ivx_layer *layer, text_settings const &text)
{
    vx_layout_text_lr2d_set_wtext(layer, text.text.c_str());
    vx_layout_text_lr2d_set_angle(layer, text.angle);
}

image_settings get_image(Ivx_layer const *layer)
{
    return {vx_layout_image_lr2d_get_keep_ratio(layer)};
}
void set_image(Ivx_layer *layer, image_settings const &image)
{
    vx_layout_image_lr2d_set_keep_ratio(layer, image.keep_ratio);
}

// ---- one description of each object, for writing and reading
template <class T, class S>
concept is = std::same_as<std::remove_const_t<T>, S>;

template <class Io, class Choice>
void choice(Io &io, char const *name, Choice &value)
{
    int number = value;
    io.field(name, number);
    if constexpr (Io::c_reads)
        value = static_cast<Choice>(number);
}

/// The objects of a list, each in an element.
template <class Io, class List, class Describe>
void children(Io &io, char const *name, List &list, Describe describe)
{
    auto const one = [&](auto &object) {
        auto element = io.child(name);
        describe(element, object);
        element.finish();
    };
    if constexpr (Io::c_reads) {
        list.clear();
        while (io.good() && io.at(name)) {
            if (list.size() == c_layout_most_items)
                return io.fail();
            one(list.emplace_back());
        }
    } else {
        for (auto const &object : list)
            one(object);
    }
}

template <class Io>
void fields(Io &io, is<Tvx_box_d2> auto &box)
{
    io.field("left", box.min_x);
    io.field("top", box.min_y);
    io.field("right", box.max_x);
    io.field("bottom", box.max_y);
}

template <class Io>
void fields(Io &io, is<Tvx_layout_writing> auto &writing)
{
    io.field("font", writing.font);
    io.field("size", writing.size);
    io.field("color", writing.color);
    io.field("align_x", writing.align_x);
    io.field("align_y", writing.align_y);
}

template <class Io>
void fields(Io &io, is<frame_settings> auto &frame)
{
    io.field("scale_x", frame.scale.x);
    io.field("scale_y", frame.scale.y);
    io.field("x", frame.center.x);
    io.field("y", frame.center.y);
}

template <class Io>
void fields(Io &io, is<text_settings> auto &text)
{
    io.field("text", text.text);
    io.field("angle", text.angle);
}

template <class Io>
void fields(Io &io, is<Tvx_layout_scale_bar> auto &bar)
{
    choice(io, "kind", bar.kind);
    choice(io, "unit", bar.unit);
    io.field("divisions", bar.divisions);
    io.field("length", bar.length);
    io.field("height", bar.height);
}

template <class Io>
void fields(Io &io, is<Tvx_layout_north_arrow> auto &arrow)
{
    choice(io, "kind", arrow.kind);
    io.field("angle", arrow.angle);
    io.field("letter", arrow.has_letter);
}

template <class Io>
void fields(Io &io, is<Tvx_layout_legend> auto &legend)
{
    io.field("title", legend.title);
    io.field("columns", legend.columns);
    io.field("sample_width", legend.sample_width);
    io.field("sample_height", legend.sample_height);
    io.field("gap", legend.gap);
    children(io, "item", legend.items, [](auto &element, auto &item) {
        element.field("is_text", item.is_text);
        element.field("text", item.text);
        element.field("visible", item.visible);
    });
}

template <class Io>
void fields(Io &io, is<image_settings> auto &image)
{
    io.field("keep_ratio", image.keep_ratio);
}

template <class Io>
void fields(Io &io, is<Tvx_layout_table> auto &table)
{
    io.field("rows", table.rows);
    children(io, "field", table.fields, [](auto &element, auto &name) { element.field("name", name); });
}

/// Calls `visit` with the element's name of what elements of one kind alone have, and how to get and set it.
template <class Visit>
void visit_own(Ivx_layer const *layer, Visit visit)
{
    std::string_view const key = vx_lr2d_get_lr_type(layer);
    if (key == c_lr_key_layout_scene_frame)
        visit("frame", &get_frame, &set_frame);
    else if (key == c_lr_key_layout_text)
        visit("text", &get_text, &set_text);
    else if (key == c_lr_key_layout_scale_bar)
        visit("scale_bar", &vx_layout_scale_bar_lr2d_get, &vx_layout_scale_bar_lr2d_set);
    else if (key == c_lr_key_layout_north_arrow)
        visit("north_arrow", &vx_layout_north_arrow_lr2d_get, &vx_layout_north_arrow_lr2d_set);
    else if (key == c_lr_key_layout_legend)
        visit("legend", &vx_layout_legend_lr2d_get, &vx_layout_legend_lr2d_set);
    else if (key == c_lr_key_layout_image)
        visit("image", &get_image, &set_image);
    else if (key == c_lr_key_layout_table)
        visit("table", &vx_layout_table_lr2d_get, &vx_layout_table_lr2d_set);
}

/// The same of everything.
template <class Visit>
void visit_all(Ivx_layer const *layer, Visit visit)
{
    visit("box", &vx_layout_lr2d_get_box, &vx_layout_lr2d_set_box);
    visit("writing", &vx_layout_lr2d_get_writing, &vx_layout_lr2d_set_writing);
    visit_own(layer, visit);
}
} // namespace

bool has_source(Ivx_layer const *layer)
{
    std::string_view const key = vx_lr2d_get_lr_type(layer);
    return !vx_layout_lr2d_is(layer) || key == c_lr_key_layout_image || key == c_lr_key_layout_table ||
           key == c_lr_key_layout_ole_object;
}

void write_layout_element(xml_out element, Ivx_layer *layer)
{
    xml_out style = element.child(c_style);
    write_style_object(style, styles::style_kind::pgn, vx_layout_lr2d_get_pgn_style_ptr(layer));
    style.finish();
    visit_all(layer, [&](char const *name, auto get, auto) {
        xml_out child = element.child(name);
        auto const value = get(layer);
        fields(child, value);
        child.finish();
    });
    element.finish();
}

void read_layout_element(xml_in element, Ivx_layer *layer)
{
    if (element.at(c_style)) {
        xml_in style = element.child(c_style);
        read_style_object(style, styles::style_kind::pgn, vx_layout_lr2d_get_pgn_style_ptr(layer));
        style.finish();
    }
    visit_all(layer, [&](char const *name, auto get, auto set) {
        if (!element.at(name))
            return;
        xml_in child = element.child(name);
        auto value = get(layer);
        fields(child, value);
        child.finish();
        set(layer, value);
        if (!(get(layer) == value))
            child.fail();
    });
    element.finish();
}
} // namespace vx::storage
