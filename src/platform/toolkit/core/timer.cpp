#include "platform/toolkit/core/timer.h"

#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtCore/QTimer>

struct TTimer::native
{
    QTimer timer;
};

TTimer::TTimer(TComponent *owner) : TComponent(owner)
{
    vx_qt_ensure_application();
    f_native = std::make_unique<native>();
    QObject::connect(&f_native->timer, &QTimer::timeout, &f_native->timer,
                     [this] { vx_guarded([this] { OnTimer(this); }); });
    update();
}

TTimer::~TTimer() = default;

void TTimer::SetEnabled(bool enabled)
{
    if (f_enabled == enabled)
        return;
    f_enabled = enabled;
    update();
}

void TTimer::SetInterval(unsigned milliseconds)
{
    f_interval = milliseconds;
    update();
}

void TTimer::update()
{
    if (f_enabled && f_interval > 0)
        f_native->timer.start(std::chrono::milliseconds(f_interval));
    else
        f_native->timer.stop();
}
