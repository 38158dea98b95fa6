#include "source.h"
#include "support/temp_dir.h"
#include "writing.h"

#include "platform/basic/vx_fault.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace vx_test;
namespace fs = std::filesystem;

/// Every format that can be written, through everything that can happen to a file: what was stored is read
/// again by this process, by a second one and by GDAL's own tool, and every value is compared.
namespace {
std::wstring wide(std::string const &text)
{
    return vx::text::utf8_to_wide(text);
}

struct format
{
    char const *name;
    int driver;
    char const *ending;
    bool opens_for_changes = true;
    bool changes_stored = true; ///< what a file holds can be changed and deleted
    bool rolls_back = false;
    bool keeps_required = false; ///< fields that may not be empty
};
constexpr format c_formats[] = {
    {"shapefile", 1, ".shp"},
    {"geopackage", 2, ".gpkg", true, true, true, true},
    {"geojson", 3, ".geojson"},
    {"flatgeobuf", 4, ".fgb"},
    {"csv", 5, ".csv"},
    {"sqlite", 7, ".sqlite", true, true, true, true},
    {"kml", 8, ".kml", true, false},
    {"gml", 9, ".gml", false},
};

struct row
{
    int key = 0;
    std::wstring name;
    std::optional<double> x;
    std::wstring day;
    Tvx_vtx_d2 place;
};

row row_of(int key)
{
    std::array<std::wstring, 4> const names{L"plain", L"a \"b\", 'c'", L"Ґанок", L"007"};
    row r;
    r.key = key;
    r.name = names[static_cast<std::size_t>(key % 4)] + std::to_wstring(key);
    if (key % 3 != 2)
        r.x = key * 0.125 - 1;
    r.day = key % 2 ? L"2021-03-04" : L"1999-12-31";
    r.place = {10.5 + key % 40, 50.25 - key % 30};
    return r;
}

using rows = std::map<int, row>;

/// One line a row, by key: the same for every format and every reader.
std::string line_of(double key, std::string const &name, std::string const &x, std::string day, double px,
                    double py)
{
    std::replace(day.begin(), day.end(), '/', '-');
    // A format without days keeps their first moment.
    for (char const *const moment : {"T00:00:00", " 00:00:00"})
        if (day.ends_with(moment))
            day.resize(day.size() - std::char_traits<char>::length(moment));
    std::array<char, 400> text;
    int const size = std::snprintf(text.data(), text.size(), "%.0f|%s|%s|%s|%.9g %.9g\n", key, name.c_str(),
                                   x.empty() ? "" : std::to_string(std::strtod(x.c_str(), nullptr)).c_str(),
                                   day.c_str(), px, py);
    return {text.data(), static_cast<std::size_t>(size)};
}

std::string lines_of(rows const &content)
{
    std::string text;
    for (auto const &[key, r] : content)
        text += line_of(key, vx::text::wide_to_utf8(r.name), r.x ? std::to_string(*r.x) : "",
                        vx::text::wide_to_utf8(r.day), r.place.x, r.place.y);
    return text;
}

std::string joined(std::map<double, std::string> const &lines)
{
    std::string text;
    for (auto const &[key, line] : lines)
        text += line;
    return text;
}

std::string read_here(std::string const &path)
{
    source const s(wide(path));
    if (!s.is_open())
        return "not open: " + vx::text::wide_to_utf8(source::refusal());
    std::map<double, std::string> lines;
    for (keeper k; s.forward.with_next_feature(k);) {
        auto const cell = [&](wchar_t const *name) { return vx::text::wide_to_utf8(k.text(s.field(name))); };
        Tvx_vtx_d2 place{-1, -1};
        (void)k.item.get_point(&place);
        double const key = std::strtod(cell(L"k").c_str(), nullptr);
        std::string &line = lines[key];
        line += line_of(key, cell(L"label"), cell(L"x"), cell(L"day"), place.x, place.y);
    }
    return joined(lines);
}

/// What `work` gives in a process of its own.
std::string in_second_process(std::function<std::string()> const &work)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    pid_t const child = fork();
    if (child == 0) {
        vx_reason_set_handler(nullptr); // nobody is there to answer a message
        std::string const text = work();
        for (std::size_t at = 0; at < text.size();) {
            ssize_t const count = write(ends[1], text.data() + at, text.size() - at);
            if (count <= 0)
                break;
            at += static_cast<std::size_t>(count);
        }
        _exit(0);
    }
    close(ends[1]);
    std::string text;
    std::array<char, 4096> block;
    for (ssize_t count; (count = read(ends[0], block.data(), block.size())) > 0;)
        text.append(block.data(), static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : text + "\nthe process ended badly";
}

bool has_tool()
{
    static bool const has = std::system("command -v ogrinfo >/dev/null 2>&1") == 0;
    return has;
}

/// Looks at the file with GDAL's own tool, without this driver.
std::string read_by_tool(std::string const &path)
{
    std::string const command = "ogrinfo -ro -al -q '" + path + "' 2>/dev/null";
    std::unique_ptr<FILE, int (*)(FILE *)> const output(popen(command.c_str(), "r"), &pclose);
    std::map<double, std::string> lines;
    std::map<std::string, std::string> cells;
    double px = -1, py = -1;
    auto const finish = [&] {
        if (cells.empty())
            return;
        double const key = std::strtod(cells["k"].c_str(), nullptr);
        lines[key] += line_of(key, cells["label"], cells["x"], cells["day"], px, py);
        cells.clear();
        px = py = -1;
    };
    std::array<char, 4096> room;
    while (std::fgets(room.data(), room.size(), output.get())) {
        std::string line = room.data();
        line.erase(line.find_last_not_of('\n') + 1);
        if (line.rfind("OGRFeature(", 0) == 0)
            finish();
        else if (std::size_t const sign = line.find(") = "); line.rfind("  ", 0) == 0 && sign != line.npos) {
            std::string value = line.substr(sign + 4);
            if (value != "(null)")
                cells[line.substr(2, line.find(" (") - 2)] = value;
        } else if (std::size_t const start = line.rfind("  POINT", 0) == 0 ? line.find('(') : line.npos;
                   start != line.npos)
            (void)std::sscanf(line.c_str() + start, "(%lf %lf", &px, &py);
    }
    finish();
    return joined(lines);
}

void expect_everywhere(fs::path const &path, rows const &content)
{
    std::string const wanted = lines_of(content);
    EXPECT_EQ(read_here(path), wanted);
    EXPECT_EQ(in_second_process([&] { return read_here(path); }), wanted);
    if (has_tool()) {
        EXPECT_EQ(read_by_tool(path), wanted);
    }
}

definition const c_fields({{L"k", 3}, {L"label", 1, 0, 40}, {L"x", 2, 0, 20, 6}, {L"day", 1, 2}},
                          L"+proj=longlat +datum=WGS84 +no_defs");

bool fill(source const &s, vx::feature f, row const &r)
{
    Tvx_vtx_d2 place = r.place;
    bool const good = f.set_point(&place) && f.set_integer(s.field(L"k"), r.key) &&
                      f.set_string(s.field(L"label"), r.name.c_str()) &&
                      f.set_string(s.field(L"day"), r.day.c_str());
    return good && (r.x ? f.set_numeric(s.field(L"x"), *r.x) : f.set_undef(s.field(L"x")));
}

/// As a keeper of features does it: made first, filled afterwards, ended at last.
bool add_row(source const &s, row const &r)
{
    keeper k;
    return s.table.create_feature(0, k) && fill(s, k.item, r);
}

bool make_table(source const &s)
{
    definition fields = c_fields;
    return s.is_open() && s.table.create_vector(L"t", 1, 0, fields);
}

/// The identifier of the row with this key; 0 and below when there is none.
long long fid_of(source const &s, int key)
{
    s.forward.reset_reading();
    for (keeper k; s.forward.with_next_feature(k);)
        if (std::stoi(L"0" + k.text(s.field(L"k"))) == key)
            return k.item.fid();
    return -1;
}

class every_format : public testing::TestWithParam<format>
{
protected:
    [[nodiscard]] fs::path path() const { return f_dir / (std::string("t") + GetParam().ending); }
    void make(int count, rows &content) const
    {
        source const s(wide(path()), GetParam().driver);
        ASSERT_TRUE(make_table(s)) << vx::text::wide_to_utf8(source::refusal() + s.error());
        for (int key = 1; key <= count; ++key) {
            content[key] = row_of(key);
            EXPECT_TRUE(add_row(s, content[key])) << vx::text::wide_to_utf8(s.error());
        }
        EXPECT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
        expect_everywhere(path(), content); // while it is still open
    }
    temp_dir f_dir;
};

TEST_P(every_format, create_append_change_delete)
{
    rows content;
    ASSERT_NO_FATAL_FAILURE(make(7, content));
    expect_everywhere(path(), content);
    if (!GetParam().opens_for_changes) {
        source const s(wide(path()), false);
        EXPECT_FALSE(s.is_open());
        EXPECT_NE(source::refusal(), L"");
        return;
    }
    {
        source const s(wide(path()), false);
        ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
        for (int key : {8, 9}) {
            content[key] = row_of(key);
            EXPECT_TRUE(add_row(s, content[key])) << vx::text::wide_to_utf8(s.error());
        }
        // The last feature is still outside when the source is flushed, and goes on afterwards.
        keeper kept;
        ASSERT_TRUE(s.table.create_feature(0, kept));
        content[10] = row_of(10);
        EXPECT_TRUE(fill(s, kept.item, content[10]));
        EXPECT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
        expect_everywhere(path(), content);
        if (kept.item.set_numeric(s.field(L"x"), 77))
            content[10].x = 77;
    }
    expect_everywhere(path(), content);
    if (!GetParam().changes_stored) {
        source const s(wide(path()), false);
        keeper k;
        ASSERT_TRUE(s.random.with_feature(fid_of(s, 2), k));
        EXPECT_FALSE(k.item.set_numeric(s.field(L"x"), 5.5) || k.item.set_empty());
        EXPECT_NE(s.error(), L"");
        EXPECT_FALSE(s.table.delete_feature(fid_of(s, 3)));
        return;
    }
    {
        source const s(wide(path()), false);
        keeper k;
        ASSERT_TRUE(s.random.with_feature(fid_of(s, 2), k)) << vx::text::wide_to_utf8(s.error());
        content[2].x = 5.5;
        content[2].place = {1.5, 2.5};
        EXPECT_TRUE(fill(s, k.item, content[2])) << vx::text::wide_to_utf8(s.error());
        k.end();
        EXPECT_TRUE(s.table.delete_feature(fid_of(s, 3))) << vx::text::wide_to_utf8(s.error());
        content.erase(3);
        EXPECT_TRUE(s.table.transaction_commit()) << vx::text::wide_to_utf8(s.error());
        expect_everywhere(path(), content);
    }
    expect_everywhere(path(), content);
}

TEST_P(every_format, a_feature_that_is_kept_stays_itself)
{
    if (!GetParam().changes_stored || !GetParam().opens_for_changes)
        GTEST_SKIP() << "what is stored stays";
    rows content;
    ASSERT_NO_FATAL_FAILURE(make(7, content));
    {
        source const s(wide(path()), false);
        keeper fifth, made;
        ASSERT_TRUE(s.random.with_feature(fid_of(s, 5), fifth));
        ASSERT_TRUE(s.table.delete_feature(fid_of(s, 2)) && s.table.delete_feature(fid_of(s, 4)));
        content.erase(2);
        content.erase(4);
        ASSERT_TRUE(s.table.create_feature(0, made));
        EXPECT_TRUE(fill(s, made.item, row_of(8)));
        EXPECT_EQ(s.table.feature_count(true), 5U) << "it is not finished";
        ASSERT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
        EXPECT_EQ(s.table.feature_count(true), 6U);
        content[5].x = 55;
        content[8] = row_of(8);
        content[8].x = 88;
        EXPECT_TRUE(fifth.item.set_numeric(s.field(L"x"), 55));
        EXPECT_TRUE(made.item.set_numeric(s.field(L"x"), 88));
        EXPECT_EQ(fid_of(s, 5), fifth.item.fid());
    }
    expect_everywhere(path(), content);
}

TEST_P(every_format, refusals_reach_the_caller_and_can_be_mended)
{
    rows content;
    source const s(wide(path()), GetParam().driver);
    ASSERT_TRUE(make_table(s));
    auto const field = [&](wchar_t const *name) { return s.field(name); };
    keeper k;
    ASSERT_TRUE(s.table.create_feature(0, k));
    content[4] = row_of(4);
    EXPECT_TRUE(fill(s, k.item, content[4]));
    EXPECT_LT(k.item.fid(), 0) << "it is in no table yet";
    double const c_nan = std::nan("");
    EXPECT_FALSE(k.item.set_string(field(L"k"), L"99999999999"));
    EXPECT_NE(s.error(), L"");
    EXPECT_FALSE(k.item.set_string(field(L"k"), L"1.5") || k.item.set_string(field(L"k"), L"") ||
                 k.item.set_string(field(L"x"), L"0x10"));
    EXPECT_FALSE(k.item.set_numeric(field(L"k"), c_nan) || k.item.set_numeric(field(L"k"), 1e20) ||
                 k.item.set_numeric(field(L"k"), 2.5) || k.item.set_bigint(field(L"k"), 5000000000LL));
    for (wchar_t const *const day :
         {L"nonsense", L"2021-02-29", L"2021-13-01", L"2021-03-04 rest", L"", L"12:00"})
        EXPECT_FALSE(k.item.set_string(field(L"day"), day)) << vx::text::wide_to_utf8(day);
    EXPECT_FALSE(k.item.set_integer(field(L"day"), 7));
    EXPECT_FALSE(k.item.set_integer(99, 7) || k.item.set_integer(-1, 7));
    vertex_list const ring(vx_ov_d2_create());
    vx_ov_d2_set_size(ring.get(), 1);
    auto *const part = vx_ov_d2_get_pv_ptr(ring.get(), 0);
    vx_pv_d2_set_size(part, 3);
    for (std::size_t i = 0; i < 3; ++i) {
        Tvx_vtx_d2 const corner{1.0 * static_cast<double>(i % 2), 1.0 * static_cast<double>(i / 2)};
        vx_pv_d2_set_vtx(part, i, &corner);
    }
    EXPECT_FALSE(k.item.set_polygon(ring.get())) << "of a table of points";
    EXPECT_NE(s.error(), L"");
    if (GetParam().driver == 1) {
        EXPECT_FALSE(k.item.set_numeric(field(L"x"), 1.5e300));
        EXPECT_FALSE(k.item.set_string(field(L"label"), std::wstring(300, L'x').c_str()));
    }
    k.end();
    EXPECT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
    expect_everywhere(path(), content);
}

TEST_P(every_format, required_fields)
{
    if (!GetParam().keeps_required)
        GTEST_SKIP() << "the format has none";
    {
        source const s(wide(path()), GetParam().driver);
        ASSERT_TRUE(make_table(s));
    }
    // A table as somebody else made it.
    sqlite3 *base = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &base), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(
                  base, "CREATE TABLE r (fid INTEGER PRIMARY KEY, must TEXT NOT NULL, single INTEGER UNIQUE)",
                  nullptr, nullptr, nullptr),
              SQLITE_OK);
    if (GetParam().driver == 2) {
        EXPECT_EQ(sqlite3_exec(base,
                               "INSERT INTO gpkg_contents (table_name, data_type, identifier) "
                               "VALUES ('r', 'attributes', 'r')",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK);
    }
    sqlite3_close(base);

    std::wstring const table = wide(path()) + L"|layer=r";
    auto const set = [](vx::feature f, wchar_t const *must, int single) {
        EXPECT_TRUE(f.set_string(0, must) && f.set_integer(1, single));
    };
    {
        source const s(table, false);
        ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
        EXPECT_TRUE(add(s, [&](vx::feature f) { set(f, L"a", 1); })) << vx::text::wide_to_utf8(s.error());
        EXPECT_FALSE(add(s, [&](vx::feature f) { EXPECT_TRUE(f.set_integer(1, 2)); }))
            << "nothing in the required one";
        EXPECT_NE(s.error(), L"");
        EXPECT_FALSE(add(s, [&](vx::feature f) { set(f, L"b", 1); })) << "twice";
        EXPECT_TRUE(s.table.flush_changes()) << "whoever was told has it in his hands";

        // One that is refused when it ends keeps the transaction from being committed, until it is mended.
        ASSERT_TRUE(s.table.transaction_start());
        keeper k;
        ASSERT_TRUE(s.table.create_feature(0, k));
        EXPECT_TRUE(k.item.set_integer(1, 3));
        long long const number = k.item.fid();
        k.end();
        EXPECT_FALSE(s.table.transaction_commit());
        EXPECT_NE(s.error().find(std::to_wstring(number)), std::wstring::npos)
            << vx::text::wide_to_utf8(s.error());
        EXPECT_FALSE(s.table.flush_changes());
        EXPECT_FALSE(s.table.create_field(definition({{L"more", 3}}))) << "it would be lost";
        ASSERT_TRUE(s.random.with_feature(number, k));
        EXPECT_EQ(k.item.get_integer(1, nullptr), 3);
        EXPECT_TRUE(k.item.set_string(0, L"mended"));
        k.end();
        EXPECT_TRUE(s.table.transaction_commit()) << vx::text::wide_to_utf8(s.error());

        // A change is no other matter.
        ASSERT_TRUE(s.table.transaction_start());
        ASSERT_TRUE(s.random.with_feature(1, k));
        EXPECT_TRUE(k.item.set_undef(0));
        k.end();
        EXPECT_EQ(s.table.feature_count(true), 2u) << "reading goes on";
        EXPECT_FALSE(s.table.transaction_commit());
        EXPECT_TRUE(s.table.transaction_rollback());
        EXPECT_TRUE(s.table.flush_changes());
    }
    source const again(table);
    std::vector<std::wstring> texts;
    for (keeper k; again.forward.with_next_feature(k);)
        texts.push_back(k.text(0) + L" " + k.text(1));
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"a 1", L"mended 3"}));
}

