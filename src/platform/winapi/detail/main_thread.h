#pragma once

#include "platform/base/export.h"

/// Work that must run on the main thread, where the controls live.
///
/// The main thread is the process's first one unless the toolkit names another. What other threads hand over
/// waits in a list until the main thread calls `vx_main_thread_pump`; the toolkit sets a wake function that
/// makes its event loop do so.

using Tvx_main_thread_call = void (*)(void *data);

[[nodiscard]] VX_API bool vx_is_main_thread();
/// The calling thread is the main thread from now on.
VX_API void vx_set_main_thread();

/// Calls `call(data)` on the main thread, later and in the order of posting, also when posted there. The wake
/// function, if set, runs on the calling thread.
VX_API void vx_main_thread_post(Tvx_main_thread_call call, void *data);
/// Takes calls with this function and data back. On the main thread none of them runs after this.
VX_API void vx_main_thread_cancel(Tvx_main_thread_call call, void *data);
/// Runs what waited when it began. Main thread only; from another thread it does nothing.
VX_API void vx_main_thread_pump();
/// `wake` must be callable from any thread and soon lead to `vx_main_thread_pump` on the main thread. It runs
/// at once if something waits. Null: none.
VX_API void vx_set_main_thread_wake(void (*wake)());
/// Runs, on the calling thread, when something is posted while there is no wake function: it sets one if it
/// can.
VX_API void vx_set_main_thread_starter(void (*starter)());
