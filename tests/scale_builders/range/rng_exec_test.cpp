#include "range_table.h"
#include "scale_builders/vxk_rng_type_form.h"

#include "platform/basic/vx_options.h"

#include <cmath>
#include <limits>
#include <numeric>

namespace {
constexpr double c_inf = std::numeric_limits<double>::infinity();

class rng_exec : public range_table
{
protected:
    rng_exec() { params.set_stl_mngr(mngr.get()); }
    int run(int type)
    {
        params.set_type(type);
        return Tvx_rng_exec::execute(&params);
    }

    Tvx_rng_params params;
};

class rng_data : public range_table
{
};
} // namespace

TEST_F(rng_exec, equal_ranges)
{
    struct
    {
        int count;
        double min, max;
        int digits;
        std::string bounds;
        std::wstring captions;
    } const cases[] = {
        {4, 0, 10, -2, "0 -2: <0 0..2.5 2.5..5 5..7.5 7.5..10 >10",
         L"up to 0|0 - 2.5|2.5 - 5|5 - 7.5|7.5 - 10|above 10"},
        {3, 0, 1, -2, "0 -2: <0 0..0.33 0.33..0.67 0.67..1 >1",
         L"up to 0|0 - 0.33|0.33 - 0.67|0.67 - 1|above 1"},
        {2, -26, 26, 1, "0 1: <-30 -30..0 0..30 >30", L"up to -30|-30 - 0|0 - 30|above 30"},
        {2, 7, 7, 0, "0 0: <-5 -5..0 0..5 >5", L"up to -5|-5 - 0|0 - 5|above 5"},
        {2, 4, 0, 0, "0 0: <4 4..2 2..0 >0", L"up to 4|4 - 2|2 - 0|above 0"},
        {0, 2, 5, 0, "0 0: <4 >4", L"up to 4|above 4"},
        {1, -0.001, 0, -2, "0 -2: <0 0..0 >0", L"up to 0|0 - 0|above 0"},
        {1, 1e20, 2e20, 0, "0 0: <1e+20 1e+20..2e+20 >2e+20", L"up to 1e+20|1e+20 - 2e+20|above 2e+20"},
    };
    for (auto const &c : cases) {
        auto *const record = params.get_min_max_params_ptr();
        record->set_n_diap(c.count);
        record->set_min(c.min);
        record->set_max(c.max);
        record->set_round_digits(c.digits);
        EXPECT_EQ(run(c_rng_builder_equal_ranges), 0);
        EXPECT_EQ(bounds(), c.bounds);
        EXPECT_EQ(captions(), c.captions);
    }
    // A number below 0 writes type and digits only; one without end is cut, and takes no time.
    fill(c_rng_type_log);
    auto const before = captions();
    params.get_min_max_params_ptr()->set_n_diap(-1);
    params.get_min_max_params_ptr()->set_round_digits(2);
    EXPECT_EQ(run(c_rng_builder_equal_ranges), 0);
    EXPECT_EQ(bounds(), "0 2: <0 0..4 4..8 >8");
    EXPECT_EQ(captions(), before);
    params.get_min_max_params_ptr()->set_n_diap(std::numeric_limits<int>::max());
    EXPECT_EQ(run(c_rng_builder_equal_ranges), 0);
    EXPECT_EQ(size(), 100'000U);
    // What is no kind changes nothing.
    fill(c_rng_type_log);
    EXPECT_EQ(run(0), 1);
    EXPECT_EQ(run(6), 1);
    EXPECT_EQ(Tvx_rng_exec::execute(nullptr), 1);
    EXPECT_EQ(bounds(), "2 -1: <0 0..4 4..8 >8");
}

TEST_F(rng_exec, rebuilding_keeps_the_rows_that_stay)
{
    fill(c_rng_type_stdev);
    vx_rng_scale_set_marked(scale(), 1, true);
    vx_scale_prm_set_visible(vx_rng_scale_get_scale_prm_ptr(scale(), 0), false);
    params.get_min_max_params_ptr()->set_n_diap(3);
    EXPECT_EQ(run(c_rng_builder_equal_ranges), 0);
    EXPECT_EQ(bounds(), "0 -2: <0 0..0.33 0.33..0.67 0.67..1 >1");
    vx::owned<void, &vx_stl_prm_destroy> const fresh(vx_stl_prm_create("pgn_style"));
    int const reds[] = {0, 10, 20, -1, 30};
    for (unsigned row = 0; row < 5; ++row)
        EXPECT_EQ(color(row), reds[row] < 0 ? vx_stl_prm_get_color(fresh.get(), false)
                                            : vx_clr_init_rgb(reds[row], 100, 200))
            << row;
    EXPECT_TRUE(vx_rng_scale_get_marked(scale(), 1));
    EXPECT_FALSE(vx_scale_prm_get_visible(vx_rng_scale_get_scale_prm_ptr(scale(), 0)));
    EXPECT_TRUE(vx_scale_prm_get_visible(vx_rng_scale_get_scale_prm_ptr(scale(), 2)));
}

TEST_F(rng_exec, logarithmic_colours_run_over_zero)
{
    set_style("clr_style");
    params.set_stl_mngr(mngr.get());
    Tvx_color const low = vx_clr_init_rgb(0, 0, 255), zero = vx_clr_init_rgb(255, 255, 128),
                    high = vx_clr_init_rgb(255, 0, 0);
    auto *const record = params.get_logarithm_params_ptr();
    EXPECT_EQ(record->get_clr_min(), low);
    EXPECT_EQ(record->get_clr_zero(), zero);
    EXPECT_EQ(record->get_clr_max(), high);
    record->set_round_digits(0);
    record->set_use_colors(true);
    record->set_max_val(10);
    // Rows from the min entry on; the others lie between their neighbours, other than both.
    struct
    {
        bool two_sided;
        unsigned zero_row;
    } const cases[] = {{true, 4}, {false, 1}};
    record->set_min_val(-10);
    for (auto const &c : cases) {
        record->set_is_two_sided(c.two_sided);
        EXPECT_EQ(run(c_rng_builder_logarithm), 0);
        unsigned const last = size() + 1;
        EXPECT_EQ(color(0), low);
        EXPECT_EQ(color(c.zero_row), zero);
        EXPECT_EQ(color(last), high);
        for (unsigned row = 1; row <= last; ++row)
            EXPECT_NE(color(row), color(row - 1)) << row;
        for (unsigned row = 1; row <= c.zero_row; ++row)
            EXPECT_GT(color(row).g, color(row - 1).g) << row;
        for (unsigned row = c.zero_row + 1; row <= last; ++row)
            EXPECT_LT(color(row).g, color(row - 1).g) << row;
    }
}

TEST_F(rng_exec, natural_breaks_take_the_values_of_their_record)
{
    auto *const record = params.get_natural_params_ptr();
    record->set_n_diap(3);
    record->set_min(0);
    record->set_max(30);
    fill(c_rng_type_stdev);
    EXPECT_EQ(run(c_rng_builder_natural), 0) << "without values";
    EXPECT_EQ(bounds(), "1 -1: <0 0..4 4..8 >8");
    record->set_values({22, 1, 11, 3, 20, 2, 10, 21, 12, -500, 31, c_inf, std::nan("")});
    record->set_n_diap(-1);
    EXPECT_EQ(run(c_rng_builder_natural), 0);
    EXPECT_EQ(bounds(), "1 -1: <0 0..4 4..8 >8");
    record->set_n_diap(3);
    EXPECT_EQ(run(c_rng_builder_natural), 0);
    EXPECT_EQ(bounds(), "4 -2: <0 0..3 3..12 12..30 >30");
    EXPECT_EQ(captions(), L"up to 0.00|0.00 - 3.00|3.00 - 12.00|12.00 - 30.00|above 30.00");
}

TEST_F(rng_data, statistics_of_values)
{
    Tvx_rng_statistic found;
    found.total = 99;
    values = {3.0, std::nullopt, -1.0, 7.0, c_inf, 3.0};
    EXPECT_TRUE(Tvx_rng_statistic_calc::execute(&found, mngr.get(), data()));
    EXPECT_EQ(found.total, 6U);
    EXPECT_EQ(found.defined, 4U);
    EXPECT_EQ(found.undefined, 2U);
    EXPECT_EQ(found.min, -1);
    EXPECT_EQ(found.max, 7);
    EXPECT_EQ(found.average, 3);
    EXPECT_DOUBLE_EQ(found.std_dev, std::sqrt(8.0));
    EXPECT_EQ(cells_read, 12);
    // No value at all.
    values = {std::nullopt, std::nullopt};
    EXPECT_FALSE(Tvx_rng_statistic_calc::execute(&found, mngr.get(), data()));
    EXPECT_EQ(found.total, 2U);
    EXPECT_EQ(found.undefined, 2U);
    EXPECT_EQ(found.max, 0);
    // Statistics at hand; nothing is read.
    cells_read = 0;
    for (bool const has_values : {true, false}) {
        ready = has_values;
        EXPECT_EQ(Tvx_rng_statistic_calc::execute(&found, mngr.get(), data()), has_values);
        EXPECT_EQ(found.total, 0U);
        EXPECT_EQ(found.std_dev, 2);
    }
    EXPECT_EQ(cells_read, 0);
    // A field that is not there.
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L" Смерти ");
    for (auto const *const language : {"ru", "en"}) {
        vx_options_set_language(language);
        EXPECT_TRUE(Tvx_rng_statistic_calc::execute(&found, mngr.get(), data()));
        EXPECT_EQ(found.max, 0);
    }
    EXPECT_EQ(messages, (std::vector<std::wstring>{L"В данных нет числового поля «Смерти».",
                                                   L"The data have no numeric field \"Смерти\"."}));
    messages.clear();
}

