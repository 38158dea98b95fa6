#include "platform/winapi/detail/main_thread.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
struct posted_call
{
    Tvx_main_thread_call call;
    void *data;
    unsigned long serial; ///< grows with each call
};

struct call_list
{
    std::mutex lock;
    std::deque<posted_call> calls;
    unsigned long next_serial = 0;
    void (*wake)() = nullptr;
    void (*starter)() = nullptr;
};

// Never destroyed: other threads may still post while the process ends.
call_list &calls()
{
    static call_list &list = *new call_list;
    return list;
}

int thread_id()
{
    return static_cast<int>(syscall(SYS_gettid));
}

// 0 stands for the process's first thread, whose id is that of the process.
std::atomic<int> main_id{0};
} // namespace

bool vx_is_main_thread()
{
    int const id = main_id.load(std::memory_order_relaxed);
    return thread_id() == (id ? id : static_cast<int>(getpid()));
}

void vx_set_main_thread()
{
    main_id.store(thread_id(), std::memory_order_relaxed);
}

void vx_main_thread_post(Tvx_main_thread_call call, void *data)
{
    if (!call)
        return;
    void (*wake)() = nullptr;
    void (*starter)() = nullptr;
    {
        std::lock_guard const hold(calls().lock);
        calls().calls.push_back({call, data, calls().next_serial++});
        wake = calls().wake;
        starter = calls().starter;
    }
    if (wake)
        wake();
    else if (starter)
        starter();
}

void vx_main_thread_cancel(Tvx_main_thread_call call, void *data)
{
    std::lock_guard const hold(calls().lock);
    std::erase_if(calls().calls, [&](posted_call const &c) { return c.call == call && c.data == data; });
}

void vx_main_thread_pump()
{
    if (!vx_is_main_thread())
        return;
    unsigned long end;
    {
        std::lock_guard const hold(calls().lock);
        end = calls().next_serial;
    }
    // One by one: a call may post again, cancel what waits, or pump itself.
    for (;;) {
        posted_call next{};
        {
            std::lock_guard const hold(calls().lock);
            if (calls().calls.empty() || calls().calls.front().serial >= end)
                return;
            next = calls().calls.front();
            calls().calls.pop_front();
        }
        next.call(next.data);
    }
}

void vx_set_main_thread_wake(void (*wake)())
{
    bool waiting = false;
    {
        std::lock_guard const hold(calls().lock);
        calls().wake = wake;
        waiting = !calls().calls.empty();
    }
    if (wake && waiting)
        wake();
}

void vx_set_main_thread_starter(void (*starter)())
{
    std::lock_guard const hold(calls().lock);
    calls().starter = starter;
}
