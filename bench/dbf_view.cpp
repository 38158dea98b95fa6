// A view of a dBase table of 1,000,000 records: what one repaint costs that opens the table, reads the 30 by
// 13 cells in sight and closes it, at places all over the table, against the same with GDAL.

#include "sample_table.h"

#include "platform/data/vx_dbf.h"

#include <string>

using namespace vx_bench;

namespace {
constexpr int c_repaints = 200;
constexpr int c_rows = 30;

/// First record in sight of each repaint.
int first_row(int repaint)
{
    return static_cast<int>(repaint * 7919LL * c_rows % (c_records - c_rows));
}

std::size_t plain_view(std::string const &file)
{
    std::size_t bytes = 0;
    for (int i = 0; i < c_repaints; ++i) {
        std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
        auto *const layer = set->GetLayer(0);
        (void)layer->SetNextByIndex(first_row(i));
        for (int row = 0; row < c_rows; ++row) {
            std::unique_ptr<OGRFeature> const feature(layer->GetNextFeature());
            for (int field = 0; field < feature->GetFieldCount(); ++field)
                bytes += std::string_view(feature->GetFieldAsString(field)).size();
        }
    }
    return bytes;
}

std::size_t own_view(std::string const &file)
{
    std::size_t bytes = 0;
    for (int i = 0; i < c_repaints; ++i) {
        vx::dbf_handle const table(vx_dbf_open(file.c_str(), 1, 0));
        if (vx_dbf_get_nr(table.get()) != c_records)
            std::abort();
        for (int row = 0; row < c_rows; ++row)
            for (int field = 0; field < vx_dbf_get_nf(table.get()); ++field)
                bytes +=
                    std::string_view(vx_dbf_get_str(table.get(), field, first_row(i) + row, nullptr)).size();
    }
    return bytes;
}
} // namespace

int main()
{
    GDALAllRegister();
    auto const shapes = sample_file("ESRI Shapefile", "points.shp");
    auto const file = shapes.substr(0, shapes.size() - 3) + "dbf";
    std::size_t bytes = 0;
    std::printf("%d repaints\n", c_repaints);
    auto const first = measure([&] { bytes += own_view(file); });
    std::printf("  first round, with one look at all deletion marks: %.0f ms\n", first.wall * 1e3);
    print("a screenful of cells",
          compare([&] { bytes += plain_view(file); }, [&] { bytes += own_view(file); }), 1.0);
    return bytes > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
