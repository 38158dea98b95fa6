#include "data/server/server_test.h"
#include "data/vector/vector_definition.h"
#include "data/vector/vector_transaction.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

// Tables of a database server are made, changed and read; psql looks at what is stored.

using namespace vx::data;

namespace {
class server_editing : public vx_test::server_test
{
protected:
    static void add(vector_datasource &table, std::int64_t fid, std::wstring const &name)
    {
        {
            vector_feature feature;
            ASSERT_TRUE(table.create_feature(fid, feature)) << error_of(table);
            ASSERT_TRUE(feature.write_string(table.field_index(L"name"), name));
        }
        EXPECT_EQ(error_of(table), "");
    }
    static std::vector<long long> fids_of(vector_datasource &table)
    {
        std::vector<long long> fids;
        table.reset_reading();
        for (vector_feature feature; table.fetch_next_feature(feature);)
            fids.push_back(feature.fid());
        return fids;
    }
};
} // namespace

TEST_F(server_editing, a_new_table_holds_what_was_written_under_the_names_that_were_given)
{
    std::wstring const name = L"Odd \"Name\" of 'Ünïts'";
    struct row
    {
        std::int64_t fid;
        std::wstring text;
        double real;
        std::int32_t whole;
        std::int64_t big;
    };
    std::vector<row> const rows{
        {1, L"it's a \"quote\" \\ and\ttab\nline", 0.1, -5, 9007199254740993},
        {9007199254740993, L"Ωмега 𝄞", std::numeric_limits<double>::quiet_NaN(), INT_MAX, INT64_MIN},
        {9007199254740994, L"", -std::numeric_limits<double>::infinity(), INT_MIN, INT64_MAX},
        {INT64_MAX, L"'); DROP TABLE nc; --", 1e300, 0, 0},
    };
    {
        vector_datasource made;
        ASSERT_TRUE(made.open(server().connection(), access_update)) << last_error();
        vector_definition fields;
        fields.append(L"Text", field_type::string, 0, 0, true, L"");
        fields.append(L"a \"real\" One", field_type::numeric, 0, 0, true, L"");
        fields.append(L"whole", field_type::integer, 0, 0, true, L"");
        fields.append(L"Big.Int", field_type::bigint, 0, 0, true, L"");
        fields.set_fid_field(L"Key");
        ASSERT_TRUE(made.create_vector(name + L"|FID64=YES", fields, geom_type::point, 0)) << error_of(made);
        for (row const &r : rows) {
            transacted_feature feature;
            ASSERT_TRUE(made.create_feature(r.fid, feature)) << error_of(made);
            EXPECT_TRUE(feature.write_string(0, r.text));
            EXPECT_TRUE(feature.write_numeric(1, r.real)) << r.real;
            EXPECT_TRUE(feature.write_integer(2, r.whole));
            EXPECT_TRUE(feature.write_bigint(3, r.big));
            EXPECT_TRUE(feature.set_point2d({static_cast<double>(r.whole), 0.1}));
        }
        ASSERT_TRUE(made.commit_transaction()) << error_of(made);
    }
    EXPECT_EQ(
        server().sql("SELECT \"Key\", \"whole\", \"Big.Int\", \"a \"\"real\"\" One\", ST_AsText(ST_Force2D("
                     "wkb_geometry)) FROM \"Odd \"\"Name\"\" of 'Ünïts'\" ORDER BY 1"),
        "1|-5|9007199254740993|0.1|POINT(-5 0.1)\n"
        "9007199254740993|2147483647|-9223372036854775808|NaN|POINT(2147483647 0.1)\n"
        "9007199254740994|-2147483648|9223372036854775807|-Infinity|POINT(-2147483648 0.1)\n"
        "9223372036854775807|0|0|1e+300|POINT(0 0.1)\n");
    vector_datasource read;
    open(read, name);
    EXPECT_EQ(read.fid_field_name(), L"Key");
    EXPECT_EQ(read.feature_count(force_none), rows.size());
    bool not_null = false;
    for (row const &r : rows) {
        vector_feature feature;
        ASSERT_TRUE(read.fetch_feature(r.fid, feature)) << r.fid;
        EXPECT_EQ(feature.fid(), r.fid);
        EXPECT_EQ(feature.read_string(0, not_null), r.text);
        EXPECT_EQ(feature.read_bigint(3, not_null), r.big);
        double const real = feature.read_numeric(1, not_null);
        EXPECT_TRUE(real == r.real || (std::isnan(real) && std::isnan(r.real))) << real;
    }
    // Its names stand in every question.
    auto const big = read.field_index(L"Big.Int");
    EXPECT_EQ(read.field_distinct(big), 4u);
    EXPECT_EQ(read.field_quantity(read.field_index(L"a \"real\" One")), 3u) << "NaN has no value";
    ASSERT_TRUE(read.set_index_filter(1, 3)) << error_of(read);
    EXPECT_EQ(fids_of(read), (std::vector<long long>{9007199254740993, 9007199254740994}));
    EXPECT_EQ(read.field_maximum(big), 9223372036854775807.0);
}

