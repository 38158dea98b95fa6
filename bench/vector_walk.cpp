// Reading the number fields of all features of a table of 1,000,000 through `vector_datasource` and
// `read_numeric`, against the plain loop over GDAL's features and the same fields.

#include "data/vector/vector_datasource.h"
#include "sample_table.h"

#include "platform/base/text_codec.h"

#include <string>

using namespace vx_bench;

namespace {
constexpr int c_read[] = {c_whole,  c_whole_200,      c_whole_2000, c_whole_1000000,
                          c_number, c_number_1000000, c_big};

double plain_walk(std::string const &file)
{
    std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    double sum = 0;
    for (auto const &feature : *set->GetLayer(0))
        for (int const field : c_read)
            if (feature->IsFieldSetAndNotNull(field))
                sum += feature->GetFieldAsDouble(field);
    return sum;
}

double own_walk(std::wstring const &source)
{
    vx::data::vector_datasource data;
    if (!data.open(source, vx::data::access_read))
        std::abort();
    double sum = 0;
    vx::data::vector_feature feature;
    while (data.fetch_next_feature(feature))
        for (int const field : c_read) {
            bool not_null = false;
            double const value = feature.read_numeric(static_cast<std::uint64_t>(field), not_null);
            if (not_null)
                sum += value;
        }
    return sum;
}
} // namespace

int main()
{
    GDALAllRegister();
    vx::data::vector_datasource none;
    (void)none.open(L"", vx::data::access_read); // loads the bundle before the clock runs
    struct
    {
        char const *driver;
        char const *file;
    } const formats[] = {
        {"ESRI Shapefile", "points.shp"}, {"GPKG", "points.gpkg"}, {"FlatGeobuf", "points.fgb"}};
    std::printf("All features, %zu number fields each\n", std::size(c_read));
    for (auto const &format : formats) {
        auto const file = sample_file(format.driver, format.file);
        auto const source = vx::text::utf8_to_wide(file);
        double plain_sum = 0;
        double own_sum = 0;
        print(format.driver,
              compare([&] { plain_sum = plain_walk(file); }, [&] { own_sum = own_walk(source); }), 1.25);
        if (plain_sum != own_sum)
            std::abort();
    }
}
