#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/custom_control.h"

/// The strip by which the user takes a window whose whole area is covered by controls: dragged onto a dock
/// site it docks the window there, out of a site it makes a window again, and elsewhere it moves the window.
/// It drags the form that it stands on, whose `DragKind` must be `dkDock`.
class VX_API Tvx_dock_grip : public TCustomControl
{
public:
    explicit Tvx_dock_grip(TComponent *owner);

    static constexpr int c_height = 9;

protected:
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void Paint() override;

private:
    TPoint f_pressed{-1, -1};
};
