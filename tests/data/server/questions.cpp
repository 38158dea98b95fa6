#include "data/grid/random_sample_task.h"
#include "data/server/server_test.h"
#include "extension/vxk_extension.h"
#include "scale_engine/value/value_scale_build_cache.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_histogram.h"

#include <algorithm>
#include <cmath>
#include <numeric>

// What is asked of a database server, by its own log: one statement for each question, and no more rows than
// the answer has. The answers are those of the files that were loaded into it.

using namespace vx::data;

namespace {
class server_questions : public vx_test::server_test
{
protected:
    /// One statement that names the table was carried out, and it sent so many rows.
    static void expect_one_statement(std::string const &table, std::size_t rows)
    {
        auto const asked = server().statements(table);
        EXPECT_EQ(asked.size(), 1u) << (asked.empty() ? "" : asked.front().text);
        EXPECT_EQ(server().rows_sent(table), static_cast<long long>(rows));
        server().forget();
    }
};
} // namespace

TEST_F(server_questions, about_fields_take_a_statement_each_and_answer_as_the_file_does)
{
    for (std::string const name : {"nc", "world", "streets", "cities"}) {
        SCOPED_TRACE(name);
        vector_datasource table, file;
        open(table, vx::text::utf8_to_wide(name));
        ASSERT_TRUE(
            file.open(vx::text::utf8_to_wide(example_path(name == "cities" ? "naturalearth_cities" : name)),
                      access_read));
        ASSERT_EQ(table.field_count(), file.field_count());
        server().forget();
        std::string const from = "public." + name;
        ASSERT_EQ(table.feature_count(force_none), file.feature_count(force_compute));
        expect_one_statement(from, 1);
        for (field_index_type i = 0; i < file.field_count(); ++i) {
            SCOPED_TRACE(i);
            ASSERT_EQ(table.field_name(i), file.field_name(i));
            bool const is_number = fieldtype_isnumber(file.field_type(i));
            if (is_number) {
                EXPECT_EQ(table.field_minimum(i), file.field_minimum(i));
                EXPECT_EQ(table.field_maximum(i), file.field_maximum(i));
                EXPECT_NEAR(table.field_average(i), file.field_average(i), 1e-12 * file.field_maximum(i));
                EXPECT_NEAR(table.field_stdev(i), file.field_stdev(i), 1e-9 * file.field_stdev(i));
            }
            EXPECT_EQ(table.field_quantity(i), file.field_quantity(i));
            expect_one_statement(from, 1);
            EXPECT_EQ(table.field_distinct(i), file.field_distinct(i));
            expect_one_statement(from, 1);

            std::set<std::wstring> texts, wanted_texts;
            ASSERT_TRUE(table.field_unique_values(i, c_no_limit, texts));
            ASSERT_TRUE(file.field_unique_values(i, c_no_limit, wanted_texts));
            EXPECT_EQ(texts, wanted_texts);
            expect_one_statement(from, texts.size());
            ASSERT_TRUE(table.field_unique_values(i, 7, texts));
            EXPECT_EQ(texts.size(), std::min<std::size_t>(7, wanted_texts.size()));
            EXPECT_TRUE(std::includes(wanted_texts.begin(), wanted_texts.end(), texts.begin(), texts.end()));
            expect_one_statement(from, texts.size());

            if (!is_number)
                continue;
            std::set<double> numbers, wanted_numbers;
            ASSERT_TRUE(table.field_unique_values(i, c_no_limit, numbers));
            ASSERT_TRUE(file.field_unique_values(i, c_no_limit, wanted_numbers));
            EXPECT_EQ(numbers, wanted_numbers);
            expect_one_statement(from, numbers.size());

            std::vector<double> values, wanted_values;
            ASSERT_TRUE(table.field_values(i, values));
            ASSERT_TRUE(file.field_values(i, wanted_values));
            std::sort(values.begin(), values.end());
            std::sort(wanted_values.begin(), wanted_values.end());
            EXPECT_EQ(values, wanted_values);
            EXPECT_EQ(server().rows_sent(from), static_cast<long long>(values.size()));
            server().forget();
        }
    }
}

