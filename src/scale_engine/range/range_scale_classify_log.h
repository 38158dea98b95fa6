#pragma once

#include "platform/base/export.h"

#include <array>
#include <string>
#include <vector>

struct Tvx_stat_data;

namespace vx::task {
/// Bounds at 1, 2, 5 times powers of ten (range type 2). The first step is 1, 2 or 5 times 10^digits; bounds
/// go on until one reaches the maximum. One-sided, the first range begins at 0; two-sided, bounds go down to
/// the minimum in the same way, and one range lies across 0.
class VX_API range_scale_classify_log
{
public:
    /// `base_idx` 0, 1 or 2 is a first step of 1, 2 or 5; what lies outside counts as the nearest. Reads
    /// minimum and maximum here; a value that the record does not know counts as 0.
    range_scale_classify_log(Tvx_stat_data const *stat, int base_idx, bool two_sided, int digits);
    void execute(void *scale) const;

    /// The rows that the scale would have: its ranges, min and max entry.
    [[nodiscard]] static int estimate_nranges(Tvx_stat_data const *stat, int base_idx, bool two_sided,
                                              int digits);
    /// The bounds of such a scale in ascending order, at least two.
    [[nodiscard]] static std::vector<double> log_values(double minval, double maxval, int base_idx,
                                                        bool two_sided, int digits);
    /// The three first steps as text: "0.01", "0.02", "0.05" for digits of -2.
    [[nodiscard]] static std::array<std::wstring, 3> fetch_logbase(int digits);

private:
    [[nodiscard]] std::vector<double> log_values() const;
    static void log_scale(void *scale, std::vector<double> const &bounds);

    double f_minval;
    double f_maxval;
    int f_base_idx;
    bool f_two_sided;
    int f_digits;
};
} // namespace vx::task
