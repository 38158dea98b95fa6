#pragma once

#include "platform/toolkit/core/component.h"

#include <vector>

class TCustomForm;
class TBitmap;

/// The screen and what stands on it. Sizes are in logical pixels of the primary screen.
class VX_API TScreen : public TComponent
{
public:
    /// The one object; lives to the end of the process.
    static TScreen *Instance();

    [[nodiscard]] int GetWidth() const;
    [[nodiscard]] int GetHeight() const;
    /// The primary screen without the bars of the desktop.
    [[nodiscard]] TRect GetWorkAreaRect() const;
    /// All screens together.
    [[nodiscard]] TRect GetDesktopRect() const;
    [[nodiscard]] int GetPixelsPerInch() const;

    /// All forms that exist, the one last activated first.
    [[nodiscard]] int GetFormCount() const { return static_cast<int>(f_forms.size()); }
    [[nodiscard]] TCustomForm *GetForms(int index) const;
    [[nodiscard]] TCustomForm *GetActiveForm() const { return f_active_form; }
    [[nodiscard]] TWinControl *GetActiveControl() const;

    /// The cursor shown over all windows of the program; `crDefault`: each control its own.
    [[nodiscard]] TCursor GetCursor() const { return f_cursor; }
    void SetCursor(TCursor value);
    /// Puts a picture into the list of cursors under a number above 0; the hot spot is in its pixels.
    void SetCursors(TCursor index, TBitmap const &picture, int hot_x, int hot_y);
    [[nodiscard]] TPoint GetCursorPos() const;
    /// Moves the pointer, where the system lets programs do so.
    void SetCursorPos(TPoint const &point);
    /// Takes a picture of all screens, `GetDesktopRect` in size or larger where pixels are finer. Where the
    /// system does not give it, the windows of this program are painted on black. The bitmap is empty if
    /// there is no screen.
    void Grab(TBitmap &picture) const;

    TNotifyEvent OnActiveFormChange;
    TNotifyEvent OnActiveControlChange;

private:
    friend class TCustomForm;
    friend class TWinControl;
    friend struct vx_control_link;

    TScreen();
    void add_form(TCustomForm *form);
    void remove_form(TCustomForm *form);
    void form_activated(TCustomForm *form);
    void form_deactivated(TCustomForm *form);

    std::vector<TCustomForm *> f_forms;
    TCustomForm *f_active_form = nullptr;
    TCursor f_cursor = crDefault;
};

/// Stands for the screen object.
struct vx_screen_accessor
{
    TScreen *operator->() const { return TScreen::Instance(); }
    operator TScreen *() const { return TScreen::Instance(); }
};
inline constexpr vx_screen_accessor Screen{};

/// Shows the wait cursor while it lives, then the former one.
class VX_API vx_wait_cursor
{
public:
    vx_wait_cursor() : f_former(Screen->GetCursor()) { Screen->SetCursor(crHourGlass); }
    vx_wait_cursor(vx_wait_cursor const &) = delete;
    vx_wait_cursor &operator=(vx_wait_cursor const &) = delete;
    ~vx_wait_cursor() { Screen->SetCursor(f_former); }

private:
    TCursor f_former;
};
