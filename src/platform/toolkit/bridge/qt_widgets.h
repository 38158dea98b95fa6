#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/control.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/types.h"

#include <QtWidgets/QWidget>

#include <type_traits>
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

/// While it stands, a child that joins `area` is one whose control is still being made.
class VX_API vx_birth_scope
{
public:
    explicit vx_birth_scope(QWidget *area);
    vx_birth_scope(vx_birth_scope const &) = delete;
    vx_birth_scope &operator=(vx_birth_scope const &) = delete;
    ~vx_birth_scope();

private:
    QWidget *const f_former;
};

/// How a widget that the toolkit makes hands its events to its control, which then need not filter them.
struct vx_event_hook
{
    vx_control_link *link = nullptr; ///< of the control, while there is one
};

/// Told by a hooked widget as it is made; whoever makes a link of that widget takes the hook.
VX_API void vx_offer_hook(QWidget *widget, vx_event_hook *hook);
/// True: the control has dealt with the event.
[[nodiscard]] VX_API bool vx_hooked_event(vx_control_link &link, QWidget *widget, QEvent *event);

template <class Widget>
class vx_hooked final : public Widget, public vx_event_hook
{
public:
    template <class... Args>
    explicit vx_hooked(Args &&...args) : Widget(std::forward<Args>(args)...)
    {
        vx_offer_hook(this, this);
    }
    ~vx_hooked() override
    {
        if (!link)
            vx_offer_hook(nullptr, nullptr);
    }

protected:
    bool event(QEvent *event) override
    {
        return (link && vx_hooked_event(*link, this, event)) || Widget::event(event);
    }
};

/// Makes a widget, in the place that `vx_new_on` has told if its class has a constructor for that.
template <class Widget, class... Args>
[[nodiscard]] Widget *vx_born(Args &&...args)
{
    vx_qt_ensure_application();
    QWidget *const place = vx_qt_widget(vx_birth_place::take());
    using made = std::conditional_t<std::is_final_v<Widget>, Widget, vx_hooked<Widget>>;
    if constexpr (sizeof...(Args) == 0 && std::is_constructible_v<Widget, QWidget *>) {
        vx_birth_scope const scope(place);
        return new made(place);
    } else {
        return new made(std::forward<Args>(args)...);
    }
}

/// The widget for a control's constructor: `TWinControl(owner, vx_make_widget<QLineEdit>())`. The control
/// owns it.
template <class Widget, class... Args>
[[nodiscard]] vx_native_widget *vx_make_widget(Args &&...args)
{
    return vx_native(static_cast<QWidget *>(vx_born<Widget>(std::forward<Args>(args)...)));
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
