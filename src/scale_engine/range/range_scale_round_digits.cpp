#include "scale_engine/range/range_scale_round_digits.h"

#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_round_digits.h"

namespace vx::task {
namespace {
constexpr int c_least_digits = -10;
constexpr int c_most_digits = 10;
constexpr int c_default_digits = -2;
constexpr int c_no_rounding = -30;
} // namespace

void range_scale_round_digits::execute(void *scale, int digits)
{
    if (digits == c_no_rounding)
        return;
    auto const round = [digits](double value) { return round_digits(value, digits); };
    vx_rng_scale_set_min_value(scale, round(vx_rng_scale_get_min_value(scale)));
    vx_rng_scale_set_max_value(scale, round(vx_rng_scale_get_max_value(scale)));
    unsigned const size = vx_rng_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i) {
        vx_rng_scale_set_min(scale, i, round(vx_rng_scale_get_min(scale, i)));
        vx_rng_scale_set_max(scale, i, round(vx_rng_scale_get_max(scale, i)));
    }
}

double range_scale_round_digits::round_digits(double value, int digits)
{
    return vx_round_digits_round(digits, value);
}

int range_scale_round_digits::clamp_digits(int digits)
{
    return digits >= c_least_digits && digits <= c_most_digits ? digits : c_default_digits;
}

std::vector<std::wstring> range_scale_round_digits::generate()
{
    std::vector<std::wstring> rows;
    for (int digits = c_least_digits; digits <= c_most_digits; ++digits) {
        auto const many = [](int count) { return std::wstring(static_cast<std::size_t>(count), L'd'); };
        rows.push_back(digits < 0 ? L"d." + many(-digits) : many(digits + 1));
    }
    return rows;
}

int range_scale_round_digits::to_index(int digits)
{
    return clamp_digits(digits) - c_least_digits;
}

int range_scale_round_digits::to_digits(int index)
{
    return index + c_least_digits;
}

int range_scale_round_digits::default_index()
{
    return to_index(c_default_digits);
}
} // namespace vx::task
