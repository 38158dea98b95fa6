#pragma once

#include "platform/toolkit/core/graphic_control.h"

enum TBevelShape
{
    bsBox,
    bsFrame,
    bsTopLine,
    bsBottomLine,
    bsLeftLine,
    bsRightLine,
    bsSpacer
};

enum TBevelStyle
{
    bsLowered,
    bsRaised
};

/// A line or a frame, 50 by 50.
class VX_API TBevel : public TGraphicControl
{
public:
    explicit TBevel(TComponent *owner);

    [[nodiscard]] TBevelShape GetShape() const { return f_shape; }
    void SetShape(TBevelShape shape);
    [[nodiscard]] TBevelStyle GetStyle() const { return f_style; }
    void SetStyle(TBevelStyle style);

protected:
    void Paint() override;

private:
    TBevelShape f_shape = bsBox;
    TBevelStyle f_style = bsLowered;
};
