#include "platform/toolkit/graphics/brush.h"

void TBrush::Assign(TPersistent const *source)
{
    auto const *other = dynamic_cast<TBrush const *>(source);
    if (!other)
        return TPersistent::Assign(source);
    if (f_color == other->f_color && f_style == other->f_style)
        return;
    f_color = other->f_color;
    f_style = other->f_style;
    OnChange(this);
}

void TBrush::SetColor(TColor color)
{
    if (f_color == color && f_style != bsClear)
        return;
    f_color = color;
    if (f_style == bsClear)
        f_style = bsSolid;
    OnChange(this);
}

void TBrush::SetStyle(TBrushStyle style)
{
    if (f_style == style)
        return;
    f_style = style;
    OnChange(this);
}
