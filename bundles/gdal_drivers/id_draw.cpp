#include "id_draw.h"

#include <algorithm>
#include <random>

namespace vx::gdal {
namespace {
constexpr int c_rounds = 4;
constexpr double c_fewest_hits = 1.0 / 50;
} // namespace

bool draw_by_ids(long long first, long long last, std::size_t count, std::vector<double> &values,
                 std::function<bool(std::string const &ids, std::vector<double> &values)> const &ask)
{
    if (static_cast<unsigned long long>(last) - static_cast<unsigned long long>(first) < count)
        return true;
    std::mt19937_64 generator(std::random_device{}());
    std::uniform_int_distribution<long long> uniform(first, last);
    std::size_t drawn = 0;
    for (int round = 0; round < c_rounds && values.size() < count; ++round) {
        std::size_t draws = count;
        if (drawn > 0) {
            double const hits = static_cast<double>(values.size()) / static_cast<double>(drawn);
            if (hits < c_fewest_hits)
                return true;
            draws = static_cast<std::size_t>(static_cast<double>(count - values.size()) / hits) + 1;
        }
        draws = std::min(draws, c_most_draws);
        std::string ids;
        for (std::size_t i = 0; i < draws; ++i)
            ids += (i > 0 ? "," : "") + std::to_string(uniform(generator));
        if (!ask(ids, values))
            return false;
        drawn += draws;
    }
    return true;
}
} // namespace vx::gdal