TEST_P(every_format, roll_back)
{
    rows content;
    ASSERT_NO_FATAL_FAILURE(make(5, content));
    if (!GetParam().opens_for_changes)
        return;
    {
        source const s(wide(path()), false);
        ASSERT_TRUE(s.is_open());
        EXPECT_EQ(s.data.has_capability(8), GetParam().rolls_back);
        EXPECT_EQ(s.table.transaction_start(), GetParam().rolls_back);
        if (GetParam().rolls_back) {
            keeper changed;
            ASSERT_TRUE(s.random.with_feature(fid_of(s, 1), changed));
            EXPECT_TRUE(changed.item.set_numeric(s.field(L"x"), 1000));
            keeper made;
            ASSERT_TRUE(s.table.create_feature(0, made));
            EXPECT_TRUE(add_row(s, row_of(6)));
            EXPECT_TRUE(s.table.delete_feature(fid_of(s, 2)));
            EXPECT_TRUE(s.table.transaction_rollback());
            EXPECT_EQ(changed.item.get_numeric(s.field(L"x"), nullptr), *content[1].x)
                << "it is what the table holds";
            EXPECT_FALSE(made.item.set_integer(0, 1)) << "it is in no table";
        } else {
            keeper changed;
            ASSERT_TRUE(s.random.with_feature(fid_of(s, 1), changed));
            EXPECT_EQ(changed.item.set_numeric(s.field(L"x"), 1000), GetParam().changes_stored);
            EXPECT_FALSE(s.table.transaction_rollback()) << "only what is still outside is taken back";
            EXPECT_NE(s.error(), L"");
        }
    }
    expect_everywhere(path(), content);
}

