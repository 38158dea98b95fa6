#pragma once

#include "platform/toolkit/win_control.h"

enum TTrackBarOrientation
{
    trHorizontal,
    trVertical
};

/// Sides of the bar that carry ticks.
enum TTickMark
{
    tmBottomRight,
    tmTopLeft,
    tmBoth
};

enum TTickStyle
{
    tsNone,
    tsAuto,
    tsManual
};

/// A slider over the numbers `Min` to `Max`, 0 to 10 at the start; 150 by 45. `OnChange` runs after every
/// change of the position, by the user, by `SetPosition` or by new limits. A vertical bar has its least
/// number at the top.
class VX_API TTrackBar : public TWinControl
{
public:
    explicit TTrackBar(TComponent *owner);

    [[nodiscard]] int GetPosition() const;
    /// Held within the limits.
    void SetPosition(int position);
    [[nodiscard]] int GetMin() const;
    void SetMin(int value);
    [[nodiscard]] int GetMax() const;
    void SetMax(int value);
    /// Step of the arrow keys, 1.
    [[nodiscard]] int GetLineSize() const;
    void SetLineSize(int size);
    /// Step of the page keys and of a click beside the thumb, 2.
    [[nodiscard]] int GetPageSize() const;
    void SetPageSize(int size);
    [[nodiscard]] int GetFrequency() const;
    /// Distance of the ticks.
    void SetFrequency(int frequency);
    [[nodiscard]] TTrackBarOrientation GetOrientation() const;
    void SetOrientation(TTrackBarOrientation orientation);
    [[nodiscard]] TTickMark GetTickMarks() const { return f_tick_marks; }
    void SetTickMarks(TTickMark marks);
    [[nodiscard]] TTickStyle GetTickStyle() const { return f_tick_style; }
    /// `tsManual` shows none.
    void SetTickStyle(TTickStyle style);

    TNotifyEvent OnChange;

protected:
    virtual void Changed();

private:
    void apply_ticks();

    TTickMark f_tick_marks = tmBottomRight;
    TTickStyle f_tick_style = tsAuto;
};
