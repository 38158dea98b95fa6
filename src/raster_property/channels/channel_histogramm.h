#pragma once

#include "controls/forms/buttons.h"
#include "controls/prop/histogram_panel.h"
#include "raster_property/channels/track_double.h"

/// The histogram of a channel. Its two marks stand at the values of two sliders: the user moves a mark as he
/// would move its slider, which holds it within its bounds. A box below the chart chooses logarithmic
/// heights, for all channels of the program.
class VX_API Tvx_channel_histogramm : public Tvx_histogram_panel
{
public:
    explicit Tvx_channel_histogramm(TComponent *owner);

    void create() override;
    void load_res() override;
    /// Shows the histogram, its marks and the kind of heights in force.
    void update_controls();
    /// Draws what is there once more.
    void repaint_chart() { repaint(); }
    /// The sliders stay the caller's.
    void set_track(Tvx_track_double *track1, Tvx_track_double *track2);
    /// Null before `create`.
    [[nodiscard]] Tvx_check_box *get_log_box() const { return f_log_box; }

private:
    void on_mark1_moved(TObject *sender, double value);
    void on_mark2_moved(TObject *sender, double value);
    void on_log_box_click(TObject *sender);

    static bool fs_log_height;
    Tvx_track_double *f_track1 = nullptr;
    Tvx_track_double *f_track2 = nullptr;
    Tvx_check_box *f_log_box = nullptr;
};
