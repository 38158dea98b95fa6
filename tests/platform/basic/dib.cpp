#include "platform/base/owned.h"
#include "platform/basic/vx_dib.h"

#include <climits>
#include <gtest/gtest.h>
#include <utility>

namespace {
using dib = vx::owned<Ivx_dib, &vx_dib_destroy>;

int opaque_pixels(Ivx_dib const *picture)
{
    int count = 0;
    for (int y = 0; y < vx_dib_get_height(picture); ++y)
        for (int x = 0; x < vx_dib_get_width(picture); ++x)
            count += vx_dib_get_pixel(picture, x, y).a > 127;
    return count;
}
} // namespace

TEST(dib, holds_pixels_and_nothing_outside)
{
    dib const picture(vx_dib_create(3, 2));
    EXPECT_EQ(vx_dib_get_pixel(picture.get(), 2, 1), Tvx_color{});
    Tvx_color const color = vx_clr_init_rgba(1, 2, 3, 4);
    vx_dib_set_pixel(picture.get(), 2, 1, color);
    EXPECT_EQ(vx_dib_get_pixel(picture.get(), 2, 1), color);
    EXPECT_EQ(vx_dib_get_crow(picture.get(), 1)[2 * 4 + 3], 4);
    for (auto const &[x, y] : {std::pair(-1, 0), {3, 0}, {0, -1}, {0, 2}}) {
        vx_dib_set_pixel(picture.get(), x, y, color);
        EXPECT_EQ(vx_dib_get_pixel(picture.get(), x, y), Tvx_color{});
    }
    EXPECT_EQ(vx_dib_get_row(picture.get(), 2), nullptr);
    dib const copy(vx_dib_create(0, 7));
    EXPECT_EQ(vx_dib_get_height(copy.get()), 0);
    vx_dib_assign(copy.get(), picture.get());
    EXPECT_EQ(vx_dib_get_pixel(copy.get(), 2, 1), color);
    vx_dib_set_size(copy.get(), INT_MAX, INT_MAX);
    EXPECT_EQ(vx_dib_get_width(copy.get()), 0) << "no memory for it";
    vx_dib_assign(copy.get(), nullptr);
    vx_dib_set_size(nullptr, 1, 1);
    EXPECT_EQ(vx_dib_get_width(nullptr), 0);
    vx_dib_destroy(nullptr);
}

TEST(dib, pictures_by_number_in_any_scale)
{
    for (int const number : {130, 131, 132, 133}) {
        Ivx_dib const *const one = vx_res_get_dib(number);
        ASSERT_NE(one, nullptr) << number;
        EXPECT_EQ(vx_dib_get_width(one), 16);
        EXPECT_GT(opaque_pixels(one), 10);
        EXPECT_LT(opaque_pixels(one), 256) << "the ground is clear";
        Ivx_dib const *const three = vx_res_get_dib(number, 3);
        EXPECT_EQ(vx_dib_get_height(three), 48);
        EXPECT_NEAR(opaque_pixels(three) / 9.0, opaque_pixels(one), 30);
        EXPECT_EQ(vx_res_get_dib(number), one) << "drawn once";
    }
    EXPECT_EQ(vx_res_get_dib(99999), nullptr);
    EXPECT_EQ(vx_res_get_dib(130, 0), nullptr);
    EXPECT_EQ(vx_res_get_dib(130, 17), nullptr);
    int x = -1;
    int y = -1;
    Ivx_dib const *const cursor = vx_res_load_cursor(135, &x, &y);
    EXPECT_EQ(vx_dib_get_width(cursor), 32);
    EXPECT_GT(vx_dib_get_pixel(cursor, x, y).a, 0) << "the hot spot is on the tip";
    EXPECT_EQ(vx_res_load_cursor(99999, &x, nullptr), nullptr);
}
