#include "controls/forms/dock_grip.h"

#include "platform/toolkit/core/form.h"
#include "platform/toolkit/graphics/canvas.h"

#include <cstdlib>

namespace {
constexpr int c_reach = 4; ///< pixels that the mouse moves before it drags
constexpr int c_inset = 4;
constexpr int c_gap = 3;
} // namespace

Tvx_dock_grip::Tvx_dock_grip(TComponent *owner) : TCustomControl(owner)
{
    SetHeight(c_height);
    SetCursor(crSizeAll);
}

void Tvx_dock_grip::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    f_pressed = button == mbLeft ? TPoint{x, y} : TPoint{-1, -1};
    TCustomControl::MouseDown(button, shift, x, y);
}

void Tvx_dock_grip::MouseMove(TShiftState shift, int x, int y)
{
    TCustomForm *const form = GetParentForm(this, false);
    bool const held = shift.Contains(ssLeft) && f_pressed.X >= 0;
    if (form && held && std::abs(x - f_pressed.X) + std::abs(y - f_pressed.Y) >= c_reach) {
        f_pressed = {-1, -1};
        form->BeginDrag(true);
        return;
    }
    TCustomControl::MouseMove(shift, x, y);
}

void Tvx_dock_grip::Paint()
{
    TRect const area = GetClientRect();
    GetCanvas()->GetPen()->SetColor(clBtnShadow);
    for (int y = c_gap; y + 1 < area.Bottom; y += c_gap) {
        GetCanvas()->MoveTo(area.Left + c_inset, y);
        GetCanvas()->LineTo(area.Right - c_inset, y);
    }
}
