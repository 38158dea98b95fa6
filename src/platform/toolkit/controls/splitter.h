#pragma once

#include "platform/toolkit/core/custom_control.h"

/// A bar that sizes the control that stands before it on the same side of their parent, by dragging, and by
/// the arrow keys in steps of 8 pixels while it has the focus. Aligned left and 3 wide at the start.
class VX_API TSplitter : public TCustomControl
{
public:
    explicit TSplitter(TComponent *owner);

    /// The least size that either side keeps, 30.
    [[nodiscard]] int GetMinSize() const { return f_min_size; }
    void SetMinSize(int size);
    /// True, the default: the controls follow while the bar is dragged; else only at its end.
    [[nodiscard]] bool GetResizeLive() const { return f_resize_live; }
    void SetResizeLive(bool live) { f_resize_live = live; }

    /// Before each change; `new_size` may be changed, `accept` false keeps the size.
    closure<void(TObject *sender, int &new_size, bool &accept)> OnCanResize;
    TNotifyEvent OnMoved;

protected:
    void Paint() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(Word &key, TShiftState shift) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;
    void DoEnter() override;
    void DoExit() override;

private:
    [[nodiscard]] TControl *find_control() const;
    [[nodiscard]] bool upright() const;
    void update_cursor();
    bool resize_by(int distance, bool apply);

    TControl *f_control = nullptr;
    int f_start_size = 0;
    int f_pending = 0;
    TPoint f_down_point;
    int f_min_size = 30;
    bool f_resize_live = true;
};
