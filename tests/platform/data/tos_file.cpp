#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/detail/tos_block.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/watched_disk.h"

#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <vector>

namespace {
using file_ptr = vx::owned<Ivx_tos4_file, &vx_tos4_file_close>;
using prop_ptr = vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close>;
using writer_ptr = vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy>;
using vx_test::watched_disk;

constexpr double c_none = std::numeric_limits<double>::quiet_NaN();

std::wstring wide(std::filesystem::path const &path)
{
    return vx::text::utf8_to_wide(path.string());
}

std::wstring last_error()
{
    std::wstring text;
    vx_tos4_get_werror(Tvx_std_wstring_adapter(text));
    return text;
}

file_ptr open_file(std::filesystem::path const &path, bool read_only = true)
{
    return file_ptr(vx_tos4_file_open_w(wide(path).c_str(), read_only));
}

/// So many objects, with a hole now and then.
std::vector<double> some_values(std::size_t count, double step = 0.25)
{
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = i % 7 == 3 ? c_none : std::floor(100 * std::sin(static_cast<double>(i))) * step;
    return values;
}

/// One row of cells for each property; the properties are "p0", "p1" and so on.
bool make_file(std::filesystem::path const &path, std::vector<std::vector<double>> const &properties,
               bool has_statistics = true)
{
    Tvx_tos4_grid grid;
    grid.dimensions = 1;
    grid.count[0] = properties.front().size();
    writer_ptr const writer(vx_tos4_writer_create_w(wide(path).c_str(), &grid, L""));
    vx_tos4_writer_set_statistics(writer.get(), has_statistics);
    for (std::size_t i = 0; i < properties.size(); ++i)
        if (!vx_tos4_writer_add_prop_w(writer.get(), (L"p" + std::to_wstring(i)).c_str(), nullptr) ||
            !vx_tos4_writer_append(writer.get(), properties[i].data(), properties[i].size()))
            return false;
    return vx_tos4_writer_finish(writer.get());
}

std::vector<double> values_of(std::filesystem::path const &path, unsigned property = 0)
{
    auto const file = open_file(path);
    prop_ptr const prop(vx_tos4_prop_open(file.get(), property));
    std::vector<double> values(file ? vx_tos4_get_object_count_64(file.get()) : 0);
    EXPECT_EQ(vx_tos4_prop_get_values(prop.get(), 0, values.size(), values.data()), values.size());
    EXPECT_FALSE(vx_tos4_prop_is_damaged(prop.get()));
    return values;
}

bool same(std::vector<double> const &a, std::vector<double> const &b)
{
    return std::ranges::equal(a, b,
                              [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

/// What the statistics have to be, in the plainest way.
struct plain_stat
{
    double minimum = std::numeric_limits<double>::infinity();
    double maximum = -minimum;
    double average = 0;
    double deviation = 0;
    explicit plain_stat(std::vector<double> const &values)
    {
        long double sum = 0, squares = 0;
        int count = 0;
        for (double const v : values)
            if (!std::isnan(v)) {
                minimum = std::min(minimum, v);
                maximum = std::max(maximum, v);
                sum += v;
                ++count;
            }
        average = static_cast<double>(sum / count);
        for (double const v : values)
            if (!std::isnan(v))
                squares += (v - sum / count) * (v - sum / count);
        deviation = static_cast<double>(std::sqrt(squares / (count - 1)));
    }
};

void expect_stat(Ivx_tos4_prop const *prop, std::vector<double> const &values)
{
    plain_stat const s(values);
    ASSERT_TRUE(vx_tos4_prop_get_statistic_exist(prop));
    EXPECT_EQ(vx_tos4_prop_get_statistic_min(prop), s.minimum);
    EXPECT_EQ(vx_tos4_prop_get_statistic_max(prop), s.maximum);
    EXPECT_NEAR(vx_tos4_prop_get_statistic_average(prop), s.average, 1e-12 * std::fabs(s.maximum));
    EXPECT_NEAR(vx_tos4_prop_get_statistic_stddev(prop), s.deviation, 1e-12 * s.deviation);
}

void run_sql(std::filesystem::path const &path, std::string const &words)
{
    sqlite3 *base = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &base), SQLITE_OK);
    char *error = nullptr;
    EXPECT_EQ(sqlite3_exec(base, words.c_str(), nullptr, nullptr, &error), SQLITE_OK) << words << error;
    sqlite3_close(base);
}

/// Everything that can be asked of a file ends, whatever the file is.
void ask_all(std::filesystem::path const &path)
{
    auto const file = open_file(path);
    EXPECT_EQ(file == nullptr, !last_error().empty());
    for (unsigned i = 0; i < vx_tos4_get_prop_count(file.get()); ++i) {
        prop_ptr const prop(vx_tos4_prop_open(file.get(), i));
        double value = 1;
        for (auto const at : {0ULL, 975ULL, 976ULL, vx_tos4_get_object_count_64(file.get()) - 1, ~0ULL})
            (void)vx_tos4_prop_get_value_double(prop.get(), at, &value);
        (void)vx_tos4_prop_histogram_update(prop.get());
        (void)vx_tos4_prop_get_histogram_value(prop.get(), 255);
        (void)vx_tos4_prop_get_statistic_stddev(prop.get());
    }
}

/// Runs in a process of its own; false when that was killed.
bool in_process(std::function<void()> const &work)
{
    pid_t const child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status);
}
} // namespace

