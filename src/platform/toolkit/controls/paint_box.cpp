#include "platform/toolkit/controls/paint_box.h"

TPaintBox::TPaintBox(TComponent *owner) : TGraphicControl(owner)
{
    SetBounds(0, 0, 105, 105);
}

void TPaintBox::Paint()
{
    OnPaint(this);
}
