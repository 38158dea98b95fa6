// Draws 10,000 polygons in a hatch over a fill, 10,000 lines by a template and the same lines as cased roads,
// against the same strokes with a bare QPainter: fill, clip to the polygon, lines; a pen with dashes; all
// casings, then all fills. And a repaint after the map was moved
// by 8 pixels against one where it stands. Both ways run in turn; the least of the processor's time counts.

#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_bundle.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <QtCore/QLineF>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>
#include <numbers>
#include <unistd.h>

using namespace vx_bench;

namespace {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr int c_side = 1000; ///< of the picture; a pixel is a unit of the map
constexpr int c_in_row = 100;
constexpr double c_px_per_mm = 4;
constexpr double c_step_mm = 1;
constexpr double c_width_mm = 0.25;
constexpr double c_dash_mm = 2;
constexpr double c_gap_mm = 1;
constexpr Tvx_color c_fill = vx_clr_init_rgb(210, 235, 200);
constexpr Tvx_color c_ink = vx_clr_init_rgb(30, 110, 50);

using shapes = std::vector<QPolygonF>;

/// Areas with a wavy outline, a little larger than their cells.
shapes make_areas()
{
    constexpr int c_vertices = 24;
    double const cell = double(c_side) / c_in_row;
    shapes all;
    for (int i = 0; i < c_in_row * c_in_row; ++i) {
        QPolygonF ring;
        for (int k = 0; k <= c_vertices; ++k) {
            double const a = 2 * std::numbers::pi * (k % c_vertices) / c_vertices;
            double const r = cell * (0.62 + 0.08 * std::sin(5 * a + i));
            ring.append({(i % c_in_row + 0.5) * cell + r * std::cos(a),
                         (i / c_in_row + 0.5) * cell + r * std::sin(a)});
        }
        all.push_back(ring);
    }
    return all;
}

/// Lines of some bends through the picture.
shapes make_lines()
{
    constexpr int c_vertices = 12;
    std::mt19937 random(1);
    shapes all;
    for (int i = 0; i < c_in_row * c_in_row; ++i) {
        QPolygonF line;
        QPointF at(random() % c_side, random() % c_side);
        double direction = random() % 628 / 100.0;
        for (int k = 0; k < c_vertices; ++k) {
            line.append(at);
            direction += (random() % 200 - 100.0) / 150;
            at += QPointF(std::cos(direction), std::sin(direction)) * 9;
        }
        all.push_back(line);
    }
    return all;
}

owned_layer open_layer(std::filesystem::path const &file, shapes const &all, bool areas)
{
    auto *const driver = GetGDALDriverManager()->GetDriverByName("FlatGeobuf");
    std::unique_ptr<GDALDataset> set(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    char *options[] = {const_cast<char *>("SPATIAL_INDEX=NO"), nullptr};
    auto *const layer = set->CreateLayer("shapes", nullptr, areas ? wkbPolygon : wkbLineString, options);
    for (QPolygonF const &shape : all) {
        OGRLinearRing ring;
        OGRLineString line;
        OGRLineString &points = areas ? ring : line;
        for (QPointF const &p : shape)
            points.addPoint(p.x(), c_side - p.y());
        OGRPolygon polygon;
        polygon.addRing(&ring);
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetGeometry(areas ? static_cast<OGRGeometry *>(&polygon) : &line);
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            return {};
    }
    set.reset();
    std::wstring error;
    owned_layer opened(vx_shp_lr2d_open(file.wstring().c_str(), Tvx_std_wstring_adapter(error)));
    if (!opened)
        std::printf("%ls\n", error.c_str());
    return opened;
}

void *simple_style(Ivx_layer *layer)
{
    return vx_stl_mngr_get_simple_sp_ptr(
        vx_stl_mngr_list_get_mngr(vx_shp_lr2d_get_style_mngr_list_ptr(layer), 0));
}

void set_hatch(Ivx_layer *layer)
{
    void *const style = vx_stl_prm_get_pgn_style_ptr(simple_style(layer), false);
    vx_pgn_style_set_pln_visible(style, false);
    void *const base = vx_pgn_style_get_bpgn_style_ptr(style);
    vx_bpgn_style_set_use_complex(base, true);
    void *const layers = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(base));
    vx_pgn_fill_lr_set_color(vx_style_lrs_add_lr(layers, "pgn_fill_slr"), c_fill);
    void *const hatch = vx_style_lrs_add_lr(layers, "pgn_htch_slr");
    vx_pgn_htch_lr_set_delta(hatch, c_step_mm);
    vx_pgn_htch_lr_set_angle(hatch, 45);
    void *const line = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(hatch)), "pln_line_slr");
    vx_pln_line_lr_set_color(line, c_ink);
    vx_pln_line_lr_set_width(line, c_width_mm);
}

/// The layers of the lines' style, none as yet.
void *line_layers(Ivx_layer *layer)
{
    void *const style = vx_stl_prm_get_pln_style_ptr(simple_style(layer), false);
    void *const base = vx_pln_style_get_bpln_style_ptr(style);
    vx_bpln_style_set_use_complex(base, true);
    void *const layers = vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(base));
    while (vx_style_lrs_get_size(layers) > 0)
        vx_style_lrs_del_lr(layers, 0);
    return layers;
}

