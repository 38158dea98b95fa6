#include "host/end_signals.h"

#include <array>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr int c_signals[] = {SIGTERM, SIGHUP, SIGINT};

/// A handler may do little more than write a byte.
std::atomic<int> handler_file = -1;
static_assert(std::atomic<int>::is_always_lock_free);
std::array<struct sigaction, std::size(c_signals)> former;

void on_signal(int number)
{
    auto const byte = static_cast<unsigned char>(number);
    [[maybe_unused]] auto const written = ::write(handler_file, &byte, 1);
}
} // namespace

Tvx_end_signals::channel Tvx_end_signals::open_channel()
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return {};
    return {ends[0], ends[1]};
}

Tvx_end_signals::Tvx_end_signals(std::function<void()> last_work)
    : f_channel(open_channel()), f_notifier(f_channel.reading, QSocketNotifier::Read)
{
    if (f_channel.reading < 0)
        return;
    QObject::connect(&f_notifier, &QSocketNotifier::activated, &f_notifier,
                     [reading = f_channel.reading, work = std::move(last_work)] {
                         unsigned char number = 0;
                         if (::read(reading, &number, 1) != 1)
                             return;
                         work();
                         ::raise(number); // its handler was for once
                     });
    handler_file = f_channel.writing;
    for (std::size_t i = 0; i < former.size(); ++i) {
        struct sigaction action = {};
        action.sa_handler = &on_signal;
        action.sa_flags = SA_RESTART | int(SA_RESETHAND);
        sigaction(c_signals[i], nullptr, &former[i]);
        if (former[i].sa_handler != SIG_IGN)
            sigaction(c_signals[i], &action, nullptr);
    }
}

Tvx_end_signals::~Tvx_end_signals()
{
    if (f_channel.reading < 0)
        return;
    for (std::size_t i = 0; i < former.size(); ++i)
        sigaction(c_signals[i], &former[i], nullptr);
    handler_file = -1;
    ::close(f_channel.reading);
    ::close(f_channel.writing);
}