TEST_F(server_questions, about_what_filters_let_pass_are_answered_by_the_server_too)
{
    server().sql("CREATE TABLE mixed (id serial PRIMARY KEY, v int, g geometry);"
                 "INSERT INTO mixed (v, g) SELECT n, CASE n % 4 WHEN 0 THEN ST_Point(n, n) WHEN 1 THEN "
                 "ST_MakeLine(ST_Point(n, n), ST_Point(n + 1, 0)) WHEN 2 THEN ST_Buffer(ST_Point(n, n), 1) "
                 "ELSE CASE n % 5 WHEN 0 THEN ST_Collect(ST_Point(n, n), ST_Buffer(ST_Point(n, n), 1)) "
                 "WHEN 1 THEN ST_Collect(ST_Point(n, n), ST_MakeLine(ST_Point(n, n), ST_Point(0, n))) "
                 "WHEN 2 THEN 'GEOMETRYCOLLECTION(CURVEPOLYGON(CIRCULARSTRING(0 0,9 9,0 0)),POINT EMPTY)' "
                 "WHEN 3 THEN 'GEOMETRYCOLLECTION EMPTY' END END "
                 "FROM generate_series(1, 400) n");
    struct
    {
        wchar_t const *type;
        std::wstring filter;
        Tvx_box_d2 box;
        bool is_paged;
    } const cases[] = {
        {L"", L"v > 50 OR v = 3", {}, false},
        {L"", L"", {10, 10, 90, 90}, false},
        {L"", L"v % 3 = 0", {10, 10, 90, 90}, false},
        {L"point", L"", {}, false},
        {L"polyline", L"v < 100", {20, 0, 80, 60}, false},
        {L"polygon", L"v > 7", {}, false},
        {L"multipoint", L"", {}, false},
        {L"", L"", {}, true},
        {L"", L"", {100, 100, 300, 300}, true},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(vx::text::wide_to_utf8(std::wstring(c.type) + L" " + c.filter));
        vector_datasource table;
        open(table, L"mixed" + (*c.type ? L"&geom_type=" + std::wstring(c.type) : L""));
        ASSERT_TRUE(c.box.is_empty() || table.set_spatial_fitler(c.box));
        ASSERT_TRUE(c.is_paged ? table.set_index_filter(20, 50) : table.set_attribute_filter(c.filter))
            << error_of(table);
        auto const v = table.field_index(L"v");
        server().forget();
        auto const values = walked(table, v);
        ASSERT_FALSE(values.empty());
        // The cursor is closed, and its rows are told, when something else is asked.
        table.reset_reading();
        bool const is_typed = *c.type != 0;
        EXPECT_TRUE(is_typed || server().rows_sent("CURSOR") == static_cast<long long>(values.size()));
        server().forget();
        EXPECT_EQ(table.field_minimum(v), *std::min_element(values.begin(), values.end()));
        EXPECT_EQ(table.field_maximum(v), *std::max_element(values.begin(), values.end()));
        double const sum = std::accumulate(values.begin(), values.end(), 0.0);
        EXPECT_NEAR(table.field_average(v), sum / static_cast<double>(values.size()), 1e-9);
        EXPECT_EQ(table.field_quantity(v), values.size());
        expect_one_statement("mixed", 1);
        EXPECT_EQ(table.field_distinct(v), std::set<double>(values.begin(), values.end()).size());
        expect_one_statement("mixed", 1);
        std::set<double> numbers;
        ASSERT_TRUE(table.field_unique_values(v, c_no_limit, numbers));
        EXPECT_EQ(numbers, std::set<double>(values.begin(), values.end()));
        expect_one_statement("mixed", values.size());
    }
    // What was said under a filter is not said without it.
    vector_datasource table;
    open(table, L"mixed");
    auto const v = table.field_index(L"v");
    ASSERT_TRUE(table.set_attribute_filter(L"v > 100"));
    EXPECT_EQ(table.field_minimum(v), 101);
    ASSERT_TRUE(table.set_attribute_filter(L""));
    EXPECT_EQ(table.field_minimum(v), 1);
    // A filter cannot bring a statement of its own along.
    EXPECT_FALSE(table.set_attribute_filter(L"true); DROP TABLE mixed; SELECT (1"));
    ASSERT_TRUE(table.set_attribute_filter(L"v <> ascii(';')"));
    EXPECT_EQ(table.field_maximum(v), 400);
    EXPECT_EQ(server().sql("SELECT count(*) FROM mixed"), "400\n");
}

TEST_F(server_questions, a_histogram_counts_on_the_server)
{
    vector_datasource table, file;
    open(table, L"nc");
    ASSERT_TRUE(file.open(vx::text::utf8_to_wide(example_path("nc")), access_read));
    for (wchar_t const *const name : {L"AREA", L"BIR74", L"SID74"}) {
        auto const field = table.field_index(name);
        vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy> counts(vx_histogramm_create()),
            wanted(vx_histogramm_create());
        (void)table.field_minimum(field);
        server().forget();
        ASSERT_TRUE(table.field_histogram(field, counts.get()));
        ASSERT_TRUE(file.field_histogram(field, wanted.get()));
        std::size_t hit = 0;
        ASSERT_EQ(vx_histogramm_get_size(counts.get()), vx_histogramm_get_size(wanted.get()));
        for (unsigned i = 0; i < vx_histogramm_get_size(wanted.get()); ++i) {
            EXPECT_EQ(vx_histogramm_get(counts.get(), i), vx_histogramm_get(wanted.get(), i)) << i;
            hit += vx_histogramm_get(wanted.get(), i) > 0 ? 1 : 0;
        }
        expect_one_statement("public.nc", hit);
    }
}

