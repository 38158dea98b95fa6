#include "data/vector/memory_driver.h"
#include "data/vxk_data.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_stat.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

using namespace vx::data;

/// One table, in each format and in a driver that offers no more than it must: the same answers everywhere,
/// whether the driver gives them or the class walks for them.
namespace {
constexpr int c_rows = 24;
enum field : unsigned
{
    c_name,
    c_value,
    c_whole,
    c_big,
    c_fields,
};

/// Of the table below; nothing for a null cell.
std::wstring name_of(int row)
{
    wchar_t const *const names[] = {L"a \"b\" 'c'", L"Ґанок|x&y", L"007", L"z"};
    return names[row % 4];
}
std::optional<double> value_of(int row)
{
    return row % 5 == 4 ? std::nullopt : std::optional(row * 0.5 - 2);
}
std::optional<int> whole_of(int row)
{
    return row % 6 == 5 ? std::nullopt : std::optional(row % 7 - 3);
}
long long big_of(int row)
{
    return 5'000'000'000 + row;
}
Tvx_vtx_d2 place_of(int row)
{
    return {10.0 + row, 50.0 - row};
}

struct format
{
    char const *name;
    int driver; ///< for `create`; 0: the driver in memory
    wchar_t const *ending;
    wchar_t const *table_options = L"";
    bool can_edit = true; ///< what is stored can be changed
    bool can_roll_back = false;
    bool has_positions = true; ///< single features and positions are offered
};
constexpr format c_formats[] = {
    {"memory", 0, L"", L"", false, false, false},
    {"shapefile", 1, L".shp"},
    {"geopackage", 2, L".gpkg", L"", true, true},
    {"geojson", 3, L".geojson"},
    {"flatgeobuf", 4, L".fgb", L"", false},
    {"csv", 5, L".csv", L"|CREATE_CSVT=YES&GEOMETRY=AS_WKT", false},
    {"sqlite", 7, L".sqlite", L"", true, true},
};

class formats : public testing::TestWithParam<format>
{
protected:
    void SetUp() override
    {
        if (GetParam().driver == 0)
            fill_memory();
        else
            ASSERT_NO_FATAL_FAILURE(fill_file());
    }
    void open(vector_datasource &d, access_mode mode = access_read)
    {
        ASSERT_TRUE(GetParam().driver == 0 ? d.from_handle(f_memory.handle()) : d.open(f_path, mode));
    }
    void fill_memory()
    {
        f_memory.fields = {{L"name", field_type::string},
                           {L"value", field_type::numeric},
                           {L"whole", field_type::numeric},
                           {L"big", field_type::numeric}};
        for (int row = 0; row < c_rows; ++row) {
            auto const number = [](auto const &v) {
                return v ? memory_driver::cell(static_cast<double>(*v)) : memory_driver::cell();
            };
            f_memory.rows.push_back({memory_driver::cell(name_of(row)), number(value_of(row)),
                                     number(whole_of(row)),
                                     memory_driver::cell(static_cast<double>(big_of(row)))});
            f_memory.places.push_back(place_of(row));
        }
    }
    void fill_file()
    {
        f_path = vx::text::utf8_to_wide((f_dir / "t").string()) + GetParam().ending;
        vector_datasource d;
        // A set without tables is no vector source before it has one.
        ASSERT_TRUE(d.create(f_path, GetParam().driver));
        vector_definition fields;
        fields.append(L"name", field_type::string, 40, 0, true, L"");
        fields.append(L"value", field_type::numeric, 20, 6, true, L"");
        fields.append(L"whole", field_type::integer, 0, 0, true, L"");
        fields.append(L"big", field_type::bigint, 0, 0, true, L"");
        fields.set_proj4(L"+proj=longlat +datum=WGS84 +no_defs");
        ASSERT_TRUE(
            d.create_vector(std::wstring(L"t") + GetParam().table_options, fields, geom_type::point, 0))
            << vx::text::wide_to_utf8(d.error_message());
        for (int row = 0; row < c_rows; ++row) {
            class filler final : public vx::feature_visitor_impl
            {
            public:
                explicit filler(int row) : f_row(row) {}
                void visit(vx::feature handle) override
                {
                    transacted_feature f;
                    f.init(handle);
                    EXPECT_TRUE(f.write_string(c_name, name_of(f_row)));
                    if (auto const value = value_of(f_row)) {
                        EXPECT_TRUE(f.write_numeric(c_value, *value));
                    }
                    if (auto const whole = whole_of(f_row)) {
                        EXPECT_TRUE(f.write_integer(c_whole, *whole));
                    }
                    EXPECT_TRUE(f.write_bigint(c_big, big_of(f_row)));
                    EXPECT_TRUE(f.set_point2d(place_of(f_row)));
                }

            private:
                int f_row;
            } visitor(row);
            vx::vector_source const table =
                vx_vector_source_interface_specialize(vx_data_source_interface_generalize(d.handle()));
            ASSERT_TRUE(table.create_feature(0, visitor)) << vx::text::wide_to_utf8(d.error_message());
        }
    }
    /// Fields of text formats may come back in another place.
    static field_index_type at(vector_datasource const &d, wchar_t const *name)
    {
        return d.field_index(name);
    }

