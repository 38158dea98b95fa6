#include "scale_builders/range/rng_sample_calc.h"

#include "scale_builders/common/detail/field_reading.h"

#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>
#include <cstdint>
#include <random>

namespace {
constexpr std::size_t c_sample = 3000;
constexpr std::uint64_t c_seed = 20'000;
} // namespace

bool Tvx_rng_sample_calc::execute(std::vector<double> &values, void *stl_mngr, Tvx_data_events const &data,
                                  double min, double max)
{
    vx_wait_cursor const waiting;
    field_reading field(vx_stl_mngr_get_rng_prop_name(stl_mngr), field_kind::usable_numeric, data, 1);
    std::vector<double> sample;
    auto const [low, high] = std::minmax(min, max);
    std::mt19937_64 generator(c_seed);
    std::uint64_t seen = 0;
    auto const take = [&](bool is_defined, double value) {
        if (!is_defined || value < low || value > high)
            return;
        ++seen;
        if (sample.size() < c_sample)
            sample.push_back(value);
        // Among so many numbers the remainder favours none that anybody could notice.
        else if (auto const place = generator() % seen; place < c_sample)
            sample[place] = value;
    };
    if (field.get_field() && !field.walk(take))
        return false;
    values = std::move(sample);
    return true;
}
