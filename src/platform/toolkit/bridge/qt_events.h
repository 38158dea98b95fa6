#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/types.h"

#include <QtCore/Qt>

#include <utility>

// What events carry, and where user code runs in them.

class QKeyEvent;

[[nodiscard]] VX_API TShiftState vx_shift_state(Qt::KeyboardModifiers modifiers,
                                                Qt::MouseButtons buttons = {});
/// The key code of a key event; 0 for keys that have none.
[[nodiscard]] VX_API Word vx_key_code(QKeyEvent const &event);
[[nodiscard]] VX_API Qt::Key vx_qt_key(Word code);

/// Stands round every call of user code. While one lives, widgets of freed controls end later, so that a
/// handler may free the control that called it.
class VX_API vx_event_scope
{
public:
    vx_event_scope();
    vx_event_scope(vx_event_scope const &) = delete;
    vx_event_scope &operator=(vx_event_scope const &) = delete;
    ~vx_event_scope();
    [[nodiscard]] static bool active();
};

/// Runs what may call user code on behalf of an event. No exception may pass through the window system, so
/// it ends here, and the user is told (`TApplication::HandleException`). Gives whether none came.
template <class F>
bool vx_guarded(F &&f) noexcept
{
    try {
        std::forward<F>(f)();
        return true;
    } catch (...) {
        Application->HandleException(Application);
        return false;
    }
}