TEST_F(server_editing, a_transaction_is_stored_whole_or_not_at_all_and_outlives_refusals)
{
    server().sql(
        "CREATE TABLE strict (id bigserial PRIMARY KEY, name varchar(8) NOT NULL UNIQUE CHECK (name <> "
        "'bad'), late int UNIQUE DEFERRABLE INITIALLY DEFERRED, g geometry(Point));"
        "INSERT INTO strict (name) VALUES ('a'), ('b')");
    auto const stored = [&] { return server().sql("SELECT string_agg(name, ' ' ORDER BY id) FROM strict"); };
    vector_datasource table;
    open(table, L"strict", access_update);
    auto const name = table.field_index(L"name");
    ASSERT_TRUE(table.start_transaction()) << error_of(table);
    add(table, 0, L"c");
    EXPECT_EQ(stored(), "a b\n") << "others see nothing before the end";
    // Refusals of the server: twice the same, a value that a check refuses, none since it is too long.
    std::vector<long long> refused;
    for (wchar_t const *const text : {L"a", L"bad", L"much too long"}) {
        {
            transacted_feature feature;
            ASSERT_TRUE(table.create_feature(0, feature));
            refused.push_back(feature.fid());
            EXPECT_EQ(feature.write_string(name, text), refused.size() < 3);
        }
        EXPECT_NE(error_of(table), "") << vx::text::wide_to_utf8(text);
    }
    {
        vector_feature feature;
        ASSERT_TRUE(table.fetch_feature(2, feature)) << error_of(table);
        EXPECT_TRUE(feature.write_string(name, L"a"));
    }
    EXPECT_NE(error_of(table), "") << "a change to what is there already";
    EXPECT_FALSE(table.set_attribute_filter(L"nonsense = 1"));
    EXPECT_FALSE(table.commit_transaction()) << "something is refused and waits to be mended";
    EXPECT_EQ(stored(), "a b\n");
    for (long long const fid : refused)
        EXPECT_TRUE(table.delete_feature(fid));
    {
        vector_feature feature;
        ASSERT_TRUE(table.fetch_feature(2, feature)) << error_of(table);
        EXPECT_TRUE(feature.write_string(name, L"B"));
    }
    add(table, 0, L"d");
    ASSERT_TRUE(table.delete_feature(1)) << error_of(table);
    EXPECT_EQ(table.field_distinct(name), 3u);
    ASSERT_TRUE(table.commit_transaction()) << error_of(table);
    EXPECT_EQ(stored(), "B c d\n");

    ASSERT_TRUE(table.start_transaction());
    add(table, 0, L"e");
    ASSERT_TRUE(table.delete_feature(2));
    EXPECT_EQ(table.feature_count(force_none), 3u);
    ASSERT_TRUE(table.rollback_transaction());
    EXPECT_EQ(table.feature_count(force_none), 3u);
    EXPECT_EQ(stored(), "B c d\n");

    // What the server refuses at the very end.
    auto const late = table.field_index(L"late");
    ASSERT_TRUE(table.start_transaction());
    for (wchar_t const *const text : {L"x", L"y"}) {
        vector_feature feature;
        ASSERT_TRUE(table.create_feature(0, feature));
        EXPECT_TRUE(feature.write_string(name, text));
        EXPECT_TRUE(feature.write_integer(late, 7));
    }
    EXPECT_EQ(table.feature_count(force_none), 5u);
    EXPECT_FALSE(table.commit_transaction());
    EXPECT_NE(error_of(table).find("late"), std::string::npos) << error_of(table);
    EXPECT_EQ(stored(), "B c d\n");
    EXPECT_EQ(table.feature_count(force_none), 3u);
    // Without a transaction each is stored by itself.
    add(table, 0, L"f");
    EXPECT_EQ(stored(), "B c d f\n");
}

