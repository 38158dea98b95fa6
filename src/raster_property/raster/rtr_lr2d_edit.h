#pragma once

#include "layer_edit/page_api/basic_lr2d_edit.h"
#include "raster_property/channels/channel_events.h"

#include "platform/basic/vx_stat.h"

#include <string>

/// Base of the pages of raster layers: it answers the pull events for the bands of the raster. A band is a
/// property by its number; cells are no objects.
///
/// What is worked out of the cells is kept with the layer, for the band, and in the channel that asked. A
/// channel takes what its band has; cells are read where neither has it, and where the user asks for it.
class VX_API Tvx_rtr_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    using Tvx_basic_lr2d_edit::Tvx_basic_lr2d_edit;

    [[nodiscard]] Ivx_layer *get_rtr_lr2d() const { return get_lr2d(); }

    /// The pull events. Those of channels go by the page's layer, opened or not; the others need the open
    /// raster, and tell of none without it.
    bool on_data_open(TObject *sender);
    void on_data_close(TObject *sender);
    unsigned on_data_get_np(TObject *sender);
    unsigned on_data_get_no(TObject *sender);
    wchar_t const *on_data_get_prop(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    wchar_t const *on_data_get_capt_prop(TObject *sender, unsigned prop);
    bool on_data_get_stat(TObject *sender, unsigned prop, double &min, double &max, double &average,
                          double &stddev, bool &ok);
    /// Fills nothing, with true, while the raster is closed or drawn without channels.
    bool on_data_get_histogramm(TObject *sender, unsigned prop, Tvx_histogramm_data *histogram);
    char const *on_data_get_str(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    double on_data_get_val(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    bool on_data_get_channel_stat(TObject *sender, unsigned prop, Tvx_color_channel *channel, double &min,
                                  double &max, double &average, double &stddev, bool &ok);
    bool on_data_get_channel_histogramm(TObject *sender, unsigned prop, Tvx_color_channel *channel,
                                        Tvx_histogramm_data *histogram);
    bool on_data_upd_histogramm(TObject *sender, unsigned prop, Tvx_color_channel *channel);

protected:
    /// Those that the channel editor takes.
    [[nodiscard]] Tvx_channel_events channel_events();

private:
    /// The record of the band with its statistics, if they can be had.
    [[nodiscard]] Tvx_stat_data *band_stat(Ivx_layer *layer, unsigned band) const;

    Ivx_layer *f_raster = nullptr; ///< the layer while it is open
    std::string f_text;
};
