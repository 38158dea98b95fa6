#pragma once

#include "style_manager/api/data_events.h"

#include <string>
#include <vector>

/// How many objects fall in each row of a range scale, kept until its bounds or its property change.
class Tvx_range_counts
{
public:
    /// Counts of the min row, the ranges, the max row and, last, the other row. Reads every object unless
    /// they are at hand. Null without data, and when the reading was given up: this may have ended then, with
    /// the sender.
    [[nodiscard]] std::vector<unsigned> const *get(void const *scale, std::wstring const &prop_name,
                                                   Tvx_data_events data, TObject *sender, bool &is_given_up);
    /// Whether `get` would answer without reading.
    [[nodiscard]] bool has(void const *scale, std::wstring const &prop_name) const;
    /// The data have changed.
    void forget() { f_counts.clear(); }

private:
    [[nodiscard]] static std::vector<double> bounds_of(void const *scale);

    std::vector<unsigned> f_counts; ///< empty when there are none
    std::vector<double> f_bounds;   ///< those that were counted by
    std::wstring f_prop_name;
};
