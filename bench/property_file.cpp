// A property of 10,000,000 objects: a walk over all cells and cells at random through the cell function, and
// the size of the file. Against a flat file of doubles: read and handed to a virtual call for each cell; 4 kB
// of it read at a random place for each.

#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_file_tos4.h"

#include <cmath>
#include <fcntl.h>
#include <functional>
#include <unistd.h>

using namespace vx_bench;

namespace {
constexpr std::size_t c_objects = 10'000'000;
constexpr std::size_t c_random_cells = 200'000;
constexpr std::size_t c_piece = 1 << 16;
constexpr std::size_t c_random_bytes = 4096;

struct receiver
{
    virtual ~receiver() = default;
    virtual void take(double value) = 0;
};
struct adder final : receiver
{
    void take(double value) override { sum += value; }
    double sum = 0;
};

struct kind
{
    char const *name;
    std::function<double(std::size_t)> cell;
    double bytes; ///< that a packed cell has
};

std::filesystem::path folder()
{
    auto const path = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(path);
    return path;
}

std::string make_flat(kind const &k)
{
    auto const path = (folder() / (std::string("property_") + k.name + ".flat")).string();
    FILE *const out = std::fopen(path.c_str(), "wb");
    for (std::size_t i = 0; i < c_objects; ++i) {
        double const value = k.cell(i);
        if (std::fwrite(&value, sizeof value, 1, out) != 1)
            std::abort();
    }
    std::fclose(out);
    return path;
}

std::wstring make_own(kind const &k)
{
    auto const path =
        vx::text::utf8_to_wide((folder() / (std::string("property_") + k.name + ".tos")).string());
    Tvx_tos4_grid grid;
    grid.count[0] = c_objects;
    vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
        vx_tos4_writer_create_w(path.c_str(), &grid, L""));
    std::vector<double> piece;
    bool good = vx_tos4_writer_add_prop_w(writer.get(), L"value", nullptr);
    for (std::size_t i = 0; i < c_objects; ++i) {
        piece.push_back(k.cell(i));
        if (piece.size() == c_piece || i + 1 == c_objects) {
            good = good && vx_tos4_writer_append(writer.get(), piece.data(), piece.size());
            piece.clear();
        }
    }
    if (!good || !vx_tos4_writer_finish(writer.get()))
        std::abort();
    return path;
}

double walk_flat(std::string const &path)
{
    adder all;
    receiver *const to = &all;
    std::vector<double> piece(c_piece / sizeof(double));
    int const file = open(path.c_str(), O_RDONLY);
    for (ssize_t got = 0; (got = read(file, piece.data(), c_piece)) > 0;)
        for (std::size_t i = 0; i < static_cast<std::size_t>(got) / sizeof(double); ++i)
            to->take(piece[i]);
    close(file);
    return all.sum;
}

using file_ptr = vx::owned<Ivx_tos4_file, &vx_tos4_file_close>;
using prop_ptr = vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close>;

double walk_own(std::wstring const &path)
{
    file_ptr const file(vx_tos4_file_open_w(path.c_str(), true));
    prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
    double sum = 0, value = 0;
    for (std::size_t i = 0; i < c_objects; ++i)
        if (vx_tos4_prop_get_value_double(prop.get(), i, &value))
            sum += value;
    return sum;
}

double random_flat(std::string const &path)
{
    std::mt19937_64 random(1);
    double sum = 0;
    std::vector<double> piece(c_random_bytes / sizeof(double));
    int const file = open(path.c_str(), O_RDONLY);
    for (std::size_t i = 0; i < c_random_cells; ++i) {
        auto const at = random() % (c_objects * sizeof(double) / c_random_bytes) * c_random_bytes;
        if (pread(file, piece.data(), c_random_bytes, static_cast<off_t>(at)) <= 0)
            std::abort();
        sum += piece[0];
    }
    close(file);
    return sum;
}

double random_own(std::wstring const &path)
{
    std::mt19937_64 random(1);
    file_ptr const file(vx_tos4_file_open_w(path.c_str(), true));
    prop_ptr const prop(vx_tos4_prop_open(file.get(), 0));
    double sum = 0, value = 0;
    for (std::size_t i = 0; i < c_random_cells; ++i)
        if (vx_tos4_prop_get_value_double(prop.get(), random() % c_objects, &value))
            sum += value;
    return sum;
}
} // namespace

int main()
{
    auto const mixed = [](std::size_t i) {
        std::uint64_t x = i * 0x9e3779b97f4a7c15ULL;
        x ^= x >> 29;
        return x * 0xbf58476d1ce4e5b9ULL >> 11;
    };
    kind const kinds[] = {
        {"double", [=](std::size_t i) { return std::sin(static_cast<double>(mixed(i))); }, 8},
        {"single", [=](std::size_t i) { return static_cast<double>(std::sin(static_cast<float>(mixed(i)))); },
         4},
        {"bytes", [=](std::size_t i) { return static_cast<double>(mixed(i) % 256); }, 1},
        {"metres",
         [=](std::size_t i) {
             return std::floor(1000 + 900 * std::sin(static_cast<double>(i) / 1e5)) +
                    static_cast<double>(mixed(i) % 16);
         },
         5.0 / 8},
    };
    for (auto const &k : kinds) {
        auto const flat = make_flat(k);
        auto const own = make_own(k);
        double const sums[] = {walk_flat(flat), walk_own(own)};
        if (std::fabs(sums[0] - sums[1]) > 1e-6 * std::fabs(sums[0]) + 1e-3)
            std::abort();
        std::printf("%s\n", k.name);
        print("  walk over 10,000,000 cells",
              compare([&] { return walk_flat(flat); }, [&] { return walk_own(own); }), 2.5);
        print("  200,000 cells at random",
              compare([&] { return random_flat(flat); }, [&] { return random_own(own); }), 5.0);
        double const size = static_cast<double>(std::filesystem::file_size(std::filesystem::path(own)));
        double const ratio = size / (k.bytes * static_cast<double>(c_objects));
        std::printf("  size of the file: %.1f MB, %.3f of the packed values, bound 1.1 %s\n", size / 1e6,
                    ratio, ratio <= 1.1 ? "" : "EXCEEDED");
        std::fflush(stdout);
        std::filesystem::remove(flat);
        std::filesystem::remove(std::filesystem::path(own));
    }
}
