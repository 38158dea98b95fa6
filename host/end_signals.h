#pragma once

#include <QSocketNotifier>

#include <functional>

/// While one lives, the signals by which a system ends a program (SIGTERM, SIGHUP, SIGINT) let it do its last
/// work first, in the main thread's event loop; then they end it as ever. A second one ends it at once. One
/// that the program was started to ignore stays ignored. One at a time in a process.
class Tvx_end_signals
{
public:
    explicit Tvx_end_signals(std::function<void()> last_work);
    Tvx_end_signals(Tvx_end_signals const &) = delete;
    Tvx_end_signals &operator=(Tvx_end_signals const &) = delete;
    ~Tvx_end_signals();

private:
    struct channel
    {
        int reading = -1;
        int writing = -1;
    };
    [[nodiscard]] static channel open_channel();

    channel f_channel;
    QSocketNotifier f_notifier;
};
