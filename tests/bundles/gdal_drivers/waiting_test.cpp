#include "source.h"
#include "support/temp_dir.h"

#include <climits>
#include <thread>

using namespace vx_test;

namespace {
/// Waits for data sets while it lives, and gives up at question `limit`.
struct waiter
{
    explicit waiter(int questions) : limit(questions)
    {
        vx_datasource_set_waiting(make_closure<&waiter::goes_on>(this));
    }
    waiter(waiter const &) = delete;
    waiter &operator=(waiter const &) = delete;
    ~waiter() { vx_datasource_set_waiting({}); }
    bool goes_on()
    {
        on_main_thread = on_main_thread && std::this_thread::get_id() == main_thread;
        return ++asked < limit;
    }

    int limit;
    int asked = 0;
    bool on_main_thread = true;
    std::thread::id main_thread = std::this_thread::get_id();
};

TEST(gdal_waiting, is_asked_on_the_main_thread_and_may_give_up)
{
    constexpr int c_rows = 400000;
    temp_dir const dir;
    std::string rows = "lon,lat,name\n";
    for (int i = 0; i < c_rows; ++i)
        rows += std::to_string(i % 180) + "," + std::to_string(i % 80) + ",n\n";
    write_file(dir / "long.csv", rows);
    std::wstring const path = (dir / "long.csv").wstring();
    {
        waiter who(INT_MAX);
        source const s(path);
        ASSERT_TRUE(s.is_open());
        EXPECT_EQ(s.table.feature_count(true), unsigned(c_rows));
        EXPECT_GT(who.asked, 0);
        EXPECT_TRUE(who.on_main_thread);
    }
    source const s(path);
    ASSERT_TRUE(s.is_open());
    {
        waiter who(1);
        EXPECT_EQ(s.table.feature_count(true), ULLONG_MAX) << "not known";
    }
    EXPECT_EQ(s.table.feature_count(true), unsigned(c_rows)) << "and usable as before";
    {
        // Errors come through from the other thread.
        waiter who(INT_MAX);
        write_file(dir / "no.geojson", "{\"type\": \"FeatureCollection\", \"features\": [");
        source const broken((dir / "no.geojson").wstring());
        EXPECT_FALSE(broken.is_open());
        EXPECT_NE(source::refusal(), L"");
    }
}
} // namespace
