#include "run_sql.h"
#include "source.h"
#include "support/temp_dir.h"
#include "writing.h"

#include <arpa/inet.h>
#include <chrono>
#include <climits>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace vx_test;
namespace fs = std::filesystem;

/// Files that strangers lay out as traps: pipes, devices and links beside good files, databases that lie,
/// descriptions that lead elsewhere. Each case has a second and half a gigabyte.
namespace {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool c_has_limits = false;
#else
constexpr bool c_has_limits = true;
#endif
constexpr std::chrono::seconds c_longest(1);   ///< of the processor
constexpr std::chrono::seconds c_patience(30); ///< by the clock: who waits for a pipe needs no processor
constexpr rlim_t c_memory = rlim_t{512} << 20;

std::wstring wide(fs::path const &path)
{
    return vx::text::utf8_to_wide(path.string());
}

rlim_t address_space()
{
    std::ifstream file("/proc/self/statm");
    rlim_t pages = 0;
    file >> pages;
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

/// Runs the case in a process of its own, so that one that hangs or eats memory ends. Its letter comes back:
/// what `work` gave, "t" for the time, "c" for a crash.
char in_limits(std::function<char()> const &work)
{
    (void)vx_datasource_driver_count();
    pid_t const child = fork();
    if (child == 0) {
        if (c_has_limits) {
            rlimit const limit{address_space() + c_memory, RLIM_INFINITY};
            setrlimit(RLIMIT_AS, &limit);
            rlimit const time{c_longest.count(), c_longest.count() + 1};
            setrlimit(RLIMIT_CPU, &time);
        }
        _exit(work());
    }
    auto const start = std::chrono::steady_clock::now();
    int status = 0;
    for (;;) {
        if (waitpid(child, &status, WNOHANG) == child)
            return WIFEXITED(status)             ? static_cast<char>(WEXITSTATUS(status))
                   : WTERMSIG(status) == SIGXCPU ? 't'
                                                 : 'c';
        if (std::chrono::steady_clock::now() - start > c_patience) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return 't';
        }
        usleep(2000);
    }
}

/// "r" for a refusal with a reason, "o" for an open source that is read to its end.
char open_and_read(std::wstring const &text)
{
    source const s(text);
    if (!s.is_open())
        return source::refusal().empty() ? 'e' : 'r';
    (void)rest_of(s);
    return 'o';
}

void make_points(fs::path const &path, int driver, int count = 3)
{
    source const s(wide(path), driver);
    ASSERT_TRUE(s.table.create_vector(L"t", 1, 0, definition({{L"n", 3}, {L"s", 1, 0, 20}})));
    for (int i = 0; i < count; ++i)
        ASSERT_TRUE(add(s, [&](vx::feature f) {
            Tvx_vtx_d2 place{1.0 * i, 2};
            EXPECT_TRUE(f.set_point(&place) && f.set_integer(0, i));
        }));
    ASSERT_TRUE(s.table.flush_changes());
}

TEST(gdal_trap, pipes_devices_and_links_beside_good_files)
{
    struct
    {
        char const *file;
        int driver;
        std::vector<char const *> neighbours;
    } const cases[] = {
        {"t.shp", 1, {"t.shx", "t.dbf", "t.prj", "t.cpg", "t.qix", "t.sbn", "t.sbx", "t.shp.xml"}},
        {"t.csv", 5, {"t.csvt", "t.prj"}},
        {"t.gml", 9, {"t.gfs", "t.xsd"}},
        {"t.gpkg", 2, {"t.gpkg-journal", "t.gpkg-wal", "t.gpkg-shm"}},
        {"t.sqlite", 7, {"t.sqlite-journal", "t.sqlite-wal"}},
        {"t.geojson", 3, {"t.prj", "t.qpj"}},
    };
    for (auto const &c : cases)
        for (char const *const neighbour : c.neighbours)
            for (bool const is_link : {false, true}) {
                SCOPED_TRACE(std::string(neighbour) + (is_link ? " leads to a device" : " is a pipe"));
                temp_dir const dir;
                ASSERT_NO_FATAL_FAILURE(make_points(dir / c.file, c.driver));
                fs::remove(dir / neighbour);
                if (is_link)
                    fs::create_symlink("/dev/zero", dir / neighbour);
                else
                    ASSERT_EQ(mkfifo((dir / neighbour).c_str(), 0600), 0);
                EXPECT_EQ(in_limits([&] { return open_and_read(wide(dir / c.file)); }), 'r');
                EXPECT_EQ(in_limits([&] { return open_and_read(wide(dir.path())); }), 'r')
                    << "within a folder";
            }
}

TEST(gdal_trap, links_to_good_files_are_good)
{
    temp_dir const dir;
    fs::create_directory(dir / "there");
    ASSERT_NO_FATAL_FAILURE(make_points(dir / "there" / "t.geojson", 3));
    fs::create_symlink(dir / "there" / "t.geojson", dir / "link.geojson");
    fs::create_symlink(dir / "nowhere", dir / "link.prj");
    EXPECT_EQ(open_and_read(wide(dir / "link.geojson")), 'o');
}

TEST(gdal_trap, descriptions_that_lead_to_pipes_or_to_themselves)
{
    temp_dir const dir;
    ASSERT_EQ(mkfifo((dir / "pipe.shp").c_str(), 0600), 0);
    ASSERT_NO_FATAL_FAILURE(make_points(dir / "good.geojson", 3));
    auto const vrt = [&](char const *name, std::string const &named) {
        write_file(dir / name,
                   "<OGRVRTDataSource><OGRVRTLayer name=\"good\"><SrcDataSource relativeToVRT=\"1\">" +
                       named + "</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
        return wide(dir / name);
    };
    EXPECT_EQ(in_limits([&] { return open_and_read(vrt("a.vrt", "pipe.shp")); }), 'r');
    EXPECT_EQ(in_limits([&] { return open_and_read(vrt("b.vrt", (dir / "pipe.shp").string())); }), 'r');
    EXPECT_EQ(in_limits([&] { return open_and_read(vrt("c.vrt", "/dev/zero")); }), 'r');
    EXPECT_EQ(in_limits([&] { return open_and_read(vrt("d.vrt", "d.vrt")); }), 'r');
    vrt("e.vrt", "a.vrt");
    EXPECT_EQ(in_limits([&] { return open_and_read(wide(dir / "e.vrt")); }), 'r') << "by way of another";
    EXPECT_EQ(in_limits([&] { return open_and_read(vrt("f.vrt", "good.geojson")); }), 'o');
    write_file(dir / "g.vrt",
               "<VRTDataset rasterXSize=\"1\" rasterYSize=\"1\"><VRTRasterBand dataType=\"Byte\" "
               "band=\"1\"><SimpleSource><SourceFilename relativeToVRT=\"1\">pipe.shp"
               "</SourceFilename></SimpleSource></VRTRasterBand></VRTDataset>");
    EXPECT_EQ(in_limits([&] { return open_and_read(wide(dir / "g.vrt")); }), 'r');
}

/// A server that says nothing and counts who calls.
class silent_server
{
public:
    silent_server() : f_socket(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(f_socket, reinterpret_cast<sockaddr *>(&address), size), 0);
        EXPECT_EQ(listen(f_socket, 8), 0);
        EXPECT_EQ(getsockname(f_socket, reinterpret_cast<sockaddr *>(&address), &size), 0);
        f_port = ntohs(address.sin_port);
    }
    ~silent_server() { close(f_socket); }
    silent_server(silent_server const &) = delete;
    silent_server &operator=(silent_server const &) = delete;
    [[nodiscard]] std::string address() const { return "http://127.0.0.1:" + std::to_string(f_port); }
    [[nodiscard]] bool was_called() const
    {
        int const call = accept(f_socket, nullptr, nullptr);
        if (call >= 0)
            close(call);
        return call >= 0;
    }

private:
    int f_socket;
    int f_port = 0;
};

TEST(gdal_trap, files_on_the_disk_call_no_servers)
{
    temp_dir const dir;
    silent_server const server;
    std::string const to = server.address();
    write_file(
        dir / "crs.geojson",
        R"({"type":"FeatureCollection","crs":{"type":"link","properties":{"href":")" + to +
            R"(/crs","type":"proj4"}},"features":[{"type":"Feature","properties":{"n":1},"geometry":null}]})");
    write_file(dir / "a.vrt", "<OGRVRTDataSource><OGRVRTLayer name=\"x\"><SrcDataSource>" + to +
                                  "/x.geojson</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
    write_file(dir / "b.vrt", "<OGRVRTDataSource><OGRVRTLayer name=\"x\"><SrcDataSource>/vsicurl/" + to +
                                  "/x.shp</SrcDataSource></OGRVRTLayer></OGRVRTDataSource>");
    write_file(dir / "wms.xml", "<GDAL_WMS><Service name=\"WMS\"><ServerUrl>" + to +
                                    "</ServerUrl><Layers>x</Layers></Service><DataWindow/></GDAL_WMS>");
    write_file(dir / "x.gml",
               "<?xml version=\"1.0\"?><c xmlns:gml=\"http://www.opengis.net/gml\" "
               "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xsi:schemaLocation=\"x " +
                   to + "/x.xsd\"><gml:featureMember><p><n>3</n></p></gml:featureMember></c>");
    for (char const *const name : {"crs.geojson", "a.vrt", "b.vrt", "wms.xml", "x.gml"}) {
        SCOPED_TRACE(name);
        char const end = in_limits([&] { return open_and_read(wide(dir / name)); });
        EXPECT_TRUE(end == 'r' || end == 'o') << end;
        EXPECT_FALSE(server.was_called());
    }
    // Who allows it gets it, for a limited time.
    pid_t const child = fork();
    if (child == 0) {
        (void)open_and_read(wide(dir / "crs.geojson") + L"|network=yes");
        _exit(0);
    }
    bool was_called = false;
    for (int i = 0; i < 1000 && !was_called; ++i, usleep(10'000))
        was_called = server.was_called();
    EXPECT_TRUE(was_called);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(gdal_trap, databases_that_lie)
{
    temp_dir const dir;
    ASSERT_NO_FATAL_FAILURE(make_points(dir / "many.gpkg", 2));
    run_sql(dir / "many.gpkg", "UPDATE gpkg_ogr_contents SET feature_count = 2000000000");
    EXPECT_EQ(in_limits([&] {
                  source const s(wide(dir / "many.gpkg"));
                  return s.table.feature_count(true) == 3 && s.table.feature_count(false) == 3 ? 'o' : 'x';
              }),
              'o');

    char const *const endless =
        "CREATE VIEW v AS WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c) "
        "SELECT x FROM c WHERE x < 0";
    ASSERT_NO_FATAL_FAILURE(make_points(dir / "view.sqlite", 7));
    run_sql(dir / "view.sqlite", endless);
    ASSERT_NO_FATAL_FAILURE(make_points(dir / "view.gpkg", 2));
    run_sql(dir / "view.gpkg", endless);
    run_sql(dir / "view.gpkg", "INSERT INTO gpkg_contents (table_name, data_type, identifier) "
                               "VALUES ('v', 'attributes', 'v')");
    for (char const *const name : {"view.sqlite", "view.gpkg"}) {
        SCOPED_TRACE(name);
        EXPECT_NE(in_limits([&] {
                      source const s(wide(dir / name));
                      return s.is_open() || !source::refusal().empty() ? 'o' : 'e';
                  }),
                  't');
        // The view itself opens or is refused; whoever waits can leave each question to it.
        std::wstring const view = wide(dir / name) + L"|layer=v";
        EXPECT_NE(in_limits([&] {
                      source const s(view);
                      return s.is_open() || !source::refusal().empty() ? 'o' : 'e';
                  }),
                  't');
        struct
        {
            char const *name;
            bool (*is_refused)(source const &s);
        } const questions[] = {
            {"rows", [](source const &s) { return rest_of(s).empty() && !s.error().empty(); }},
            {"count", [](source const &s) { return s.table.feature_count(true) == ULLONG_MAX; }},
            {"statistics",
             [](source const &s) {
                 double value = 0;
                 return !s.stat.maximum(0, &value);
             }},
            {"filter", [](source const &s) { return !s.forward.set_attribute_filter(L"x = -1"); }},
            {"place", [](source const &s) { return !s.random.moveto_index(5) || rest_of(s).empty(); }},
        };
        for (auto const &question : questions) {
            SCOPED_TRACE(question.name);
            EXPECT_EQ(in_limits([&] {
                          vx_datasource_set_waiting(closure<bool()>(
                              [](void *asked) { return ++*static_cast<int *>(asked) < 3; }, new int(0)));
                          source const s(view);
                          return !s.is_open() || question.is_refused(s) ? 'o' : 'e';
                      }),
                      'o');
        }
    }
}

TEST(gdal_trap, more_fields_than_any_table_has)
{
    temp_dir const dir;
    std::string fields, values;
    for (int i = 0; i < 60'000; ++i) {
        fields += (i ? ",f" : "f") + std::to_string(i);
        values += i ? ",1" : "1";
    }
    write_file(dir / "wide.csv", fields + "\n" + values + "\n");
    EXPECT_NE(in_limits([&] { return open_and_read(wide(dir / "wide.csv")); }), 't');
}

TEST(gdal_trap, cells_of_150_megabytes)
{
    temp_dir const dir;
    constexpr std::size_t c_cell = 150'000'000;
    auto const write = [&](char const *name, std::string_view before, std::string_view after) {
        std::ofstream file(dir / name, std::ios::binary);
        file << before;
        std::string const block(1'000'000, 'x');
        for (std::size_t i = 0; i < c_cell / block.size(); ++i)
            file << block;
        file << after;
    };
    write("t.geojson", R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"s":")",
          R"("},"geometry":{"type":"Point","coordinates":[1,2]}}]})");
    write("t.csv", "n,s\n1,small\n2,", "\n3,small\n");
    for (char const *const name : {"t.gpkg", "t.sqlite"}) {
        ASSERT_NO_FATAL_FAILURE(make_points(dir / name, std::string_view(name) == "t.gpkg" ? 2 : 7));
        // What keeps the index of places up to date calls functions that only the driver has.
        for (int i = 1; i <= 7; ++i)
            run_sql(dir / name, ("DROP TRIGGER IF EXISTS rtree_t_geom_update" + std::to_string(i)).c_str());
        run_sql(dir / name, "UPDATE t SET s = hex(zeroblob(75000000)) WHERE n = 1");
    }
    for (char const *const name : {"t.geojson", "t.csv", "t.gpkg", "t.sqlite"}) {
        if (!c_has_limits && std::string_view(name) == "t.csv")
            continue; // the format library lengthens its line in small steps, each a copy under the sanitizer
        SCOPED_TRACE(name);
        EXPECT_EQ(in_limits([&] {
                      source const s(wide(dir / name));
                      if (!s.is_open())
                          return source::refusal().empty() ? 'e' : 'r';
                      std::size_t const count = rest_of(s).size();
                      return s.error().empty() || count > 2 ? 'e' : 'r';
                  }),
                  'r');
    }
}

