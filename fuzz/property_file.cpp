#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/data/vx_file_tos4.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

// A property file from a stranger: all that is asked ends, and what is given can be. The head is put right,
// since a file whose head is wrong is refused before anything else of it is read.

namespace {
void put(std::vector<std::uint8_t> &bytes, std::size_t at, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes[at++] = static_cast<std::uint8_t>(value >> shift);
}

std::vector<std::uint8_t> with_right_head(std::uint8_t const *data, std::size_t size)
{
    constexpr std::size_t c_page = 1024;
    std::vector<std::uint8_t> bytes(data, data + size);
    bytes.resize(std::max<std::size_t>(1, (size + c_page - 1) / c_page) * c_page);
    std::copy_n("SQLite format 3\0\x04\0\x01\x01\0\x40\x20\x20", 24, bytes.begin());
    put(bytes, 28, static_cast<std::uint32_t>(bytes.size() / c_page));
    put(bytes, 92,
        static_cast<std::uint32_t>(bytes[24] << 24 | bytes[25] << 16 | bytes[26] << 8 | bytes[27]));
    put(bytes, 52, 0);
    put(bytes, 56, 1);
    put(bytes, 60, 1);
    put(bytes, 68, 0x76787073);
    return bytes;
}

void ask(Ivx_tos4_file *file, unsigned i)
{
    vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> const prop(vx_tos4_prop_open(file, i));
    must(prop != nullptr && *vx_tos4_get_prop_name(file, i) != '\0');
    auto const objects = vx_tos4_get_object_count_64(file);
    for (auto const at : {0ULL, 1ULL, 975ULL, 976ULL, objects / 2, objects - 1, objects, ~0ULL}) {
        double value = 1;
        bool const has = vx_tos4_prop_get_value_double(prop.get(), at, &value);
        must(value == value && (has ? at < objects : value == 0));
    }
    bool const is_made = vx_tos4_prop_histogram_update(prop.get());
    bool const has_stat = vx_tos4_prop_get_statistic_exist(prop.get());
    must(!is_made || has_stat);
    double const average = vx_tos4_prop_get_statistic_average(prop.get());
    must(vx_tos4_prop_get_statistic_min(prop.get()) <= average &&
         average <= vx_tos4_prop_get_statistic_max(prop.get()));
    for (unsigned k = 0; k <= vx_tos4_prop_get_histogram_count(prop.get()); ++k)
        must(vx_tos4_prop_get_histogram_value(prop.get(), k) >= 0);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    static saved_file const place;
    auto const path = place.path();
    std::string const name(path.begin(), path.end());
    auto const bytes = with_right_head(data, size);
    {
        FILE *const out = std::fopen(name.c_str(), "wb");
        must(out && std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size());
        std::fclose(out);
    }
    using file_ptr = vx::owned<Ivx_tos4_file, &vx_tos4_file_close>;
    if (file_ptr const file(vx_tos4_file_open_w(path.c_str(), true)); file) {
        Tvx_tos4_grid grid;
        vx_tos4_get_grid(file.get(), &grid);
        must(grid.objects() == vx_tos4_get_object_count_64(file.get()) &&
             grid.objects() <= c_tos4_most_objects);
        for (unsigned i = 0; i < std::min(vx_tos4_get_prop_count(file.get()), 4U); ++i)
            ask(file.get(), i);
    }
    if (file_ptr const file(vx_tos4_file_open_w(path.c_str(), false));
        file && vx_tos4_get_prop_count(file.get()) > 0) {
        vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> const prop(vx_tos4_prop_open(file.get(), 0));
        (void)vx_tos4_prop_statistic_update(prop.get());
        must(file_ptr(vx_tos4_file_open_w(path.c_str(), true)) != nullptr);
    }
    return 0;
}