TEST(tos_block, every_value_comes_back_and_the_smallest_form_is_taken)
{
    constexpr std::size_t n = vx::tos::c_block_cells;
    std::mt19937 random(5);
    auto const made = [&](auto cell) {
        std::vector<double> cells(n);
        for (std::size_t i = 0; i < n; ++i)
            cells[i] = cell(i);
        return cells;
    };
    auto const r = [&] { return static_cast<double>(random()); };
    struct
    {
        char const *name;
        std::vector<double> cells;
        std::size_t most; ///< bytes
    } const cases[] = {
        {"equal", made([](auto) { return -7.125; }), 9},
        {"none", made([](auto) { return c_none; }), 0},
        {"infinite has no value", made([](auto i) { return i % 2 ? HUGE_VAL : -HUGE_VAL; }), 0},
        {"bytes", made([&](auto) { return static_cast<double>(random() % 256); }), n + 11},
        {"bytes with holes",
         made([&](auto i) { return i % 9 ? static_cast<double>(random() % 255) : c_none; }), n + 11},
        {"one value with holes", made([&](auto i) { return i % 2 ? 3 : c_none; }), n / 8 + 11},
        {"whole numbers below zero", made([&](auto) { return r() - 4294967295.0; }), 4 * n + 11},
        {"the largest whole numbers",
         made([&](auto i) { return i % 2 ? 9007199254740992.0 : 9007199254740000.0; }), 2 * n},
        {"hundredths", made([&](auto) { return static_cast<double>(random() % 65536) / 100; }), 2 * n + 11},
        {"single", made([&](auto) { return static_cast<double>(std::sin(static_cast<float>(r()))); }),
         4 * n + 1},
        {"double", made([&](auto) { return std::sin(r()); }), 8 * n + 1},
        {"extremes", made([&](auto i) { return i % 2 ? 1.7976931348623157e308 : 5e-324; }), 8 * n + 1},
    };
    vx::tos::packed_block packed;
    for (auto const &c : cases)
        for (std::size_t const size : {n, std::size_t{1}, std::size_t{100}}) {
            std::span<double const> const cells(c.cells.data(), size);
            auto const bytes = vx::tos::pack_block(cells);
            if (size == n) {
                EXPECT_LE(bytes.size(), c.most) << c.name;
            }
            packed.clear(size);
            EXPECT_EQ(packed.take(bytes, size), !bytes.empty()) << c.name;
            std::vector<double> back(size);
            packed.unpack(back.data());
            for (std::size_t i = 0; i < size; ++i) {
                double const wanted = std::isfinite(cells[i]) ? cells[i] : c_none;
                ASSERT_TRUE(same({back[i], packed.value(i)}, {wanted, wanted})) << c.name << i;
            }
            for (std::size_t cut = 1; cut < bytes.size(); cut += 97)
                EXPECT_FALSE(packed.take(bytes.substr(0, cut), size)) << c.name;
            EXPECT_FALSE(packed.take(bytes + 'x', size)) << c.name;
        }
}

