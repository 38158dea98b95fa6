#pragma once

#include "platform/data/vx_file_tos4.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace vx::layers {
/// Which cell of a grid lies at a place of the map.
class cell_places
{
public:
    explicit cell_places(Tvx_tos4_grid const &grid) : f_grid(grid)
    {
        double const angle = grid.azimuth * std::numbers::pi / 180;
        // Exact where a grid is not turned.
        f_cosine = grid.azimuth == 0 ? 1 : std::cos(angle);
        f_sine = grid.azimuth == 0 ? 0 : std::sin(angle);
    }
    /// Number of the cell in its slice; nothing outside the grid.
    [[nodiscard]] std::optional<unsigned long long> at(double x, double y) const
    {
        double const dx = x - f_grid.origin[0], dy = y - f_grid.origin[1];
        double const column = std::floor((dx * f_cosine + dy * f_sine) / f_grid.spacing[0] + 0.5);
        double const row = std::floor((dy * f_cosine - dx * f_sine) / f_grid.spacing[1] + 0.5);
        if (!(column >= 0 && row >= 0 && column < static_cast<double>(f_grid.count[0]) &&
              row < static_cast<double>(f_grid.count[1])))
            return std::nullopt;
        return static_cast<unsigned long long>(row) * f_grid.count[0] +
               static_cast<unsigned long long>(column);
    }

private:
    Tvx_tos4_grid const &f_grid;
    double f_cosine;
    double f_sine;
};
} // namespace vx::layers
