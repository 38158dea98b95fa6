#pragma once

#include "controls/forms/misc.h"
#include "controls/numeric/size_panel.h"

/// A whole number by edit, step buttons and slider; 40 high. The position counts from 0, and the user sees it
/// counted from 1. Setters only keep; `update_controls` shows.
class VX_API Tvx_fast_int_panel : public Tvx_children_enabled_panel
{
public:
    explicit Tvx_fast_int_panel(TComponent *owner);

    /// Limits of the position, 0 and 100 at first.
    [[nodiscard]] int get_min() const { return f_min; }
    void set_min(int min) { f_min = min; }
    [[nodiscard]] int get_max() const { return f_max; }
    void set_max(int max) { f_max = max; }
    /// 1 at first. What the user types is held within the limits: at once where more digits cannot help, else
    /// when he ends the entry.
    [[nodiscard]] int get_position() const { return f_position; }
    void set_position(int position) { f_position = position; }
    [[nodiscard]] UnicodeString get_caption() const { return f_size->get_text(); }
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] int get_caption_width() const { return f_size->get_text_width(); }
    /// Fixes the caption; the edit takes the rest.
    void set_caption_width(int width) { f_size->set_text_width(width); }
    void update_controls();
    void call_changed() { on_changed(this); }

    [[nodiscard]] Tvx_size_panel *get_size_panel() const { return f_size; }
    [[nodiscard]] Tvx_updown *get_updown() const { return f_updown; }
    [[nodiscard]] Tvx_track_bar *get_track_bar() const { return f_track; }

    /// The user changed the position. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    void on_size_changed(TObject *sender);
    void on_size_apply(TObject *sender);
    void on_updown_click(TObject *sender, TUDBtnType button);
    void on_track_change(TObject *sender);
    void take_size(double size);
    void take_position(int position);
    void show_position();

    Tvx_panel *f_top;
    Tvx_size_panel *f_size;
    Tvx_updown *f_updown;
    Tvx_track_bar *f_track;
    int f_min = 0;
    int f_max = 100;
    int f_position = 1;
};
