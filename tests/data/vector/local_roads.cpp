#include "data/vector/memory_driver.h"
#include "data/vxk_data.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_stat.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace vx::data;
using memory_driver::cell;

namespace {
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// name, value, one, none: the last two are a field with one value and one without any.
struct sample : memory_driver::source
{
    sample()
    {
        fields = {{L"name", field_type::string},
                  {L"value", field_type::numeric},
                  {L"one", field_type::numeric},
                  {L"none", field_type::numeric}};
        rows = {{cell(L"b"), cell(2.0), cell(7.0), {}},
                {cell(L"a"), cell(4.0), {}, {}},
                {cell(L"b"), {}, {}, {}},
                {{}, cell(nan), {}, {}},
                {cell(L"c"), cell(4.0), {}, {}},
                {cell(L"d"), cell(10.0), {}, {}}};
    }
};
} // namespace

TEST(local_roads, each_pass_runs_once)
{
    sample s;
    generic_datasource d;
    ASSERT_TRUE(d.from_handle(s.handle()));
    // By hand: 2, 4, 4, 10; mean 5, squares 9 + 1 + 1 + 25 = 36, divided by 3.
    EXPECT_EQ(d.field_minimum(1), 2);
    EXPECT_EQ(d.field_maximum(1), 10);
    EXPECT_EQ(d.field_average(1), 5);
    EXPECT_EQ(d.field_quantity(1), 4u);
    EXPECT_EQ(s.walks, 1);
    EXPECT_DOUBLE_EQ(d.field_stdev(1), std::sqrt(12.0));
    EXPECT_DOUBLE_EQ(d.field_stdev(1), std::sqrt(12.0));
    EXPECT_EQ(s.walks, 2);
    EXPECT_EQ(d.field_distinct(0), 4u);
    EXPECT_EQ(d.field_distinct(0), 4u);
    EXPECT_EQ(s.walks, 3);

    EXPECT_EQ(d.field_stdev(2), 0); // one value
    EXPECT_EQ(d.field_quantity(3), 0u);
    EXPECT_EQ(d.field_minimum(3), 0);
    EXPECT_EQ(d.field_maximum(3), 0);
    EXPECT_EQ(d.field_average(3), 0);
    EXPECT_EQ(d.field_stdev(3), 0);

    vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
    d.field_statistics(1, stat.get());
    bool known = false;
    EXPECT_EQ(vx_stat_get_average(stat.get(), &known), 5);
    EXPECT_TRUE(known && vx_stat_has_statistic(stat.get()));
    vx_stat_set_histogramm(stat.get(), true);
    EXPECT_FALSE(d.field_histogram(1, stat.get()));
    EXPECT_FALSE(vx_stat_has_histogramm(stat.get()));
    d.close();
    EXPECT_EQ(s.detached, 0); // a foreign handle
}

namespace {
/// Knows the average and the count of each field, and whatever else is set.
struct half_informed : vx::polymorphic<vx::data_source_impl, vx::stat_source_impl>
{
    bool knows_unique = false;
    bool average(int, double *value) override { return (*value = 40), true; }
    bool count_nonnull(int, long long *value) override { return (*value = 3), true; }
    bool with_unique_strings(int, int, vx::string_visitor visitor) override
    {
        visitor.visit(L"of the driver");
        return knows_unique;
    }
    bool with_default_histogram(int, bool, vx::histogram_visitor visitor) override
    {
        long long counts[] = {5, 0, 7};
        visitor.visit(-1, 2, 3, counts);
        return true;
    }
};

/// Walks nothing, and writes down what it is asked for.
struct walker : generic_datasource
{
    std::string passes;
    bool compute_stat_common(field_index_type, statistic &stat) override
    {
        passes += "common ";
        stat.average = 10;
        stat.quantity = 2;
        return stat.common_done = true;
    }
    bool compute_stat_stdev(field_index_type, statistic &stat) override
    {
        passes += "stdev ";
        stat.stdev = stat.average / static_cast<double>(stat.quantity);
        return stat.stdev_done = true;
    }
    bool fetch_unique_values(field_index_type, std::uint64_t, std::set<std::wstring> &values) override
    {
        values.clear();
        values.insert(L"walked");
        return true;
    }
    using generic_datasource::compute_stat_stdev;
    using generic_datasource::fetch_unique_values;
};
} // namespace

TEST(driver_first, a_deviation_stands_on_what_the_driver_knows_unless_it_is_computed_here)
{
    half_informed driver;
    walker d;
    ASSERT_TRUE(d.from_handle(static_cast<vx::data_source_impl &>(driver)));
    EXPECT_EQ(d.field_stdev(0), 40.0 / 3);
    EXPECT_EQ(d.field_stdev(0), 40.0 / 3);
    EXPECT_EQ(d.passes, "stdev ");
    EXPECT_EQ(d.compute_stat_stdev(1).stdev, 5);
    EXPECT_EQ(d.field_average(1), 40);
    EXPECT_EQ(d.field_stdev(1), 5);
    EXPECT_EQ(d.passes, "stdev common stdev ");
}

