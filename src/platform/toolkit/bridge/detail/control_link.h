#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/core/control.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>
#include <type_traits>
#include <utility>

// The tie between a control and its widget, for the toolkit's own controls.

class QContextMenuEvent;
class QDropEvent;
class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

class vx_control_guard;
struct vx_event_hook;

/// The end of a control in Qt's eyes: it gets the events of its widget, by the hook or as a filter, and
/// filters those of the inner widgets that Qt puts into it, and context of its connections, which end with
/// it.
struct VX_API vx_control_link final : QObject
{
    vx_control_link(TControl *control, QWidget *widget);
    ~vx_control_link() override;
    bool eventFilter(QObject *object, QEvent *event) override;

    /// What `vx_qt_host_control` does.
    static void host(TWinControl *control, QWidget *host);

    TControl *control;
    /// The control as one with a window of its own, as long as it is that; else null.
    TWinControl *windowed = nullptr;
    QPointer<QWidget> widget;

private:
    void watch(QObject *object);
    void track_mouse(QWidget *of);
    bool filter(QWidget *target, QEvent *event);
    bool filter_own(QEvent *event);
    bool drop_event(QDropEvent &event);
    bool key_press(QWidget *target, QKeyEvent &event);
    bool key_release(QKeyEvent &event);
    bool input_method(QWidget *target, QInputMethodEvent &event);
    bool mouse_button(QWidget *target, QMouseEvent &event);
    bool mouse_move(QWidget *target, QMouseEvent &event);
    bool wheel(QWheelEvent &event);
    bool context_menu(QWidget *target, QContextMenuEvent &event);
    bool window_event(QEvent *event);
    void focus_in();
    void focus_out(QFocusEvent &event);
    void leave_host();
    [[nodiscard]] TPoint to_client(QWidget *target, QPointF const &position) const;

    QWidget const *const f_key; ///< where the widget was made: for the list of owners
    QWidget *f_host = nullptr;
    std::unique_ptr<QObject> f_follower;
    vx_control_guard *f_guards = nullptr; ///< those that stand, the newest first
    vx_event_hook *f_hook = nullptr;      ///< of the widget, if it has one
    bool f_pressed_here = false;
    bool f_tracks_mouse = false;

    friend class vx_control_guard;
};

/// What `TControl::Life` is for, at no cost: for the toolkit's own code, as a local variable only.
class vx_control_guard
{
public:
    explicit vx_control_guard(TControl const *control) : f_link(control->Link())
    {
        if (f_link)
            f_former = std::exchange(f_link->f_guards, this);
    }
    vx_control_guard(vx_control_guard const &) = delete;
    vx_control_guard &operator=(vx_control_guard const &) = delete;
    ~vx_control_guard()
    {
        if (f_link)
            f_link->f_guards = f_former;
    }
    /// Whether the control has begun to end.
    [[nodiscard]] bool expired() const { return !f_link; }
    /// Tells those that stand.
    static void expire(vx_control_link &link)
    {
        for (vx_control_guard *guard = std::exchange(link.f_guards, nullptr); guard; guard = guard->f_former)
            guard->f_link = nullptr;
    }

private:
    vx_control_link *f_link;
    vx_control_guard *f_former = nullptr;
};

/// The control as one that can hold others; null if it is none, or has begun to end.
[[nodiscard]] inline TWinControl *vx_windowed(TControl const *control)
{
    vx_control_link const *const link = control ? control->Link() : nullptr;
    return link ? link->windowed : nullptr;
}

/// Connects a signal for as long as the control lives; nothing runs once it is being destroyed. `f` takes the
/// signal's arguments, or none.
template <class Sender, class Signal, class F>
void vx_connect(TControl *control, Sender *sender, Signal signal, F f)
{
    QObject::connect(sender, signal, control->Link(), [control, f](auto &&...args) -> void {
        if (control->IsDestroying())
            return;
        vx_guarded([&] {
            vx_event_scope const scope;
            if constexpr (std::is_invocable_v<F const &, decltype(args)...>)
                f(std::forward<decltype(args)>(args)...);
            else
                f();
        });
    });
}
