#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/form.h"

#include "platform/base/color.h"
#include "platform/toolkit/graphics/bitmap.h"

/// Lets the user take a colour from anywhere on the screen: true and the opaque colour of the clicked pixel,
/// or false with `color` left alone if the user gave up by Esc.
[[nodiscard]] VX_API bool vx_color_pick(Tvx_color &color);

/// A window over all screens that shows what they showed when it opened, so that it is not seen itself. A
/// press takes the colour under the pointer and a click ends it; arrow keys move the pointer by a pixel, with
/// Ctrl by 10, and Enter takes the colour. Where the system does not let a program look at the screen, only
/// the program's own windows are seen.
class VX_API Tvx_clr_picker_form : public Tvx_form
{
public:
    explicit Tvx_clr_picker_form(TComponent *owner);

    /// Takes the picture of the screen and runs the form; `mrOk` or `mrCancel`.
    int ShowModal() override;
    /// The pixel that was taken, 0x00BBGGRR.
    [[nodiscard]] TColor get_pixel() const { return f_pixel; }

protected:
    void Paint() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(Word &key, TShiftState shift) override;

private:
    void take_pixel(int x, int y);

    TBitmap f_screen;
    TRect f_desktop;
    TColor f_pixel = 0;
    bool f_pressed = false;
};

/// A button that takes a colour from the screen.
class VX_API Tvx_clr_picker_btn : public Tvx_speed_btn
{
public:
    explicit Tvx_clr_picker_btn(TComponent *owner);

    virtual void load_res();
    void Click() override;

    /// Names what gets the colour, for assistive use; empty: the action alone.
    void set_accessible_text(UnicodeString const &text);
    /// The colour that was taken last.
    [[nodiscard]] Tvx_color get_color() const { return f_color; }

    /// A colour was taken.
    TNotifyEvent on_color_picked;

private:
    UnicodeString f_accessible_text;
    Tvx_color f_color;
};
