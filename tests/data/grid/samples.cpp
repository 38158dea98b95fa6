#include "block_driver.h"
#include "data/grid/random_sample_task.h"
#include "data/vector/memory_driver.h"
#include "extension/binding/feature_random_request.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <set>

using namespace vx::data;

namespace {
/// A table whose field holds the number of its feature, but null where that is a multiple of `null_every`.
template <class Driver>
void fill(Driver &driver, int count, int null_every = 0)
{
    driver.fields = {{L"a", field_type::numeric}};
    for (int i = 0; i < count; ++i)
        driver.rows.push_back({null_every && i % null_every == 0
                                   ? memory_driver::cell()
                                   : memory_driver::cell(static_cast<double>(i))});
}

/// The same with quick access to single features.
class indexed final
    : public vx::polymorphic<vx::data_source_impl, vx::vector_source_impl, vx::feature_forward_request_impl,
                             vx::feature_random_request_impl>
{
public:
    std::vector<memory_driver::field> fields;
    std::vector<std::vector<memory_driver::cell>> rows;
    int fetches = 0;

    t_vx_data_source_interface handle() { return static_cast<vx::data_source_impl &>(*this); }
    bool has_capability(int caps) override { return caps == c_caps_fast_index; }
    int field_count() override { return static_cast<int>(fields.size()); }
    void field_name(int i, vx::string_visitor v) override
    {
        v.visit(fields[static_cast<std::size_t>(i)].name.c_str());
    }
    unsigned long long feature_count(bool) override { return rows.size(); }
    bool reset_reading() override
    {
        f_next = 0;
        return true;
    }
    bool with_next_feature(vx::feature_visitor visitor) override { return visit(f_next++, visitor); }
    bool with_feature(long long fid, vx::feature_visitor visitor) override
    {
        ++fetches;
        return visit(static_cast<std::size_t>(fid), visitor);
    }

private:
    bool visit(std::size_t i, vx::feature_visitor visitor)
    {
        if (i >= rows.size())
            return false;
        f_current.emplace(rows[i]);
        visitor.visit(*f_current);
        return true;
    }
    std::size_t f_next = 0;
    std::optional<memory_driver::feature_object> f_current;
};

std::vector<double> sample_of(t_vx_data_source_interface handle, random_sample_task const &task,
                              std::wstring const &name = L"a")
{
    generic_datasource source;
    EXPECT_TRUE(source.from_handle(handle));
    return task.execute(source, name);
}

bool is_ascending(std::vector<double> const &values)
{
    return std::is_sorted(values.begin(), values.end());
}

/// Each tenth of the values from 0 on is met about equally often: off by less than 5.3 standard deviations,
/// which one run in a million exceeds.
void expect_even(std::vector<double> const &values, double span)
{
    std::vector<int> tenths(10);
    for (double const v : values)
        ++tenths[static_cast<std::size_t>(v / span * 10)];
    auto const n = static_cast<double>(values.size());
    for (int const count : tenths)
        EXPECT_NEAR(count, n / 10, 5.3 * std::sqrt(n * 0.1 * 0.9));
}
} // namespace

TEST(random_sample, indices)
{
    auto const drawn = make_random_indicies(20000, 5, 14);
    EXPECT_EQ(drawn.size(), 20000u);
    std::vector<double> from_zero;
    for (auto const i : drawn) {
        ASSERT_TRUE(i >= 5 && i <= 14);
        from_zero.push_back(static_cast<double>(i - 5));
    }
    expect_even(from_zero, 10);
    EXPECT_NE(drawn, make_random_indicies(20000, 5, 14)) << "seeded anew";
    EXPECT_EQ(make_random_indicies(3, 7, 7), (std::vector<std::uint64_t>{7, 7, 7}));
    EXPECT_TRUE(make_random_indicies(3, 8, 7).empty());
    EXPECT_TRUE(make_random_indicies(0, 0, ~0ULL).empty());
}

TEST(random_sample, small_grids_as_they_are_large_ones_by_single_cells)
{
    std::vector<double> cells(10000);
    std::iota(cells.begin(), cells.end(), 0);
    block_driver::source driver(100, 100, 100, 7);
    driver.fields.push_back(block_driver::make_field(data_type::float64, cells, 5000));
    auto const all = sample_of(driver.handle(), random_sample_task(10000, 4990, 5009));
    EXPECT_EQ(all.size(), 19u) << "each cell of the span once, but for the one without a value";
    EXPECT_TRUE(is_ascending(all));

    auto const drawn = sample_of(driver.handle(), random_sample_task(1000));
    EXPECT_GE(drawn.size(), 1990u) << "twice as many draws, hardly one of which meets no value";
    EXPECT_LE(drawn.size(), 2000u);
    EXPECT_TRUE(is_ascending(drawn));
    expect_even(drawn, 10000);

    driver.fails_at = driver.total_reads + 100;
    EXPECT_EQ(sample_of(driver.handle(), random_sample_task(1000)).size(), 100u)
        << "what came before the failure";
    driver.fails_at = driver.total_reads + 1;
    EXPECT_TRUE(sample_of(driver.handle(), random_sample_task(10000)).empty());
    driver.fails_at = -1;
    EXPECT_TRUE(sample_of(driver.handle(), random_sample_task(1000), L"b").empty()) << "no such field";
    EXPECT_TRUE(sample_of(driver.handle(), random_sample_task(1000, 3, 2)).empty()) << "an empty span";
}