TEST_F(server_editing, tables_of_one_name_in_several_schemas_are_kept_apart)
{
    server().sql(
        "CREATE SCHEMA one; CREATE SCHEMA \"Two.x\";"
        "CREATE TABLE twin (id serial PRIMARY KEY, name text, g geometry(Point));"
        "CREATE TABLE one.twin (LIKE twin INCLUDING ALL); CREATE TABLE \"Two.x\".twin (LIKE twin);"
        "CREATE TABLE \"one.Twin\" (LIKE twin INCLUDING ALL);"
        "INSERT INTO twin (name) VALUES ('p'); INSERT INTO one.twin (id, name) VALUES (1, 'o'), (2, 'oo');"
        "INSERT INTO \"Two.x\".twin (id, name) SELECT n, 't' || n FROM generate_series(1, 3) n;"
        "INSERT INTO \"one.Twin\" (id, name) SELECT n, 'd' || n FROM generate_series(1, 4) n");
    std::pair<wchar_t const *, std::uint64_t> const tables[] = {
        {L"twin", 1}, {L"one.twin", 2}, {L"Two.x.twin", 3}, {L"one.Twin", 4}};
    vector_datasource all;
    ASSERT_TRUE(all.open(server().connection(), access_read));
    std::vector<std::wstring> names;
    for (int i = 0; i < all.vector_count(); ++i)
        names.push_back(all.vector_name(i));
    for (auto const &[name, count] : tables) {
        SCOPED_TRACE(vx::text::wide_to_utf8(name));
        auto const at = std::find(names.begin(), names.end(), name) - names.begin();
        ASSERT_LT(at, std::ssize(names));
        vector_datasource table;
        ASSERT_TRUE(table.open(all.vector_source(static_cast<int>(at)), access_read)) << last_error();
        auto const field = table.field_index(L"name");
        EXPECT_EQ(table.feature_count(force_none), count);
        EXPECT_EQ(table.field_quantity(field), count);
        EXPECT_EQ(table.field_distinct(field), count);
        EXPECT_EQ(fids_of(table).size(), count);
    }
    vector_datasource table;
    open(table, L"one.twin", access_update);
    add(table, 7, L"ooo");
    ASSERT_TRUE(table.delete_feature(1));
    EXPECT_EQ(server().sql("SELECT string_agg(name, ' ' ORDER BY id) FROM one.twin"), "oo ooo\n");
    EXPECT_EQ(server().sql("SELECT name FROM twin"), "p\n");
}

TEST_F(server_editing, views_and_tables_without_a_key_are_read_and_say_that_they_take_nothing)
{
    server().sql("CREATE TABLE keyless (name text, v int, g geometry(Point));"
                 "INSERT INTO keyless SELECT 'n' || n, n, ST_Point(n, n) FROM generate_series(1, 1200) n;"
                 "CREATE VIEW far AS SELECT name, v, g FROM keyless WHERE v > 1000;"
                 "CREATE MATERIALIZED VIEW kept AS SELECT * FROM far");
    for (auto const &[name, first, count] :
         {std::tuple(L"keyless", 1, 1200), std::tuple(L"far", 1001, 200), std::tuple(L"kept", 1001, 200)}) {
        SCOPED_TRACE(vx::text::wide_to_utf8(name));
        vector_datasource table;
        open(table, name, access_update_or_read);
        auto const v = table.field_index(L"v");
        EXPECT_EQ(table.feature_count(force_none), static_cast<std::uint64_t>(count));
        EXPECT_EQ(table.field_minimum(v), first);
        auto const values = walked(table, v);
        ASSERT_EQ(std::ssize(values), count);
        vector_feature feature;
        ASSERT_TRUE(table.moveto_feature(150));
        ASSERT_TRUE(table.fetch_next_feature(feature));
        bool not_null = false;
        EXPECT_EQ(feature.read_numeric(v, not_null), values[150]);
        long long const fid = feature.fid();
        ASSERT_TRUE(table.fetch_feature(fid, feature));
        EXPECT_EQ(feature.read_numeric(v, not_null), values[150]);
        // A page by places, as there are no identifiers to page by.
        if (table.set_index_filter(10, 30)) {
            EXPECT_EQ(walked(table, v).size(), 20u);
        }
        ASSERT_TRUE(table.set_attribute_filter(L""));
        {
            transacted_feature changed;
            ASSERT_TRUE(table.fetch_feature(fid, changed));
            EXPECT_FALSE(changed.write_string(table.field_index(L"name"), L"changed") &&
                         table.commit_transaction());
        }
        EXPECT_NE(error_of(table), "");
        EXPECT_FALSE(table.delete_feature(fid));
        EXPECT_EQ(server().sql("SELECT count(*) FROM keyless WHERE name = 'changed'"), "0\n");
    }
}
