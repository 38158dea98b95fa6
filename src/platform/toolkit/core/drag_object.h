#pragma once

#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

/// What a control in the middle of docking tells the site. One object goes along with a drag by the mouse.
class VX_API TDragDockObject : public TObject
{
public:
    explicit TDragDockObject(TControl *control) : f_control(control) {}

    [[nodiscard]] TControl *GetControl() const { return f_control; }
    [[nodiscard]] TAlign GetDropAlign() const { return f_drop_align; }
    void SetDropAlign(TAlign value) { f_drop_align = value; }
    /// The docked control beside which to dock; null: beside all of them.
    [[nodiscard]] TControl *GetDropOnControl() const { return f_drop_on_control; }
    void SetDropOnControl(TControl *value) { f_drop_on_control = value; }
    /// On the screen: where the control would stand.
    [[nodiscard]] TRect GetDockRect() const { return f_dock_rect; }
    void SetDockRect(TRect const &value) { f_dock_rect = value; }

    /// Run whenever the mouse has moved and at the end. The base shows no picture.
    virtual void DrawDragDockImage() {}
    virtual void EraseDragDockImage() {}

private:
    TControl *f_control;
    TAlign f_drop_align = alNone;
    TControl *f_drop_on_control = nullptr;
    TRect f_dock_rect;
};
