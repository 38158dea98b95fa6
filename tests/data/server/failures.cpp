#include "data/server/server_test.h"

#include "platform/basic/vx_fault.h"

#include <arpa/inet.h>
#include <chrono>
#include <sys/socket.h>
#include <unistd.h>

// A server that goes away, refuses, or takes its time: the reason is told, nothing is said to be stored that
// is not, and the work goes on afterwards.

using namespace vx::data;

namespace {
using clock = std::chrono::steady_clock;

class server_failures : public vx_test::server_test
{
protected:
    static void make_long_table()
    {
        server().sql(
            "CREATE TABLE IF NOT EXISTS long_table (id serial PRIMARY KEY, v int, g geometry(Point));"
            "TRUNCATE long_table RESTART IDENTITY; INSERT INTO long_table (v, g) SELECT n, ST_Point(n, n) "
            "FROM "
            "generate_series(1, 5000) n");
    }
    /// Number of features that are still to be read.
    static int rest_of(vector_datasource &table)
    {
        int count = 0;
        for (vector_feature feature; table.fetch_next_feature(feature);)
            ++count;
        return count;
    }
    static std::string count_of(std::string const &condition)
    {
        return server().sql("SELECT count(*) FROM long_table WHERE " + condition);
    }
};

/// Gives up what is waited for after a while.
class impatience
{
public:
    explicit impatience(std::chrono::milliseconds patience) : f_patience(patience)
    {
        vx_datasource_set_waiting(make_closure<&impatience::goes_on>(this));
    }
    ~impatience() { vx_datasource_set_waiting({}); }
    impatience(impatience const &) = delete;
    impatience &operator=(impatience const &) = delete;
    void restart() { f_start = clock::now(); }
    [[nodiscard]] clock::duration waited() const { return clock::now() - f_start; }

private:
    bool goes_on() { return waited() < f_patience; }
    clock::duration f_patience;
    clock::time_point f_start = clock::now();
};

std::wstring g_told;
void hear(wchar_t const *reason)
{
    g_told = reason;
}
} // namespace

TEST_F(server_failures, a_server_that_goes_away_ends_a_walk_with_a_reason)
{
    make_long_table();
    for (bool const all_of_it : {false, true}) {
        SCOPED_TRACE(all_of_it);
        vector_datasource table;
        open(table, L"long_table");
        vector_feature feature;
        for (int i = 0; i < 700; ++i)
            ASSERT_TRUE(table.fetch_next_feature(feature));
        if (all_of_it)
            server().kill();
        else
            server().kill_connections();
        // What was sent already may still come.
        EXPECT_LT(rest_of(table), 1000);
        EXPECT_NE(error_of(table), "") << "the end of a walk looks otherwise";
        if (!all_of_it) {
            // The server is back at once, and so is the table.
            EXPECT_EQ(table.feature_count(force_none), 5000u) << error_of(table);
            ASSERT_TRUE(table.reset_reading());
            EXPECT_EQ(rest_of(table), 5000);
            EXPECT_EQ(error_of(table), "");
            continue;
        }
        // Every other call says the same, quickly.
        auto const start = clock::now();
        EXPECT_EQ(table.feature_count(force_compute), c_no_limit);
        EXPECT_NE(error_of(table), "");
        std::set<std::wstring> values;
        (void)table.field_unique_values(0, 10, values);
        EXPECT_TRUE(values.empty());
        EXPECT_FALSE(table.fetch_feature(1, feature));
        EXPECT_FALSE(table.set_attribute_filter(L"v > 3"));
        EXPECT_NE(error_of(table), "");
        EXPECT_EQ(rest_of(table), 0);
        EXPECT_LT(clock::now() - start, std::chrono::seconds(5));
        vector_datasource other;
        EXPECT_FALSE(other.open(server().connection(L"|layer=long_table"), access_read));
        EXPECT_NE(last_error(), "");
        server().start();
        vector_datasource again;
        open(again, L"long_table");
        EXPECT_EQ(rest_of(again), 5000);
        EXPECT_EQ(error_of(again), "");
    }
}