TEST_F(rng_data, a_rescale_classifies_what_the_field_holds_now)
{
    values = {0.0, 4.0, std::nullopt, 10.0, 6.0}; // the mean is 5, the deviation the root of 13
    struct
    {
        int type;
        std::string bounds;
    } const cases[] = {
        {c_rng_type_equal_ranges, "0 -1: <0 0..5 5..10 >10"},
        {c_rng_type_stdev, "1 -1: <-2.2 -2.2..5 5..12.2 >12.2"},
        {c_rng_type_log, "2 -1: <0 0..0.1 0.1..0.2 0.2..0.5 0.5..1 1..2 2..5 5..10 >10"},
        {c_rng_type_equal_area, "0 -1: <0 0..5 5..10 >10"},
        {c_rng_type_natural_breaks, "4 -1: <0 0..4 4..10 >10"},
        {c_rng_type_log_space, "5 -1: <0 0..2.3 2.3..10 >10"},
        {77, "0 -1: <0 0..5 5..10 >10"},
    };
    for (auto const &c : cases) {
        fill(c.type);
        vx_rng_scale_set_deviation_coeff(scale(), 2);
        EXPECT_TRUE(Tvx_rng_rescale::execute(mngr.get(), data()));
        EXPECT_EQ(bounds(), c.bounds);
        EXPECT_EQ(color(0), vx_clr_init_rgb(0, 100, 200));
        EXPECT_EQ(color(2), vx_clr_init_rgb(20, 100, 200));
        EXPECT_EQ(color(size() + 1), vx_clr_init_rgb(30, 100, 200));
    }
    // Digits that are none become two decimals; values below 0 make steps to both sides.
    fill(c_rng_type_log);
    vx_rng_scale_set_round_digits(scale(), 11);
    values = {-0.015, 0.01};
    EXPECT_TRUE(Tvx_rng_rescale::execute(mngr.get(), data()));
    EXPECT_EQ(bounds(), "2 -2: <-0.02 -0.02..-0.01 -0.01..0.01 >0.01");
    // One value, and a field that is gone, spread equal ranges round 0.
    fill(c_rng_type_equal_ranges);
    values = {42.0, 42.0};
    EXPECT_TRUE(Tvx_rng_rescale::execute(mngr.get(), data()));
    EXPECT_EQ(bounds(), "0 -1: <-5 -5..0 0..5 >5");
    fill(c_rng_type_equal_ranges);
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"gone");
    EXPECT_TRUE(Tvx_rng_rescale::execute(mngr.get(), data()));
    EXPECT_EQ(bounds(), "0 -1: <-5 -5..0 0..5 >5");
    EXPECT_EQ(messages.size(), 1U);
    messages.clear();
    // Nothing to go by.
    fill(c_rng_type_stdev);
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"Births");
    values = {std::nullopt};
    EXPECT_FALSE(Tvx_rng_rescale::execute(mngr.get(), data()));
    EXPECT_FALSE(Tvx_rng_rescale::execute(nullptr, data()));
    values = {1.0, 2.0};
    auto lacking = data();
    lacking.get_str = {};
    EXPECT_FALSE(Tvx_rng_rescale::execute(mngr.get(), lacking));
    EXPECT_EQ(bounds(), "1 -1: <0 0..4 4..8 >8");
}

