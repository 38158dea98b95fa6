#pragma once

#include "data/connection/connection.h"

#include "platform/base/closure.h"
#include "platform/base/export.h"

#include <string>
#include <vector>

namespace vx::task {
/// Natural breaks of our own: the partition with the least sum of squared distances from the means of its
/// classes, of all values of a field instead of a sample, and how well it fits. Equal values stay together.
///
/// `range_scale_classify_natural_breaks` is what scales have always been made by and is kept as it is; the
/// two may differ. The same data gives the same breaks here: nothing is drawn.
class VX_API range_scale_classify_exact_breaks
{
public:
    /// Values outside the span are left out; its ends may come in either order. More than 100,000 ranges are
    /// not made.
    range_scale_classify_exact_breaks(std::wstring field, unsigned nranges, double minval, double maxval,
                                      int digits);

    /// Asked many times a second while values are sorted and divided; true gives up.
    closure<bool()> on_cancel;

    /// Writes range type 4, round digits, ranges and captions. False, with the scale as it was, when the data
    /// set does not open or has no such field, and when `build_breaks` gives up.
    bool execute(void *scale, vx::data::connection const &connection);

    bool load_values(vx::data::connection const &connection, std::vector<double> &values) const;
    /// Bounds between the ranges, each the greatest value of the range below it: one fewer than the ranges,
    /// or than the different values if those are fewer. What is not finite is taken out; the order of the
    /// values is not kept. False when it was cancelled, and when different values times ranges are more than
    /// 100,000,000, for which there is no memory.
    bool build_breaks(std::vector<double> &values, std::vector<double> &breaks);
    /// Goodness of variance fit of the last breaks: the share of the squared distances from the mean that the
    /// classes explain, from 0 to 1. 1 when all values are equal.
    [[nodiscard]] double goodness_of_fit() const { return f_goodness_of_fit; }

private:
    bool sort(std::vector<double> &values) const;

    std::wstring f_field;
    unsigned f_nranges;
    double f_minval;
    double f_maxval;
    int f_digits;
    double f_goodness_of_fit = 0;
};
} // namespace vx::task
