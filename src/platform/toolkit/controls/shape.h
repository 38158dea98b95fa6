#pragma once

#include "platform/toolkit/core/graphic_control.h"

#include <memory>

class TBrush;
class TPen;

enum TShapeType
{
    stRectangle,
    stSquare,
    stRoundRect,
    stRoundSquare,
    stEllipse,
    stCircle
};

/// A figure that fills the control, 65 by 65; squares and circles lie in its middle.
class VX_API TShape : public TGraphicControl
{
public:
    explicit TShape(TComponent *owner);
    ~TShape() override;

    [[nodiscard]] TShapeType GetShape() const { return f_shape; }
    void SetShape(TShapeType shape);
    [[nodiscard]] TPen *GetPen() const { return f_pen.get(); }
    void SetPen(TPen const *pen);
    [[nodiscard]] TBrush *GetBrush() const { return f_brush.get(); }
    void SetBrush(TBrush const *brush);

protected:
    void Paint() override;

private:
    void on_style_change(TObject *sender);

    std::unique_ptr<TPen> f_pen;
    std::unique_ptr<TBrush> f_brush;
    TShapeType f_shape = stRectangle;
};