TEST_F(server_failures, a_server_that_goes_away_has_stored_nothing_of_a_transaction)
{
    make_long_table();
    auto const former = vx_reason_set_handler(&hear);
    for (bool const all_of_it : {false, true}) {
        SCOPED_TRACE(all_of_it);
        vector_datasource table;
        open(table, L"long_table", access_update);
        ASSERT_TRUE(table.start_transaction());
        auto const write = [&](int value) {
            transacted_feature feature;
            return table.create_feature(0, feature) && feature.write_integer(0, value);
        };
        EXPECT_TRUE(write(-1));
        EXPECT_TRUE(table.delete_feature(1));
        EXPECT_EQ(error_of(table), "");
        if (all_of_it)
            server().kill();
        else
            server().kill_connections();
        (void)write(-2); // kept to be mended
        EXPECT_NE(error_of(table), "");
        EXPECT_FALSE(table.delete_feature(2));
        EXPECT_FALSE(table.commit_transaction());
        EXPECT_NE(error_of(table), "");
        EXPECT_FALSE(table.commit_transaction()) << "nor later";
        g_told.clear();
        table.close();
        EXPECT_NE(g_told, L"") << "the user hears of what was lost";
        if (all_of_it)
            server().start();
        EXPECT_EQ(count_of("v < 0"), "0\n");
        EXPECT_EQ(count_of("id <= 2"), "2\n");

        vector_datasource again;
        open(again, L"long_table", access_update);
        ASSERT_TRUE(again.start_transaction());
        {
            transacted_feature feature;
            ASSERT_TRUE(again.create_feature(0, feature));
            EXPECT_TRUE(feature.write_integer(0, -3));
        }
        ASSERT_TRUE(again.commit_transaction()) << error_of(again);
        EXPECT_EQ(count_of("v < 0"), "1\n");
        server().sql("DELETE FROM long_table WHERE v < 0");
    }
    vx_reason_set_handler(former);
}

TEST_F(server_failures, a_commit_whose_answer_never_comes_is_no_success)
{
    make_long_table();
    auto const former = vx_reason_set_handler(&hear);
    vector_datasource table;
    open(table, L"long_table", access_update);
    ASSERT_TRUE(table.start_transaction());
    {
        transacted_feature feature;
        ASSERT_TRUE(table.create_feature(0, feature));
        EXPECT_TRUE(feature.write_integer(0, -7));
    }
    EXPECT_EQ(table.feature_count(force_none), 5001u);
    server().kill_connections();
    EXPECT_FALSE(table.commit_transaction());
    EXPECT_NE(error_of(table), "");
    EXPECT_EQ(count_of("v = -7"), "0\n");
    table.close();
    vx_reason_set_handler(former);
}

TEST_F(server_failures, a_walk_that_the_server_breaks_off_is_not_taken_for_a_whole_one)
{
    server().sql("CREATE VIEW faulty AS SELECT n AS v, 1 / (700 - n) AS w FROM generate_series(1, 2000) n");
    vector_datasource table;
    open(table, L"faulty");
    EXPECT_LT(rest_of(table), 2000);
    EXPECT_NE(error_of(table).find("division by zero"), std::string::npos) << error_of(table);
    // A question about the good column is answered, about the other one refused.
    EXPECT_EQ(table.field_maximum(table.field_index(L"v")), 2000);
    std::set<double> numbers;
    vx::stat_source const stat(
        vx_stat_source_interface_specialize(vx_data_source_interface_generalize(table.handle())));
    double value = 0;
    EXPECT_FALSE(stat.maximum(static_cast<int>(table.field_index(L"w")), &value));
    EXPECT_EQ(table.field_minimum(table.field_index(L"v")), 1) << "the connection is as good as before";

    // The same by a time limit that the connection brings.
    server().sql(
        "CREATE VIEW sleepy AS SELECT n AS v, pg_sleep(CASE n WHEN 600 THEN 5 ELSE 0 END) IS NULL AS w "
        "FROM generate_series(1, 1000) n");
    vector_datasource sleepy;
    ASSERT_TRUE(
        sleepy.open(server().connection(L" options='-c statement_timeout=500ms'|layer=sleepy"), access_read))
        << last_error();
    EXPECT_LT(rest_of(sleepy), 1000);
    EXPECT_NE(error_of(sleepy).find("timeout"), std::string::npos) << error_of(sleepy);
}

