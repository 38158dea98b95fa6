#pragma once

#include "platform/toolkit/core/component.h"

#include <memory>

/// Runs `OnTimer` every `Interval` milliseconds while enabled, from the event loop. New: one second, enabled;
/// it runs only once `OnTimer` is set.
class VX_API TTimer : public TComponent
{
public:
    explicit TTimer(TComponent *owner);
    ~TTimer() override;

    [[nodiscard]] bool GetEnabled() const { return f_enabled; }
    void SetEnabled(bool enabled);
    [[nodiscard]] unsigned GetInterval() const { return f_interval; }
    /// 0 stops the timer. Counting starts anew.
    void SetInterval(unsigned milliseconds);

    TNotifyEvent OnTimer;

private:
    struct native;
    void update();

    std::unique_ptr<native> f_native;
    unsigned f_interval = 1000;
    bool f_enabled = true;
};