TEST(random_sample, small_tables_from_memory_large_ones_in_order)
{
    memory_driver::source small;
    fill(small, 1000, 2);
    auto sample = sample_of(small.handle(), random_sample_task(3000));
    EXPECT_EQ(sample.size(), 500u) << "as many as there are values";
    EXPECT_FALSE(is_ascending(sample)) << "in the order of the draw";
    EXPECT_LT(std::set<double>(sample.begin(), sample.end()).size(), 500u) << "with replacement";
    EXPECT_EQ(sample_of(small.handle(), random_sample_task(100, 10, 20)).size(), 5u);

    memory_driver::source large;
    fill(large, 10000);
    sample = sample_of(large.handle(), random_sample_task(1000));
    EXPECT_TRUE(is_ascending(sample));
    EXPECT_EQ(std::set<double>(sample.begin(), sample.end()).size(), sample.size()) << "each feature once";
    // 2,000 draws out of 10,000 leave each feature out with a chance of (1 - 1/10,000)^2,000.
    EXPECT_NEAR(static_cast<double>(sample.size()), 10000 * (1 - std::pow(1 - 1e-4, 2000)), 200);
    expect_even(sample, 10000);

    memory_driver::source border;
    fill(border, 1001);
    EXPECT_TRUE(is_ascending(sample_of(border.handle(), random_sample_task(3000))));
    memory_driver::source none;
    fill(none, 0);
    EXPECT_TRUE(sample_of(none.handle(), random_sample_task(10)).empty());
    memory_driver::source empty;
    fill(empty, 2000, 1);
    EXPECT_TRUE(sample_of(empty.handle(), random_sample_task(10)).empty()) << "no feature has a value";
}

TEST(random_sample, tables_with_quick_access)
{
    indexed driver;
    fill(driver, 10000, 2);
    auto sample = sample_of(driver.handle(), random_sample_task(1000));
    EXPECT_EQ(driver.fetches, 2000) << "half of the features have a value";
    EXPECT_TRUE(is_ascending(sample));
    EXPECT_NEAR(static_cast<double>(sample.size()), 1000, 5.3 * std::sqrt(2000 * 0.25));
    expect_even(sample, 10000);

    // Three values among many nulls: each feature is fetched once at most, and the sample has the size of
    // any.
    indexed sparse;
    fill(sparse, 5000, 1);
    for (std::size_t const i : {7, 2500, 4999})
        sparse.rows[i] = {static_cast<double>(i)};
    sample = sample_of(sparse.handle(), random_sample_task(900));
    EXPECT_LE(sparse.fetches, 5000);
    EXPECT_NEAR(static_cast<double>(sample.size()), 900, 5.3 * 30);
    EXPECT_EQ(std::set<double>(sample.begin(), sample.end()), (std::set<double>{7, 2500, 4999}));
    indexed nothing;
    fill(nothing, 5000, 1);
    EXPECT_TRUE(sample_of(nothing.handle(), random_sample_task(900)).empty());
    EXPECT_EQ(nothing.fetches, 0);
}

// Identifiers with gaps, a third of them without a number: what is drawn is spread as the numbers are.
TEST(random_sample, tables_of_database_files)
{
    GDALAllRegister();
    vx_test::temp_dir const dir;
    for (char const *const driver_name : {"GPKG", "SQLite"}) {
        SCOPED_TRACE(driver_name);
        std::string const file = dir.path() / (std::string("t.") + (*driver_name == 'G' ? "gpkg" : "sqlite"));
        {
            GDALDatasetUniquePtr const set(GetGDALDriverManager()
                                               ->GetDriverByName(driver_name)
                                               ->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
            OGRLayer *const layer = set->CreateLayer("t", nullptr, wkbPoint);
            for (char const *const name : {"a", "b"}) {
                OGRFieldDefn field(name, OFTReal);
                ASSERT_EQ(OGRERR_NONE, layer->CreateField(&field));
            }
            (void)set->StartTransaction();
            for (int i = 0; i < 40'000; ++i) {
                OGRFeature feature(layer->GetLayerDefn());
                feature.SetFID(2 * i + 10);
                if (i % 3)
                    feature.SetField(0, i);
                feature.SetField(1, i);
                ASSERT_EQ(OGRERR_NONE, layer->CreateFeature(&feature));
            }
            (void)set->CommitTransaction();
            // A text in a column of numbers counts as GDAL reads it.
            (void)set->ExecuteSQL("UPDATE t SET b = b || ' metres' WHERE b > 30000", nullptr, nullptr);
        }
        vector_datasource table;
        ASSERT_TRUE(table.open(vx::text::utf8_to_wide(file), access_read))
            << vx::text::wide_to_utf8(table.error_message());
        auto sample = random_sample_task(3000, 100, 40'000).execute(table, L"a");
        EXPECT_GE(sample.size(), 2700U);
        EXPECT_LE(sample.size(), 6000U);
        double const size = static_cast<double>(sample.size());
        for (double const value : sample)
            ASSERT_TRUE(value >= 100 && std::fmod(value, 3) > 0) << value;
        // Six deviations of the mean: hardly once in a hundred million runs.
        EXPECT_NEAR(std::accumulate(sample.begin(), sample.end(), 0.0) / size, 20'050,
                    6 * 39'900 / std::sqrt(12 * size));
        sample = random_sample_task(3000).execute(table, L"b");
        EXPECT_GT(*std::max_element(sample.begin(), sample.end()), 35'000) << "texts are numbers too";
        // What a filter leaves is what is drawn from.
        ASSERT_TRUE(table.set_attribute_filter(L"a < 5000"));
        sample = random_sample_task(300).execute(table, L"a");
        EXPECT_FALSE(sample.empty());
        EXPECT_LT(*std::max_element(sample.begin(), sample.end()), 5000);
    }
}