TEST_F(server_failures, a_slow_answer_ends_when_nobody_waits_for_it_any_more)
{
    server().sql(
        "CREATE VIEW slow AS SELECT n AS v, 'x' AS t, ST_Point(n, n) AS g FROM generate_series(1, 3) n "
        "WHERE pg_sleep(20) IS NOT NULL");
    vector_datasource table;
    {
        impatience waiting(std::chrono::seconds(2));
        open(table, L"slow");
        EXPECT_LT(waiting.waited(), std::chrono::seconds(2)) << "a view is opened without a look at its rows";
    }
    impatience waiting(std::chrono::milliseconds(300));
    auto const v = table.field_index(L"v");
    std::set<std::wstring> values;
    Tvx_box_d2 box;
    vector_feature feature;
    std::pair<char const *, std::function<bool()>> const calls[] = {
        {"count", [&] { return table.feature_count(force_compute) != c_no_limit; }},
        {"statistics", [&] { return table.field_quantity(v) > 0; }},
        {"different values", [&] { return table.field_unique_values(v, 5, values) && !values.empty(); }},
        {"extent", [&] { return table.extent(box, force_compute); }},
        {"walk", [&] { return table.reset_reading() && table.fetch_next_feature(feature); }},
        {"feature", [&] { return table.fetch_feature(2, feature); }},
    };
    for (auto const &[name, call] : calls) {
        waiting.restart();
        EXPECT_FALSE(call()) << name;
        EXPECT_LT(waiting.waited(), std::chrono::seconds(2)) << name;
        EXPECT_NE(error_of(table), "") << name;
    }
    // The connection goes on, and the server works on nothing any more.
    waiting.restart();
    ASSERT_TRUE(table.select_source(L"nc")) << error_of(table);
    EXPECT_EQ(table.feature_count(force_none), 100u) << error_of(table);
    EXPECT_EQ(
        server().sql("SELECT count(*) FROM pg_stat_activity WHERE query LIKE '%slow%' AND state = 'active' "
                     "AND application_name <> 'sql'"),
        "0\n");
}

TEST_F(server_failures, a_server_that_says_nothing_is_not_waited_for_without_end)
{
    int const listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr *>(&address), length), 0);
    ASSERT_EQ(listen(listener, 4), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr *>(&address), &length), 0);
    std::wstring const silent =
        L"PG:host=127.0.0.1 password=barley port=" + std::to_wstring(ntohs(address.sin_port));
    auto start = clock::now();
    vector_datasource table;
    EXPECT_FALSE(table.open(silent, access_read));
    EXPECT_LT(clock::now() - start, std::chrono::seconds(15));
    EXPECT_NE(last_error().find("timeout"), std::string::npos) << last_error();
    EXPECT_EQ(last_error().find("barley"), std::string::npos) << last_error();
    // Whoever waits need not wait so long.
    impatience const waiting(std::chrono::milliseconds(200));
    start = clock::now();
    EXPECT_FALSE(table.open(silent, access_read));
    EXPECT_LT(clock::now() - start, std::chrono::seconds(2));
    close(listener);
}

TEST_F(server_failures, a_wrong_password_is_told_without_it)
{
    vector_datasource table;
    EXPECT_FALSE(table.open(server().connection(L" password='open barley'", L"guest"), access_read));
    std::string const reason = last_error();
    EXPECT_NE(reason.find("authentication failed"), std::string::npos) << reason;
    EXPECT_EQ(reason.find("barley"), std::string::npos) << reason;
    EXPECT_NE(reason.find("***"), std::string::npos) << reason;

    EXPECT_FALSE(table.open(server().connection(L" password='open sesame'|layer=no such table", L"guest"),
                            access_read));
    EXPECT_EQ(last_error().find("sesame"), std::string::npos) << last_error();
    // With the right one there is what the rights allow, which is not reading.
    ASSERT_TRUE(table.open(server().connection(L" password='open sesame'|layer=nc", L"guest"), access_update))
        << last_error();
    vector_feature feature;
    EXPECT_FALSE(table.fetch_next_feature(feature));
    EXPECT_NE(error_of(table).find("permission denied"), std::string::npos) << error_of(table);
    EXPECT_EQ(error_of(table).find("sesame"), std::string::npos);
    for (int i = 0; i < table.vector_count(); ++i)
        EXPECT_NE(table.vector_source(i).find(L"sesame"), std::wstring::npos) << "it opens the table again";
}
