#pragma once

#include "sample_table.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace vx_bench {
inline constexpr int c_codes = 42'049; ///< synthetic postal codes

/// As many points as there are codes, each with its own, in no order.
inline std::string code_file()
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    auto const file = (folder / "codes.gpkg").string();
    if (std::filesystem::exists(file))
        return file;
    auto *const driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    std::unique_ptr<GDALDataset> const set(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer = set->CreateLayer("points", nullptr, wkbPoint);
    OGRFieldDefn code("code", OFTString);
    layer->CreateField(&code);
    (void)set->StartTransaction();
    for (int i = 0; i < c_codes; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        OGRPoint const point(i % 1000, i / 1000);
        feature.SetGeometry(&point);
        char text[16];
        std::snprintf(text, sizeof text, "%05d", static_cast<int>(i * 31'337LL % c_codes) + 10'000);
        feature.SetField(0, text);
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            std::abort();
    }
    (void)set->CommitTransaction();
    return file;
}
} // namespace vx_bench
