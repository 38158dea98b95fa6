#pragma once

#include "raster_property/channels/channel_combo_box.h"
#include "raster_property/channels/channel_histogramm.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_histogram.h"

/// The editor of one colour channel: the property that feeds it, the histogram of its values with a mark at
/// either end of the stretch, and the two numbers.
///
/// It writes into the channel at once. The channel stays its owner's, and is not touched any more once
/// `set_channel` or `let_go` took it away.
class VX_API Tvx_channel_edit : public Tvx_panel, public Tvx_channel_event_owner
{
public:
    explicit Tvx_channel_edit(TComponent *owner);

    virtual void create();
    virtual void load_res();
    /// Null shows 0 to 255 of nothing. Pulls statistics and histogram.
    void set_channel(Tvx_color_channel *channel);
    [[nodiscard]] Tvx_color_channel *get_channel() const { return f_channel; }
    /// Forgets the channel and pulls nothing; for an editor that is not seen.
    void let_go() { f_channel = nullptr; }
    /// Shows property, histogram and numbers as they are kept here.
    void update_controls();
    /// Pulls the histogram of the range in force, which is the range of the sliders then; without one they
    /// reach from 0 to 255. Fires nothing.
    void update_histogram();
    /// Stretches the channel over the whole histogram. Fires nothing.
    void init_bound_vals();
    /// The number of the property of that name; spaces round names do not count.
    [[nodiscard]] bool find_prop(wchar_t const *name, unsigned &index);
    /// What the choice of the property is called.
    [[nodiscard]] UnicodeString get_channel_caption() const { return f_combo->get_caption(); }
    void set_channel_caption(UnicodeString const &caption) { f_combo->set_caption(caption); }

    [[nodiscard]] Tvx_channel_combo_box *get_prop_cb() const { return f_combo; }
    [[nodiscard]] Tvx_channel_histogramm *get_chart() const { return f_chart; }
    [[nodiscard]] Tvx_track_double *get_track_min() const { return f_track_min; }
    [[nodiscard]] Tvx_track_double *get_track_max() const { return f_track_max; }
    /// What the chart shows.
    [[nodiscard]] Tvx_histogramm_data const *get_histogramm() const { return f_histogramm.get(); }

    /// The user changed the channel.
    TNotifyEvent on_changed;

protected:
    void channel_events_changed() override;

private:
    void on_prop_cb_changed(TObject *sender);
    void on_track_double_changed(TObject *sender);
    void choice_default_hg(TObject *sender);
    void choice_new_hg(TObject *sender);
    void choice_upd_hg(TObject *sender);
    [[nodiscard]] bool pull_histogram();
    void write_stretch();
    void show_marks();

    Tvx_color_channel *f_channel = nullptr;
    vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy> f_histogramm{vx_histogramm_create()};
    Tvx_channel_combo_box *f_combo;
    Tvx_channel_histogramm *f_chart;
    Tvx_track_double *f_track_min;
    Tvx_track_double *f_track_max;
    bool f_default_hg = true;
    double f_hist_min = 0.0;
    double f_hist_max = 255.0;
};
