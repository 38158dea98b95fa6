#include "platform/storage/detail/tld_xml.h"

#include "platform/base/owned.h"
#include "platform/data/detail/textlr_info.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_tld_lr2d.h"

namespace vx::storage {
namespace {
using tld::textlr_info;
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

constexpr char const *c_class = "class";
/// More classes than anybody looks at: a file that has them comes from a hand that means harm.
constexpr int c_most_classes = 1000;
constexpr int c_last_of_three = 2;
constexpr int c_highest_priority = 9;

textlr_info *class_of(Ivx_layer *layer, int index)
{
    return static_cast<textlr_info *>(vx_dtld_lr2d_get_text_class_by_index(layer, index));
}

/// A number of a small range; the file is wrong where it holds another.
template <class Value>
void choice(xml_out &io, char const *name, Value const &value, int, int)
{
    io.field(name, int{value});
}
template <class Value>
void choice(xml_in &io, char const *name, Value &value, int least, int most)
{
    int number = value;
    io.field(name, number);
    if (number < least || number > most)
        io.fail();
    else
        value = static_cast<Value>(number);
}

void length(xml_out &io, char const *name, double value)
{
    io.field(name, value);
}
/// Not below 0.
void length(xml_in &io, char const *name, double &value)
{
    io.field(name, value);
    if (value < 0)
        io.fail();
}

void initial_scale(xml_out &io, textlr_info const &info)
{
    if (info.initial.get() > 0)
        io.field("initial_scale", info.initial.get());
}
void initial_scale(xml_in &io, textlr_info &info)
{
    double scale = 0;
    length(io, "initial_scale", scale);
    info.initial.set(scale);
}

/// One description for writing and reading.
template <class Io, class Info>
void describe(Io &io, Info &info)
{
    io.field("name", info.name);
    io.field("property", info.property_name);
    io.field("property_index", info.property_index);
    io.field("font", info.font);
    length(io, "size", info.size);
    io.field("color", info.color);
    io.field("angle", info.angle);
    choice(io, "encoding", info.encoding, 0, c_last_of_three);
    choice(io, "priority", info.priority, 0, c_highest_priority);
    io.field("overlap", info.place_overlap);
    io.field("scale", info.scale);
    initial_scale(io, info);
    io.field("back", info.back);
    io.field("back_color", info.back_clr);
    io.field("outline", info.outline);
    io.field("outline_color", info.outline_clr);
    length(io, "outline_width", info.outline_width);
    io.field("shadow", info.shadow);
    io.field("shadow_color", info.shadow_clr);
    length(io, "shadow_width", info.shadow_width);
    io.field("shadow_gap_x", info.shadow_gap_x);
    io.field("shadow_gap_y", info.shadow_gap_y);
    choice(io, "range", info.range, 0, c_last_of_three);
    choice(io, "duplicates", info.duplicates, 0, c_last_of_three);
    choice(io, "pos_x", info.text_pos_x, -1, 1);
    choice(io, "pos_y", info.text_pos_y, -1, 1);
    choice(io, "line_type", info.line_type, 0, c_textlr_line_level);
    io.field("line_direction", info.line_direction);
    io.field("delta_x", info.delta_x);
    io.field("delta_y", info.delta_y);
    io.field("use_min_scale", info.use_min_scale);
    length(io, "min_scale", info.min_scale);
    io.field("use_max_scale", info.use_max_scale);
    length(io, "max_scale", info.max_scale);
    io.finish();
}
} // namespace

bool has_new_text_classes(Ivx_layer *text_layer)
{
    auto const *const first = class_of(text_layer, 0);
    return first && !vx_lr2d_get_visible(text_layer) && vx_dtld_lr2d_count_text_class(text_layer) == 1 &&
           *first == textlr_info(first->hint);
}

void write_text_layer(xml_out element, Ivx_layer *text_layer, int parent)
{
    element.field("visible", vx_lr2d_get_visible(text_layer));
    if (parent >= 0)
        element.field("parent", parent);
    write_text_classes(element, text_layer);
    element.finish();
}

void read_text_layer(xml_in element, Ivx_layer *text_layer, int &parent)
{
    bool visible = vx_lr2d_get_visible(text_layer);
    element.field("visible", visible);
    element.field("parent", parent);
    read_text_classes(element, text_layer);
    element.finish();
    if (element.good())
        vx_lr2d_set_visible(text_layer, visible);
}

void write_text_classes(xml_out &element, Ivx_layer *text_layer)
{
    element.field("current", vx_dtld_lr2d_get_text_class_index(text_layer));
    for (int i = 0; i < vx_dtld_lr2d_count_text_class(text_layer); ++i) {
        xml_out child = element.child(c_class);
        describe(child, *class_of(text_layer, i));
    }
}

void read_text_classes(xml_in &element, Ivx_layer *text_layer)
{
    int current = 0;
    element.field("current", current);
    layer_ptr const target(vx_lr2d_clone(text_layer));
    while (vx_dtld_lr2d_count_text_class(target.get()) > 1)
        vx_dtld_lr2d_remove_text_class(target.get());
    int count = 0;
    for (; element.good() && element.at(c_class); ++count) {
        if (count == c_most_classes)
            return element.fail();
        if (count > 0)
            vx_dtld_lr2d_add_text_class(target.get(), nullptr);
        auto *const made = class_of(target.get(), count);
        *made = textlr_info(made->hint);
        xml_in child = element.child(c_class);
        describe(child, *made);
    }
    if (count == 0 || current < 0 || current >= count)
        return element.fail();
    vx_dtld_lr2d_set_text_class_index(target.get(), current);
    if (element.good())
        vx_dtld_lr2d_assign_text_classes(text_layer, target.get());
}
} // namespace vx::storage
