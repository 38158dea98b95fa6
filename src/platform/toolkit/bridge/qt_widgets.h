#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/control.h"
#include "platform/toolkit/core/types.h"

#include <QtWidgets/QWidget>

#include <utility>

// Controls of the toolkit as widgets of Qt, for its own sources and for hosts that are written with Qt.

/// Makes a `QApplication` if the process has none: on the platform "offscreen" when the environment names
/// neither a display nor a platform. Called before every widget is made; cheap.
VX_API void vx_qt_ensure_application();

[[nodiscard]] inline QWidget *vx_qt_widget(vx_native_widget *widget)
{
    return reinterpret_cast<QWidget *>(widget);
}
[[nodiscard]] inline vx_native_widget *vx_native(QWidget *widget)
{
    return reinterpret_cast<vx_native_widget *>(widget);
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
