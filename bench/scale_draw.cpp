// Draws a million points in one style and through a value scale of ten thousand entries, and prints how much
// the look-up adds. The data set is made for the run with the raw driver and removed at the end.

#include "platform/base/owned.h"
#include "platform/basic/vx_bundle.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>

namespace {
constexpr int c_points = 1'000'000;
constexpr int c_entries = 10'000;
constexpr int c_runs = 7;

bool make_points(std::string const &file)
{
    GDALAllRegister();
    GDALDriver *driver = GetGDALDriverManager()->GetDriverByName("FlatGeobuf");
    GDALDataset *set = driver ? driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr) : nullptr;
    if (!set)
        return false;
    char *options[] = {const_cast<char *>("SPATIAL_INDEX=NO"), nullptr};
    OGRLayer *layer = set->CreateLayer("points", nullptr, wkbPoint, options);
    OGRFieldDefn name("NAME", OFTString);
    OGRFieldDefn value("VALUE", OFTReal);
    bool ok = layer && layer->CreateField(&name) == OGRERR_NONE && layer->CreateField(&value) == OGRERR_NONE;
    std::mt19937 random(1);
    for (int i = 0; ok && i < c_points; ++i) {
        int const kind = static_cast<int>(random() % c_entries);
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField(0, ("category " + std::to_string(kind)).c_str());
        feature.SetField(1, static_cast<double>(kind));
        OGRPoint point(random() % 10000 / 10.0, random() % 10000 / 10.0);
        feature.SetGeometry(&point);
        ok = layer->CreateFeature(&feature) == OGRERR_NONE;
    }
    GDALClose(set);
    return ok;
}

/// Processor time of one drawing in milliseconds, which other programs on the machine do not lengthen; -1 if
/// it fails.
double draw_time(Ivx_layer *layer, Tvx_map_view const &view, void *dc)
{
    std::clock_t const start = std::clock();
    if (!vx_render_layer(layer, view, dc))
        return -1;
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}
} // namespace

int main()
{
    auto const folder =
        std::filesystem::temp_directory_path() / ("vx_scale_draw_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    auto const file = folder / "points.fgb";
    int result = 1;
    if (make_points(file.string())) {
        vx_bundles_load();
        std::wstring error;
        vx::owned<Ivx_layer, &vx_lr2d_destroy> const layer(
            vx_shp_lr2d_open(file.wstring().c_str(), Tvx_std_wstring_adapter(error)));
        if (layer) {
            Tvx_map_view view;
            view.world.add(0, 0);
            view.world.add(1000, 1000);
            view.width = view.height = 1000;
            vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
            vx_bmp_dc_set_nxy(dc.get(), 1000, 1000);
            void *mngr = vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer.get());
            void *values = vx_stl_mngr_get_val_scale_ptr(mngr);
            vx_val_scale_set_size(values, c_entries);
            void *ranges = vx_stl_mngr_get_rng_scale_ptr(mngr);
            vx_rng_scale_set_size(ranges, c_entries);
            vx_rng_scale_set_max_value(ranges, c_entries);
            for (unsigned i = 0; i < c_entries; ++i) {
                vx_val_scale_set_text_w(values, i, (L"category " + std::to_wstring(i)).c_str());
                vx_rng_scale_set_min(ranges, i, i);
                vx_rng_scale_set_max(ranges, i, i + 1);
            }
            vx_stl_mngr_set_val_prop_name_w(mngr, L"NAME");
            vx_stl_mngr_set_rng_prop_name_w(mngr, L"VALUE");
            // In turn, so that whatever slows the machine down meets all three alike; the best of each.
            constexpr unsigned modes[] = {c_stl_mngr_mode_simple, c_stl_mngr_mode_value,
                                          c_stl_mngr_mode_range};
            double best[] = {1e300, 1e300, 1e300};
            for (int run = 0; run < c_runs; ++run)
                for (int m = 0; m < 3; ++m) {
                    vx_stl_mngr_set_mode(mngr, modes[m]);
                    best[m] = std::min(best[m], draw_time(layer.get(), view, dc.get()));
                }
            auto const [simple, by_value, by_range] = best;
            std::printf("%d points, one style:        %8.1f ms\n", c_points, simple);
            std::printf("value scale of %d entries:    %8.1f ms, %.2f times\n", c_entries, by_value,
                        by_value / simple);
            std::printf("range scale of %d ranges:     %8.1f ms, %.2f times\n", c_entries, by_range,
                        by_range / simple);
            result = simple > 0 && by_value > 0 && by_range > 0 ? 0 : 1;
        } else {
            std::printf("%ls\n", error.c_str());
        }
    }
    std::filesystem::remove_all(folder);
    return result;
}
