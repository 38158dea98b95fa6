#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/misc.h"
#include "controls/forms/panels.h"

#include "platform/base/color.h"
#include "platform/base/color_format.h"

/// A colour sample of 20 by 20 and a button that opens the colour dialog below it, as a press on the sample
/// does; 40 by 20.
class VX_API Tvx_clr_panel : public Tvx_children_enabled_panel
{
public:
    explicit Tvx_clr_panel(TComponent *owner);

    virtual void load_res();

    [[nodiscard]] Tvx_color get_color() const { return f_color; }
    /// Shows the colour; fires nothing. All four bytes are 0 at first.
    void set_color(Tvx_color color);
    [[nodiscard]] Tvx_color_format get_format() const { return f_format; }
    /// Whether the dialog offers transparency; it does at first.
    void set_format(Tvx_color_format format) { f_format = format; }
    /// Names the button for assistive use; empty: by what it does alone.
    void set_accessible_text(UnicodeString const &text);

    [[nodiscard]] Tvx_button *get_button() const { return f_button; }
    [[nodiscard]] TControl *get_sample() const;

    /// The user chose a colour in the dialog; the sender is the panel.
    TNotifyEvent on_changed;

private:
    class sample;

    void on_button_click(TObject *sender);
    void on_sample_mouse_down(TObject *sender, TMouseButton button, TShiftState shift, int x, int y);
    void ask_color();

    Tvx_panel *f_frame;
    sample *f_sample;
    Tvx_button *f_button;
    UnicodeString f_accessible_text;
    Tvx_color f_color;
    Tvx_color_format f_format = c_color_format_rgba;
};
