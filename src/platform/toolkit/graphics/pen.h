#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

enum TPenStyle
{
    psSolid,
    psDash,
    psDot,
    psDashDot,
    psDashDotDot,
    psClear,
    psInsideFrame
};

/// How the pen's colour meets what is there.
enum TPenMode
{
    pmBlack,
    pmWhite,
    pmNop,
    pmNot,
    pmCopy,
    pmNotCopy,
    pmXor,
    pmNotXor,
    pmMask,
    pmMerge
};

/// What lines and outlines are drawn with: black, one pixel, solid at the start. `OnChange` runs after every
/// real change.
class VX_API TPen : public TPersistent
{
public:
    TPen() = default;
    TPen(TPen const &) = delete;
    TPen &operator=(TPen const &) = delete;

    void Assign(TPersistent const *source) override;

    [[nodiscard]] TColor GetColor() const { return f_color; }
    void SetColor(TColor color);
    /// Logical pixels; less than 1 counts as 1.
    [[nodiscard]] int GetWidth() const { return f_width; }
    void SetWidth(int width);
    [[nodiscard]] TPenStyle GetStyle() const { return f_style; }
    void SetStyle(TPenStyle style);
    [[nodiscard]] TPenMode GetMode() const { return f_mode; }
    void SetMode(TPenMode mode);

    closure<void(TObject *)> OnChange;

private:
    template <class T>
    void change(T &field, T value);

    TColor f_color = clBlack;
    int f_width = 1;
    TPenStyle f_style = psSolid;
    TPenMode f_mode = pmCopy;
};