/// Fills a table until the disk is full: everything that is told to be stored is there, and the rest is told
/// of.
std::string fill_disk(fs::path const &path, int driver, std::function<void()> const &give_room)
{
    constexpr int c_rows = 4000;
    std::string problem;
    auto const note = [&](char const *text) { problem += std::string(text) + "; "; };
    source const s(wide(path), driver);
    if (!make_table(s))
        return "no table";
    (void)s.table.transaction_start();
    int refused = 0;
    for (int key = 1; key <= c_rows && refused == 0; ++key) {
        refused += !add_row(s, row_of(key));
        if (key % 500 == 0)
            refused += !s.table.flush_changes();
    }
    refused += !s.table.transaction_commit();
    if (refused == 0)
        note("nothing was refused");
    if (s.error().empty())
        note("without a reason");
    give_room();
    return problem;
}

TEST_P(every_format, full_disk)
{
    std::string const problem = in_second_process([&] {
        // A file may have so many bytes and no more, as on a disk with no room for others: room for its
        // tables.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const small{GetParam().driver == 2 ? rlim_t{150'000} : rlim_t{30'000}, 1 << 30};
        rlimit const large{1 << 30, 1 << 30};
        setrlimit(RLIMIT_FSIZE, &small);
        return fill_disk(path(), GetParam().driver, [&] { setrlimit(RLIMIT_FSIZE, &large); });
    });
    EXPECT_EQ(problem, "");

    fs::path const disk = f_dir / "disk";
    fs::create_directory(disk);
    if (mount("vx_small", disk.c_str(), "tmpfs", 0, "size=200k") != 0)
        return; // only the system's user may do so
    fs::path const file = disk / path().filename();
    EXPECT_EQ(in_second_process([&] { return fill_disk(file, GetParam().driver, [] {}); }), "");
    umount(disk.c_str());
}

