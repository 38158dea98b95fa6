#include "scale_engine/natural_breaks/range_scale_classify_exact_breaks.h"

#include "data/source/generic_datasource.h"
#include "scale_engine/natural_breaks/detail/breaks_scale.h"
#include "scale_engine/natural_breaks/detail/layer_search.h"
#include "scale_engine/range/detail/classify.h"

#include "platform/base/halfway.h"
#include "platform/styles/vx_rng_scale.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vx::task {
namespace {
/// Values that are sorted in some milliseconds.
constexpr std::size_t c_sorted_at_once = 1 << 17;
constexpr std::ptrdiff_t c_taken_at_once = 1 << 18;
constexpr std::size_t c_most_cells = 100'000'000;

/// The different values, and what runs of them cost. The costs are those of the values moved round 0 and
/// scaled to 1, so that neither an offset nor very large or small numbers lose what tells them apart.
struct different_values
{
    /// False when it was stopped.
    bool take(std::vector<double> const &sorted, closure<bool()> stop)
    {
        double const middle = vx_halfway(sorted.front(), sorted.back());
        double const reach = std::max(sorted.back() - middle, middle - sorted.front());
        costs.reserve(sorted.size());
        std::ptrdiff_t taken = 0;
        for (auto from = sorted.begin(); from != sorted.end();) {
            auto const to = std::find_if(from, sorted.end(), [&](double value) { return value != *from; });
            values.push_back(*from);
            costs.append(reach > 0 ? (*from - middle) / reach : 0, static_cast<double>(to - from));
            taken += to - from;
            from = to;
            if (taken >= c_taken_at_once) {
                taken = 0;
                if (stop())
                    return false;
            }
        }
        return true;
    }

    std::vector<double> values;
    detail::segment_costs costs;
};

/// The tables of a partition into `classes` classes.
class partition
{
public:
    partition(different_values const &different, unsigned classes)
        : f_different(different), f_classes(classes), f_splits(classes)
    {
    }

    /// False when it was stopped.
    template <class Stop>
    bool search(Stop stop)
    {
        auto const count = f_different.values.size();
        std::vector<double> before(count + 1);
        for (std::size_t row = 1; row <= count; ++row)
            before[row] = f_different.costs.cost(0, row);
        std::vector<double> costs;
        for (unsigned j = 2; j < f_classes; ++j) {
            f_splits[j].resize(count + 1);
            if (!detail::layer_search(f_different.costs, before, stop).run(costs, f_splits[j].data()))
                return false;
            before.swap(costs);
        }
        // Of the last class only the last row is wanted.
        f_last_split = 1;
        f_cost = f_different.costs.cost(1, count) + before[1];
        for (std::size_t split = 2; split < count; ++split) {
            double const cost = f_different.costs.cost(split, count) + before[split];
            if (cost < f_cost) {
                f_cost = cost;
                f_last_split = split;
            }
        }
        return true;
    }

    [[nodiscard]] std::vector<double> breaks() const
    {
        std::vector<double> found;
        std::size_t row = f_last_split;
        found.push_back(f_different.values[row - 1]);
        for (unsigned j = f_classes - 1; j >= 2 && row >= 2; --j) {
            row = f_splits[j][row];
            found.push_back(f_different.values[row - 1]);
        }
        std::reverse(found.begin(), found.end());
        return found;
    }
    [[nodiscard]] double cost() const { return f_cost; }

private:
    different_values const &f_different;
    unsigned f_classes;
    std::vector<std::vector<std::uint32_t>> f_splits;
    std::size_t f_last_split = 1;
    double f_cost = 0;
};
} // namespace

range_scale_classify_exact_breaks::range_scale_classify_exact_breaks(std::wstring field, unsigned nranges,
                                                                     double minval, double maxval, int digits)
    : f_field(std::move(field)), f_nranges(std::min(nranges, detail::c_most_ranges)), f_minval(minval),
      f_maxval(maxval), f_digits(digits)
{
    if (f_minval > f_maxval)
        std::swap(f_minval, f_maxval);
}

bool range_scale_classify_exact_breaks::execute(void *scale, vx::data::connection const &connection)
{
    std::vector<double> values;
    std::vector<double> breaks;
    if (!load_values(connection, values) || !build_breaks(values, breaks))
        return false;
    detail::begin_classify(scale, c_rng_type_natural_breaks, f_digits);
    detail::write_breaks(scale, breaks, f_minval, f_maxval);
    detail::finish_classify(scale, f_digits);
    return true;
}

bool range_scale_classify_exact_breaks::load_values(vx::data::connection const &connection,
                                                    std::vector<double> &values) const
{
    values.clear();
    vx::data::generic_datasource source;
    if (!source.open(connection, vx::data::access_read))
        return false;
    auto const field = source.field_index(f_field);
    if (field == vx::data::c_no_field || !source.field_values(field, values))
        return false;
    detail::keep_within(values, f_minval, f_maxval);
    return true;
}

bool range_scale_classify_exact_breaks::build_breaks(std::vector<double> &values, std::vector<double> &breaks)
{
    breaks.clear();
    f_goodness_of_fit = 1;
    std::erase_if(values, [](double value) { return !std::isfinite(value); });
    if (!sort(values))
        return false;
    if (values.empty() || values.front() == values.back())
        return true;
    if (f_nranges < 2) {
        f_goodness_of_fit = 0;
        return true;
    }
    different_values different;
    if (!different.take(values, on_cancel))
        return false;
    auto const count = different.values.size();
    if (count <= f_nranges) {
        breaks.assign(different.values.begin(), different.values.end() - 1);
        return true;
    }
    if (count > c_most_cells / f_nranges)
        return false;
    partition classes(different, f_nranges);
    if (!classes.search(on_cancel))
        return false;
    breaks = classes.breaks();
    f_goodness_of_fit = std::clamp(1 - classes.cost() / different.costs.cost(0, count), 0.0, 1.0);
    return true;
}

bool range_scale_classify_exact_breaks::sort(std::vector<double> &values) const
{
    auto const place = [&](std::size_t at) {
        return values.begin() + static_cast<std::ptrdiff_t>(std::min(at, values.size()));
    };
    for (std::size_t at = 0; at < values.size(); at += c_sorted_at_once) {
        std::sort(place(at), place(at + c_sorted_at_once));
        if (on_cancel())
            return false;
    }
    for (std::size_t width = c_sorted_at_once; width < values.size(); width *= 2)
        for (std::size_t at = 0; at + width < values.size(); at += 2 * width) {
            std::inplace_merge(place(at), place(at + width), place(at + 2 * width));
            if (on_cancel())
                return false;
        }
    return true;
}
} // namespace vx::task
