#pragma once

#include <atomic>
#include <functional>

namespace vx::gdal {
/// Work that GDAL does in one call, however long that takes. Where somebody waits (see
/// `vx_datasource_set_waiting`) it runs on a thread of its own, and who waits is asked on the way; else it
/// runs here. Errors go to the guard that stands round the call.

/// Runs the work to its end. Where it can stop on the way it looks at what it is given: true once the one who
/// waits has given it up.
/// Then `abort` is called as well, again and again until the work has ended.
void attend(std::function<void(std::atomic<bool> const &given_up)> const &work,
            std::function<void()> const &abort = nullptr);
/// False when it was given up: then the work goes on by itself, so it must hold all that it touches.
[[nodiscard]] bool attend_or_leave(std::function<void()> work);
} // namespace vx::gdal