/// Leaves a database as a killed writer does: in the middle of a transaction, or with a log.
void kill_writer(fs::path const &path, char const *mode)
{
    pid_t const child = fork();
    if (child == 0) {
        sqlite3 *base = nullptr;
        sqlite3_open(path.c_str(), &base);
        sqlite3_exec(base, mode, nullptr, nullptr, nullptr);
        // What does not fit into memory goes to the file before the transaction is over.
        sqlite3_exec(base, "PRAGMA cache_size=1; PRAGMA cache_spill=1", nullptr, nullptr, nullptr);
        if (std::string(mode).find("WAL") != std::string::npos)
            sqlite3_exec(base, "UPDATE other SET n = n + 100", nullptr, nullptr, nullptr);
        else
            sqlite3_exec(base,
                         "BEGIN IMMEDIATE; UPDATE other SET n = n + 100; "
                         "INSERT INTO other SELECT n + 1000, hex(randomblob(2000)) FROM other",
                         nullptr, nullptr, nullptr);
        raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
}

TEST(gdal_trap, databases_of_killed_writers)
{
    for (char const *const name : {"t.gpkg", "t.sqlite"}) {
        SCOPED_TRACE(name);
        bool const is_package = std::string(name) == "t.gpkg";
        auto const prepare = [&](temp_dir const &dir) {
            make_points(dir / name, is_package ? 2 : 7);
            run_sql(dir / name, "CREATE TABLE other (n INTEGER, s TEXT)");
            if (is_package)
                run_sql(dir / name, "INSERT INTO gpkg_contents (table_name, data_type, identifier) "
                                    "VALUES ('other', 'attributes', 'other')");
            run_sql(dir / name,
                    "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM c WHERE x < 300) "
                    "INSERT INTO other SELECT x, hex(randomblob(2000)) FROM c");
        };
        auto const largest = [&](temp_dir const &dir) {
            source const s(wide(dir / name) + L"|layer=other");
            double value = -1;
            EXPECT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
            EXPECT_TRUE(s.stat.maximum(s.field(L"n"), &value));
            return value;
        };
        auto const content = [&](temp_dir const &dir) {
            std::map<std::string, std::string> files;
            for (auto const &entry : fs::directory_iterator(dir.path()))
                files[entry.path().filename()] = read_file(entry.path());
            return files;
        };
        {
            temp_dir const dir;
            ASSERT_NO_FATAL_FAILURE(prepare(dir));
            kill_writer(dir / name, "PRAGMA journal_mode=DELETE");
            ASSERT_TRUE(fs::exists((dir / name).string() + "-journal"));
            auto const before = content(dir);
            EXPECT_FALSE(source(wide(dir / name)).is_open());
            EXPECT_NE(source::refusal().find(L"not closed properly"), std::wstring::npos);
            EXPECT_EQ(content(dir), before) << "looking changes nothing";
            EXPECT_TRUE(source(wide(dir / name), false).is_open()) << "which repairs it";
            EXPECT_EQ(largest(dir), 300);
        }
        temp_dir const dir;
        ASSERT_NO_FATAL_FAILURE(prepare(dir));
        kill_writer(dir / name, "PRAGMA journal_mode=WAL");
        auto const before = content(dir);
        ASSERT_TRUE(before.contains(std::string(name) + "-wal"));
        EXPECT_EQ(largest(dir), 400) << "what the log holds counts";
        EXPECT_EQ(content(dir), before);
    }
}
} // namespace
