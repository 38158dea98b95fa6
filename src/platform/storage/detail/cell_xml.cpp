#include "platform/storage/detail/cell_xml.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/detail/rtr_layer.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/storage/detail/mngr_xml.h"

#include <string_view>
#include <utility>

namespace vx::storage {
namespace {
using channels_ptr = vx::owned<void, &vx_rgb_channels_destroy>;

constexpr char const *c_manager = "manager";
constexpr std::pair<char const *, void *(*)(void *)> c_channels[] = {{"red", &vx_rgb_channels_get_red},
                                                                     {"green", &vx_rgb_channels_get_green},
                                                                     {"blue", &vx_rgb_channels_get_blue},
                                                                     {"gray", &vx_rgb_channels_get_gray}};
constexpr int c_grid_gray = 3; ///< a draw type of grids; 0 and 1 are the others

struct channel_record
{
    std::wstring property;
    double low = 0, high = 255;
    bool is_whole = true;
    double histogram_low = 0, histogram_high = 255;
};

/// One description for writing and reading.
template <class Element, class Record>
void describe(Element element, Record &record)
{
    element.field("property", record.property);
    element.field("min", record.low);
    element.field("max", record.high);
    element.field("whole_histogram", record.is_whole);
    element.field("histogram_min", record.histogram_low);
    element.field("histogram_max", record.histogram_high);
    element.finish();
}

channel_record record_of(void const *channel)
{
    channel_record r;
    vx_clr_channel_get_prop_name_w(channel, Tvx_std_wstring_adapter(r.property));
    r.low = vx_clr_channel_get_min(channel);
    r.high = vx_clr_channel_get_max(channel);
    r.is_whole = vx_clr_channel_get_histogramm_default(channel);
    r.histogram_low = vx_clr_channel_get_histogramm_min(channel);
    r.histogram_high = vx_clr_channel_get_histogramm_max(channel);
    return r;
}

void take(void *channel, channel_record const &r)
{
    vx_clr_channel_set_prop_name_w(channel, r.property.c_str());
    vx_clr_channel_set_min(channel, r.low);
    vx_clr_channel_set_max(channel, r.high);
    vx_clr_channel_set_histogramm_default(channel, r.is_whole);
    vx_clr_channel_set_histogramm_min(channel, r.histogram_low);
    vx_clr_channel_set_histogramm_max(channel, r.histogram_high);
}

void write_channels(xml_out &element, void const *channels)
{
    channels_ptr const copy(vx_rgb_channels_clone(channels));
    for (auto const &[name, get] : c_channels) {
        auto const record = record_of(get(copy.get()));
        describe(element.child(name), record);
    }
}

/// Null where the element has none.
channels_ptr read_channels(xml_in &element)
{
    if (!element.at(c_channels[0].first))
        return nullptr;
    channels_ptr channels(vx_rgb_channels_create());
    for (auto const &[name, get] : c_channels) {
        channel_record record;
        describe(element.child(name), record);
        take(get(channels.get()), record);
    }
    return channels;
}

void write_manager(xml_out &element, void const *mngr)
{
    write_mngr(element.child(c_manager), *static_cast<styles::stl_mngr const *>(mngr));
}

void read_manager(xml_in &element, void *mngr)
{
    if (!element.at(c_manager))
        return;
    xml_in child = element.child(c_manager);
    read_mngr(child, *static_cast<styles::stl_mngr *>(mngr));
}

template <class Get>
std::wstring text_of(Get get, Ivx_layer const *layer)
{
    std::wstring text;
    get(layer, Tvx_std_wstring_adapter(text));
    return text;
}

void write_grid(xml_out &element, Ivx_layer *layer)
{
    element.field("draw_type", vx_tos_grid_lr2d_get_draw_type(layer));
    element.field("opacity", vx_tos_grid_lr2d_get_opacity(layer));
    element.field("interpolate", vx_tos_grid_lr2d_get_interpolate(layer));
    element.field("slice", vx_tos_slice_lr2d_get_zslice(layer));
    element.field("slices", vx_tos_slice_lr2d_get_zslice_count(layer));
    write_channels(element, vx_tos_grid_lr2d_get_rgb_channels_ptr(layer));
    write_manager(element, vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer));
}

void read_grid(xml_in &element, Ivx_layer *layer)
{
    int draw_type = 0, slice = 0, slices = 1;
    double opacity = 1;
    bool interpolate = false;
    element.field("draw_type", draw_type);
    element.field("opacity", opacity);
    element.field("interpolate", interpolate);
    element.field("slice", slice);
    element.field("slices", slices);
    bool const is_type = draw_type == 0 || draw_type == 1 || draw_type == c_grid_gray;
    if (!is_type || !(opacity >= 0 && opacity <= 1) || slice < 0 || slice >= slices)
        element.fail();
    vx_tos_grid_lr2d_set_draw_type(layer, draw_type);
    vx_tos_grid_lr2d_set_opacity(layer, opacity);
    vx_tos_grid_lr2d_set_interpolate(layer, interpolate);
    vx_tos_slice_lr2d_set_zslice_count(layer, slices);
    vx_tos_slice_lr2d_set_zslice(layer, slice);
    if (auto const channels = read_channels(element))
        vx_rgb_channels_assign(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer), channels.get());
    read_manager(element, vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer));
}
} // namespace

