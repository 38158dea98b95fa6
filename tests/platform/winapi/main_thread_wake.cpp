#include "platform/winapi/detail/main_thread.h"

#include <gtest/gtest.h>
#include <thread>

TEST(main_thread, calls_that_waited_are_worked_off_once_something_listens)
{
    static int wakes = 0;
    wakes = 0;
    int calls = 0;
    vx_set_main_thread_wake(nullptr);
    vx_set_main_thread_starter(nullptr);
    std::thread([&] {
        vx_main_thread_post([](void *count) { ++*static_cast<int *>(count); }, &calls);
    }).join();
    vx_set_main_thread_wake([] { ++wakes; });
    EXPECT_EQ(1, wakes) << "what waits is not forgotten";
    // With no wake, the first that posts asks for one.
    vx_set_main_thread_wake(nullptr);
    vx_set_main_thread_starter([] { vx_set_main_thread_wake([] { ++wakes; }); });
    std::thread([&] {
        vx_main_thread_post([](void *count) { ++*static_cast<int *>(count); }, &calls);
    }).join();
    EXPECT_EQ(2, wakes);
    vx_main_thread_pump();
    EXPECT_EQ(2, calls);
    vx_set_main_thread_starter(nullptr);
    vx_set_main_thread_wake(nullptr);
}