    vx_test::temp_dir f_dir;
    std::wstring f_path;
    memory_driver::source f_memory;
};

/// Numbers of the rows that are still to be read, by their large number: identifiers differ by format and
/// some formats change the order.
std::vector<int> rest_of(vector_datasource &d)
{
    std::vector<int> rows;
    vector_feature f;
    bool not_null = false;
    while (d.fetch_next_feature(f))
        rows.push_back(static_cast<int>(f.read_numeric(d.field_index(L"big"), not_null) - 5e9));
    return rows;
}

std::vector<int> sorted(std::vector<int> rows)
{
    std::sort(rows.begin(), rows.end());
    return rows;
}

template <class Wanted>
std::vector<int> rows_where(Wanted wanted)
{
    std::vector<int> rows;
    for (int row = 0; row < c_rows; ++row)
        if (wanted(row))
            rows.push_back(row);
    return rows;
}
} // namespace

TEST_P(formats, cells_and_places)
{
    vector_datasource d;
    ASSERT_NO_FATAL_FAILURE(open(d));
    EXPECT_GE(d.field_count(), c_fields) << "text formats show the geometry as one more";
    EXPECT_EQ(d.field_type(at(d, L"name")), field_type::string);
    EXPECT_TRUE(fieldtype_isnumber(d.field_type(at(d, L"whole"))));
    vector_feature f;
    std::vector<bool> seen(c_rows);
    while (d.fetch_next_feature(f)) {
        bool not_null = false;
        int const row = static_cast<int>(f.read_numeric(at(d, L"big"), not_null) - 5e9);
        SCOPED_TRACE(row);
        ASSERT_TRUE(not_null && row >= 0 && row < c_rows && !seen[static_cast<std::size_t>(row)]);
        seen[static_cast<std::size_t>(row)] = true;
        EXPECT_EQ(f.read_string(at(d, L"name"), not_null), name_of(row)) << "a leading zero stays";
        EXPECT_EQ(f.read_numeric(at(d, L"value"), not_null), value_of(row).value_or(0));
        EXPECT_EQ(not_null, value_of(row).has_value());
        EXPECT_EQ(f.read_numeric(at(d, L"whole"), not_null), whole_of(row).value_or(0));
        EXPECT_EQ(not_null, whole_of(row).has_value());
        EXPECT_EQ(f.read_string(at(d, L"big"), not_null), std::to_wstring(big_of(row)));
        Tvx_vtx_d2 place;
        EXPECT_EQ(f.geom_type(), geom_type::point);
        ASSERT_TRUE(f.fetch_point2d(place));
        EXPECT_EQ(place, place_of(row));
        for (field_index_type const none : {d.field_count(), field_index_type{1000}, c_no_field}) {
            EXPECT_EQ(f.read_string(none, not_null), L"");
            EXPECT_FALSE(not_null);
            EXPECT_EQ(f.read_numeric(none, not_null), 0);
            EXPECT_FALSE(not_null);
            EXPECT_TRUE(f.read_any(none).is_null());
        }
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), true), c_rows);
}

