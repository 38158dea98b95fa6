#include "platform/base/owned.h"
#include "platform/basic/vx_stat.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
using owned_stat = vx::owned<Tvx_stat_data, &vx_stat_destroy>;
using owned_histogram = vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy>;

TEST(statistics, copies_take_the_histogram_along_and_null_empties)
{
    owned_stat const a(vx_stat_create());
    owned_stat const b(vx_stat_create());
    bool present = true;
    Tvx_histogramm_data *const h = vx_stat_get_histogramm(a.get(), &present);
    EXPECT_FALSE(present);
    ASSERT_NE(h, nullptr);
    vx_histogramm_set_params(h, 2, -1, 1);
    vx_histogramm_set(h, 1, 5);
    vx_stat_set_histogramm(a.get(), true);
    vx_stat_set_maximum(a.get(), 9);
    Tvx_histogramm_data *const place = vx_stat_get_histogramm(b.get(), nullptr);
    vx_stat_assign(b.get(), a.get());
    EXPECT_EQ(vx_stat_get_histogramm(b.get(), &present), place) << "the record keeps its histogram object";
    EXPECT_TRUE(present);
    EXPECT_EQ(vx_histogramm_get(place, 1), 5);
    vx_histogramm_set(place, 1, 6);
    EXPECT_EQ(vx_histogramm_get(h, 1), 5);
    vx_stat_assign(b.get(), nullptr);
    EXPECT_FALSE(vx_stat_has_histogramm(b.get()));
    EXPECT_EQ(vx_histogramm_get_size(place), 0u);
    static_cast<void>(vx_stat_get_maximum(b.get(), &present));
    EXPECT_FALSE(present);
}

TEST(histograms, bins_are_contiguous_and_end_exactly_at_the_bounds)
{
    double const huge = std::numeric_limits<double>::max();
    struct
    {
        unsigned size;
        double minimum, maximum;
    } const shapes[] = {{1, 0, 1}, {3, 0, 1}, {7, -0.3, 0.1}, {256, -huge, huge}, {1000, 1e-300, 1e300}};
    for (auto const &s : shapes) {
        owned_histogram const h(vx_histogramm_create());
        vx_histogramm_set_params(h.get(), s.size, s.minimum, s.maximum);
        EXPECT_EQ(vx_histogramm_get_bnd_min(h.get(), 0), s.minimum);
        EXPECT_EQ(vx_histogramm_get_bnd_max(h.get(), s.size - 1), s.maximum);
        for (unsigned i = 0; i < s.size; ++i) {
            EXPECT_LT(vx_histogramm_get_bnd_min(h.get(), i), vx_histogramm_get_bnd_max(h.get(), i));
            if (i > 0) {
                EXPECT_EQ(vx_histogramm_get_bnd_min(h.get(), i), vx_histogramm_get_bnd_max(h.get(), i - 1));
            }
        }
    }
}
} // namespace
