#pragma once

#include "platform/toolkit/core/win_control.h"

/// An area that scrolls when its controls do not fit; 185 by 41. Controls aligned to the client area or a
/// side get the visible room; those that stand free make the area as large as they need. A control that gets
/// the focus by keys or by the program is scrolled into sight.
class VX_API TScrollBox : public TWinControl
{
public:
    explicit TScrollBox(TComponent *owner);
    ~TScrollBox() override;

    [[nodiscard]] TBorderStyle GetBorderStyle() const { return f_border_style; }
    void SetBorderStyle(TBorderStyle style);
    /// Scrolls until the control is in sight.
    void ScrollInView(TControl *control);
    [[nodiscard]] int GetHorzPosition() const;
    void SetHorzPosition(int position);
    [[nodiscard]] int GetVertPosition() const;
    void SetVertPosition(int position);
    [[nodiscard]] TRect GetClientRect() const override;

protected:
    [[nodiscard]] vx_native_widget *ClientWidget() const override;
    void ControlsAligned() override;

private:
    void update_range();
    void room_changed();

    TBorderStyle f_border_style = bsSingle;
};
