#include "platform/winapi/detail/main_thread.h"

#include "platform/winapi/key_state.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace {
constexpr int VK_SHIFT = 0x10;
constexpr int VK_CONTROL = 0x11;

std::string calls;

template <char Name>
void note(void *)
{
    calls += Name;
}
void post_another(void *)
{
    calls += 'p';
    vx_main_thread_post(&note<'z'>, nullptr);
}
void cancel_next(void *data)
{
    calls += 'c';
    vx_main_thread_cancel(&note<'x'>, data);
}
} // namespace

TEST(main_thread, is_the_first_thread)
{
    EXPECT_TRUE(vx_is_main_thread());
    std::thread([] {
        EXPECT_FALSE(vx_is_main_thread());
        vx_main_thread_pump();
    }).join();
}

TEST(main_thread, runs_what_waits_in_order)
{
    calls.clear();
    static int wakes;
    wakes = 0;
    vx_set_main_thread_wake([] { ++wakes; });
    std::thread([] {
        vx_main_thread_post(&note<'a'>, nullptr);
        vx_main_thread_post(&post_another, nullptr);
        vx_main_thread_post(&cancel_next, nullptr);
        vx_main_thread_post(&note<'x'>, nullptr);
        vx_main_thread_post(&note<'b'>, nullptr);
    }).join();
    vx_set_main_thread_wake(nullptr);
    EXPECT_EQ(5, wakes);
    EXPECT_EQ("", calls) << "nothing runs before the main thread asks";
    vx_main_thread_pump();
    EXPECT_EQ("apcb", calls) << "without the one taken back, and what was posted meanwhile waits";
    vx_main_thread_pump();
    EXPECT_EQ("apcbz", calls);
}

TEST(key_state, asks_the_source)
{
    EXPECT_EQ(0, GetKeyState(VK_SHIFT));
    vx_set_key_state_source([](int key) { return key == VK_SHIFT; });
    EXPECT_GT(0, GetKeyState(VK_SHIFT));
    EXPECT_EQ(0, GetKeyState(VK_CONTROL));
    vx_set_key_state_source(nullptr);
    EXPECT_EQ(0, GetKeyState(VK_SHIFT));
}
