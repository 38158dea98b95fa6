#include "controls/prop/color_convert.h"

#include "platform/dialogs/font_chars.h"

void clr_2_rgb(TColor color, unsigned char &r, unsigned char &g, unsigned char &b)
{
    TColor const rgb = ColorToRGB(color);
    r = static_cast<unsigned char>(rgb & 255);
    g = static_cast<unsigned char>(rgb >> 8 & 255);
    b = static_cast<unsigned char>(rgb >> 16 & 255);
}

void rgb_2_clr(unsigned char r, unsigned char g, unsigned char b, TColor &color)
{
    color = RGB(r, g, b);
}

Tvx_color clr2rgb(TColor color)
{
    return vx_clr_init_int(ColorToRGB(color));
}

TColor rgb2clr(Tvx_color const &color)
{
    return RGB(color.r, color.g, color.b);
}

int mouse_btn_2_vx(TMouseButton button)
{
    switch (button) {
    case mbRight:
        return 1;
    case mbMiddle:
        return 2;
    default:
        return 0;
    }
}

int shift_state_2_vx(TShiftState shift)
{
    int bits = 0;
    for (TShiftStateItem const item : {ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble})
        if (shift.Contains(item))
            bits |= 1 << item;
    return bits;
}

void fnt_type_2_font(vx_fnt_type const *font, TFont *target, int size)
{
    if (!font || !target)
        return;
    vx::dialogs::assign_font(target, *font);
    if (size != 0)
        target->SetSize(size);
}
