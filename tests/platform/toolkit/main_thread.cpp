#include "platform/winapi/detail/main_thread.h"

#include "platform/toolkit/core/application.h"

#include <gtest/gtest.h>
#include <thread>

TEST(main_thread, posted_calls_run_in_the_event_loop)
{
    auto *const application = TApplication::Instance();
    int calls = 0;
    std::thread([&] {
        vx_main_thread_post(
            [](void *count) {
                ++*static_cast<int *>(count);
                EXPECT_TRUE(vx_is_main_thread());
            },
            &calls);
    }).join();
    EXPECT_EQ(0, calls);
    application->ProcessMessages();
    EXPECT_EQ(1, calls);
}
