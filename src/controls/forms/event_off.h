#pragma once

#include <utility>

namespace vx {
/// Takes an event off its control for the length of a block, so that a programmatic change stays quiet:
/// `vx::event_off const quiet(edit->OnChange);`
template <class Closure>
class event_off
{
public:
    explicit event_off(Closure &event) : f_event(event), f_kept(std::exchange(event, {})) {}
    event_off(event_off const &) = delete;
    event_off &operator=(event_off const &) = delete;
    ~event_off() { f_event = f_kept; }

private:
    Closure &f_event;
    Closure f_kept;
};
} // namespace vx
