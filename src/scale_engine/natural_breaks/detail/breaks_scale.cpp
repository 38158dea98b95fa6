#include "scale_engine/natural_breaks/detail/breaks_scale.h"

#include "scale_engine/range/detail/classify.h"

namespace vx::task::detail {
void write_breaks(void *scale, std::vector<double> const &breaks, double minval, double maxval)
{
    unsigned const count = set_range_count(scale, static_cast<unsigned>(breaks.size()) + 1);
    auto const bound = [&](unsigned i) { // below range i
        return i == 0 ? minval : i == count ? maxval : breaks[i - 1];
    };
    for (unsigned i = 0; i < count; ++i)
        set_range(scale, i, bound(i), bound(i + 1));
    set_span(scale, minval, maxval);
}

void keep_within(std::vector<double> &values, double minval, double maxval)
{
    std::erase_if(values, [=](double value) { return !(value >= minval && value <= maxval); });
}
} // namespace vx::task::detail
