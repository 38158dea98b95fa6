#include "platform/toolkit/graphics/graphics.h"

void TGraphic::SetTransparent(bool transparent)
{
    if (f_transparent == transparent)
        return;
    f_transparent = transparent;
    Changed();
}

void TGraphic::Changed()
{
    f_modified = true;
    OnChange(this);
}
