#include "data/grid/grid_datasource.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_stat.h"
#include "platform/layers/vx_rtr_lr2d.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using stat_ptr = vx::owned<Tvx_stat_data, &vx_stat_destroy>;
using work_ptr = vx::owned<Tvx_rtr_stat, &vx_rtr_lr2d_rastr_stat_destroy>;

std::vector<double> cells_of(std::wstring const &file, unsigned band)
{
    vx::data::grid_datasource grid;
    std::vector<double> values;
    EXPECT_TRUE(grid.open(file, vx::data::access_read) && grid.field_values(band, values));
    return values;
}

std::vector<double> counts_of(Tvx_stat_data *stat)
{
    std::vector<double> counts;
    auto const *const histogram = vx_stat_get_histogramm(stat, nullptr);
    for (unsigned i = 0; i < vx_histogramm_get_size(histogram); ++i)
        counts.push_back(vx_histogramm_get(histogram, i));
    return counts;
}

std::vector<double> plain_counts(std::vector<double> const &cells, double low, double high, double classes)
{
    std::vector<double> counts(static_cast<std::size_t>(classes));
    for (double const v : cells)
        if (v >= low && v <= high)
            ++counts[std::min(counts.size() - 1,
                              static_cast<std::size_t>((v - low) * (classes / (high - low))))];
    return counts;
}
} // namespace

TEST(raster_stat, is_that_of_the_cells)
{
    // Bytes have a class for each number.
    struct
    {
        std::wstring file;
        unsigned bands;
    } const cases[] = {{L"" VX_EXAMPLE_DATA "/L7_ETMs.tif", 6},
                       {L"" VX_EXAMPLE_DATA "/olinda_dem_utm25s.tif", 1}};
    for (auto const &c : cases) {
        layer_ptr layer(vx_rtr_lr2d_create(c.file.c_str()));
        ASSERT_EQ(vx_rtr_lr2d_get_prop_count(layer.get()), c.bands);
        EXPECT_STRNE(vx_rtr_lr2d_get_prop_name(layer.get(), c.bands - 1), L"");
        EXPECT_STREQ(vx_rtr_lr2d_get_prop_name(layer.get(), c.bands), L"");
        EXPECT_EQ(vx_rtr_lr2d_get_statistic(layer.get(), c.bands), nullptr);
        for (unsigned band = 0; band < c.bands; ++band) {
            auto const cells = cells_of(c.file, band);
            auto *const stat = vx_rtr_lr2d_get_statistic(layer.get(), band);
            EXPECT_FALSE(vx_stat_has_statistic(stat));
            work_ptr const work(vx_rtr_lr2d_rastr_stat_create(vx_rtr_lr2d_get_sourse(layer.get()), band));
            ASSERT_TRUE(vx_rtr_lr2d_compute_stat(work.get(), stat));
            double const low = *std::ranges::min_element(cells), high = *std::ranges::max_element(cells);
            long double sum = 0, squares = 0;
            for (double const v : cells)
                sum += v;
            auto const count = static_cast<long double>(cells.size());
            for (double const v : cells)
                squares += (v - sum / count) * (v - sum / count);
            EXPECT_EQ(vx_stat_get_minimum(stat, nullptr), low);
            EXPECT_EQ(vx_stat_get_maximum(stat, nullptr), high);
            EXPECT_NEAR(vx_stat_get_average(stat, nullptr), static_cast<double>(sum / count), 1e-9);
            EXPECT_NEAR(vx_stat_get_stddev(stat, nullptr),
                        static_cast<double>(std::sqrt(squares / (count - 1))), 1e-9);
            ASSERT_TRUE(vx_rtr_lr2d_compute_hg(work.get(), stat));
            bool const are_bytes = c.bands == 6;
            EXPECT_EQ(counts_of(stat), plain_counts(cells, low, high, are_bytes ? high - low + 1 : 256));
            double const from = low + (high - low) / 4, to = high - (high - low) / 3;
            ASSERT_TRUE(vx_rtr_lr2d_compute_hg_min_max(work.get(), stat, from, to));
            double const own = std::max(std::ceil(to - from), std::floor(to) - std::ceil(from) + 1);
            EXPECT_EQ(counts_of(stat), plain_counts(cells, from, to, are_bytes ? own : 256));
            ASSERT_TRUE(vx_rtr_lr2d_compute_hg_min_max(work.get(), stat, low, low));
            EXPECT_EQ(counts_of(stat)[0], std::ranges::count(cells, low));
        }
    }
}

