#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"

#include <memory>
#include <string>

class QWidget;

namespace vx::user_hand {
/// What a random hand is to do.
struct random_plan
{
    QWidget *window = nullptr;    ///< mostly it works here; it is shown again when it was closed
    QWidget *favourite = nullptr; ///< part of a window that gets most of the wheel and of the drags, or null
    unsigned seed = 1;            ///< what is done follows from it, whatever the windows answer
    int events = 5000;            ///< clicks, drags, keys, turns of the wheel and new sizes together
    closure<void()> before_each = {}; ///< brings back what the hand may have taken away
    std::string log = {}; ///< file that gets a line for each thing before it is done, for the end of a crash
};

/// A hand that clicks, drags, types and turns the wheel at random, at every turn of the event loop, whatever
/// loop that is: menus, message boxes and dialogs that it opens are used and left again. File dialogs are
/// left at once. The caller runs the events until it is done.
class VX_API random_hand
{
public:
    explicit random_hand(random_plan const &plan);
    random_hand(random_hand const &) = delete;
    random_hand &operator=(random_hand const &) = delete;
    ~random_hand();

    /// Runs the events until all is done and the window is usable: it is seen, and nothing is open in front
    /// of it. False when that takes longer.
    [[nodiscard]] bool run(int milliseconds = 300000);
    /// The last things that it did, a line each.
    [[nodiscard]] std::string last_lines() const;

private:
    class worker;
    std::unique_ptr<worker> f_worker;
};

/// Resident memory of the program in MiB.
[[nodiscard]] VX_API double resident_memory();
} // namespace vx::user_hand
