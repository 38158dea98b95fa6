#pragma once

#include <cstddef>
#include <limits>
#include <vector>

/// The dynamic programme of natural breaks as it is written down: two tables and three loops. `values` are
/// sorted, 2 <= k < their number. To be compiled with -ffp-contract=off.
[[nodiscard]] inline std::vector<double> plain_breaks(std::vector<double> const &values, unsigned k)
{
    std::size_t const n = values.size();
    std::vector<std::vector<unsigned>> limit(n + 1, std::vector<unsigned>(k + 1));
    std::vector<std::vector<double>> cost(n + 1, std::vector<double>(k + 1));
    for (unsigned j = 1; j <= k; ++j) {
        limit[0][j] = limit[1][j] = 1;
        for (std::size_t r = 2; r <= n; ++r)
            cost[r][j] = std::numeric_limits<double>::max();
    }
    for (std::size_t l = 2; l <= n; ++l) {
        double s = 0;
        double q = 0;
        double v = 0;
        for (std::size_t m = 1; m <= l; ++m) {
            double const x = values[l - m];
            s = s + x;
            q = q + x * x;
            v = q - s * s / static_cast<double>(m);
            std::size_t const b = l - m;
            if (b != 0)
                for (unsigned j = 2; j <= k; ++j)
                    if (cost[l][j] >= v + cost[b][j - 1]) {
                        limit[l][j] = static_cast<unsigned>(b);
                        cost[l][j] = v + cost[b][j - 1];
                    }
        }
        limit[l][1] = 1;
        cost[l][1] = v;
    }
    std::vector<double> breaks(k - 1);
    std::size_t r = n;
    for (unsigned j = k; j >= 2; --j) {
        std::size_t const b = limit[r][j];
        breaks[j - 2] = values[b - 1];
        r = b - 1;
    }
    return breaks;
}
