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
class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

/// The end of a control in Qt's eyes: event filter of its widget and of the inner widgets that Qt puts into
/// it, and context of its connections, which end with it.
struct VX_API vx_control_link final : QObject
{
    vx_control_link(TControl *control, QWidget *widget);
    ~vx_control_link() override;
    bool eventFilter(QObject *object, QEvent *event) override;

    /// What `vx_qt_host_control` does.
    static void host(TWinControl *control, QWidget *host);

    TControl *control;
    QPointer<QWidget> widget;

private:
    void watch(QObject *object);
    bool filter(QWidget *target, QEvent *event);
    bool filter_own(QEvent *event);
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

    QWidget *f_host = nullptr;
    std::unique_ptr<QObject> f_follower;
    bool f_pressed_here = false;
};

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
