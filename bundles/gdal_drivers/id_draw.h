#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vx::gdal {
/// More identifiers are not put into one question.
inline constexpr std::size_t c_most_draws = 50'000;

/// Draws features by chance, by identifiers from `first` to `last`, until there are about `count` numbers or
/// hardly any identifier hits. `ask` takes a list of identifiers, separated by commas, and appends the
/// numbers of those that are features with a number that is wanted; false when there is no answer, which is
/// the result then. Each feature has the same chance. Nothing is drawn where there are fewer identifiers than
/// numbers wanted.
[[nodiscard]] bool
draw_by_ids(long long first, long long last, std::size_t count, std::vector<double> &values,
            std::function<bool(std::string const &ids, std::vector<double> &values)> const &ask);
} // namespace vx::gdal