TEST_P(every_format, a_failed_flush_can_be_repeated)
{
    rows content;
    std::string const problem = in_second_process([&]() -> std::string {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit const large{1 << 30, 1 << 30};
        source const s(wide(path()), GetParam().driver);
        if (!make_table(s) || !s.table.flush_changes())
            return "no table";
        rlimit const small{GetParam().driver == 2 || GetParam().driver == 7 ? fs::file_size(path()) : 50,
                           1 << 30};
        setrlimit(RLIMIT_FSIZE, &small);
        bool all = true;
        for (int key = 1; key <= 300; ++key)
            all = add_row(s, row_of(key)) && all;
        bool const stored = s.table.flush_changes();
        setrlimit(RLIMIT_FSIZE, &large);
        if (stored && all)
            return "nothing was refused";
        if (!s.table.flush_changes())
            return "still refused: " + vx::text::wide_to_utf8(s.error());
        return "";
    });
    if (GetParam().driver == 1) // what its library could not write is gone from its buffers
        EXPECT_TRUE(problem == "" || problem.rfind("still refused", 0) == 0) << problem;
    else
        EXPECT_EQ(problem, "");
    for (int key = 1; key <= 300; ++key)
        content[key] = row_of(key);
    if (problem.empty())
        expect_everywhere(path(), content);
}

