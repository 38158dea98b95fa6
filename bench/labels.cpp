// Labels against the plain way: points whose names may not overlap, against a painter that writes the
// accepted names at known places; polygons that are labelled inside, against drawing the polygons.

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_labels.h"
#include "platform/render/vx_render_layer.h"

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {
constexpr int c_width = 1600;
constexpr int c_height = 1000;
constexpr double c_px_per_mm = 4;
constexpr double c_size_mm = 3;
constexpr int c_rounds = 9;

using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using labels_ptr = vx::owned<Ivx_labels, &vx_labels_destroy>;
using device_ptr = vx::owned<void, &vx_bmp_dc_destroy>;

/// Of this process: other programs on the machine do not lengthen it.
double processor_ms()
{
    return 1e3 * double(std::clock()) / CLOCKS_PER_SEC;
}

/// The fastest of some rounds, in milliseconds.
double best_of_rounds(
    int rounds, std::function<void()> const &work, std::function<void()> const &before = [] {})
{
    double best = 1e300;
    for (int i = 0; i < rounds; ++i) {
        before();
        double const begin = processor_ms();
        work();
        best = std::min(best, processor_ms() - begin);
    }
    return best;
}

double best_of(
    std::function<void()> const &work, std::function<void()> const &before = [] {})
{
    return best_of_rounds(c_rounds, work, before);
}

struct map
{
    layer_ptr layer;
    Tvx_map_view view;
    QImage image{c_width, c_height, QImage::Format_ARGB32_Premultiplied};
    device_ptr device{vx_bmp_dc_create()};
    long long revision = 0;

    map()
    {
        view.world = {0, 0, c_width, c_height};
        view.width = c_width;
        view.height = c_height;
        view.mm2px_x = view.mm2px_y = c_px_per_mm;
        image.fill(Qt::white);
        vx_bmp_dc_set_pixels(device.get(), image.bits(), c_width, c_height, int(image.bytesPerLine()));
    }
    void open(char const *key, std::string const &file)
    {
        layer.reset(vx_shp_lr2d_create(key, std::wstring(file.begin(), file.end()).c_str()));
        Ivx_layer *const text = vx_shp_lr2d_get_text_layer_ptr(layer.get());
        vx_lr2d_set_visible(text, true);
        void *const info = vx_dtld_lr2d_get_text_class(text);
        vx_textlr_info_set_property(info, 0, L"NAME");
        vx_textlr_info_set_size(info, c_size_mm);
        // What is read once does not count.
        vx_render_layer(layer.get(), view, device.get());
    }
    bool place(Ivx_labels *labels) const
    {
        Tvx_labelled_layer const one{layer.get(), revision};
        return vx_labels_place(labels, &one, 1, view, 0);
    }
};

/// A file of objects with names.
std::string make_file(char const *name, OGRwkbGeometryType type, int count,
                      std::function<std::unique_ptr<OGRGeometry>(int)> const &shape)
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    auto const file = (folder / name).string();
    std::filesystem::remove(file);
    auto *const driver = GetGDALDriverManager()->GetDriverByName("FlatGeobuf");
    std::unique_ptr<GDALDataset> const set(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer = set->CreateLayer("objects", nullptr, type);
    OGRFieldDefn field("NAME", OFTString);
    layer->CreateField(&field);
    for (int i = 0; i < count; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetGeometryDirectly(shape(i).release());
        feature.SetField(0, (type == wkbPoint ? "Town of " + std::to_string(i) : std::to_string(i)).c_str());
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            std::abort();
    }
    return file;
}

/// Placed and drawn anew, and the accepted names by a painter that knows where.
void time_points(int count, double &first, double &ours, double &plain, unsigned &accepted)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, c_width);
    std::uniform_real_distribution<double> y(0, c_height);
    map m;
    m.open(c_lr_key_shp_pnt, make_file("label_points.fgb", wkbPoint, count, [&](int) {
               return std::make_unique<OGRPoint>(x(random), y(random));
           }));
    labels_ptr const labels(vx_labels_create());
    first = best_of_rounds(1, [&] {
        m.place(labels.get());
        vx_labels_draw(labels.get(), m.view, m.device.get());
    });
    // As after a change of the layer: places are found anew, the painter's fonts are warm on both sides.
    ours = best_of(
        [&] {
            m.place(labels.get());
            vx_labels_draw(labels.get(), m.view, m.device.get());
        },
        [&] { ++m.revision; });
    struct known
    {
        QString text;
        QPointF at;
    };
    std::vector<known> all;
    accepted = vx_labels_get_count(labels.get(), m.view);
    for (unsigned i = 0; i < accepted; ++i) {
        std::wstring text;
        vx_labels_get_text(labels.get(), m.view, i, Tvx_std_wstring_adapter(text));
        Tvx_label_view label;
        if (vx_labels_get(labels.get(), m.view, i, &label))
            all.push_back({QString::fromStdWString(text), {label.box.min_x, label.box.max_y - 3}});
    }
    QImage image(c_width, c_height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QFont font;
    font.setPixelSize(int(c_size_mm * c_px_per_mm));
    plain = best_of([&] {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(font);
        for (known const &k : all)
            painter.drawText(k.at, k.text);
    });
}

void bench_points()
{
    double first = 0;
    double ours = 0;
    double plain = 0;
    unsigned accepted = 0;
    time_points(10'000, first, ours, plain, accepted);
    std::printf(
        "10,000 points, %u labels: placed and drawn %.1f ms (the first time %.1f), a painter %.1f ms: "
        "%.2f (at most 3)\n",
        accepted, ours, first, plain, ours / plain);
    double more = 0;
    time_points(100'000, first, more, plain, accepted);
    std::printf("100,000 points, %u labels: %.1f ms, growth %.1f (at most 12)\n", accepted, more,
                more / ours);
}

void bench_polygons()
{
    constexpr int c_columns = 125;
    constexpr int c_rows = 80;
    constexpr int c_vertices = 31;
    constexpr double c_radius = 20;
    std::mt19937 random(2);
    std::uniform_real_distribution<double> part(0.5, 1);
    auto const polygon = [&](int i) {
        double const cx = (i % c_columns + 0.5) * c_width / c_columns;
        double const cy = (i / c_columns + 0.5) * c_height / c_rows;
        OGRLinearRing ring;
        for (int v = 0; v + 1 < c_vertices; ++v) {
            double const turn = v * 2 * M_PI / (c_vertices - 1);
            double const r = c_radius * part(random);
            ring.addPoint(cx + r * std::cos(turn), cy - r * std::sin(turn));
        }
        ring.closeRings();
        auto area = std::make_unique<OGRPolygon>();
        area->addRing(&ring);
        return area;
    };
    map m;
    m.open(c_lr_key_shp_pgn, make_file("label_areas.fgb", wkbPolygon, c_columns * c_rows, polygon));
    double const drawing = best_of([&] { vx_render_layer(m.layer.get(), m.view, m.device.get()); });
    labels_ptr labels;
    double const placing = best_of([&] { m.place(labels.get()); }, [&] { labels.reset(vx_labels_create()); });
    std::printf("10,000 polygons, %u labels: placed %.1f ms, polygons drawn %.1f ms: %.2f (at most 4)\n",
                vx_labels_get_count(labels.get(), m.view), placing, drawing, placing / drawing);
    double const again = best_of([&] { m.place(labels.get()); });
    std::printf("a repaint places nothing: %u placing, %.4f ms\n", vx_labels_get_placings(labels.get()),
                again);
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication const application(argc, argv);
    GDALAllRegister();
    bench_points();
    bench_polygons();
    return 0;
}
