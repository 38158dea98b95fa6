#pragma once

#include <algorithm>
#include <limits>

/// A point of the plane, in the units of its data set.
struct Tvx_pnt_d2
{
    double x = 0;
    double y = 0;
    friend constexpr bool operator==(Tvx_pnt_d2 const &, Tvx_pnt_d2 const &) = default;
};

/// A point in space.
struct Tvx_pnt_d3
{
    double x = 0;
    double y = 0;
    double z = 0;
    friend constexpr bool operator==(Tvx_pnt_d3 const &, Tvx_pnt_d3 const &) = default;
};

/// A box with its edges parallel to the axes, both ends inside. A new box is empty: its lower bounds are
/// above the upper.
struct Tvx_box_d2
{
    double min_x = std::numeric_limits<double>::infinity();
    double min_y = std::numeric_limits<double>::infinity();
    double max_x = -std::numeric_limits<double>::infinity();
    double max_y = -std::numeric_limits<double>::infinity();

    [[nodiscard]] constexpr bool is_empty() const { return !(min_x <= max_x && min_y <= max_y); }
    [[nodiscard]] constexpr double width() const { return max_x - min_x; }
    [[nodiscard]] constexpr double height() const { return max_y - min_y; }

    /// Grows the box to hold the point; a coordinate that is not a number changes nothing.
    constexpr void add(double x, double y)
    {
        min_x = std::min(min_x, x);
        min_y = std::min(min_y, y);
        max_x = std::max(max_x, x);
        max_y = std::max(max_y, y);
    }
    constexpr void add(Tvx_box_d2 const &box)
    {
        if (box.is_empty())
            return;
        add(box.min_x, box.min_y);
        add(box.max_x, box.max_y);
    }
    [[nodiscard]] constexpr bool intersects(Tvx_box_d2 const &box) const
    {
        return min_x <= box.max_x && box.min_x <= max_x && min_y <= box.max_y && box.min_y <= max_y;
    }
    friend constexpr bool operator==(Tvx_box_d2 const &, Tvx_box_d2 const &) = default;
};

/// As `Tvx_box_d2`, in space.
struct Tvx_box_d3
{
    double min_x = std::numeric_limits<double>::infinity();
    double min_y = std::numeric_limits<double>::infinity();
    double min_z = std::numeric_limits<double>::infinity();
    double max_x = -std::numeric_limits<double>::infinity();
    double max_y = -std::numeric_limits<double>::infinity();
    double max_z = -std::numeric_limits<double>::infinity();

    [[nodiscard]] constexpr bool is_empty() const
    {
        return !(min_x <= max_x && min_y <= max_y && min_z <= max_z);
    }
    friend constexpr bool operator==(Tvx_box_d3 const &, Tvx_box_d3 const &) = default;
};

/// A matrix of homogeneous coordinates of the plane, by rows: x' = m[0][0] x + m[0][1] y + m[0][2].
struct Tvx_matrix3x3
{
    double m[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
};

/// As `Tvx_matrix3x3`, in space.
struct Tvx_matrix4x4
{
    double m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
