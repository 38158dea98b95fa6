#pragma once

#include "platform/toolkit/core/form.h"

class TButton;
class TLabel;

namespace vx::dialogs {
/// The window that a dialog belongs to: the modal one that is open, else `parent`, else that of the
/// application; null when there is none.
[[nodiscard]] HWND owner_window(HWND parent);

/// Where a window of this size comes for the point that a dialog is asked for; see `vx_dlgs.h`. `point` is
/// not (0, 0).
[[nodiscard]] TPoint place_at(TPoint point, TSize size);

/// Base of the built-in dialogs: OK and Cancel at the bottom, shown at a point of the screen.
class common_form : public TForm
{
public:
    common_form(int caption, int client_width, int client_height);

    /// True for OK.
    bool run(HWND parent, int x, int y);

    /// Distance of controls from the edges, and the heights of rows.
    static constexpr int c_edge = 12;
    static constexpr int c_gap = 8;
    static constexpr int c_edit_height = 24;

protected:
    /// The buttons come last, so that they are the last ones in the tab order.
    void add_buttons();
    void set_ok_enabled(bool enabled);
    /// A label, with the control that it names if any.
    TLabel *add_label(int caption, int left, int top, TWinControl *control);

private:
    TButton *f_ok = nullptr;
};
} // namespace vx::dialogs
