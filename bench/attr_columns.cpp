#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

/// Reads the cells of one numeric field in random order, as an editor that draws by a scale does: through the
/// attribute table, and through GDAL feature by feature. Prints both times and their ratio, which is to stay
/// above 1, first read of the column included.
namespace {
constexpr int c_records = 50'000;
constexpr int c_reads = 200'000;
constexpr int c_text_fields = 6; ///< of each record; the plain way reads past them every time

std::string make_file(std::filesystem::path const &directory)
{
    auto const file = (directory / "points.shp").string();
    auto *const driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    std::unique_ptr<GDALDataset> const set(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer = set->CreateLayer("points", nullptr, wkbPoint);
    for (int i = 0; i < c_text_fields; ++i) {
        OGRFieldDefn text(("text" + std::to_string(i)).c_str(), OFTString);
        layer->CreateField(&text);
    }
    OGRFieldDefn value("value", OFTReal);
    layer->CreateField(&value);
    for (int i = 0; i < c_records; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        OGRPoint const point(i % 250, i / 250);
        feature.SetGeometry(&point);
        for (int f = 0; f < c_text_fields; ++f)
            feature.SetField(f, "some attribute text");
        feature.SetField(c_text_fields, i * 0.25);
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            return {};
    }
    return file;
}

template <class Work>
double seconds(Work work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}
} // namespace

int main()
{
    GDALAllRegister();
    auto const directory =
        std::filesystem::temp_directory_path() / ("vx_bench_" + std::to_string(std::random_device()()));
    std::filesystem::create_directory(directory);
    auto const file = make_file(directory);

    std::mt19937 random(1);
    std::vector<unsigned> order(c_reads);
    for (auto &record : order)
        record = static_cast<unsigned>(random() % c_records);

    double plain_sum = 0;
    auto const plain = seconds([&] {
        std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
        auto *const layer = set->GetLayer(0);
        for (auto const record : order) {
            OGRFeatureUniquePtr const feature(layer->GetFeature(record));
            plain_sum += feature->GetFieldAsDouble(c_text_fields);
        }
    });

    double own_sum = 0;
    double first = 0;
    double rest = 0;
    {
        vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(
            vx_attr_data_create(vx::text::utf8_to_wide(file).c_str()));
        vx::owned<Ivx_attr_files, &vx_attr_files_close> table;
        first = seconds([&] {
            table.reset(vx_attr_files_open(data.get(), 1, 0));
            (void)vx_attr_files_get_dbl(table.get(), c_text_fields, 0, nullptr);
        });
        rest = seconds([&] {
            for (auto const record : order)
                own_sum += vx_attr_files_get_dbl(table.get(), c_text_fields, record, nullptr);
        });
    }
    std::filesystem::remove_all(directory);
    std::printf("%d random cells of %d records\n"
                "  feature by feature      %8.1f ms\n"
                "  open and read a column  %8.1f ms\n"
                "  cells of the column     %8.1f ms, %.1f ns a cell\n"
                "  ratio %.1f in all, %.0f for the cells alone\n",
                c_reads, c_records, plain * 1e3, first * 1e3, rest * 1e3, rest * 1e9 / c_reads,
                plain / (first + rest), plain / rest);
    return plain_sum == own_sum ? 0 : 1;
}
