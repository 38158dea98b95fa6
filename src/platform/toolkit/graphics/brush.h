#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

enum TBrushStyle
{
    bsSolid,
    bsClear,
    bsHorizontal,
    bsVertical,
    bsFDiagonal,
    bsBDiagonal,
    bsCross,
    bsDiagCross
};

/// What areas are filled with: solid white at the start. `OnChange` runs after every real change.
class VX_API TBrush : public TPersistent
{
public:
    TBrush() = default;
    TBrush(TBrush const &) = delete;
    TBrush &operator=(TBrush const &) = delete;

    void Assign(TPersistent const *source) override;

    [[nodiscard]] TColor GetColor() const { return f_color; }
    /// A clear brush becomes a solid one.
    void SetColor(TColor color);
    [[nodiscard]] TBrushStyle GetStyle() const { return f_style; }
    void SetStyle(TBrushStyle style);

    closure<void(TObject *)> OnChange;

private:
    TColor f_color = clWhite;
    TBrushStyle f_style = bsSolid;
};
