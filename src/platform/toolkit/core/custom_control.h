#pragma once

#include "platform/toolkit/core/win_control.h"

class TCanvas;

/// A windowed control that draws itself.
class VX_API TCustomControl : public TWinControl
{
public:
    explicit TCustomControl(TComponent *owner);
    ~TCustomControl() override;

    /// Made when it is asked for: few controls of a page ever draw.
    [[nodiscard]] TCanvas *GetCanvas() const;

    /// Runs after the control has drawn itself.
    TNotifyEvent OnPaint;

protected:
    /// For classes with a widget of another kind.
    TCustomControl(TComponent *owner, vx_native_widget *widget);

    /// Draws the control through its canvas, which is open only during this.
    virtual void Paint() {}
    void PaintWidget(vx_native_painter *painter) override;

private:
    mutable std::unique_ptr<TCanvas> f_canvas;
};
