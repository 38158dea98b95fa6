#pragma once

#include "controls/forms/misc.h"
#include "controls/numeric/size_panel.h"

/// A number between two bounds by a field and, below it, a slider of a thousand steps; 50 high. The plain
/// setters only keep; `update_controls` shows.
class VX_API Tvx_track_double : public Tvx_panel
{
public:
    explicit Tvx_track_double(TComponent *owner);

    /// Makes the children.
    virtual void create();
    virtual void load_res();
    /// Field and slider from the value.
    void update_controls();
    /// Slider from the value; in the middle of its first tenth where the bounds leave no room.
    void update_track_bar();
    /// Field from the value.
    void update_size_panel();
    /// Takes the number, held within the bounds. Another value than before is reported. What is no number is
    /// not taken.
    void try_new_val(double value);

    [[nodiscard]] UnicodeString get_caption() const { return f_caption; }
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] double get_min() const { return f_min; }
    void set_min(double min) { f_min = min; }
    [[nodiscard]] double get_max() const { return f_max; }
    void set_max(double max) { f_max = max; }
    [[nodiscard]] double get_val() const { return f_val; }
    void set_val(double val) { f_val = val; }

    /// Null before `create`.
    [[nodiscard]] Tvx_size_panel *get_size_panel() const { return f_size; }
    [[nodiscard]] Tvx_track_bar *get_track_bar() const { return f_track; }

    /// The user changed the value, or `try_new_val` did. The sender is the panel.
    TNotifyEvent on_val_changed;

private:
    void on_track_bar_change(TObject *sender);
    void on_size_panel_change(TObject *sender);
    void on_size_panel_apply(TObject *sender);
    /// False when the value is what it was.
    bool take(double value);
    [[nodiscard]] double held(double value) const;

    double f_min = 0.0;
    double f_max = 255.0;
    double f_val = 127.0;
    UnicodeString f_caption;
    Tvx_size_panel *f_size = nullptr;
    Tvx_track_bar *f_track = nullptr;
};
