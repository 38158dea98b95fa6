#include "platform/toolkit/bridge/native_window.h"

#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtGui/QGuiApplication>

unsigned long vx_native_x11_window(HWND window)
{
    auto *const widget = vx_qt_widget(window);
    return widget && QGuiApplication::platformName() == QLatin1String("xcb") ? widget->winId() : 0;
}