TEST(tos_file, keeps_names_grid_and_values)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "Seiches & 100% #1?.tos";
    std::size_t const nx = 61, ny = 40, nz = 3;
    auto const heights = some_values(nx * ny * nz);
    auto const few = some_values(1000, 1.0 / 3);
    Tvx_tos4_grid grid{3, {nx, ny, nz}, {5.5, -6, 7}, {10, -20, 0.5}, 30};
    writer_ptr writer(vx_tos4_writer_create_w(wide(path).c_str(), &grid, L"+proj=utm +zone=25"));
    ASSERT_TRUE(writer);
    ASSERT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"Höhe", L"Height above the sea"));
    EXPECT_FALSE(vx_tos4_writer_add_prop_w(writer.get(), L"Höhe", L"")) << "a name twice";
    for (std::size_t at = 0, part = 1; at < heights.size(); at += part, part = part * 2 % 1777 + 1)
        ASSERT_TRUE(vx_tos4_writer_append(writer.get(), heights.data() + at,
                                          part = std::min(part, heights.size() - at)));
    EXPECT_FALSE(vx_tos4_writer_append(writer.get(), heights.data(), 1)) << "more than there are objects";
    ASSERT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"few", L""));
    ASSERT_TRUE(vx_tos4_writer_append(writer.get(), few.data(), few.size()));
    ASSERT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"nothing", L""));
    EXPECT_FALSE(vx_path_exists(wide(path))) << "before it is whole";
    ASSERT_TRUE(vx_tos4_writer_finish(writer.get())) << vx::text::wide_to_utf8(last_error());
    EXPECT_EQ(dir.count(), 1);

    auto const file = open_file(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(vx_tos4_get_prop_count(file.get()), 3U);
    EXPECT_EQ(vx_tos4_get_object_count_64(file.get()), nx * ny * nz);
    EXPECT_STREQ(vx_tos4_get_prop_name(file.get(), 0), "Höhe");
    EXPECT_STREQ(vx_tos4_get_prop_caption(file.get(), 0), "Height above the sea");
    EXPECT_STREQ(vx_tos4_get_prop_caption(file.get(), 1), "few");
    EXPECT_STREQ(vx_tos4_get_prop_name(file.get(), 3), "");
    EXPECT_EQ(vx_tos4_find_prop_w(file.get(), L"few"), 1);
    EXPECT_EQ(vx_tos4_find_prop_w(file.get(), L"Few"), -1);
    Tvx_tos4_grid back;
    vx_tos4_get_grid(file.get(), &back);
    EXPECT_TRUE(back.dimensions == 3 && std::ranges::equal(back.count, grid.count) &&
                std::ranges::equal(back.origin, grid.origin) &&
                std::ranges::equal(back.spacing, grid.spacing) && back.azimuth == 30);
    std::wstring name;
    vx_tos4_prop_get_prop_file_name_w(file.get(), 0, Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, wide(dir / "Seiches & 100% #1?") + L".Höhe.tos");

    prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
    std::mt19937 random(1);
    double value = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::size_t const at =
            i < 10'000 ? random() % heights.size() : static_cast<std::size_t>(i) % heights.size();
        ASSERT_EQ(vx_tos4_prop_get_value_double(prop.get(), at, &value), !std::isnan(heights[at]));
        ASSERT_EQ(value, std::isnan(heights[at]) ? 0 : heights[at]);
    }
    EXPECT_FALSE(vx_tos4_prop_get_value_double(prop.get(), heights.size(), &value));
    expect_stat(prop.get(), heights);
    ASSERT_EQ(vx_tos4_prop_get_histogram_count(prop.get()), 256U);
    double const low = vx_tos4_prop_get_histogram_hgbndmin(prop.get());
    double const width = (vx_tos4_prop_get_histogram_hgbndmax(prop.get()) - low) / 256;
    std::vector<int> counts(256);
    for (double const v : heights)
        if (!std::isnan(v))
            ++counts[std::min<std::size_t>(255, static_cast<std::size_t>((v - low) / width))];
    for (unsigned i = 0; i < 256; ++i)
        EXPECT_EQ(vx_tos4_prop_get_histogram_value(prop.get(), i), counts[i]) << i;

    prop_ptr const rest(vx_tos4_prop_open(file.get(), 1));
    EXPECT_TRUE(vx_tos4_prop_get_value_double(rest.get(), 999, &value));
    EXPECT_FALSE(vx_tos4_prop_get_value_double(rest.get(), 1000, &value));
    prop_ptr const nothing(vx_tos4_prop_open(file.get(), 2));
    EXPECT_FALSE(vx_tos4_prop_get_statistic_exist(nothing.get()));
    EXPECT_FALSE(vx_tos4_prop_histogram_update(nothing.get()));
    EXPECT_FALSE(vx_tos4_prop_is_damaged(nothing.get()));
}

