// Statistics and a histogram of 256 classes of a grid of 10,000 by 10,000 float32 cells with a number that
// means no value, through the data source class and as the channel editor asks, against GDAL computing both
// exactly. Opening is part of both; files are in the file cache. On one processor, then on two. Last, how
// often a zoom of the histogram reads the file.

#include "data/grid/grid_datasource.h"
#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_stat.h"
#include "platform/layers/vx_rtr_lr2d.h"

#include <gdal_priv.h>

#include <cmath>
#include <fstream>
#include <sched.h>

using namespace vx_bench;

namespace {
constexpr int c_size = 10'000;
constexpr int c_classes = 256;
constexpr double c_no_data = -9999;

/// Hills with a grain, and a lake without values. Packed, one value is known to the next.
float height_at(int x, int y, std::mt19937 &random)
{
    if (std::hypot(x - 3000, y - 6000) < 1500)
        return c_no_data;
    double const hills = 300 * std::sin(x / 700.0) * std::cos(y / 900.0) + 0.05 * x;
    return static_cast<float>(std::round(10 * (hills + static_cast<double>(random() % 1000) / 250)) / 10);
}

std::string grid_file(char const *name, std::vector<char const *> options, bool has_statistics)
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    auto const file = (folder / name).string();
    if (std::filesystem::exists(file))
        return file;
    std::fprintf(stderr, "making %s ...\n", file.c_str());
    options.push_back(nullptr);
    GDALDatasetUniquePtr const set(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
        file.c_str(), c_size, c_size, 1, GDT_Float32, const_cast<char **>(options.data())));
    auto *const band = set->GetRasterBand(1);
    band->SetNoDataValue(c_no_data);
    std::mt19937 random(1);
    std::vector<float> row(c_size);
    for (int y = 0; y < c_size; ++y) {
        for (int x = 0; x < c_size; ++x)
            row[static_cast<std::size_t>(x)] = height_at(x, y, random);
        if (band->RasterIO(GF_Write, 0, y, c_size, 1, row.data(), c_size, 1, GDT_Float32, 0, 0, nullptr) !=
            CE_None)
            std::abort();
    }
    double minimum = 0, maximum = 0, mean = 0, deviation = 0;
    if (has_statistics) // stored with the file
        (void)band->ComputeStatistics(FALSE, &minimum, &maximum, &mean, &deviation, nullptr, nullptr);
    return file;
}

struct outcome
{
    double minimum = 0, maximum = 0, mean = 0, deviation = 0;
    std::vector<double> counts;
};

outcome plain(std::string const &file)
{
    outcome o;
    GDALDatasetUniquePtr const set(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER));
    auto *const band = set->GetRasterBand(1);
    std::vector<GUIntBig> counts(c_classes);
    // Without a file beside it GDAL keeps statistics with the open data set only.
    if (band->ComputeStatistics(FALSE, &o.minimum, &o.maximum, &o.mean, &o.deviation, nullptr, nullptr) !=
            CE_None ||
        band->GetHistogram(o.minimum, o.maximum, c_classes, counts.data(), TRUE, FALSE, nullptr, nullptr) !=
            CE_None)
        std::abort();
    o.counts.assign(counts.begin(), counts.end());
    return o;
}

outcome told(Tvx_stat_data *stat)
{
    outcome o;
    o.minimum = vx_stat_get_minimum(stat, nullptr);
    o.maximum = vx_stat_get_maximum(stat, nullptr);
    o.mean = vx_stat_get_average(stat, nullptr);
    o.deviation = vx_stat_get_stddev(stat, nullptr);
    auto const *const histogram = vx_stat_get_histogramm(stat, nullptr);
    for (unsigned i = 0; i < c_classes; ++i)
        o.counts.push_back(vx_histogramm_get(histogram, i));
    return o;
}

outcome own(std::wstring const &source)
{
    vx::data::grid_datasource grid;
    vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
    if (!grid.open(source, vx::data::access_read))
        std::abort();
    grid.field_statistics(0, stat.get());
    if (!grid.field_histogram(0, stat.get()))
        std::abort();
    return told(stat.get());
}

/// As the page of a raster layer asks, for its channels.
outcome channel(std::wstring const &source)
{
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const layer(vx_rtr_lr2d_create(source.c_str()));
    vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
    vx::owned<Tvx_rtr_stat, &vx_rtr_lr2d_rastr_stat_destroy> const work(
        vx_rtr_lr2d_rastr_stat_create(vx_rtr_lr2d_get_sourse(layer.get()), 0));
    if (!vx_rtr_lr2d_compute_stat(work.get(), stat.get()) || !vx_rtr_lr2d_compute_hg(work.get(), stat.get()))
        std::abort();
    return told(stat.get());
}