TEST_F(rng_data, values_whose_span_is_no_number_make_finite_ranges)
{
    values = {-1.7e308, 1.7e308, 1e308, -1e308, 1.0, 2.0};
    for (int const type : {c_rng_type_equal_ranges, c_rng_type_stdev, c_rng_type_log,
                           c_rng_type_natural_breaks, c_rng_type_log_space}) {
        fill(type);
        EXPECT_TRUE(Tvx_rng_rescale::execute(mngr.get(), data()));
        ASSERT_GE(size(), 2U) << type;
        double last = vx_rng_scale_get_min_value(scale());
        EXPECT_TRUE(std::isfinite(last)) << type;
        for (unsigned i = 0; i < size(); ++i) {
            EXPECT_EQ(vx_rng_scale_get_min(scale(), i), last) << type;
            // The logarithm's first steps from so low a number are too small to be seen beside it.
            double const least = type == c_rng_type_log_space ? last : std::nextafter(last, c_inf);
            EXPECT_GE(vx_rng_scale_get_max(scale(), i), least) << type;
            last = vx_rng_scale_get_max(scale(), i);
        }
        EXPECT_TRUE(std::isfinite(last)) << type;
        EXPECT_EQ(last, vx_rng_scale_get_max_value(scale())) << type;
    }
}

