#include "platform/toolkit/graphics/pen.h"

template <class T>
void TPen::change(T &field, T value)
{
    if (field == value)
        return;
    field = value;
    OnChange(this);
}

void TPen::Assign(TPersistent const *source)
{
    auto const *other = dynamic_cast<TPen const *>(source);
    if (!other)
        return TPersistent::Assign(source);
    if (f_color == other->f_color && f_width == other->f_width && f_style == other->f_style &&
        f_mode == other->f_mode)
        return;
    f_color = other->f_color;
    f_width = other->f_width;
    f_style = other->f_style;
    f_mode = other->f_mode;
    OnChange(this);
}

void TPen::SetColor(TColor color)
{
    change(f_color, color);
}

void TPen::SetWidth(int width)
{
    change(f_width, width < 1 ? 1 : width);
}

void TPen::SetStyle(TPenStyle style)
{
    change(f_style, style);
}

void TPen::SetMode(TPenMode mode)
{
    change(f_mode, mode);
}
