#include "host/gallery/gallery_form.h"
#include "user_input/random_hand.h"

#include "platform/toolkit/bridge/qt_widgets.h"

#include <cstdlib>
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
    std::vector<unsigned> seeds{1, 2, 3, 4};
    if (char const *seed = std::getenv("VX_SEED"))
        seeds = {unsigned(std::strtoul(seed, nullptr, 10))};
    char const *const log = std::getenv("VX_LOG");
    double first = 0;
    for (unsigned const seed : seeds) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        gallery_form form;
        form.Show();
        hand::random_hand user(
            {.window = vx_qt_widget(&form), .seed = seed, .events = c_events, .log = log ? log : ""});
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