/// Rows that a process stored before it was killed.
int killed_writer(fs::path const &path, int driver, std::chrono::microseconds life)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    pid_t const child = fork();
    if (child == 0) {
        vx_reason_set_handler(nullptr);
        source const s(wide(path), driver);
        if (!make_table(s) || !s.table.flush_changes())
            _exit(1);
        for (int key = 1; key < 100'000; ++key) {
            (void)s.table.transaction_start();
            for (int i = 0; i < 3; ++i, ++key)
                (void)add_row(s, row_of(key));
            --key;
            if (!s.table.transaction_commit() || write(ends[1], &key, sizeof key) != sizeof key)
                _exit(1);
        }
        _exit(0);
    }
    close(ends[1]);
    int stored = 0;
    // Life begins with the first rows.
    EXPECT_EQ(read(ends[0], &stored, sizeof stored), static_cast<ssize_t>(sizeof stored));
    std::this_thread::sleep_for(life);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    for (int key; read(ends[0], &key, sizeof key) == sizeof key;)
        stored = key;
    close(ends[0]);
    return stored;
}

TEST_P(every_format, a_killed_writer_leaves_what_it_stored)
{
    std::mt19937 random(7);
    for (int round = 0; round < 6; ++round) {
        temp_dir const dir;
        fs::path const file = dir / path().filename().string();
        int const stored =
            killed_writer(file, GetParam().driver, std::chrono::microseconds(random() % 40'000));
        SCOPED_TRACE(stored);
        {
            source const s(wide(file));
            if (!s.is_open()) {
                EXPECT_TRUE(GetParam().rolls_back || GetParam().driver == 1)
                    << vx::text::wide_to_utf8(source::refusal());
                EXPECT_NE(source::refusal().find(L"not closed properly"), std::wstring::npos);
                EXPECT_TRUE(source(wide(file), false).is_open());
            }
        }
        std::string const found = read_here(file);
        auto const count = static_cast<int>(std::count(found.begin(), found.end(), '\n'));
        EXPECT_GE(count, stored);
        EXPECT_LE(count, stored + (GetParam().driver == 1 ? 4 : 3));
        rows content;
        for (int key = 1; key <= (GetParam().driver == 1 ? stored : count); ++key)
            content[key] = row_of(key);
        EXPECT_EQ(found.substr(0, lines_of(content).size()), lines_of(content));
        if (has_tool()) {
            EXPECT_EQ(read_by_tool(file).substr(0, lines_of(content).size()), lines_of(content));
        }
        int files = 0;
        for (auto const &entry : fs::directory_iterator(dir.path()))
            files += entry.path().filename().string().find("t.") != 0;
        EXPECT_LE(files, 1) << "no more than a new file on its way into place";
    }
}

TEST(shapefile, with_an_index_that_a_killed_writer_left_short_is_mended)
{
    temp_dir const dir;
    std::wstring const path = wide(dir / "t.shp");
    rows content;
    {
        source const s(path, 1);
        ASSERT_TRUE(make_table(s));
        for (int key = 1; key <= 9; ++key)
            ASSERT_TRUE(add_row(s, row_of(key)));
    }
    // The head was written anew, of the last two entries a piece.
    fs::resize_file(dir / "t.shx", fs::file_size(dir / "t.shx") - 12);
    auto const bytes = [&] {
        std::string all;
        for (char const *const name : {"t.shp", "t.shx", "t.dbf"})
            all += read_file(dir / name);
        return all;
    };
    std::string const before = bytes();
    EXPECT_FALSE(source(path).is_open());
    EXPECT_NE(source::refusal().find(L"not closed properly"), std::wstring::npos);
    EXPECT_EQ(bytes(), before);
    {
        source const s(path, false);
        ASSERT_TRUE(s.is_open()) << vx::text::wide_to_utf8(source::refusal());
        EXPECT_TRUE(add_row(s, row_of(10)));
        EXPECT_TRUE(s.table.flush_changes()) << vx::text::wide_to_utf8(s.error());
    }
    for (int const key : {1, 2, 3, 4, 5, 6, 7, 10})
        content[key] = row_of(key);
    expect_everywhere(dir / "t.shp", content);
}

TEST_P(every_format, defaults_of_text_fields)
{
    if (!GetParam().keeps_required)
        GTEST_SKIP() << "the format has none";
    class with_default final : public vx::vector_definition_impl
    {
    public:
        int field_count() override { return 2; }
        void field_name(int i, vx::string_visitor v) override { v.visit(i == 0 ? L"text" : L"n"); }
        int field_type(int i) override { return i == 0 ? 1 : 3; }
        bool field_nullable(int) override { return true; }
        void field_default(int i, vx::string_visitor v) override { v.visit(i == 0 ? L"it's new" : L"7"); }
    } fields;
    {
        source const s(wide(path()), GetParam().driver);
        ASSERT_TRUE(s.table.create_vector(L"t", 1, 0, fields));
        EXPECT_TRUE(add(s, [](vx::feature) {}));
        EXPECT_TRUE(add(s, [](vx::feature f) { EXPECT_TRUE(f.set_undef(0)); }));
    }
    source const s(wide(path()));
    EXPECT_EQ(text_of([&](vx::string_visitor v) { s.data.field_default(0, v); }), L"it's new");
    EXPECT_EQ(text_of([&](vx::string_visitor v) { s.data.field_default(1, v); }), L"7");
    keeper k;
    ASSERT_TRUE(s.forward.with_next_feature(k));
    EXPECT_EQ(k.text(0), L"it's new");
    EXPECT_EQ(k.text(1), L"7");
    ASSERT_TRUE(s.forward.with_next_feature(k));
    bool not_null = true;
    k.item.get_string(0, &not_null, {});
    EXPECT_FALSE(not_null);
}

INSTANTIATE_TEST_SUITE_P(formats, every_format, testing::ValuesIn(c_formats),
                         [](auto const &info) { return std::string(info.param.name); });
} // namespace
