#pragma once

#include "data/connection/connection.h"

#include "platform/base/export.h"

#include <string>
#include <vector>

namespace vx::task {
/// Places bounds where the values of a field leave gaps, so that they differ little within a range (range
/// type 4). Works on a sample of about 3000 values, or on all of a field that has no more, by the dynamic
/// programme of `natural_breaks/detail/break_programme.h`.
///
/// Writes what `range_scale_classify_equal_ranges` writes.
class VX_API range_scale_classify_natural_breaks
{
public:
    /// Values outside the span are left out; its ends may come in either order.
    range_scale_classify_natural_breaks(std::wstring field, unsigned nranges, double minval, double maxval,
                                        int digits);
    /// A data set that does not open leaves number and bounds of the ranges; they are rounded and captioned
    /// all the same.
    void execute(void *scale, vx::data::connection const &connection) const;
    /// The same of values that are at hand, in any order, instead of those of the field.
    void execute(void *scale, std::vector<double> values) const;

    /// The sample; false when the data set does not open. A field that is not there has no values.
    bool load_values(vx::data::connection const &connection, std::vector<double> &values) const;
    /// Bounds between the ranges, each the greatest value of the range below it: one fewer than the ranges,
    /// none for less than two ranges or no values, and all values when there are no more of them than ranges.
    /// Sorts the values; what is not finite is taken out.
    [[nodiscard]] std::vector<double> build_breaks(std::vector<double> &values) const;
    /// Writes the ranges that the breaks divide the span into.
    void make_scale(void *scale, std::vector<double> const &breaks) const;

private:
    std::wstring f_field;
    unsigned f_nranges;
    double f_minval;
    double f_maxval;
    int f_digits;
};
} // namespace vx::task
