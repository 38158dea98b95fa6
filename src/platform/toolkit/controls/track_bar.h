#pragma once

#include "platform/toolkit/core/win_control.h"

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
    /// How long the thumb is across the bar, in pixels; the style's own length at the start.
    [[nodiscard]] int GetThumbLength() const;
    /// From 1 up.
    void SetThumbLength(int length);
    /// A range of positions that is marked on the bar, as long as it is shown and not empty. It has nothing
    /// to do with the position.
    [[nodiscard]] int GetSelStart() const { return f_sel_start; }
    void SetSelStart(int position);
    [[nodiscard]] int GetSelEnd() const { return f_sel_end; }
    void SetSelEnd(int position);
    [[nodiscard]] bool GetShowSelRange() const { return f_show_sel_range; }
    void SetShowSelRange(bool show);

    TNotifyEvent OnChange;

protected:
    virtual void Changed();

private:
    class slider;
    class thumb_style;

    void apply_ticks();
    void apply_selection();

    int f_sel_start = 0;
    int f_sel_end = 0;
    bool f_show_sel_range = true;
    TTickMark f_tick_marks = tmBottomRight;
    TTickStyle f_tick_style = tsAuto;
};
