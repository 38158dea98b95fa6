#pragma once

#include "platform/base/geometry.h"

/// A box of whole pixels; the far edges lie just outside.
struct Tvx_box_i2
{
    int min_x = 0;
    int min_y = 0;
    int max_x = 0;
    int max_y = 0;

    [[nodiscard]] constexpr int width() const { return max_x - min_x; }
    [[nodiscard]] constexpr int height() const { return max_y - min_y; }
    friend constexpr bool operator==(Tvx_box_i2 const &, Tvx_box_i2 const &) = default;
};

/// Boxes from two corners, the lower one first; the other way round the box is empty.
[[nodiscard]] constexpr Tvx_box_d2 vx_box_d2_make_xy(double x0, double y0, double x1, double y1)
{
    return {x0, y0, x1, y1};
}
constexpr void vx_box_d2_init_xy(Tvx_box_d2 *box, double x0, double y0, double x1, double y1)
{
    *box = {x0, y0, x1, y1};
}
constexpr void vx_box_i2_init_xy(Tvx_box_i2 *box, int x0, int y0, int x1, int y1)
{
    *box = {x0, y0, x1, y1};
}
