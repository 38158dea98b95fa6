#pragma once

#include "controls/forms/buttons.h"
#include "controls/numeric/fast_int_panel.h"
#include "controls/prop/clr_picker.h"
#include "controls/prop/clr_vsb_panel.h"
#include "raster_property/channels/channels_edit.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"
#include "tests/layer_edit/shape/shape_fixture.h"

#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_stat.h"
#include "platform/layers/vx_rtr_lr2d.h"

#include <cmath>
#include <string>
#include <vector>

/// The editor's window over a raster layer.
class raster_fixture : public shape_fixture
{
protected:
    void open_raster(std::wstring const &source)
    {
        layer.reset(vx_rtr_lr2d_create(source.c_str()));
        ASSERT_TRUE(layer);
        edit();
    }
    static std::wstring example(wchar_t const *name) { return std::wstring(L"" VX_EXAMPLE_DATA "/") + name; }

    [[nodiscard]] Tvx_rtr_id_lr2d_edit *raster_page() const
    {
        return dialog_reader::find<Tvx_rtr_id_lr2d_edit>(record->get_form(), L"");
    }
    [[nodiscard]] Tvx_channels_edit *channels() const { return raster_page()->get_channels(); }
    [[nodiscard]] bool choose_type(wchar_t const *text) const
    {
        return input::choose_item(raster_page()->get_draw_type_cb()->get_combo_box(), text);
    }
    /// By its tab: 0 to 2 red, green, blue, 3 gray.
    [[nodiscard]] Tvx_channel_edit *channel_edit(int channel) const
    {
        EXPECT_TRUE(input::click_tab(channels()->get_pages(), channel % 3));
        return channels()->get_edit(channel);
    }
    [[nodiscard]] static void *channel_of(Ivx_layer *of, int channel)
    {
        void *const all = vx_rtr_lr2d_get_rgb_channels_ptr(of);
        void *const parts[] = {vx_rgb_channels_get_red(all), vx_rgb_channels_get_green(all),
                               vx_rgb_channels_get_blue(all), vx_rgb_channels_get_gray(all)};
        return parts[channel];
    }
    [[nodiscard]] static std::wstring band_of(Ivx_layer *of, int channel)
    {
        std::wstring name;
        vx_clr_channel_get_prop_name_w(channel_of(of, channel), Tvx_std_wstring_adapter(name));
        return name;
    }
    [[nodiscard]] static std::pair<double, double> stretch_of(Ivx_layer *of, int channel)
    {
        return {vx_clr_channel_get_min(channel_of(of, channel)),
                vx_clr_channel_get_max(channel_of(of, channel))};
    }
    [[nodiscard]] static int column(Tvx_channel_edit *edit, double value)
    {
        return edit->get_chart()->get_chart()->GetBottomAxis()->CalcPosValue(value);
    }
    static constexpr int c_row = 60; ///< of the chart, where the mouse works
};
