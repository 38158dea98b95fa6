// What scale files cost: loading and saving a long value scale against what the XML library alone needs to
// read and write the same bytes, and the memory of a loaded entry.

#include "platform/base/owned.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/winapi/file.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <malloc.h>
#include <string>
#include <vector>

namespace {
constexpr unsigned c_entries = 100'000;
constexpr int c_rounds = 5;

using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

template <class F>
double best_seconds(F run)
{
    double best = 1e9;
    for (int i = 0; i < c_rounds; ++i) {
        auto const start = std::chrono::steady_clock::now();
        run();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

double heap_bytes()
{
    auto const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void fill(void *scale, bool own_colors)
{
    vx_val_scale_set_size(scale, c_entries);
    for (unsigned i = 0; i < c_entries; ++i) {
        std::wstring const text = L"municipality " + std::to_wstring(i);
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
        if (own_colors)
            vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)),
                                 false, vx_clr_init_int(static_cast<int>(i * 97)));
    }
}

void must(bool good)
{
    if (!good) {
        std::puts("a file could not be written or read");
        std::exit(1);
    }
}

/// The disk's own speed is no matter of the file format: what both ways write stays in memory.
void without_flush()
{
    auto calls = vx_set_file_calls(nullptr);
    calls.fsync = [](int) { return 0; };
    vx_set_file_calls(&calls);
}

void measure(char const *type, bool own_colors)
{
    auto const directory = std::filesystem::temp_directory_path();
    auto const ours = (directory / "vx_bench_scale._vl").wstring();
    auto const plain = (directory / "vx_bench_plain.xml").string();
    owned_mngr const mngr(vx_stl_mngr_create(type));
    fill(vx_stl_mngr_get_val_scale_ptr(mngr.get()), own_colors);
    double const save =
        best_seconds([&] { must(vx_xml_data_save_val_scale_w(nullptr, ours.c_str(), mngr.get(), type)); });

    pugi::xml_document doc;
    must(static_cast<bool>(doc.load_file(std::filesystem::path(ours).c_str())));
    double const plain_save = best_seconds([&] { must(doc.save_file(plain.c_str(), " ")); });
    double const plain_load = best_seconds([&] {
        pugi::xml_document other;
        must(static_cast<bool>(other.load_file(plain.c_str())));
    });

    double bytes = 0;
    double const load = best_seconds([&] {
        double const before = heap_bytes();
        owned_mngr const other(vx_stl_mngr_create(type));
        must(vx_xml_data_load_val_scale_w(nullptr, ours.c_str(), other.get(), type));
        bytes = heap_bytes() - before;
    });
    std::printf("%-10s %-14s file %5.1f MB   load %4.0f ms (%.1f x)   save %4.0f ms (%.1f x)   "
                "%4.0f bytes an entry\n",
                type, own_colors ? "own colours" : "default styles",
                static_cast<double>(std::filesystem::file_size(ours)) / 1e6, load * 1e3, load / plain_load,
                save * 1e3, save / plain_save, bytes / c_entries);
    std::filesystem::remove(ours);
    std::filesystem::remove(plain);
}
} // namespace

int main()
{
    without_flush();
    std::printf("value scales of %u entries; in brackets the ratio to the XML library alone\n", c_entries);
    for (auto const *type : {"pnt_style", "pln_style", "pgn_style", "clr_style"})
        for (bool const own_colors : {false, true})
            measure(type, own_colors);
}
