#pragma once

#include "platform/toolkit/core/control.h"

class TCanvas;

/// A control without a window of its own: it takes no focus and lies below its windowed siblings.
class VX_API TGraphicControl : public TControl
{
public:
    explicit TGraphicControl(TComponent *owner);
    ~TGraphicControl() override;

    [[nodiscard]] TCanvas *GetCanvas() const { return f_canvas.get(); }

protected:
    /// Draws the control through its canvas, which is open only during this.
    virtual void Paint() {}
    void PaintWidget(vx_native_painter *painter) override;

private:
    std::unique_ptr<TCanvas> f_canvas;
};
