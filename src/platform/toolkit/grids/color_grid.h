#pragma once

#include "platform/toolkit/core/custom_control.h"

/// The 16 standard colours in a block of 4 by 4. A click of the left button, or Enter, chooses the foreground
/// colour; one of the right button, or Space, the background colour. Arrows move the frame. `OnChange` runs
/// after the user chose another colour; setters run nothing.
class VX_API TColorGrid : public TCustomControl
{
public:
    explicit TColorGrid(TComponent *owner);

    static constexpr int c_color_count = 16;

    /// Index from 0 into the table of colours; -1 for none.
    [[nodiscard]] int GetForegroundIndex() const { return f_foreground; }
    void SetForegroundIndex(int index);
    [[nodiscard]] int GetBackgroundIndex() const { return f_background; }
    void SetBackgroundIndex(int index);
    /// `clNone` when none is chosen.
    [[nodiscard]] TColor GetForegroundColor() const { return IndexToColor(f_foreground); }
    [[nodiscard]] TColor GetBackgroundColor() const { return IndexToColor(f_background); }
    [[nodiscard]] static TColor IndexToColor(int index);
    /// -1 for a colour that is not in the table.
    [[nodiscard]] static int ColorToIndex(TColor color);
    /// The cell with the frame.
    [[nodiscard]] int GetSelection() const { return f_selection; }

    TNotifyEvent OnChange;

protected:
    void Paint() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void KeyDown(Word &key, TShiftState shift) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;
    void DoEnter() override;
    void DoExit() override;

private:
    [[nodiscard]] TRect cell_rect(int index) const;
    [[nodiscard]] int cell_at(int x, int y) const;
    void choose(int &which, int index);

    int f_foreground = 0;
    int f_background = c_color_count - 1;
    int f_selection = 0;
};
