#pragma once

#include "style_manager/api/data_events.h"

#include "platform/base/export.h"

/// One colour channel and the set of four, as the editors hand them on: the objects behind the plain
/// functions of platform/basic/vx_clr_channel.h.
struct Tvx_color_channel;
struct Tvx_rgb_clr_channels;
struct Tvx_histogramm_data;

/// What a layer of cells is drawn from, as far as channels are concerned.
enum Tvx_basic_lr2d_draw_type : int
{
    c_lr2d_draw_normal = 0, ///< no channel
    c_lr2d_draw_channels = 1,
    c_lr2d_draw_gray = 3,
};

/// Statistics of what feeds the channel, worked out where nobody has yet: least and greatest value, mean and
/// standard deviation. `ok` and the result are true if all four are known.
using Tvx_data_get_channel_stat_event =
    closure<bool(TObject *sender, unsigned prop, Tvx_color_channel *channel, double &min, double &max,
                 double &average, double &stddev, bool &ok)>;
/// Fills the histogram for the range that the channel names. False when there is none.
using Tvx_data_get_channel_histogramm_event =
    closure<bool(TObject *sender, unsigned prop, Tvx_color_channel *channel, Tvx_histogramm_data *histogram)>;
/// Fills the histogram of a property.
using Tvx_data_get_histogramm_event =
    closure<bool(TObject *sender, unsigned prop, Tvx_histogramm_data *histogram)>;
/// Works the channel's statistics out anew, of the data as they are now.
using Tvx_data_upd_histogramm_event =
    closure<bool(TObject *sender, unsigned prop, Tvx_color_channel *channel)>;

/// The pull events of the channel editor. It opens and closes the data only round names of properties; the
/// other events run while they are closed.
struct Tvx_channel_events
{
    Tvx_data_open_event open;
    Tvx_data_close_event close;
    Tvx_data_get_np_event get_np;
    Tvx_data_get_wprop_event get_wprop;
    Tvx_data_get_capt_wprop_event get_capt_wprop; ///< may be left unset
    Tvx_data_get_stat_event get_stat;             ///< kept for its owner
    Tvx_data_get_histogramm_event get_histogramm; ///< kept for its owner
    Tvx_data_get_channel_stat_event get_channel_stat;
    Tvx_data_get_channel_histogramm_event get_channel_histogramm;
    Tvx_data_upd_histogramm_event upd_histogramm; ///< may be left unset
};

/// The setters of an editor that keeps the events and hands them on to its children.
class VX_API Tvx_channel_event_owner
{
public:
    void set_on_data_open(Tvx_data_open_event event) { take(f_data.open, event); }
    void set_on_data_close(Tvx_data_close_event event) { take(f_data.close, event); }
    void set_on_data_get_np(Tvx_data_get_np_event event) { take(f_data.get_np, event); }
    void set_on_data_get_wprop(Tvx_data_get_wprop_event event) { take(f_data.get_wprop, event); }
    void set_on_data_get_capt_wprop(Tvx_data_get_capt_wprop_event event)
    {
        take(f_data.get_capt_wprop, event);
    }
    void set_on_data_get_stat(Tvx_data_get_stat_event event) { take(f_data.get_stat, event); }
    void set_on_data_get_histogramm(Tvx_data_get_histogramm_event event)
    {
        take(f_data.get_histogramm, event);
    }
    void set_on_data_get_channel_stat(Tvx_data_get_channel_stat_event event)
    {
        take(f_data.get_channel_stat, event);
    }
    void set_on_data_get_channel_histogramm(Tvx_data_get_channel_histogramm_event event)
    {
        take(f_data.get_channel_histogramm, event);
    }
    void set_on_data_upd_histogramm(Tvx_data_upd_histogramm_event event)
    {
        take(f_data.upd_histogramm, event);
    }
    /// All of them at once.
    void set_channel_events(Tvx_channel_events const &events) { take(f_data, events); }
    [[nodiscard]] Tvx_channel_events const &get_channel_events() const { return f_data; }

protected:
    Tvx_channel_event_owner() = default;
    ~Tvx_channel_event_owner() = default;

    /// Hands the events on.
    virtual void channel_events_changed() = 0;

private:
    template <class Event>
    void take(Event &own, Event const &event)
    {
        own = event;
        channel_events_changed();
    }

    Tvx_channel_events f_data;
};