TEST(tos_file, refuses_what_cannot_be_made)
{
    vx_test::temp_dir const dir;
    auto const refused = [&](char const *name, Tvx_tos4_grid grid) {
        writer_ptr const writer(vx_tos4_writer_create_w(wide(dir / name).c_str(), &grid, L""));
        return !writer && !last_error().empty();
    };
    auto const big = 1ULL << 40;
    EXPECT_FALSE(refused("a.tos", {3, {1ULL << 20, 1ULL << 20, 1}}));
    EXPECT_TRUE(refused("a.tos", {3, {1ULL << 20, 1ULL << 20, 2}}));
    EXPECT_TRUE(refused("a.tos", {3, {big, big, big}}));
    EXPECT_TRUE(refused("a.tos", {2, {5, 5, 5}}));
    EXPECT_TRUE(refused("a.tos", {2, {5, 0, 1}}));
    EXPECT_TRUE(refused("a.tos", {4, {5, 5, 1}}));
    EXPECT_TRUE(refused("a.tos", {2, {5, 5, 1}, {0, HUGE_VAL, 0}}));
    EXPECT_TRUE(refused("a.tos", {2, {5, 5, 1}, {0, 0, 0}, {1, 0, 1}}));
    EXPECT_TRUE(refused("no/such/folder.tos", {}));
    EXPECT_EQ(dir.count(), 0) << "nothing is left";
    EXPECT_FALSE(open_file(dir / "absent.tos"));
    EXPECT_FALSE(open_file(dir.path()));
}

