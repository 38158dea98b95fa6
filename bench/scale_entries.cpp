// What an entry of a long scale costs: memory with default styles, with a colour of its own and in a clone,
// and how the time to find the entry of a value grows with the length of the scale.

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <random>
#include <string>
#include <vector>

namespace {
constexpr unsigned c_entries = 100'000;
constexpr unsigned c_values = 1'000'000;
unsigned volatile g_found; ///< what is found goes somewhere, so that it has to be looked for

using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

double heap_bytes()
{
    auto const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Of one length for all numbers, so that only the length of the scale counts.
std::wstring text_of(unsigned number)
{
    std::wstring const digits = std::to_wstring(number);
    return L"municipality " + std::wstring(6 - digits.size(), L'0') + digits;
}

void fill_values(void *scale, unsigned count)
{
    vx_val_scale_set_size(scale, count);
    for (unsigned i = 0; i < count; ++i) {
        std::wstring const text = text_of(i);
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
    }
}

void fill_ranges(void *scale, unsigned count)
{
    vx_rng_scale_set_size(scale, count);
    vx_rng_scale_set_max_value(scale, count);
    for (unsigned i = 0; i < count; ++i) {
        vx_rng_scale_set_min(scale, i, i);
        vx_rng_scale_set_max(scale, i, i + 1);
    }
}

void print_memory(char const *type)
{
    double const start = heap_bytes();
    owned_mngr const mngr(vx_stl_mngr_create(type));
    void *scale = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    fill_values(scale, c_entries);
    static_cast<void>(vx_val_scale_find_w(scale, L"x"));
    double const plain = heap_bytes();
    owned_mngr const clone(vx_stl_mngr_clone(mngr.get()));
    double const cloned = heap_bytes();
    for (unsigned i = 0; i < c_entries; ++i)
        vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)), false,
                             vx_clr_init_int(static_cast<int>(i)));
    double const coloured = heap_bytes();
    std::printf(
        "%-14s bytes an entry: default styles %4.0f, a clone of it %4.0f, each its own colour %4.0f\n", type,
        (plain - start) / c_entries, (cloned - plain) / c_entries,
        (plain - start + coloured - cloned) / c_entries);
}

/// Nanoseconds of processor time for one value, the best of some runs.
template <class Find>
double find_time(Find find)
{
    double best = 1e300;
    for (int run = 0; run < 5; ++run) {
        std::clock_t const start = std::clock();
        for (unsigned i = 0; i < c_values; ++i)
            g_found = static_cast<unsigned>(find(i));
        double const seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        best = std::min(best, 1e9 * seconds / c_values);
    }
    return best;
}
} // namespace

int main()
{
    for (char const *type : {c_pnt_style, c_pln_style, c_pgn_style, c_clr_style, c_txt_pnt_style})
        print_memory(type);
    // Values in no order, as data has them.
    std::mt19937 random(3);
    double first[2] = {0, 0};
    for (unsigned const size : {100u, 1'000u, 10'000u, 100'000u}) {
        owned_mngr const mngr(vx_stl_mngr_create(c_pnt_style));
        void *values = vx_stl_mngr_get_val_scale_ptr(mngr.get());
        void *ranges = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
        fill_values(values, size);
        fill_ranges(ranges, size);
        std::vector<std::wstring> texts(1 << 12);
        std::vector<double> numbers(texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            unsigned const n = random() % size;
            texts[i] = text_of(n);
            numbers[i] = n + 0.5;
        }
        std::size_t const mask = texts.size() - 1;
        double const times[] = {
            find_time([&](unsigned i) { return vx_val_scale_find_w(values, texts[i & mask].c_str()); }),
            find_time([&](unsigned i) { return vx_rng_scale_find(ranges, numbers[i & mask]); })};
        if (size == 100)
            std::copy(std::begin(times), std::end(times), first);
        std::printf(
            "%6u entries, one value: value scale %6.1f ns (%.2f times that of 100), range scale %6.1f ns "
            "(%.2f times)\n",
            size, times[0], times[0] / first[0], times[1], times[1] / first[1]);
    }
    return 0;
}