TEST_P(formats, statistics_by_formula)
{
    vector_datasource of_vectors;
    generic_datasource of_any;
    ASSERT_NO_FATAL_FAILURE(open(of_vectors));
    of_any.from_handle(of_vectors.handle());
    for (generic_datasource *const d : {static_cast<generic_datasource *>(&of_vectors), &of_any})
        for (bool const is_whole : {false, true}) {
            std::vector<double> values;
            for (int row = 0; row < c_rows; ++row)
                if (is_whole ? whole_of(row).has_value() : value_of(row).has_value())
                    values.push_back(is_whole ? *whole_of(row) : *value_of(row));
            auto const n = static_cast<double>(values.size());
            double const mean = std::accumulate(values.begin(), values.end(), 0.0) / n;
            double squares = 0;
            for (double const v : values)
                squares += (v - mean) * (v - mean);
            auto const i = d->field_index(is_whole ? L"whole" : L"value");
            EXPECT_EQ(d->field_minimum(i), *std::min_element(values.begin(), values.end()));
            EXPECT_EQ(d->field_maximum(i), *std::max_element(values.begin(), values.end()));
            EXPECT_NEAR(d->field_average(i), mean, 1e-12);
            EXPECT_NEAR(d->field_stdev(i), std::sqrt(squares / (n - 1)), 1e-12);
            EXPECT_EQ(d->field_quantity(i), values.size());
            EXPECT_EQ(d->field_distinct(i), std::set<double>(values.begin(), values.end()).size());
            vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
            d->field_statistics(i, stat.get());
            bool known = false;
            EXPECT_NEAR(vx_stat_get_average(stat.get(), &known), mean, 1e-12);
            EXPECT_TRUE(known);
            std::vector<double> fetched;
            EXPECT_TRUE(d->field_values(i, fetched));
            std::sort(fetched.begin(), fetched.end());
            std::sort(values.begin(), values.end());
            EXPECT_EQ(fetched, values);
        }
    EXPECT_EQ(of_any.field_distinct(of_any.field_index(L"name")), 4u);
    EXPECT_EQ(of_any.field_quantity(c_no_field), 0u);
    EXPECT_EQ(of_any.field_average(of_any.field_count()), 0);
}

TEST_P(formats, unique_values_and_limits)
{
    generic_datasource d;
    vector_datasource opened;
    ASSERT_NO_FATAL_FAILURE(open(opened));
    d.from_handle(opened.handle());
    auto const name = d.field_index(L"name");
    auto const whole = d.field_index(L"whole");
    std::set<std::wstring> const names{name_of(0), name_of(1), name_of(2), name_of(3)};
    std::set<double> const numbers{-3, -2, -1, 0, 1, 2, 3};
    struct
    {
        std::uint64_t limit;
        std::size_t names;
        std::size_t numbers;
    } const cases[] = {{c_no_limit, 4, 7}, {1, 1, 1}, {3, 3, 3}, {4, 4, 4}, {1000, 4, 7}, {0, 1, 1}};
    for (auto const &c : cases) {
        std::set<std::wstring> texts{L"not emptied"};
        std::set<double> values;
        std::set<std::wstring> forms;
        EXPECT_TRUE(d.field_unique_values(name, c.limit, texts));
        EXPECT_TRUE(d.field_unique_values(whole, c.limit, values));
        EXPECT_TRUE(d.field_unique_values(whole, c.limit, forms));
        EXPECT_EQ(texts.size(), c.names) << c.limit;
        EXPECT_EQ(values.size(), c.numbers) << c.limit;
        EXPECT_EQ(forms.size(), c.numbers) << c.limit;
        EXPECT_TRUE(std::includes(names.begin(), names.end(), texts.begin(), texts.end()));
        EXPECT_TRUE(std::includes(numbers.begin(), numbers.end(), values.begin(), values.end()));
        for (auto const &form : forms)
            EXPECT_EQ(numbers.count(std::stod(form)), 1u);
    }
    std::map<std::wstring, std::vector<std::wstring>> rows;
    EXPECT_TRUE(d.field_unique_values(name, {d.field_index(L"big"), c_no_field}, c_no_limit, rows));
    EXPECT_EQ(rows.size(), 4u);
    for (auto const &[key, others] : rows) {
        ASSERT_EQ(others.size(), 2u);
        EXPECT_EQ(key, name_of(std::stoi(others[0].substr(1))));
        EXPECT_EQ(others[1], L"");
    }
    EXPECT_TRUE(d.field_unique_values(name, {d.field_index(L"big")}, 0, rows));
    EXPECT_EQ(rows.size(), 1u) << "the limit is looked at behind each value";
    EXPECT_TRUE(d.field_unique_values(name, {d.field_index(L"big")}, c_no_limit, rows));
    EXPECT_EQ(sorted(rest_of(opened)).size(), 0u) << "the last walk went to the end";
}

