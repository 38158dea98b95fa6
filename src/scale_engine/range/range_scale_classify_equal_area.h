#pragma once

#include "platform/base/export.h"
#include "platform/base/vertex_list.h"

#include <vector>

struct Tvx_histogramm_data;

namespace vx::task {
/// Ranges that hold equally many values by a histogram (range type 3). Writes what
/// `range_scale_classify_equal_ranges` writes; without a histogram or without ranges the bounds of the ranges
/// stay, and only the whole span is set.
class VX_API range_scale_classify_equal_area
{
public:
    /// A curve through points in ascending order of x, whose y never falls; straight between the points.
    class VX_API linear_spline
    {
    public:
        void append(double x, double y);
        void clear() { f_points.clear(); }
        [[nodiscard]] std::vector<Tvx_vtx_d2> const &points() const { return f_points; }
        /// y at x; outside the curve the y of its nearer end. 0 without points.
        [[nodiscard]] double evaluate(double x) const;
        /// The x at which the curve goes on to rise from y; outside, the x of the nearer end.
        [[nodiscard]] double inverse(double y) const;

    private:
        std::vector<Tvx_vtx_d2> f_points;
    };

    /// The histogram stays its owner's and is read by `execute`. The values of the span may come in either
    /// order.
    range_scale_classify_equal_area(Tvx_histogramm_data const *histogram, unsigned nranges, double minval,
                                    double maxval, int digits);
    void execute(void *scale) const;

    /// The number of values up to x, as a curve.
    static void make_histogram_cumulative_integral(Tvx_histogramm_data const *histogram,
                                                   linear_spline &curve);

private:
    void equal_area(void *scale) const;
    void make_scale(void *scale, unsigned count, linear_spline const &curve) const;

    Tvx_histogramm_data const *f_histogram;
    unsigned f_nranges;
    double f_minval;
    double f_maxval;
    int f_digits;
};
} // namespace vx::task
