#include "long_work.h"

#include "database_guard.h"
#include "gdal_errors.h"

#include "platform/basic/vx_datasource.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>
#include <unistd.h>

namespace vx::gdal {
namespace {
constexpr std::chrono::milliseconds c_between_questions{20};

/// Works that were left and still run.
std::atomic<int> left_works = 0;

/// GDAL must not be taken down below a work that was left: the process then ends without it.
void end_without_gdal(int status, void *)
{
    if (left_works > 0)
        _exit(status);
}

/// What a work needs as long as it runs, and what it leaves.
struct running_work
{
    std::function<void()> work;
    std::wstring errors;
    std::promise<void> end;
    std::atomic<bool> stop = false; ///< nobody waits any more

    void run()
    {
        try {
            {
                error_guard const guard(errors);
                stop_scope const until(stop);
                work();
            }
            end.set_value();
        } catch (...) {
            end.set_exception(std::current_exception());
        }
    }
};

bool run(std::function<void()> work, std::atomic<bool> *given_up, std::function<void()> const &abort)
{
    auto const waiting = vx_datasource_get_waiting();
    if (!waiting) {
        work();
        return true;
    }
    auto const running = std::make_shared<running_work>();
    running->work = std::move(work);
    auto end = running->end.get_future();
    auto const is_over = std::make_shared<std::atomic<int>>(0);
    // The one of the two sides that comes second clears up: 1 says that the work is over, 2 that it was left.
    std::thread thread([running, is_over] {
        running->run();
        running->work = nullptr;
        if (is_over->fetch_or(1) & 2)
            --left_works;
    });
    while (end.wait_for(c_between_questions) != std::future_status::ready)
        if (!waiting()) {
            running->stop = true;
            if (given_up) {
                *given_up = true;
                if (abort)
                    abort();
                continue;
            }
            [[maybe_unused]] static int const registered = on_exit(&end_without_gdal, nullptr);
            ++left_works;
            if (is_over->fetch_or(2) & 1)
                --left_works;
            thread.detach();
            return false;
        }
    thread.join();
    error_guard::add_to_innermost(running->errors);
    end.get();
    return true;
}
} // namespace

void attend(std::function<void(std::atomic<bool> const &given_up)> const &work,
            std::function<void()> const &abort)
{
    std::atomic<bool> given_up = false;
    (void)run([&] { work(given_up); }, &given_up, abort);
}

bool attend_or_leave(std::function<void()> work)
{
    return run(std::move(work), nullptr, nullptr);
}
} // namespace vx::gdal