TEST_F(rng_data, a_sample_is_the_same_each_time_and_favours_no_part)
{
    std::vector<double> sample{1}, again;
    values = {5.0, std::nullopt, -1.0, 5.0, 11.0};
    EXPECT_TRUE(Tvx_rng_sample_calc::execute(sample, mngr.get(), data(), 10, 0));
    EXPECT_EQ(sample, (std::vector<double>{5, 5})) << "all that lie in the span";
    values.clear();
    for (int i = 0; i < 40'000; ++i)
        values.emplace_back(i % 2 == 0 ? i : -1);
    EXPECT_TRUE(Tvx_rng_sample_calc::execute(sample, mngr.get(), data(), 0, 1e6));
    EXPECT_TRUE(Tvx_rng_sample_calc::execute(again, mngr.get(), data(), 0, 1e6));
    EXPECT_EQ(sample, again);
    ASSERT_EQ(sample.size(), 3000U);
    // Of 3,000 out of 20,000 numbers the mean strays from theirs by some 200, each fifth part from 600 by 22.
    EXPECT_NEAR(std::accumulate(sample.begin(), sample.end(), 0.0) / 3000, 20'000, 1000);
    for (int fifth = 0; fifth < 5; ++fifth)
        EXPECT_NEAR(std::ranges::count_if(sample, [&](double v) { return int(v) / 8000 == fifth; }), 600,
                    110);
    std::ranges::sort(sample);
    EXPECT_EQ(std::ranges::unique(sample).begin(), sample.end()) << "none comes twice";
}

TEST_F(rng_data, a_reading_that_is_stopped_leaves_scale_and_record)
{
    values.assign(5000, 3.0);
    values.back() = 9;
    stop_what_lasts();
    // In the first pass, the second, and that of the sample.
    for (int const after : {100, 6000, 11'000}) {
        fill(c_rng_type_natural_breaks);
        cells_read = 0;
        stop_after = after;
        EXPECT_FALSE(Tvx_rng_rescale::execute(mngr.get(), data()));
        EXPECT_GT(cells_read, after);
        EXPECT_LT(cells_read, after + 200) << "the stop is heard at once";
        EXPECT_EQ(bounds(), "4 -1: <0 0..4 4..8 >8");
    }
    Tvx_rng_statistic found;
    found.max = 7;
    cells_read = stop_after = 0;
    EXPECT_FALSE(Tvx_rng_statistic_calc::execute(&found, mngr.get(), data()));
    EXPECT_EQ(found.max, 7);
    EXPECT_EQ(found.total, 0U);
    stop_after = 1'000'000;
    EXPECT_TRUE(Tvx_rng_rescale::execute(mngr.get(), data()));
    EXPECT_EQ(vx_rng_scale_get_max_value(scale()), 9);
}
