// A raster of 10,000 by 10,000 cells, seen whole in a picture of 1,000 by 800 pixels, against GDAL's
// decimated read of the same window and painting the picture. First the file is opened for each picture, then
// it is drawn again and again. Files are in the file cache.

#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"

#include <QImage>
#include <QPainter>
#include <gdal_priv.h>

#include <cmath>

using namespace vx_bench;

namespace {
constexpr int c_size = 10'000;
constexpr int c_width = 1000, c_height = 800;
constexpr double c_low = -300, c_high = 800;

struct kind
{
    char const *name;
    GDALDataType type;
    std::vector<char const *> options;
    bool has_overviews;
};

double value_at(kind const &k, int x, int y)
{
    double const hills = std::sin(x / 700.0) * std::cos(y / 900.0);
    return k.type == GDT_Byte ? std::round(127 + 120 * hills) : 250 + 500 * hills + 0.01 * (x % 17);
}

std::string file_of(kind const &k)
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    auto const file = (folder / (std::string("raster_") + k.name + ".tif")).string();
    if (std::filesystem::exists(file))
        return file;
    std::fprintf(stderr, "making %s ...\n", file.c_str());
    auto options = k.options;
    options.push_back(nullptr);
    GDALDatasetUniquePtr const set(GetGDALDriverManager()->GetDriverByName("GTiff")->Create(
        file.c_str(), c_size, c_size, 1, k.type, const_cast<char **>(options.data())));
    std::vector<double> row(c_size);
    for (int y = 0; y < c_size; ++y) {
        for (int x = 0; x < c_size; ++x)
            row[static_cast<std::size_t>(x)] = value_at(k, x, y);
        if (set->GetRasterBand(1)->RasterIO(GF_Write, 0, y, c_size, 1, row.data(), c_size, 1, GDT_Float64, 0,
                                            0, nullptr) != CE_None)
            std::abort();
    }
    int levels[] = {2, 4, 8, 16};
    if (k.has_overviews)
        (void)set->BuildOverviews("AVERAGE", 4, levels, 0, nullptr, nullptr, nullptr);
    return file;
}

QImage paper()
{
    QImage image(c_width, c_height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

/// The read as a picture of greys, painted on the paper.
QImage plain(GDALDataset &set, kind const &k)
{
    QImage image = paper();
    QImage cells(c_height, c_height, QImage::Format_Grayscale8);
    auto *const band = set.GetRasterBand(1);
    CPLErr status;
    if (k.type == GDT_Byte) {
        status = band->RasterIO(GF_Read, 0, 0, c_size, c_size, cells.bits(), c_height, c_height, GDT_Byte, 1,
                                cells.bytesPerLine(), nullptr);
    } else {
        std::vector<float> values(static_cast<std::size_t>(c_height) * c_height);
        status = band->RasterIO(GF_Read, 0, 0, c_size, c_size, values.data(), c_height, c_height, GDT_Float32,
                                0, 0, nullptr);
        for (int y = 0; y < c_height; ++y)
            for (int x = 0; x < c_height; ++x) {
                double const value = static_cast<double>(values[static_cast<std::size_t>(y * c_height + x)]);
                cells.scanLine(y)[x] = static_cast<unsigned char>(
                    std::lround(255 * std::clamp((value - c_low) / (c_high - c_low), 0.0, 1.0)));
            }
    }
    if (status != CE_None)
        std::abort();
    QPainter(&image).drawImage((c_width - c_height) / 2, 0, cells);
    return image;
}

/// The longest time of the processor between two questions whether to go on.
struct pauses
{
    [[nodiscard]] static double now() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }
    bool ask()
    {
        longest = std::max(longest, now() - last);
        last = now();
        return false;
    }
    double last = now();
    double longest = 0;
};

QImage own(Ivx_layer *layer, pauses *between = nullptr)
{
    QImage image = paper();
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(dc.get(), image.bits(), c_width, c_height, static_cast<int>(image.bytesPerLine()));
    Tvx_map_view view;
    view.width = c_width;
    view.height = c_height;
    double const pixel = static_cast<double>(c_size) / c_height, beside = pixel * (c_width - c_height) / 2;
    view.world = {-beside, -c_size, c_size + beside, 0};
    closure<bool()> const ask = between ? make_closure<&pauses::ask>(between) : closure<bool()>();
    if (!vx_render_layer(layer, view, dc.get(), ask))
        std::abort();
    return image;
}

vx::owned<Ivx_layer, &vx_lr2d_destroy> layer_of(std::string const &file, kind const &k)
{
    vx::owned<Ivx_layer, &vx_lr2d_destroy> layer(vx_rtr_lr2d_create(vx::text::utf8_to_wide(file).c_str()));
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_gray);
    void *const gray = vx_rgb_channels_get_gray(vx_rtr_lr2d_get_rgb_channels_ptr(layer.get()));
    vx_clr_channel_set_min(gray, k.type == GDT_Byte ? 0 : c_low);
    vx_clr_channel_set_max(gray, k.type == GDT_Byte ? 255 : c_high);
    return layer;
}

/// Both show the same, but for a cell to the side.
void check(QImage const &a, QImage const &b)
{
    for (int y = 0; y < c_height; ++y)
        for (int x = 0; x < c_width; ++x)
            if (std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 8) {
                std::fprintf(stderr, "they differ at %d %d\n", x, y);
                std::abort();
            }
}
} // namespace

int main()
{
    GDALAllRegister();
    kind const kinds[] = {
        {"bytes_raw", GDT_Byte, {}, false},
        {"bytes_deflate", GDT_Byte, {"COMPRESS=DEFLATE", "TILED=YES"}, false},
        {"bytes_overviews", GDT_Byte, {"COMPRESS=DEFLATE", "TILED=YES"}, true},
        {"float_raw", GDT_Float32, {}, false},
        {"float_deflate", GDT_Float32, {"COMPRESS=DEFLATE", "TILED=YES"}, false},
    };
    for (kind const &k : kinds) {
        auto const file = file_of(k);
        auto const open = [&] {
            return GDALDatasetUniquePtr(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER));
        };
        auto const set = open();
        auto const layer = layer_of(file, k);
        check(plain(*set, k), own(layer.get()));
        for (bool const is_opened : {true, false}) {
            auto const times =
                compare([&] { return plain(is_opened ? *open() : *set, k).isNull(); },
                        [&] { return own(is_opened ? layer_of(file, k).get() : layer.get()).isNull(); },
                        is_opened ? 5 : 15);
            double const ratio = times.own.processor / times.plain.processor;
            std::printf(
                "  %-16s %-12s plain %6.1f ms  own %6.1f ms  ratio %4.2f (wall %4.2f)  bound 1.30 %s\n",
                k.name, is_opened ? "opened" : "drawn again", times.plain.processor * 1e3,
                times.own.processor * 1e3, ratio, times.own.wall / times.plain.wall,
                ratio <= 1.3 ? "" : "EXCEEDED");
            std::fflush(stdout);
        }
        pauses between;
        auto const fresh = layer_of(file, k);
        (void)own(fresh.get(), &between);
        std::printf("  %-16s the longest pause in a first picture %5.1f ms  bound 30 %s\n", k.name,
                    between.longest * 1e3, between.longest <= 0.03 ? "" : "EXCEEDED");
    }
}