bool is_raster(Ivx_layer const *layer)
{
    return std::string_view(vx_lr2d_get_lr_type(layer)) == c_lr_key_rtr;
}

void write_raster(xml_out element, Ivx_layer *layer)
{
    element.field("draw_type", vx_rtr_lr2d_get_draw_type(layer));
    element.field("transparent", vx_rtr_lr2d_get_transparent_clr(layer));
    element.field("opacity", vx_rtr_lr2d_get_opacity(layer));
    auto const *const raster = layers::as<layers::rtr_layer>(std::as_const(layer));
    if (void const *const channels = raster ? raster->known_channels() : nullptr)
        write_channels(element, channels);
    element.finish();
}

void read_raster(xml_in element, Ivx_layer *layer)
{
    int draw_type = vx_rtr_lr2d_get_draw_type(layer);
    Tvx_color transparent = vx_rtr_lr2d_get_transparent_clr(layer);
    double opacity = vx_rtr_lr2d_get_opacity(layer);
    element.field("draw_type", draw_type);
    element.field("transparent", transparent);
    element.field("opacity", opacity);
    if (draw_type < c_rtr_draw_normal || draw_type > c_rtr_draw_gray || !(opacity >= 0 && opacity <= 1))
        element.fail();
    vx_rtr_lr2d_set_draw_type(layer, draw_type);
    vx_rtr_lr2d_set_transparent_clr(layer, transparent);
    vx_rtr_lr2d_set_opacity(layer, opacity);
    auto const channels = read_channels(element);
    if (auto *const raster = layers::as<layers::rtr_layer>(layer); raster && channels)
        raster->set_channels(channels.get());
    element.finish();
}

void write_properties(xml_out element, Ivx_layer *layer)
{
    if (vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer)) {
        write_grid(element, layer);
    } else if (void *const curve = vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer)) {
        element.field("height", text_of(&vx_tos_grid_1d_lr2d_get_height_prp_name, layer));
        write_manager(element, curve);
    } else if (void *const points = vx_tos_2crd_lr2d_get_stl_mngr(layer)) {
        element.field("x", text_of(&vx_tos_2crd_lr2d_get_wprop_name_x, layer));
        element.field("y", text_of(&vx_tos_2crd_lr2d_get_wprop_name_y, layer));
        write_manager(element, points);
    }
    element.finish();
}

void read_properties(xml_in element, Ivx_layer *layer)
{
    std::wstring x, y;
    if (vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer)) {
        read_grid(element, layer);
    } else if (void *const curve = vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer)) {
        element.field("height", y);
        vx_tos_grid_1d_lr2d_set_height_prp_name(layer, y.c_str());
        read_manager(element, curve);
    } else if (void *const points = vx_tos_2crd_lr2d_get_stl_mngr(layer)) {
        element.field("x", x);
        element.field("y", y);
        vx_tos_2crd_lr2d_set_wprop_name_x(layer, x.c_str());
        vx_tos_2crd_lr2d_set_wprop_name_y(layer, y.c_str());
        read_manager(element, points);
    }
    element.finish();
}
} // namespace vx::storage