TEST(raster_stat, stays_with_the_layer_and_its_clones)
{
    std::wstring const file = L"" VX_EXAMPLE_DATA "/L7_ETMs.tif";
    layer_ptr layer(vx_rtr_lr2d_create(file.c_str()));
    unsigned count = 0;
    double low = 0, high = 0, average = 0, deviation = 0;
    ASSERT_TRUE(vx_rtr_lr2d_get_hg_stats(layer.get(), 2, &count, &low, &high, &average, &deviation));
    EXPECT_EQ(count, 235U) << "21 to 255";
    auto const cells = cells_of(file, 2);
    auto const counts = plain_counts(cells, low, high, 235);
    layer_ptr const clone(vx_lr2d_clone(layer.get()));
    layer.reset();
    EXPECT_TRUE(vx_stat_has_histogramm(vx_rtr_lr2d_get_statistic(clone.get(), 2)));
    for (unsigned i = 0; i < count; ++i)
        EXPECT_EQ(vx_rtr_lr2d_get_hg_value(clone.get(), 2, i), counts[i]);
    EXPECT_EQ(vx_rtr_lr2d_get_hg_value(clone.get(), 2, 256), 0);
    EXPECT_EQ(vx_rtr_lr2d_get_hg_value(clone.get(), 3, 0), 0);

    // The first bands feed the channels.
    auto *const channels = vx_rtr_lr2d_get_rgb_channels_ptr(clone.get());
    std::wstring names;
    for (auto *const channel : {vx_rgb_channels_get_red(channels), vx_rgb_channels_get_green(channels),
                                vx_rgb_channels_get_blue(channels), vx_rgb_channels_get_gray(channels)}) {
        std::wstring name;
        vx_clr_channel_get_prop_name_w(channel, Tvx_std_wstring_adapter(name));
        for (unsigned i = 0; i < 6; ++i)
            if (name == vx_rtr_lr2d_get_prop_name(clone.get(), i))
                names += static_cast<wchar_t>(L'0' + i);
    }
    EXPECT_EQ(names, L"0120");
}

TEST(raster_stat, of_what_cannot_be_read_there_is_none)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "gone.tif";
    std::filesystem::copy_file(VX_EXAMPLE_DATA "/L7_ETMs.tif", path);
    layer_ptr const gone(vx_rtr_lr2d_create(vx::text::utf8_to_wide(path.string()).c_str()));
    EXPECT_EQ(vx_rtr_lr2d_get_prop_count(gone.get()), 6U);
    std::filesystem::remove(path);
    // One row of three cells without a value, and one cell of one.
    vx_test::write_file(
        dir / "none.asc",
        "ncols 3\nnrows 1\nxllcorner 0\nyllcorner 0\ncellsize 1\nNODATA_value -9\n-9 -9 -9\n");
    layer_ptr const none(vx_rtr_lr2d_create(vx::text::utf8_to_wide((dir / "none.asc").string()).c_str()));
    layer_ptr const absent(vx_rtr_lr2d_create(L"/no/such/raster.tif"));
    stat_ptr const stat(vx_stat_create());
    for (auto *const layer : {gone.get(), none.get(), absent.get()}) {
        work_ptr const work(vx_rtr_lr2d_rastr_stat_create(vx_rtr_lr2d_get_sourse(layer), 0));
        EXPECT_FALSE(vx_rtr_lr2d_compute_stat(work.get(), stat.get()));
        EXPECT_FALSE(vx_rtr_lr2d_compute_hg(work.get(), stat.get()));
        EXPECT_FALSE(vx_rtr_lr2d_compute_hg_min_max(work.get(), stat.get(), 0,
                                                    std::numeric_limits<double>::quiet_NaN()));
        EXPECT_FALSE(vx_stat_has_statistic(stat.get()) || vx_stat_has_histogramm(stat.get()));
        EXPECT_FALSE(vx_rtr_lr2d_get_hg_stats(layer, 0, nullptr, nullptr, nullptr, nullptr, nullptr));
    }
    EXPECT_EQ(vx_rtr_lr2d_get_sourse(nullptr), nullptr);
    EXPECT_EQ(vx_rtr_lr2d_rastr_stat_create(nullptr, 0), nullptr);
}

TEST(raster_layers, keep_their_channels_when_a_password_is_given_and_for_no_other_data)
{
    std::wstring const file = L"" VX_EXAMPLE_DATA "/L7_ETMs.tif|";
    for (bool const is_kept : {true, false}) {
        layer_ptr const layer(vx_rtr_lr2d_create((file + L"password=***").c_str()));
        auto const gray = [&] {
            return vx_rgb_channels_get_gray(vx_rtr_lr2d_get_rgb_channels_ptr(layer.get()));
        };
        vx_clr_channel_set_min(gray(), 123);
        vx_lr2d_set_wfilename(layer.get(), (file + (is_kept ? L"password=tiger" : L"")).c_str());
        EXPECT_EQ(vx_clr_channel_get_min(gray()) == 123, is_kept);
    }
}
