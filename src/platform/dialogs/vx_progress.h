#pragma once

#include "platform/base/export.h"

#include <memory>

/// One piece of work whose progress the user sees.
struct Ivx_progress;

/// Begins a piece of work. The first one opens a window with a caption, a bar and a stop button, which blocks
/// the other windows until the work has ended; work begun inside it adds a line to that window, and is
/// stopped with it. Ended in the opposite order. The window is shown only for work that lasts: at the first
/// `vx_progress_set` or `vx_progress_is_stopped` after half a second. Main thread only. Never null.
[[nodiscard]] VX_API Ivx_progress *vx_progress_start(wchar_t const *caption);
/// Closes the line, and the window with the first one. Work that was begun later and not ended is ended too.
/// Null is accepted, as in all of these.
VX_API void vx_progress_finish(Ivx_progress *progress);
/// 0 to 100; others are held within that. Handles the events that wait, though not more often than the eye
/// sees.
VX_API void vx_progress_set(Ivx_progress *progress, int percent);
VX_API void vx_progress_set_caption(Ivx_progress *progress, wchar_t const *caption);
/// True once the user has pressed the stop button, or Esc; it stays true until the work has ended. Handles
/// the events that wait.
[[nodiscard]] VX_API bool vx_progress_is_stopped(Ivx_progress *progress);

/// A piece of work that ends with its scope.
class Tvx_progress
{
public:
    explicit Tvx_progress(wchar_t const *caption) : f_progress(vx_progress_start(caption)) {}
    void set(int percent) { vx_progress_set(f_progress.get(), percent); }
    [[nodiscard]] bool is_stopped() { return vx_progress_is_stopped(f_progress.get()); }

private:
    struct finisher
    {
        void operator()(Ivx_progress *progress) const { vx_progress_finish(progress); }
    };
    std::unique_ptr<Ivx_progress, finisher> f_progress;
};
