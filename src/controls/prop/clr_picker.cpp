#include "controls/prop/clr_picker.h"

#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/image_convert.h"
#include "controls/prop/prop_pictures_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>

namespace {
constexpr int c_long_step = 10; // pixels of an arrow key with Ctrl

/// The form's cursor, put into the screen's list at the first use.
TCursor picker_cursor()
{
    static TCursor const cursor = [] {
        int hot_x = 0;
        int hot_y = 0;
        TBitmap picture;
        dib_2_bmp(vx_res_load_cursor(c_cursor_color_picker, &hot_x, &hot_y), &picture);
        if (picture.GetEmpty())
            return crCross;
        Screen->SetCursors(c_cursor_color_picker, picture, hot_x, hot_y);
        return TCursor(c_cursor_color_picker);
    }();
    return cursor;
}
} // namespace

bool vx_color_pick(Tvx_color &color)
{
    Tvx_clr_picker_form form(nullptr);
    if (form.ShowModal() != mrOk)
        return false;
    color = vx_clr_init_int(form.get_pixel());
    return true;
}

Tvx_clr_picker_form::Tvx_clr_picker_form(TComponent *owner) : Tvx_form(owner)
{
    SetBorderStyle(bsNone);
    SetFormStyle(fsStayOnTop);
    SetDoubleBuffered(false);
    SetCursor(picker_cursor());
    SetCaption(vx_res_get_wstr(c_caption_pick_color));
}

int Tvx_clr_picker_form::ShowModal()
{
    // All screens: a maximised window would leave out the bars of the desktop and every screen but one.
    f_desktop = Screen->GetDesktopRect();
    Screen->Grab(f_screen);
    SetPosition(poDesigned);
    SetBounds(f_desktop.Left, f_desktop.Top, f_desktop.Width(), f_desktop.Height());
    return Tvx_form::ShowModal();
}

void Tvx_clr_picker_form::Paint()
{
    // Where the window manager has put the form elsewhere, the picture still lies over what it shows.
    TPoint const origin = GetClientOrigin();
    TRect const place =
        Bounds(f_desktop.Left - origin.X, f_desktop.Top - origin.Y, f_desktop.Width(), f_desktop.Height());
    GetCanvas()->StretchDraw(place, &f_screen);
}

void Tvx_clr_picker_form::take_pixel(int x, int y)
{
    if (f_screen.GetEmpty() || f_desktop.IsEmpty())
        return;
    TPoint const point = ClientToScreen({x, y});
    int const column = (point.X - f_desktop.Left) * f_screen.GetWidth() / f_desktop.Width();
    int const row = (point.Y - f_desktop.Top) * f_screen.GetHeight() / f_desktop.Height();
    f_pixel = f_screen.GetCanvas()->GetPixel(std::clamp(column, 0, f_screen.GetWidth() - 1),
                                             std::clamp(row, 0, f_screen.GetHeight() - 1));
}

void Tvx_clr_picker_form::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    Tvx_form::MouseDown(button, shift, x, y);
    if (button != mbLeft)
        return;
    take_pixel(x, y);
    f_pressed = true;
}

void Tvx_clr_picker_form::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    Tvx_form::MouseUp(button, shift, x, y);
    if (button == mbLeft && f_pressed)
        SetModalResult(mrOk);
}

void Tvx_clr_picker_form::KeyDown(Word &key, TShiftState shift)
{
    int const step = shift.Contains(ssCtrl) ? c_long_step : 1;
    TPoint pointer = Screen->GetCursorPos();
    switch (key) {
    case VK_ESCAPE:
        SetModalResult(mrCancel);
        break;
    case VK_RETURN:
    case VK_SPACE: {
        TPoint const point = ScreenToClient(pointer);
        take_pixel(point.X, point.Y);
        SetModalResult(mrOk);
        break;
    }
    case VK_LEFT:
        pointer.X -= step;
        break;
    case VK_RIGHT:
        pointer.X += step;
        break;
    case VK_UP:
        pointer.Y -= step;
        break;
    case VK_DOWN:
        pointer.Y += step;
        break;
    default:
        return Tvx_form::KeyDown(key, shift);
    }
    key = 0;
    if (!(pointer == Screen->GetCursorPos()))
        Screen->SetCursorPos(pointer);
}

Tvx_clr_picker_btn::Tvx_clr_picker_btn(TComponent *owner) : Tvx_speed_btn(owner)
{
    SetShowHint(true);
    load_res();
}

void Tvx_clr_picker_btn::load_res()
{
    vx_glyph_get_res(GetGlyph(), c_picture_color_picker);
    UnicodeString const action = vx_res_get_wstr(c_caption_pick_color);
    SetHint(action);
    SetAccessibleName(vx_action_name(f_accessible_text, action));
}

void Tvx_clr_picker_btn::set_accessible_text(UnicodeString const &text)
{
    f_accessible_text = text;
    load_res();
}

void Tvx_clr_picker_btn::Click()
{
    Tvx_speed_btn::Click();
    bool const picked = vx_color_pick(f_color);
    if (picked)
        on_color_picked(this);
    SetDown(false);
}
