#include "host/gallery/gallery_form.h"
#include "support/random_seeds.h"
#include "user_input/random_hand.h"

#include "platform/toolkit/bridge/qt_widgets.h"

#include <gtest/gtest.h>
#include <vector>

namespace hand = vx::user_hand;

namespace {
#if defined(__SANITIZE_ADDRESS__) // keeps what was freed
constexpr int c_events = 500;
constexpr bool c_counts_memory = false;
#else
constexpr int c_events = 5000; ///< for each seed
constexpr bool c_counts_memory = true;
#endif

// VX_SEED replays one seed, VX_LOG names a file for what is done.
TEST(random_events, leave_all_controls_usable)
{
    double first = 0;
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        gallery_form form;
        form.Show();
        hand::random_hand user(
            {.window = vx_qt_widget(&form), .seed = seed, .events = c_events, .log = vx_test::random_log()});
        ASSERT_TRUE(user.run()) << user.last_lines();
        if (first == 0)
            first = hand::resident_memory();
    }
    if (c_counts_memory) {
        EXPECT_LT(hand::resident_memory(), first + 48)
            << "MiB after the first " << c_events << " events: " << first;
    }
}
} // namespace