/// Both say the same, but for the deviation, which GDAL gives of the population.
void check(outcome const &a, outcome const &b)
{
    // Stored statistics are texts of 14 digits.
    auto const are_near = [](double x, double y) { return std::fabs(x - y) <= 1e-12 * std::fabs(x); };
    bool const is_same = are_near(a.minimum, b.minimum) && are_near(a.maximum, b.maximum) &&
                         std::fabs(a.mean - b.mean) < 1e-9 * std::fabs(a.deviation) &&
                         std::fabs(a.deviation - b.deviation) < 1e-6 * a.deviation && a.counts == b.counts;
    if (!is_same) {
        std::fprintf(
            stderr,
            "they differ: minimum %.17g %.17g, maximum %.17g %.17g, mean %.17g %.17g, deviation %.17g "
            "%.17g, counts %s\n",
            a.minimum, b.minimum, a.maximum, b.maximum, a.mean, b.mean, a.deviation, b.deviation,
            a.counts == b.counts ? "alike" : "not alike");
        std::abort();
    }
}

/// Bytes that the program has read so far.
double bytes_read()
{
    std::ifstream file("/proc/self/io");
    std::string name;
    double count = 0;
    while (file >> name >> count)
        if (name == "rchar:")
            return count;
    std::abort();
}

/// Times that the file is read by a histogram between marks, once the whole one is known.
double reads_of_a_zoom(std::string const &file)
{
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const layer(
        vx_rtr_lr2d_create(vx::text::utf8_to_wide(file).c_str()));
    auto *const stat = vx_rtr_lr2d_get_statistic(layer.get(), 0);
    vx::owned<Tvx_rtr_stat, &vx_rtr_lr2d_rastr_stat_destroy> const work(
        vx_rtr_lr2d_rastr_stat_create(vx_rtr_lr2d_get_sourse(layer.get()), 0));
    if (!vx_rtr_lr2d_compute_hg(work.get(), stat))
        std::abort();
    double const low = vx_stat_get_minimum(stat, nullptr), high = vx_stat_get_maximum(stat, nullptr);
    double const before = bytes_read();
    if (!vx_rtr_lr2d_compute_hg_min_max(work.get(), stat, low + (high - low) / 3, high - (high - low) / 4))
        std::abort();
    return (bytes_read() - before) / static_cast<double>(std::filesystem::file_size(file));
}

void use_processors(int count)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    for (int i = 0; i < count; ++i)
        CPU_SET(i, &set);
    (void)sched_setaffinity(0, sizeof set, &set);
}
} // namespace

int main()
{
    GDALAllRegister();
    CPLSetConfigOption("GDAL_PAM_ENABLED", "NO"); // nothing is left beside the files
    // The bundle is loaded before the clock runs.
    vx::data::generic_datasource none;
    (void)none.open(L"", vx::data::access_read);
    struct
    {
        char const *name;
        std::string file;
        double bound_one, bound_two;
    } const cases[] = {
        {"raw", grid_file("grid_raw.tif", {}, false), 0.35, 0.35},
        {"deflate, span known", grid_file("grid_deflate_known.tif", {"COMPRESS=DEFLATE", "TILED=YES"}, true),
         0.6, 0.6},
        {"deflate, span not known", grid_file("grid_deflate.tif", {"COMPRESS=DEFLATE", "TILED=YES"}, false),
         0.9, 0.6},
    };
    for (auto const &c : cases) {
        auto const source = vx::text::utf8_to_wide(c.file);
        for (auto const &[who, way] :
             {std::pair("data source", &own), std::pair("channel editor", &channel)}) {
            check(plain(c.file), way(source));
            for (int const processors : {1, 2}) {
                use_processors(processors);
                auto const times = compare([&] { return plain(c.file); }, [&] { return way(source); }, 3);
                double const bound = processors == 1 ? c.bound_one : c.bound_two;
                double const ratio = times.own.wall / times.plain.wall;
                std::printf(
                    "  %-23s %-14s %d processors  plain %6.0f ms  own %6.0f ms  ratio %4.2f (processor "
                    "%4.2f)  bound %4.2f %s\n",
                    c.name, who, processors, times.plain.wall * 1e3, times.own.wall * 1e3, ratio,
                    times.own.processor / times.plain.processor, bound, ratio <= bound ? "" : "EXCEEDED");
                std::fflush(stdout);
            }
        }
        double const reads = reads_of_a_zoom(c.file);
        std::printf("  %-23s a zoom of the histogram reads the file %4.2f times  bound 1.02 %s\n", c.name,
                    reads, reads <= 1.02 ? "" : "EXCEEDED");
    }
}
