#pragma once

#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/control.h"
#include "platform/toolkit/core/types.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QCursor>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <memory>
#include <type_traits>
#include <utility>

// The one header that names Qt types: for the toolkit's own sources and for hosts that are written with Qt.

class TFont;
class TBitmap;
class QContextMenuEvent;
class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWheelEvent;

/// Makes a `QApplication` if the process has none: on the platform "offscreen" when the environment names
/// neither a display nor a platform. Called before every widget is made; cheap.
VX_API void vx_qt_ensure_application();

// ---- widgets

[[nodiscard]] inline QWidget *vx_qt_widget(vx_native_widget *widget)
{
    return reinterpret_cast<QWidget *>(widget);
}
[[nodiscard]] inline vx_native_widget *vx_native(QWidget *widget)
{
    return reinterpret_cast<vx_native_widget *>(widget);
}
[[nodiscard]] inline QPainter *vx_qt_painter(vx_native_painter *painter)
{
    return reinterpret_cast<QPainter *>(painter);
}
[[nodiscard]] inline vx_native_painter *vx_native(QPainter *painter)
{
    return reinterpret_cast<vx_native_painter *>(painter);
}

/// The widget for a control's constructor: `TWinControl(owner, vx_make_widget<QLineEdit>())`. The control
/// owns it.
template <class Widget, class... Args>
[[nodiscard]] vx_native_widget *vx_make_widget(Args &&...args)
{
    vx_qt_ensure_application();
    return vx_native(static_cast<QWidget *>(new Widget(std::forward<Args>(args)...)));
}

/// The control's widget; null for a null control.
[[nodiscard]] VX_API QWidget *vx_qt_widget(TControl const *control);
/// The widget as the class that the control was made with.
template <class Widget>
[[nodiscard]] Widget *vx_qt_as(TControl const *control)
{
    return static_cast<Widget *>(vx_qt_widget(control));
}
/// The control that the widget belongs to: its own, or the nearest one above it. Null outside the toolkit.
[[nodiscard]] VX_API TControl *vx_control_of(QWidget const *widget);

/// Puts the control's widget into a widget of the host, where it follows the host's size. The control stays
/// its owner's: when the host widget is deleted the control comes loose and lives on, hidden. A null host
/// takes it out.
VX_API void vx_qt_host_control(TWinControl *control, QWidget *host);
/// Puts a foreign widget into the client area of a control, which it fills; the control owns it from then on.
VX_API void vx_qt_host_widget(TWinControl *control, QWidget *widget);

// ---- values

[[nodiscard]] inline QString vx_qt_string(UnicodeString const &text)
{
    return QString::fromWCharArray(text.c_str(), text.Length());
}
[[nodiscard]] inline UnicodeString vx_unicode_string(QString const &text)
{
    return UnicodeString(text.toStdWString());
}
/// System colours give what they stand for at the moment, `clNone` a transparent colour.
[[nodiscard]] VX_API QColor vx_qt_color(TColor color);
[[nodiscard]] inline TColor vx_color(QColor const &color)
{
    return RGB(color.red(), color.green(), color.blue());
}
[[nodiscard]] inline QRect vx_qt_rect(TRect const &r)
{
    return QRect(r.Left, r.Top, r.Width(), r.Height());
}
[[nodiscard]] inline TRect vx_rect(QRect const &r)
{
    return Bounds(r.x(), r.y(), r.width(), r.height());
}
[[nodiscard]] inline QPoint vx_qt_point(TPoint const &p)
{
    return QPoint(p.X, p.Y);
}
[[nodiscard]] inline TPoint vx_point(QPoint const &p)
{
    return {p.x(), p.y()};
}
/// Stand with the graphics: `font.cpp`, `bitmap.cpp`.
[[nodiscard]] VX_API QFont vx_qt_font(TFont const &font);
[[nodiscard]] VX_API QImage vx_qt_image(TBitmap const &bitmap);
VX_API void vx_set_image(TBitmap &bitmap, QImage const &image);

/// Cursors of the program's own come from the screen's list.
[[nodiscard]] VX_API QCursor vx_qt_cursor(TCursor cursor);

[[nodiscard]] VX_API TShiftState vx_shift_state(Qt::KeyboardModifiers modifiers,
                                                Qt::MouseButtons buttons = {});
/// The key code of a key event; 0 for keys that have none.
[[nodiscard]] VX_API Word vx_key_code(QKeyEvent const &event);
[[nodiscard]] VX_API Qt::Key vx_qt_key(Word code);

// ---- events, for the toolkit's own controls

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
        vx_event_scope const scope;
        if constexpr (std::is_invocable_v<F const &, decltype(args)...>)
            f(std::forward<decltype(args)>(args)...);
        else
            f();
    });
}

/// The drag of a control that is going on, of which there is one at most: of its content onto another
/// control, or of itself to another dock site.
struct vx_drag_session
{
    /// Begins once the mouse has moved some pixels with its button down.
    static void prepare(TControl *source, QPoint screen);
    static void begin(TControl *source);
    static void end(bool drop);
    [[nodiscard]] static TControl *source();
    /// True if the event belongs to the drag.
    static bool button(QMouseEvent const &event);
    static bool move(QMouseEvent const &event);
    static void forget(TControl const *control);
};