TEST(tos_file, gets_more_properties)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "a.tos4";
    auto const first = some_values(10'000), second = some_values(10'000, 3), third = some_values(10'000, 0.1);
    ASSERT_TRUE(make_file(path, {first, second}, false));
    auto const before = open_file(path);
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(before.get(), &grid);
    auto const add = [&](Ivx_tos4_file *from, Tvx_tos4_grid const &of) {
        writer_ptr const writer(vx_tos4_writer_create_w(wide(path).c_str(), &of, L""));
        return vx_tos4_writer_take_props(writer.get(), from) &&
               vx_tos4_writer_add_prop_w(writer.get(), L"more", L"More of them") &&
               vx_tos4_writer_append(writer.get(), third.data(), third.size()) &&
               vx_tos4_writer_finish(writer.get());
    };
    ASSERT_TRUE(add(before.get(), grid));
    EXPECT_EQ(vx_tos4_get_prop_count(before.get()), 2u) << "who reads goes on with the former one";
    auto const after = open_file(path);
    ASSERT_EQ(vx_tos4_get_prop_count(after.get()), 3u);
    EXPECT_EQ(vx_tos4_find_prop_w(after.get(), L"more"), 2);
    std::vector<double> const *const wanted[] = {&first, &second, &third};
    for (unsigned i = 0; i < 3; ++i) {
        auto const values = values_of(path, i);
        EXPECT_TRUE(std::ranges::equal(values, *wanted[i], [](double a, double b) {
            return a == b || (std::isnan(a) && std::isnan(b));
        })) << i;
        prop_ptr const prop(vx_tos4_prop_open(after.get(), i));
        EXPECT_TRUE(vx_tos4_prop_get_statistic_exist(prop.get()) &&
                    vx_tos4_prop_get_histogram_exist(prop.get()));
        EXPECT_EQ(vx_tos4_prop_get_statistic_max(prop.get()),
                  *std::ranges::max_element(values,
                                            [](double a, double b) { return !(b <= a) && !std::isnan(b); }));
    }
    // The name is there already, the objects are others, a block is damaged: the file stays.
    EXPECT_FALSE(add(after.get(), grid));
    grid.count[0] = 9'999;
    EXPECT_FALSE(add(before.get(), grid));
    grid.count[0] = 10'000;
    ASSERT_TRUE(make_file(dir / "b.tos4", {first}, false));
    run_sql(dir / "b.tos4", "UPDATE tos_block SET cells = x'00'");
    EXPECT_FALSE(add(open_file(dir / "b.tos4").get(), grid));
    EXPECT_FALSE(last_error().empty());
    EXPECT_EQ(vx_tos4_get_prop_count(open_file(path).get()), 3u);
    EXPECT_EQ(dir.count(), 2);
}

