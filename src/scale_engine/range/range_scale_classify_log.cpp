#include "scale_engine/range/range_scale_classify_log.h"

#include "scale_engine/range/detail/classify.h"

#include "platform/basic/vx_stat.h"
#include "platform/styles/vx_rng_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vx::task {
namespace {
constexpr std::array<int, 3> c_steps{1, 2, 5};
constexpr int c_step_count = static_cast<int>(c_steps.size());
/// Powers of ten beyond this are 0 or infinite.
constexpr int c_most_exponent = 330;

int clamp_exponent(int exponent)
{
    return std::clamp(exponent, -c_most_exponent, c_most_exponent);
}

/// The steps 1, 2, 5, 10, 20, ... times a power of ten, from any of them on.
class step_series
{
public:
    step_series(int base_idx, int exponent) : f_base_idx(base_idx), f_exponent(clamp_exponent(exponent)) {}
    [[nodiscard]] double value() const
    {
        // Dividing by a power of ten gives the number that the decimal text reads as; multiplying by its
        // inverse would not.
        double const power = std::pow(10.0, std::abs(f_exponent));
        double const step = c_steps[static_cast<std::size_t>(f_base_idx)];
        return f_exponent < 0 ? step / power : step * power;
    }
    /// The same within what a number can be: no value lies beyond.
    [[nodiscard]] double bound() const { return std::min(value(), std::numeric_limits<double>::max()); }
    void advance()
    {
        f_base_idx = (f_base_idx + 1) % c_step_count;
        if (f_base_idx == 0)
            ++f_exponent;
    }

private:
    int f_base_idx;
    int f_exponent;
};
} // namespace

range_scale_classify_log::range_scale_classify_log(Tvx_stat_data const *stat, int base_idx, bool two_sided,
                                                   int digits)
    : f_minval(vx_stat_get_minimum(stat, nullptr)), f_maxval(vx_stat_get_maximum(stat, nullptr)),
      f_base_idx(base_idx), f_two_sided(two_sided), f_digits(digits)
{
}

void range_scale_classify_log::execute(void *scale) const
{
    detail::begin_classify(scale, c_rng_type_log, f_digits);
    log_scale(scale, log_values());
    detail::finish_classify(scale, f_digits);
}

std::vector<double> range_scale_classify_log::log_values() const
{
    return log_values(f_minval, f_maxval, f_base_idx, f_two_sided, f_digits);
}

std::vector<double> range_scale_classify_log::log_values(double minval, double maxval, int base_idx,
                                                         bool two_sided, int digits)
{
    std::vector<double> bounds;
    auto const add_up_to = [&](double limit, double sign) {
        step_series steps(std::clamp(base_idx, 0, c_step_count - 1), digits);
        bounds.push_back(sign * steps.bound());
        while (limit > steps.value()) {
            steps.advance();
            bounds.push_back(sign * steps.bound());
        }
    };
    add_up_to(maxval, 1);
    if (two_sided)
        add_up_to(-minval, -1);
    else
        bounds.push_back(0);
    std::sort(bounds.begin(), bounds.end());
    return bounds;
}

void range_scale_classify_log::log_scale(void *scale, std::vector<double> const &bounds)
{
    unsigned const count = detail::set_range_count(scale, static_cast<unsigned>(bounds.size() - 1));
    detail::set_span(scale, bounds.front(), bounds.back());
    for (unsigned i = 0; i < count; ++i)
        detail::set_range(scale, i, bounds[i], bounds[i + 1]);
}

int range_scale_classify_log::estimate_nranges(Tvx_stat_data const *stat, int base_idx, bool two_sided,
                                               int digits)
{
    range_scale_classify_log const task(stat, base_idx, two_sided, digits);
    return static_cast<int>(task.log_values().size()) + 1;
}

std::array<std::wstring, 3> range_scale_classify_log::fetch_logbase(int digits)
{
    int const exponent = clamp_exponent(digits);
    auto const zeros = [](int count) { return std::wstring(static_cast<std::size_t>(count), L'0'); };
    std::array<std::wstring, 3> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        texts[i] = exponent < 0 ? L"0." + zeros(-exponent) : zeros(exponent + 1);
        (exponent < 0 ? texts[i].back() : texts[i].front()) = static_cast<wchar_t>(L'0' + c_steps[i]);
    }
    return texts;
}
} // namespace vx::task
