#include "extension/binding/data_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/stat_source.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"

#include <ogrsf_frmts.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

/// One pass over a numeric field of all features: through GDAL feature by feature, through the handles of the
/// component interface feature by feature, and by the driver's own counting. Prints the times and what they
/// are of the first one: in an optimised build
/// the walk is to stay below twice, the counting below once.
namespace {
constexpr int c_records = 300'000;

std::string make_file(std::filesystem::path const &directory, char const *driver_name, char const *file_name)
{
    auto const file = (directory / file_name).string();
    auto *const driver = GetGDALDriverManager()->GetDriverByName(driver_name);
    std::unique_ptr<GDALDataset> const set(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer = set->CreateLayer("points", nullptr, wkbPoint);
    OGRFieldDefn value("value", OFTReal);
    OGRFieldDefn text("text", OFTString);
    layer->CreateField(&value);
    layer->CreateField(&text);
    set->StartTransaction();
    for (int i = 0; i < c_records; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        OGRPoint const point(i % 250, i / 250);
        feature.SetGeometry(&point);
        feature.SetField(0, i * 0.25);
        feature.SetField(1, "some attribute text");
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            return {};
    }
    set->CommitTransaction();
    return file;
}

template <class Work>
double seconds(Work work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

class adder final : public vx::feature_visitor_impl
{
public:
    double sum = 0;
    void visit(vx::feature feature) override
    {
        sum += feature.get_numeric(0, nullptr);
        feature.detach();
    }
};

void compare(std::string const &file)
{
    std::wstring const source = vx::text::utf8_to_wide(file);
    double plain_sum = 0;
    double const plain = seconds([&] {
        std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
        for (auto const &feature : *set->GetLayer(0))
            plain_sum += feature->GetFieldAsDouble(0);
    });
    adder walk_sum;
    double const walk = seconds([&] {
        t_vx_data_source_interface handle;
        vx_datasource_open(source.c_str(), true, &handle);
        vx::feature_forward_request const request =
            vx_feature_forward_request_interface_specialize(vx_data_source_interface_generalize(handle));
        while (request.with_next_feature(walk_sum)) {
        }
        vx::data_source(handle).detach();
    });
    double counted_sum = 0;
    double const counted = seconds([&] {
        t_vx_data_source_interface handle;
        vx_datasource_open(source.c_str(), true, &handle);
        vx::stat_source const stat =
            vx_stat_source_interface_specialize(vx_data_source_interface_generalize(handle));
        (void)stat.sum(0, &counted_sum);
        vx::data_source(handle).detach();
    });
    if (plain_sum != walk_sum.sum || plain_sum != counted_sum)
        std::abort();
    std::printf("%s: plain %.3f s, handles %.3f s (%.2f), counted %.3f s (%.2f)\n",
                std::filesystem::path(file).filename().c_str(), plain, walk, walk / plain, counted,
                counted / plain);
}
} // namespace

int main()
{
    GDALAllRegister();
    auto const directory =
        std::filesystem::temp_directory_path() / ("vx_bench_" + std::to_string(std::random_device()()));
    std::filesystem::create_directories(directory);
    // The bundle is loaded and the disk is warm before the clock runs.
    t_vx_data_source_interface none;
    vx_datasource_open(L"", true, &none);
    compare(make_file(directory, "ESRI Shapefile", "points.shp"));
    compare(make_file(directory, "GPKG", "points.gpkg"));
    std::filesystem::remove_all(directory);
}