TEST(driver_first, unique_values_and_histograms)
{
    half_informed driver;
    walker d;
    d.from_handle(static_cast<vx::data_source_impl &>(driver));
    std::set<std::wstring> values{L"before"};
    EXPECT_TRUE(d.field_unique_values(0, 9, values));
    EXPECT_EQ(values, std::set<std::wstring>{L"walked"})
        << "what a driver gives before it gives up is dropped";
    driver.knows_unique = true;
    EXPECT_TRUE(d.field_unique_values(0, 9, values));
    EXPECT_EQ(values, std::set<std::wstring>{L"of the driver"});

    vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
    EXPECT_TRUE(d.field_histogram(0, stat.get()));
    bool present = false;
    Tvx_histogramm_data *const histogram = vx_stat_get_histogramm(stat.get(), &present);
    EXPECT_TRUE(present);
    ASSERT_EQ(vx_histogramm_get_size(histogram), 3u);
    EXPECT_EQ(vx_histogramm_get(histogram, 0), 5);
    EXPECT_EQ(vx_histogramm_get(histogram, 2), 7);
    EXPECT_NEAR(vx_histogramm_get_bnd_max(histogram, 0), 0, 1e-15);
}

TEST(local_roads, names_of_fields)
{
    memory_driver::source s;
    s.fields = {{L"a1", field_type::string}, {L"a", field_type::string}, {L"Name", field_type::string}};
    generic_datasource d;
    d.from_handle(s.handle());
    EXPECT_EQ(d.make_field_unique_name(L"a"), L"a2");
    EXPECT_EQ(d.field_unique_name(L"NAME"), L"NAME1");
    EXPECT_EQ(d.field_unique_name(L"new"), L"new");
    EXPECT_EQ(d.field_index(L"NAME"), 2u);
    EXPECT_EQ(d.field_index(L"none"), c_no_field);
    EXPECT_EQ(d.field_index(L""), c_no_field);
    EXPECT_EQ(generic_datasource().make_field_unique_name(L"a"), L"a");
}

TEST(opening, modes_and_ownership)
{
    struct opener
    {
        sample source;
        std::vector<bool> asked;
        bool read_only = false; ///< the set can be opened for reading alone
    } o;
    open_callback const open = [](wchar_t const *, bool read_only, void *context,
                                  t_vx_data_source_interface *result) {
        auto &self = *static_cast<opener *>(context);
        self.asked.push_back(read_only);
        if (read_only || !self.read_only)
            *result = self.source.handle();
    };
    connection const c(L"x", open, &o);
    {
        vector_datasource d;
        EXPECT_TRUE(d.open(c, access_update_or_read));
        EXPECT_EQ(o.asked, (std::vector<bool>{false}));
        o.read_only = true;
        EXPECT_TRUE(d.open(c, access_update_or_read));
        EXPECT_EQ(o.asked, (std::vector<bool>{false, false, true}));
        EXPECT_EQ(o.source.detached, 1); // the first opening
        EXPECT_FALSE(d.open(c, access_update));
        EXPECT_FALSE(d.is_open());
        EXPECT_TRUE(d.open(c, access_read));
    }
    EXPECT_EQ(o.source.detached, 3);
    connection closed = c;
    closed.reset();
    EXPECT_FALSE(generic_datasource().open(closed, access_read));
}

TEST(transaction, keeps_its_changes_unless_told)
{
    sample s;
    vector_datasource d;
    d.from_handle(s.handle());
    {
        vector_transaction t(d);
        EXPECT_FALSE(t.acquire(d));
    }
    EXPECT_EQ(s.transactions[0], 1);
    EXPECT_EQ(s.transactions[1], 1);
    {
        vector_transaction t(d);
        EXPECT_TRUE(t.rollback());
        EXPECT_FALSE(t.rollback());
        EXPECT_FALSE(t.commit());
    }
    EXPECT_EQ(s.transactions[1], 1);
    EXPECT_EQ(s.transactions[2], 1);
    {
        vector_transaction t(d);
        s.commits = false;
        EXPECT_FALSE(t.commit());
        s.commits = true;
        EXPECT_TRUE(t.commit()) << "what was refused is mended";
        EXPECT_FALSE(t.rollback());
    }
    {
        vector_transaction t(d);
        s.commits = false;
        EXPECT_FALSE(t.commit());
        EXPECT_TRUE(t.rollback()) << "or given up";
    }
    EXPECT_EQ(s.transactions[1], 4);
    EXPECT_EQ(s.transactions[2], 2);
}
