// How long a million points take to tell which of them lie in a window, against a loop over an array of their
// coordinates, and the memory that they take.

#include "platform/base/owned.h"
#include "platform/basic/vx_bundle.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <malloc.h>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {
constexpr int c_points = 1'000'000;
constexpr double c_extent = 1000;
constexpr int c_runs = 9;

double heap_bytes()
{
    auto const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

bool make_points(std::string const &file)
{
    GDALAllRegister();
    GDALDriver *driver = GetGDALDriverManager()->GetDriverByName("FlatGeobuf");
    GDALDataset *set = driver ? driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr) : nullptr;
    if (!set)
        return false;
    char *options[] = {const_cast<char *>("SPATIAL_INDEX=NO"), nullptr};
    OGRLayer *layer = set->CreateLayer("points", nullptr, wkbPoint, options);
    bool ok = layer != nullptr;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, c_extent);
    for (int i = 0; ok && i < c_points; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        OGRPoint point(place(random), place(random));
        feature.SetGeometry(&point);
        ok = layer->CreateFeature(&feature) == OGRERR_NONE;
    }
    GDALClose(set);
    return ok;
}

/// Microseconds, the best of some runs.
template <class Run>
double best_time(Run run)
{
    double best = 1e300;
    for (int i = 0; i < c_runs; ++i) {
        auto const start = std::chrono::steady_clock::now();
        run();
        best = std::min(
            best,
            std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

bool count_one(unsigned, Tvx_shape_view const *, void *user)
{
    ++*static_cast<std::size_t *>(user);
    return true;
}

int measure(std::wstring const &file)
{
    vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(vx_attr_data_create(file.c_str()));
    double const before = heap_bytes();
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(vx_shape_files_open(data.get()));
    if (!shapes)
        return 1;
    double const read = heap_bytes();
    std::vector<Tvx_pnt_d2> plain;
    for (unsigned i = 0; i < vx_shape_files_get_count(shapes.get()); ++i) {
        Tvx_shape_view view;
        vx_shape_files_get(shapes.get(), i, &view);
        plain.push_back(view.points[view.part_starts[0]]);
    }
    for (double const side : {1.0, 10.0, 100.0, 200.0, c_extent}) {
        Tvx_box_d2 const window{0.3 * (c_extent - side), 0.4 * (c_extent - side),
                                0.3 * (c_extent - side) + side, 0.4 * (c_extent - side) + side};
        std::size_t found = 0;
        double const asked = best_time([&] {
            found = 0;
            vx_shape_files_visit(shapes.get(), &window, count_one, &found);
        });
        std::size_t counted = 0;
        double const looped = best_time([&] {
            counted = 0;
            for (Tvx_pnt_d2 const &p : plain)
                counted +=
                    p.x >= window.min_x && p.x <= window.max_x && p.y >= window.min_y && p.y <= window.max_y;
        });
        if (found != counted)
            return 1;
        std::printf("window of %8.4f %% of the extent: %7zu points, %9.1f us, %.4f times the loop\n",
                    100 * side * side / (c_extent * c_extent), found, asked, asked / looped);
    }
    plain = std::vector<Tvx_pnt_d2>(); // lets go of its memory
    double const with_grid = heap_bytes();
    std::printf("bytes a point: %.1f after reading, %.1f with the grid\n", (read - before) / c_points,
                (with_grid - before) / c_points);
    return 0;
}
} // namespace

int main()
{
    auto const folder =
        std::filesystem::temp_directory_path() / ("vx_shape_windows_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    auto const file = folder / "points.fgb";
    int result = 1;
    if (make_points(file.string())) {
        vx_bundles_load();
        result = measure(file.wstring());
    }
    std::filesystem::remove_all(folder);
    return result;
}