TEST(tos_file, statistics_are_made_once)
{
    vx_test::temp_dir const dir;
    auto const values = some_values(50'000, 0.1);
    auto const path = dir / "a.tos";
    ASSERT_TRUE(make_file(path, {values, std::vector<double>(50'000, c_none)}, false));
    auto const before = vx_test::read_file(path);
    {
        watched_disk disk;
        // For reading: in memory, and only there.
        for (int round = 0; round < 2; ++round) {
            auto const file = open_file(path);
            prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
            EXPECT_EQ(vx_tos4_prop_get_histogram_exist(prop.get()), round == 1);
            disk.bytes_read = 0;
            if (!vx_tos4_prop_get_histogram_exist(prop.get())) {
                ASSERT_TRUE(vx_tos4_prop_histogram_update(prop.get()));
            }
            expect_stat(prop.get(), values);
            EXPECT_EQ(disk.bytes_read > 40'000, round == 0) << "cells are read once";
        }
        EXPECT_EQ(vx_test::read_file(path), before);
        EXPECT_EQ(dir.count(), 1);
        // For writing: in the file, where everybody finds them.
        auto const file = open_file(path, false);
        for (unsigned i = 0; i < 2; ++i) {
            prop_ptr const prop(vx_tos4_prop_open(file.get(), i));
            ASSERT_TRUE(vx_tos4_prop_statistic_update(prop.get())) << vx::text::wide_to_utf8(last_error());
            EXPECT_EQ(vx_tos4_prop_histogram_update(prop.get()), i == 0);
        }
    }
    EXPECT_EQ(dir.count(), 1);
    std::filesystem::copy_file(path, dir / "b.tos");
    auto const file = open_file(dir / "b.tos");
    prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
    watched_disk disk;
    expect_stat(prop.get(), values);
    EXPECT_TRUE(vx_tos4_prop_get_histogram_exist(prop.get()));
    EXPECT_LT(disk.bytes_read, 100'000) << "of the cells none";
    EXPECT_TRUE(same(values_of(dir / "b.tos"), values));
}

TEST(tos_file, a_reader_goes_on_with_the_file_that_it_opened)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "a.tos";
    auto const old_values = some_values(100'000, 0.3), new_values = some_values(100'000, 7.1);
    ASSERT_TRUE(make_file(path, {old_values}, false));
    auto const reader = open_file(path);
    auto const writer = open_file(path, false);
    prop_ptr const prop(vx_tos4_prop_open(reader.get(), 0));
    double value = 0;
    EXPECT_TRUE(vx_tos4_prop_get_value_double(prop.get(), 0, &value));
    ASSERT_TRUE(in_process([&] {
        if (!make_file(path, {new_values}, false))
            abort();
    }));
    for (std::size_t i = 0; i < old_values.size(); i += 11)
        ASSERT_TRUE(vx_tos4_prop_get_value_double(prop.get(), i, &value) ? value == old_values[i]
                                                                         : std::isnan(old_values[i]));
    // Statistics of the former file come into no other one.
    prop_ptr const late(vx_tos4_prop_open(writer.get(), 0));
    EXPECT_FALSE(vx_tos4_prop_statistic_update(late.get()));
    auto const now = open_file(path);
    prop_ptr const other(vx_tos4_prop_open(now.get(), 0));
    EXPECT_FALSE(vx_tos4_prop_get_statistic_exist(other.get()));
    EXPECT_TRUE(vx_tos4_prop_histogram_update(other.get()));
    expect_stat(other.get(), new_values);
}

TEST(tos_file, another_writer_is_waited_for_and_readers_are_not_in_the_way)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "a.tos";
    auto const values = some_values(5000);
    ASSERT_TRUE(make_file(path, {values, values, values, values}, false));
    auto const reader = open_file(path);
    std::vector<prop_ptr> open;
    for (unsigned i = 0; i < 4; ++i)
        open.emplace_back(vx_tos4_prop_open(reader.get(), i));
    std::vector<pid_t> children;
    for (unsigned i = 0; i < 4; ++i)
        if (children.push_back(fork()); children.back() == 0) {
            auto const file = open_file(path, false);
            prop_ptr const prop(vx_tos4_prop_open(file.get(), i));
            bool good = true;
            for (int round = 0; round < 20; ++round)
                good = vx_tos4_prop_histogram_update(prop.get()) && good;
            _exit(good ? 0 : 1);
        }
    for (auto const child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    for (auto const &prop : open)
        expect_stat(prop.get(), values);
}

TEST(tos_file, a_read_only_folder_is_enough_to_read)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "a.tos";
    ASSERT_TRUE(make_file(path, {some_values(5000)}, false));
    chmod(path.c_str(), 0444);
    chmod(dir.path().c_str(), 0555);
    EXPECT_TRUE(in_process([&] {
        constexpr uid_t c_nobody = 65534; // root may write everywhere
        bool good = geteuid() != 0 || setuid(c_nobody) == 0;
        {
            auto const file = open_file(path);
            prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
            good = good && vx_tos4_prop_histogram_update(prop.get()) && !open_file(path, false) &&
                   last_error().find(wide(path)) != std::wstring::npos;
        }
        if (!good)
            (void)kill(getpid(), SIGKILL);
    }));
    chmod(dir.path().c_str(), 0755);
}

TEST(tos_file, hostile_files_are_refused_or_read_as_far_as_they_go)
{
    vx_test::temp_dir const dir;
    auto const good = dir / "good.tos";
    auto const values = some_values(3000);
    ASSERT_TRUE(make_file(good, {values, values}));
    enum outcome
    {
        refused,
        damaged,      ///< opens, and values cannot be read
        other_values, ///< opens, without a value that was there
        unharmed
    };
    struct
    {
        char const *words; ///< what was done to the file
        outcome wanted;
    } const cases[] = {
        {"PRAGMA application_id = 1", refused},
        {"PRAGMA user_version = 2", refused},
        {"PRAGMA journal_mode = WAL", refused},
        {"UPDATE tos_file SET objects = 1099511627776", refused},
        {"UPDATE tos_file SET objects = 9223372036854775807, nx = 9223372036854775807", refused},
        {"UPDATE tos_file SET nx = -3000, objects = -3000", refused},
        {"UPDATE tos_file SET nx = 0, objects = 0", refused},
        {"UPDATE tos_file SET ny = 4294967296, nx = 4294967296, dimensions = 2, objects = 0", refused},
        {"UPDATE tos_file SET dx = 0.0", refused},
        {"UPDATE tos_file SET dx = 9e999", refused},
        {"UPDATE tos_file SET identity = 'text'", refused},
        {"DELETE FROM tos_file", refused},
        {"DELETE FROM tos_property WHERE id = 0", refused},
        {"UPDATE tos_property SET name = ''", refused},
        {"UPDATE tos_property SET name = x'00'", refused},
        {"UPDATE tos_property SET caption = printf('%.*c', 40000, 'x')", refused},
        {"DROP TABLE tos_record", refused},
        {"DROP TABLE tos_block; CREATE VIEW tos_block AS SELECT 1 AS id, zeroblob(9) AS cells", refused},
        {"DROP TABLE tos_block; CREATE TABLE tos_block(id INTEGER PRIMARY KEY, cells AS (zeroblob(id)))",
         refused},
        {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) INSERT INTO "
         "tos_property SELECT i + 1, 'n' || i, '' FROM n",
         refused},
        {"UPDATE tos_block SET cells = x''", damaged},
        {"UPDATE tos_block SET cells = cells || x'00'", damaged},
        {"UPDATE tos_block SET cells = substr(cells, 1, 100)", damaged},
        {"UPDATE tos_block SET cells = zeroblob(20000000)", damaged},
        {"UPDATE tos_block SET cells = 'some text'", damaged},
        {"UPDATE tos_block SET cells = x'0435040000000000000000'", damaged},
        {"UPDATE tos_block SET cells = x'02' || zeroblob(7806) || x'f07f'", damaged},
        {"UPDATE tos_block SET cells = x'01000000000000f07f'", other_values},
        {"UPDATE tos_record SET a = zeroblob(1), b = zeroblob(100000)", unharmed},
        {"DELETE FROM tos_record", unharmed},
        {"INSERT INTO tos_block VALUES(-1, x''), (9223372036854775807, x'')", unharmed},
        {"CREATE TABLE other(a); INSERT INTO other VALUES(1)", unharmed},
        {"CREATE TRIGGER t AFTER UPDATE ON tos_record BEGIN DELETE FROM tos_block; END", unharmed},
        {"CREATE VIEW v AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i FROM n) SELECT i FROM n",
         unharmed},
        {"CREATE INDEX i ON tos_block(length(cells))", unharmed},
    };
    for (auto const &c : cases) {
        auto const path = dir / "bad.tos";
        std::filesystem::remove(path);
        std::filesystem::copy_file(good, path);
        run_sql(path, c.words);
        auto const file = open_file(path);
        EXPECT_EQ(file == nullptr, c.wanted == refused) << c.words;
        EXPECT_EQ(!last_error().empty(), c.wanted == refused) << c.words;
        ask_all(path);
        if (!file)
            continue;
        // Nothing that somebody put in is run by a writing of our own.
        auto const writable = open_file(path, false);
        prop_ptr const changed(vx_tos4_prop_open(writable.get(), 0));
        bool const is_updated = vx_tos4_prop_statistic_update(changed.get());
        EXPECT_EQ(vx_tos4_prop_is_damaged(changed.get()), c.wanted == damaged) << c.words;
        EXPECT_FALSE(is_updated && c.wanted == damaged) << c.words;
        EXPECT_EQ(c.wanted != damaged && same(values_of(path), values), c.wanted == unharmed) << c.words;
    }
    auto const bytes = vx_test::read_file(good);
    for (std::size_t size = 0; size < bytes.size(); size += 1021) {
        vx_test::write_file(dir / "cut.tos", std::string_view(bytes).substr(0, size));
        EXPECT_FALSE(open_file(dir / "cut.tos")) << size;
    }
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        std::string spoilt = bytes;
        for (int k = 0; k < 1 + i % 20; ++k)
            spoilt[random() % spoilt.size()] = static_cast<char>(random());
        vx_test::write_file(dir / "spoilt.tos", spoilt);
        ask_all(dir / "spoilt.tos");
    }
}

TEST(tos_file, a_broken_off_writer_leaves_the_old_or_the_new_file)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "a.tos";
    auto const old_values = some_values(4000, 0.3), new_values = some_values(4000, 7.1);
    using ending = watched_disk::at_the_end;
    for (auto const end : {ending::failure, ending::kill}) {
        bool is_over = false;
        for (int writes = 0; !is_over && writes < 500; ++writes) {
            ASSERT_TRUE(make_file(path, {old_values}));
            bool good = false;
            if (end == ending::kill) {
                is_over = in_process([&] {
                    watched_disk const disk(writes, end);
                    (void)make_file(path, {new_values});
                });
            } else {
                watched_disk const disk(writes, end);
                good = make_file(path, {new_values});
                is_over = !disk.has_ended();
                EXPECT_TRUE(good || !last_error().empty()) << writes;
            }
            auto const back = values_of(path);
            ASSERT_TRUE(same(back, old_values) || same(back, new_values)) << writes;
            if (good || is_over) {
                ASSERT_TRUE(same(back, new_values)) << writes;
            }
        }
        EXPECT_TRUE(is_over);
        ASSERT_TRUE(make_file(path, {old_values}));
        EXPECT_EQ(dir.count(), 1) << "the next one clears up";
    }
}

TEST(tos_file, a_broken_off_statistics_update_leaves_the_old_or_the_new_ones)
{
    vx_test::temp_dir const dir;
    auto const path = dir / "a.tos";
    auto const values = some_values(4000);
    using ending = watched_disk::at_the_end;
    for (bool const has_statistics : {false, true})
        for (auto const end : {ending::failure, ending::kill}) {
            bool is_over = false;
            for (int writes = 0; !is_over && writes < 100; ++writes) {
                ASSERT_TRUE(make_file(path, {values}, has_statistics));
                auto const update = [&] {
                    auto const file = open_file(path, false);
                    prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
                    return vx_tos4_prop_histogram_update(prop.get());
                };
                if (end == ending::kill) {
                    is_over = in_process([&] {
                        watched_disk const disk(writes, end);
                        (void)update();
                    });
                } else {
                    watched_disk const disk(writes, end);
                    bool const good = update();
                    is_over = !disk.has_ended();
                    EXPECT_TRUE(good || !last_error().empty());
                }
                auto const file = open_file(path);
                ASSERT_TRUE(file) << writes;
                prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
                if (vx_tos4_prop_get_statistic_exist(prop.get()) || has_statistics || is_over)
                    expect_stat(prop.get(), values);
                if (vx_tos4_prop_get_histogram_exist(prop.get())) {
                    int cells = 0;
                    for (unsigned i = 0; i < 256; ++i)
                        cells += vx_tos4_prop_get_histogram_value(prop.get(), i);
                    EXPECT_EQ(cells, std::ranges::count_if(values, [](double v) { return !std::isnan(v); }));
                }
                EXPECT_TRUE(same(values_of(path), values));
                EXPECT_TRUE(update()) << "and it can be done again";
            }
            EXPECT_TRUE(is_over);
            EXPECT_EQ(dir.count(), 1);
        }
}
