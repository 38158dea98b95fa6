#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_stat.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/vx_tos_data.h"
#include "platform/data/watched_disk.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>
#include <vector>

namespace {
using stat_ptr = vx::owned<Tvx_stat_data, &vx_stat_destroy>;
using work_ptr = vx::owned<Tvx_tos_stat, &vx_tos_data_tos_stat_destroy>;
using vx_test::watched_disk;

constexpr std::size_t c_cells = 100'000;
constexpr long long c_less_than_cells = 400'000; ///< bytes that are read without a look at the cells
constexpr double c_step = 1.0 / 7;               ///< takes eight bytes a cell

/// A ramp of 0 to 999 steps, 100 times over.
std::wstring make_ramp(vx_test::temp_dir const &dir)
{
    auto const name = vx::text::utf8_to_wide((dir / "ramp.tos4").string());
    Tvx_tos4_grid grid;
    grid.count[0] = c_cells;
    std::vector<double> values(c_cells);
    for (std::size_t i = 0; i < c_cells; ++i)
        values[i] = static_cast<double>(i * 7919 % 1000) * c_step;
    vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
        vx_tos4_writer_create_w(name.c_str(), &grid, L""));
    vx_tos4_writer_set_statistics(writer.get(), false);
    EXPECT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"ramp", L""));
    EXPECT_TRUE(vx_tos4_writer_append(writer.get(), values.data(), c_cells));
    EXPECT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"empty", L""));
    EXPECT_TRUE(vx_tos4_writer_finish(writer.get()));
    return name;
}

std::vector<double> counts_of(Tvx_stat_data *stat, double low, double high)
{
    auto const *const histogram = vx_stat_get_histogramm(stat, nullptr);
    unsigned size = 0;
    double from = 0, to = 0;
    vx_histogramm_get_params(histogram, &size, &from, &to);
    EXPECT_EQ(from, low);
    EXPECT_EQ(to, high);
    std::vector<double> counts;
    for (unsigned i = 0; i < size; ++i)
        counts.push_back(vx_histogramm_get(histogram, i));
    return counts;
}

/// What the classes of the ramp have to hold: 100 cells for each whole number.
std::vector<double> ramp_counts(double low, double high)
{
    std::vector<double> counts(256);
    for (int step = 0; step < 1000; ++step)
        if (double const v = step * c_step; v >= low && v <= high)
            counts[std::min<std::size_t>(255, static_cast<std::size_t>((v - low) * 256 / (high - low)))] +=
                100;
    return counts;
}
} // namespace

TEST(tos_data, statistics_of_a_channel_are_worked_out_once)
{
    vx_test::temp_dir const dir;
    auto const name = make_ramp(dir);
    for (bool const can_write : {true, false}) {
        auto const copy = vx::text::utf8_to_wide((dir / (can_write ? "a.tos4" : "b.tos4")).string());
        std::filesystem::copy_file(std::filesystem::path(name), std::filesystem::path(copy));
        watched_disk disk(can_write ? -1 : 0);
        auto const reads_cells = [&](auto const &question, Tvx_stat_data *stat) {
            disk.bytes_read = 0;
            work_ptr const work(vx_tos_data_tos_stat_create(copy.c_str(), 0));
            EXPECT_TRUE(question(work.get(), stat));
            return disk.bytes_read > c_less_than_cells;
        };
        double const high = 999 * c_step;
        auto const between = [&](Tvx_tos_stat *work, Tvx_stat_data *stat) {
            return vx_tos_data_compute_hg_min_max(work, stat, 20, 100);
        };
        for (int round = 0; round < 3; ++round) {
            // Three channels that show one property, each with a record of its own.
            stat_ptr const stat(vx_stat_create());
            EXPECT_EQ(reads_cells(vx_tos_data_compute_stat, stat.get()), round == 0);
            EXPECT_EQ(vx_stat_get_minimum(stat.get(), nullptr), 0);
            EXPECT_EQ(vx_stat_get_maximum(stat.get(), nullptr), high);
            EXPECT_NEAR(vx_stat_get_average(stat.get(), nullptr), high / 2, 1e-9);
            EXPECT_NEAR(vx_stat_get_stddev(stat.get(), nullptr),
                        c_step * std::sqrt(999999.0 / 12 * c_cells / (c_cells - 1)), 1e-9);
            EXPECT_EQ(reads_cells(vx_tos_data_compute_hg, stat.get()), round == 0);
            EXPECT_EQ(counts_of(stat.get(), 0, high), ramp_counts(0, high));
            EXPECT_TRUE(reads_cells(between, stat.get())) << "bounds of the user's";
            EXPECT_EQ(counts_of(stat.get(), 20, 100), ramp_counts(20, 100));
        }
        stat_ptr const stat(vx_stat_create());
        EXPECT_TRUE(reads_cells(vx_tos_data_update_hg, stat.get())) << "who asks for it gets it anew";
        EXPECT_TRUE(vx_stat_has_statistic(stat.get()) && vx_stat_has_histogramm(stat.get()));
    }
}

TEST(tos_data, what_cannot_be_worked_out_changes_nothing)
{
    vx_test::temp_dir const dir;
    auto const name = make_ramp(dir);
    stat_ptr const stat(vx_stat_create());
    struct
    {
        std::wstring file;
        unsigned prop;
    } const cases[] = {{L"/no/such/file.tos4", 0}, {name, 2}, {name, 1}, {L"", 0}};
    for (auto const &c : cases) {
        work_ptr const work(vx_tos_data_tos_stat_create(c.file.c_str(), c.prop));
        EXPECT_FALSE(vx_tos_data_compute_stat(work.get(), stat.get()));
        EXPECT_FALSE(vx_tos_data_compute_hg(work.get(), stat.get()));
        EXPECT_FALSE(vx_tos_data_update_hg(work.get(), stat.get()));
        EXPECT_FALSE(vx_stat_has_statistic(stat.get()) || vx_stat_has_histogramm(stat.get()));
    }
    work_ptr const work(vx_tos_data_tos_stat_create(name.c_str(), 0));
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (auto const &[low, high] : {std::pair(nan, 1.0), {0.0, nan}, {2.0, 1.0}, {0.0, HUGE_VAL}})
        EXPECT_FALSE(vx_tos_data_compute_hg_min_max(work.get(), stat.get(), low, high));
    EXPECT_FALSE(vx_stat_has_histogramm(stat.get()));
    // One value between equal bounds.
    EXPECT_TRUE(vx_tos_data_compute_hg_min_max(work.get(), stat.get(), 0, 0));
    EXPECT_EQ(counts_of(stat.get(), 0, 0)[0], 100);
    EXPECT_FALSE(vx_tos_data_compute_stat(nullptr, stat.get()) ||
                 vx_tos_data_compute_hg(work.get(), nullptr));
}
