#pragma once

#include "platform/base/closure.h"

#include <chrono>

/// Lets a drawing be ended from anywhere inside it.
namespace vx::render {
/// Asks whether the drawing is to end: at the start, and then about every 12 milliseconds, however little or
/// much is drawn between. Who draws says how much work is coming, in nanoseconds as good as they are known,
/// so that the clock is looked at now and then only.
class work_meter
{
public:
    explicit work_meter(closure<bool()> cancelled) : f_cancelled(cancelled), f_stopped(f_cancelled()) {}
    work_meter(work_meter const &) = delete;
    work_meter &operator=(work_meter const &) = delete;

    /// False once the drawing is to end; it stays so.
    [[nodiscard]] bool go_on(double nanoseconds)
    {
        f_done += nanoseconds;
        if (f_done >= c_between_looks)
            look();
        return !f_stopped;
    }
    [[nodiscard]] bool stopped() const { return f_stopped; }

private:
    using clock = std::chrono::steady_clock;
    static constexpr double c_between_looks = 200'000;
    static constexpr std::chrono::milliseconds c_between_questions{12};

    void look()
    {
        f_done = 0;
        auto const now = clock::now();
        if (f_stopped || now - f_asked < c_between_questions)
            return;
        f_stopped = f_cancelled();
        f_asked = clock::now();
    }

    closure<bool()> f_cancelled;
    clock::time_point f_asked = clock::now();
    double f_done = 0;
    bool f_stopped;
};

/// What drawing costs, roughly, in nanoseconds.
namespace cost {
inline constexpr double c_object = 50;
inline constexpr double c_vertex = 60;
inline constexpr double c_path = 2000; ///< a call of the painter
inline constexpr double c_pixel = 0.5;
} // namespace cost
} // namespace vx::render