TEST_P(formats, filters_and_pages)
{
    vector_datasource d;
    ASSERT_NO_FATAL_FAILURE(open(d));
    EXPECT_EQ(sorted(rest_of(d)), rows_where([](int) { return true; }));
    if (GetParam().driver == 0) {
        EXPECT_FALSE(d.set_index_filter(0, 5)) << "there is no field of identifiers";
        return;
    }
    EXPECT_EQ(d.feature_count(force_compute), static_cast<std::uint64_t>(c_rows));
    EXPECT_TRUE(d.set_spatial_fitler({10.5, 45.5, 14.5, 60}));
    EXPECT_EQ(sorted(rest_of(d)), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_TRUE(d.set_attribute_filter(L"whole > 1"));
    EXPECT_EQ(sorted(rest_of(d)),
              rows_where([](int r) { return r >= 1 && r <= 4 && whole_of(r) && *whole_of(r) > 1; }))
        << "both filters hold";
    EXPECT_TRUE(d.set_spatial_fitler({}));
    EXPECT_EQ(sorted(rest_of(d)), rows_where([](int r) { return whole_of(r) && *whole_of(r) > 1; }));
    // The driver leaves filtered statistics to the walk, which honours the filter.
    EXPECT_EQ(d.field_minimum(at(d, L"whole")), 2);
    EXPECT_FALSE(d.set_attribute_filter(L"no such ((thing"));
    EXPECT_FALSE(d.error_message().empty());

    EXPECT_TRUE(d.set_attribute_filter(L""));
    auto const all = rest_of(d);
    ASSERT_EQ(all.size(), static_cast<std::size_t>(c_rows));
    std::vector<int> paged;
    for (int first = 0; first < c_rows + 5; first += 7) {
        ASSERT_TRUE(d.set_index_filter(first, first + 7));
        auto const page = rest_of(d);
        EXPECT_EQ(page.size(), static_cast<std::size_t>(std::max(0, std::min(7, c_rows - first))));
        paged.insert(paged.end(), page.begin(), page.end());
    }
    EXPECT_EQ(paged, all) << "the pages are the whole";
    EXPECT_TRUE(d.set_index_filter(0, 0));
    EXPECT_TRUE(rest_of(d).empty());
    EXPECT_TRUE(d.set_index_filter(4, 2)) << "a page of less than nothing";
    EXPECT_TRUE(rest_of(d).empty());
    // A page counts what both filters let pass, whichever was set first.
    EXPECT_TRUE(d.set_attribute_filter(d.fid_field_name() + L" >= 0 LIMIT 2 OFFSET 1"));
    EXPECT_TRUE(d.set_spatial_fitler({10.5, 45.5, 14.5, 60}));
    EXPECT_EQ(d.feature_count(force_compute), 2u);
    EXPECT_EQ(rest_of(d).size(), 2u);
    EXPECT_TRUE(d.set_spatial_fitler({}));
    EXPECT_EQ(rest_of(d), (std::vector<int>{all[1], all[2]}));
    EXPECT_EQ(d.feature_count(force_compute), 2u);
    ASSERT_TRUE(d.moveto_feature(1));
    EXPECT_EQ(rest_of(d), std::vector<int>{all[2]}) << "positions count within the page";
}

TEST_P(formats, what_is_opened_for_reading_stays)
{
    if (GetParam().driver == 0)
        return;
    auto const content = [&] {
        std::map<std::string, std::string> files;
        for (auto const &entry : std::filesystem::directory_iterator(f_dir.path()))
            files[entry.path().filename()] = vx_test::read_file(entry.path());
        return files;
    };
    auto const before = content();
    {
        vector_datasource d;
        ASSERT_NO_FATAL_FAILURE(open(d));
        transacted_feature f;
        ASSERT_TRUE(d.fetch_next_feature(f));
        EXPECT_TRUE(d.field_readonly(0));
        EXPECT_FALSE(f.write_string(c_name, L"x"));
        EXPECT_FALSE(f.write_null(c_value));
        EXPECT_FALSE(f.set_point2d({1, 2}));
        EXPECT_FALSE(f.set_empty());
        EXPECT_FALSE(d.create_feature(0, f));
        EXPECT_FALSE(d.delete_feature(f.fid()));
        EXPECT_FALSE(d.remove_field(c_name));
        EXPECT_FALSE(d.remove_field(L"name"));
        vector_definition one;
        one.append(L"more", field_type::integer, 0, 0, true, L"");
        EXPECT_FALSE(d.create_field(one) || d.alter_field(0, one) || d.reorder_fields({3, 2, 1, 0}));
        EXPECT_FALSE(d.start_transaction() || d.commit_transaction() || d.rollback_transaction());
        EXPECT_FALSE(d.create_vector(L"other", one, geom_type::point, 0));
        (void)d.field_distinct(c_name);
        (void)rest_of(d);
    }
    EXPECT_EQ(content(), before);
}

INSTANTIATE_TEST_SUITE_P(each, formats, testing::ValuesIn(c_formats),
                         [](auto const &info) { return info.param.name; });