void set_template(Ivx_layer *layer)
{
    void *const line = vx_style_lrs_add_lr(line_layers(layer), "pln_tplt_slr");
    vx_pln_tplt_lr_set_template(line, "10");
    vx_pln_tplt_lr_set_color(line, c_ink);
    vx_pln_tplt_lr_set_width(line, 2 * c_width_mm);
    vx_pln_tplt_lr_set_dash(line, c_dash_mm);
    vx_pln_tplt_lr_set_gap(line, c_gap_mm);
}

void set_cased(Ivx_layer *layer)
{
    void *const layers = line_layers(layer);
    for (double const width : {4 * c_width_mm, 2 * c_width_mm}) {
        void *const line = vx_style_lrs_add_lr(layers, "pln_line_slr");
        vx_pln_line_lr_set_color(line, width > 2 * c_width_mm ? c_ink : c_fill);
        vx_pln_line_lr_set_width(line, width);
    }
}

/// A picture to draw on, and the part of the map that it shows.
struct picture
{
    QImage image{c_side, c_side, QImage::Format_ARGB32_Premultiplied};
    Tvx_map_view view;

    picture()
    {
        view.width = view.height = c_side;
        view.mm2px_x = view.mm2px_y = c_px_per_mm;
        move(0);
    }
    void move(double by)
    {
        view.world = {};
        view.world.add(by, by);
        view.world.add(c_side + by, c_side + by);
    }
    void draw(Ivx_layer *layer)
    {
        image.fill(Qt::white);
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(dc.get(), image.bits(), c_side, c_side, int(image.bytesPerLine()));
        if (!vx_render_layer(layer, view, dc.get()))
            std::abort();
    }
};

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

void draw_areas_plain(QImage &image, shapes const &all)
{
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QPen pen(qt_color(c_ink), c_width_mm * c_px_per_mm);
    pen.setCapStyle(Qt::FlatCap);
    double const step = c_step_mm * c_px_per_mm * std::numbers::sqrt2;
    for (QPolygonF const &area : all) {
        QPainterPath path;
        path.addPolygon(area);
        p.fillPath(path, qt_color(c_fill));
        p.save();
        p.setClipPath(path, Qt::IntersectClip);
        p.setPen(pen);
        // At 45 degrees: x + y is the same along a line.
        QRectF const box = path.boundingRect();
        for (double at = std::ceil((box.left() + box.top()) / step) * step; at <= box.right() + box.bottom();
             at += step)
            p.drawLine(QPointF(at - box.bottom(), box.bottom()), QPointF(at - box.top(), box.top()));
        p.restore();
    }
}

void draw_lines_plain(QImage &image, shapes const &all)
{
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    double const width = 2 * c_width_mm * c_px_per_mm;
    QPen pen(qt_color(c_ink), width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setDashPattern({c_dash_mm * c_px_per_mm / width, c_gap_mm * c_px_per_mm / width});
    p.setPen(pen);
    for (QPolygonF const &line : all)
        p.drawPolyline(line);
}

void draw_cased_plain(QImage &image, shapes const &all)
{
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    for (double const width : {4 * c_width_mm, 2 * c_width_mm}) {
        QPen pen(qt_color(width > 2 * c_width_mm ? c_ink : c_fill), width * c_px_per_mm);
        pen.setCapStyle(Qt::FlatCap);
        pen.setJoinStyle(Qt::RoundJoin);
        p.setPen(pen);
        for (QPolygonF const &line : all)
            p.drawPolyline(line);
    }
}

constexpr int c_rounds = 9;

void measure_layer(char const *what, Ivx_layer *layer, shapes const &all, double bound,
                   void (*plain)(QImage &, shapes const &))
{
    picture own;
    picture other;
    own.draw(layer); // reads the shapes
    print(what, compare([&] { plain(other.image, all); }, [&] { own.draw(layer); }, c_rounds), bound);
    double moved = 0;
    own.move(0);
    std::string const pan = std::string(what) + ", moved";
    print(pan.c_str(),
          compare([&] { other.draw(layer); },
                  [&] {
                      own.move(moved = 8 - moved);
                      own.draw(layer);
                  },
                  c_rounds),
          1.05);
}
} // namespace

int main(int argc, char **argv)
{
    QGuiApplication const application(argc, argv);
    GDALAllRegister();
    vx_bundles_load();
    auto const folder =
        std::filesystem::temp_directory_path() / ("vx_complex_draw_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    shapes const areas = make_areas();
    shapes const lines = make_lines();
    {
        owned_layer const polygons = open_layer(folder / "areas.fgb", areas, true);
        owned_layer const roads = open_layer(folder / "lines.fgb", lines, false);
        if (!polygons || !roads)
            return 1;
        set_hatch(polygons.get());
        set_template(roads.get());
        measure_layer("hatch over a fill", polygons.get(), areas, 1.0, &draw_areas_plain);
        measure_layer("lines by a template", roads.get(), lines, 2.0, &draw_lines_plain);
        set_cased(roads.get());
        measure_layer("cased lines", roads.get(), lines, 1.15, &draw_cased_plain);
        if (argc > 1) {
            picture p;
            p.draw(polygons.get());
            p.image.save(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/own_areas.png"));
            draw_areas_plain(p.image, areas);
            p.image.save(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/plain_areas.png"));
            p.draw(roads.get());
            p.image.save(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/own_cased.png"));
            set_template(roads.get());
            p.draw(roads.get());
            p.image.save(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/own_lines.png"));
            draw_lines_plain(p.image, lines);
            p.image.save(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/plain_lines.png"));
        }
    }
    std::filesystem::remove_all(folder);
}