TEST_F(server_questions, a_sample_reads_little_more_than_it_draws)
{
    // Half of the identifiers are gone, and a third of the numbers.
    server().sql(
        "CREATE TABLE many (id bigint PRIMARY KEY, v double precision);"
        "INSERT INTO many SELECT n * 2, CASE WHEN n % 3 > 0 THEN n END FROM generate_series(1, 60000) n;"
        "CREATE VIEW many_in_a_view AS SELECT v FROM many;"
        "ANALYZE many");
    constexpr std::size_t c_wanted = 3000;
    for (wchar_t const *const name : {L"many", L"many_in_a_view"}) {
        vector_datasource table;
        open(table, name);
        server().forget();
        auto const sample = random_sample_task(c_wanted, 100, 50'000).execute(table, L"v");
        EXPECT_GE(sample.size(), c_wanted / 2);
        EXPECT_LE(sample.size(), c_wanted * 2);
        EXPECT_LE(server().statements("many").size(), 6u);
        EXPECT_LE(server().rows_sent("many"), static_cast<long long>(sample.size() + 1));
        double sum = 0;
        for (double const value : sample) {
            ASSERT_TRUE(value >= 100 && value <= 50'000 && std::fmod(value, 3) > 0) << value;
            sum += value;
        }
        // The mean of so many is within six of its deviations in all but one of a hundred million runs.
        double const deviation = (50'000 - 100) / std::sqrt(12.0 * static_cast<double>(sample.size()));
        EXPECT_NEAR(sum / static_cast<double>(sample.size()), 25'050, 6 * deviation);
    }
    // Few values far apart, of a table that is drawn from in one go, and none at all.
    server().sql("CREATE TABLE sparse (id bigint PRIMARY KEY, v int);"
                 "INSERT INTO sparse SELECT n * 1000000000::bigint, n FROM generate_series(1, 5000) n");
    vector_datasource sparse;
    open(sparse, L"sparse");
    auto const sample = random_sample_task(c_wanted).execute(sparse, L"v");
    EXPECT_EQ(std::set<double>(sample.begin(), sample.end()).size(), c_wanted);
    EXPECT_TRUE(random_sample_task(c_wanted, -2, -1).execute(sparse, L"v").empty());
}

TEST_F(server_questions, captions_of_a_value_scale_come_with_the_values)
{
    vx::data::connection const table(server().connection(L"|layer=world"), nullptr);
    vx::data::connection const file(vx::text::utf8_to_wide(example_path("world")), nullptr);
    for (std::uint64_t const limit : {std::uint64_t{5}, c_no_limit}) {
        vx::task::value_scale_build_cache const task(L"continent", L"name_long", limit);
        std::map<std::wstring, std::wstring> found, wanted;
        server().forget();
        ASSERT_TRUE(task.execute(table, found));
        ASSERT_TRUE(task.execute(file, wanted));
        EXPECT_EQ(found, wanted);
        expect_one_statement("public.world", wanted.size());
    }
}

TEST_F(server_questions, pages_and_counts_are_worked_out_there)
{
    vector_datasource table;
    open(table, L"nc");
    server().forget();
    std::vector<long long> fids;
    ASSERT_TRUE(table.set_index_filter(30, 40));
    EXPECT_EQ(table.feature_count(force_none), 10u);
    vector_feature feature;
    while (table.fetch_next_feature(feature))
        fids.push_back(feature.fid());
    EXPECT_EQ(fids, (std::vector<long long>{31, 32, 33, 34, 35, 36, 37, 38, 39, 40}));
    table.reset_reading();
    EXPECT_LE(server().rows_sent("nc"), 11) << "the page and its count";

    // Single features, which no capability promises by their place.
    EXPECT_FALSE(table.has_capability(c_caps_fast_index));
    ASSERT_TRUE(table.set_attribute_filter(L""));
    server().forget();
    ASSERT_TRUE(table.fetch_feature(77, feature));
    EXPECT_EQ(feature.fid(), 77);
    EXPECT_EQ(server().rows_sent("\"nc\""), 1);
    EXPECT_FALSE(table.fetch_feature(1000, feature));
}

TEST_F(server_questions, shapes_and_texts_come_without_the_other_columns)
{
    vector_datasource table;
    open(table, L"cities");
    server().forget();
    std::vector<std::wstring> texts;
    ASSERT_TRUE(table.field_values(table.field_index(L"name"), texts));
    EXPECT_EQ(texts.size(), 243u);
    EXPECT_EQ(server().rows_sent("public.cities"), 243);
    for (auto const &asked : server().statements("cities"))
        EXPECT_EQ(asked.text.find("geom"), std::string::npos) << asked.text;
    ASSERT_TRUE(table.set_attribute_filter(L"name LIKE 'B%'"));
    ASSERT_TRUE(table.field_values(table.field_index(L"name"), texts));
    EXPECT_TRUE(std::ranges::all_of(texts, [](std::wstring const &text) { return text.starts_with(L'B'); }));
    EXPECT_GT(texts.size(), 5u);
    ASSERT_TRUE(table.set_attribute_filter(L""));

    std::vector<Tvx_pnt_d2> wanted;
    vector_feature feature;
    table.reset_reading();
    for (Tvx_vtx_d2 place; table.fetch_next_feature(feature) && feature.fetch_point2d(place);)
        wanted.push_back({place.x, place.y});
    struct receiver final : vx::shape_visitor_impl, vx::shape_reading_visitor_impl
    {
        void visit(vx::shape_reading item) override { reading = item; }
        void visit_points(unsigned long long count, double const *places,
                          unsigned long long const *records) override
        {
            for (std::size_t i = 0; i < count; ++i)
                points.emplace(records ? records[i] : points.size(),
                               Tvx_pnt_d2{places[2 * i], places[2 * i + 1]});
        }
        vx::shape_reading reading;
        std::map<std::size_t, Tvx_pnt_d2> points;
    };
    vx::shape_source const shapes(
        vx_shape_source_interface_specialize(vx_data_source_interface_generalize(table.handle())));
    auto const read = [&](Tvx_box_d2 *window) {
        server().forget();
        receiver taken;
        EXPECT_TRUE(shapes.read_shapes(window, taken));
        int state = vx::codes::plain::reading_goes_on;
        while (state == vx::codes::plain::reading_goes_on)
            state = taken.reading.next(10, taken);
        EXPECT_EQ(state, vx::codes::plain::reading_ended);
        taken.reading.detach();
        for (auto const &asked : server().statements("cities"))
            EXPECT_EQ(asked.text.find("name\""), std::string::npos) << asked.text;
        return taken.points;
    };
    auto const all = read(nullptr);
    ASSERT_EQ(all.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(all.at(i), wanted[i]) << i;
    EXPECT_EQ(server().rows_sent("public.cities"), 243);

    Tvx_box_d2 window{0, 40, 30, 60};
    auto const seen = read(&window);
    EXPECT_EQ(server().rows_sent("public.cities"), static_cast<long long>(seen.size()));
    std::size_t within = 0;
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (window.min_x <= wanted[i].x && wanted[i].x <= window.max_x && window.min_y <= wanted[i].y &&
            wanted[i].y <= window.max_y) {
            ++within;
            EXPECT_EQ(seen.at(i), wanted[i]) << "known by the number of its record";
        }
    EXPECT_EQ(seen.size(), within);
    EXPECT_GT(within, 10u);

    // Who leaves in the middle holds nothing up.
    server().sql("CREATE TABLE many_points AS SELECT n AS id, ST_Point(n, n) AS geom FROM generate_series(1, "
                 "100000) n");
    vector_datasource points;
    open(points, L"many_points");
    vx::shape_source const many(
        vx_shape_source_interface_specialize(vx_data_source_interface_generalize(points.handle())));
    receiver taken;
    EXPECT_TRUE(many.read_shapes(nullptr, taken));
    (void)taken.reading.next(1, taken);
    taken.reading.detach();
    EXPECT_EQ(server().sql("SELECT count(*) FROM pg_stat_activity WHERE state LIKE 'idle in%'"), "0\n");
}

TEST_F(server_questions, walks_agree_in_their_order)
{
    // Columns and features are put together by their places. An index that holds all of a column in another
    // order, and rows that were changed, tempt the server to give them otherwise.
    server().sql("CREATE TABLE turned (id serial PRIMARY KEY, v int);"
                 "INSERT INTO turned (v) SELECT 50000 - n FROM generate_series(1, 50000) n;"
                 "CREATE INDEX ON turned (v); UPDATE turned SET v = v WHERE id % 7 = 0;");
    server().sql("VACUUM ANALYZE turned");
    vector_datasource table;
    open(table, L"turned");
    auto const field = table.field_index(L"v");
    auto const features = walked(table, field);
    std::vector<double> cells;
    struct receiver final : vx::column_visitor_impl
    {
        explicit receiver(std::vector<double> &to) : f_to(to) {}
        bool visit_integers(unsigned long long count, int const *values, unsigned char const *) override
        {
            f_to.insert(f_to.end(), values, values + count);
            return true;
        }
        std::vector<double> &f_to;
    } visitor(cells);
    vx::column_source const columns(
        vx_column_source_interface_specialize(vx_data_source_interface_generalize(table.handle())));
    ASSERT_TRUE(columns.with_column(static_cast<int>(field), visitor));
    EXPECT_EQ(cells, features);
}
