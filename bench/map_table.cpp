// Pictures of large layers against the plain way of making them: the format library's loop over geometries
// and a painter's call for each. Both sides open the file; the plain ones ignore the fields. Every row is
// printed with its bound, and the memory of the shapes behind them.
//
//     bench_map_table [part of a row's name]
//
// The files are made once in the build folder and kept for the next run.

#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_bundle.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <gdal_priv.h>

#include <array>
#include <cmath>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
using namespace vx_bench;
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

constexpr int c_width = 1600;
constexpr int c_height = 1000;
constexpr int c_values = 2000;
constexpr int c_polygons = 100'000;
constexpr int c_parcels = 500'000;
constexpr int c_ring = 31; ///< vertices, the last as the first
constexpr int c_coast = 2'000'000;
constexpr int c_coast_lines = 20;
constexpr double c_margin = 1.15; ///< what a ratio is multiplied by before it is held against its bound
constexpr double c_point_mm = 1.8;
Tvx_color const c_ink = vx_clr_init_rgb(0xc2, 0x50, 0x00);
Tvx_color const c_rim = vx_clr_init_rgb(0x8a, 0x7f, 0x66);
QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

// ---- files

std::filesystem::path data_folder()
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    return folder;
}

/// A file of `count` features; `shape_of` gives the geometry of each.
std::string made_file(char const *driver, std::string const &name, OGRwkbGeometryType type, int count,
                      std::function<std::unique_ptr<OGRGeometry>(int)> const &shape_of)
{
    auto const file = (data_folder() / name).string();
    if (std::filesystem::exists(file))
        return file;
    std::fprintf(stderr, "making %s ...\n", file.c_str());
    std::unique_ptr<GDALDataset> const set(
        GetGDALDriverManager()->GetDriverByName(driver)->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer = set ? set->CreateLayer("map", nullptr, type) : nullptr;
    if (!layer)
        std::abort();
    OGRFieldDefn value("value", OFTString);
    value.SetWidth(16);
    OGRFieldDefn number("number", OFTReal);
    (void)layer->CreateField(&value);
    (void)layer->CreateField(&number);
    (void)set->StartTransaction();
    for (int i = 0; i < count; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        feature.SetField(0, ("value " + std::to_string(i * 7919LL % c_values)).c_str());
        feature.SetField(1, i * 0.5);
        feature.SetGeometryDirectly(shape_of(i).release());
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            std::abort();
    }
    (void)set->CommitTransaction();
    return file;
}

std::string points_file(char const *driver, char const *ending)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, c_width), y(0, c_height);
    return made_file(driver, std::string("map_points.") + ending, wkbPoint, c_records, [&](int) {
        double const px = x(random);
        return std::make_unique<OGRPoint>(px, y(random));
    });
}

std::string polygons_file(char const *driver, char const *ending)
{
    constexpr int c_columns = 400;
    std::mt19937 random(2);
    std::uniform_real_distribution<double> radius(1.2, 2.4);
    return made_file(driver, std::string("map_polygons.") + ending, wkbPolygon, c_polygons, [&](int i) {
        double const cx = (i % c_columns + 0.5) * c_width / c_columns;
        double const cy = (i / c_columns + 0.5) * c_height / (c_polygons / c_columns);
        auto ring = std::make_unique<OGRLinearRing>();
        for (int v = 0; v + 1 < c_ring; ++v) {
            double const a = -2 * M_PI * v / (c_ring - 1), r = radius(random);
            ring->addPoint(cx + r * std::cos(a), cy + r * std::sin(a));
        }
        ring->closeRings();
        auto polygon = std::make_unique<OGRPolygon>();
        polygon->addRingDirectly(ring.release());
        return polygon;
    });
}

/// Parcels: polygons of four corners.
std::string parcels_file(char const *driver, char const *ending)
{
    return made_file(driver, std::string("map_parcels.") + ending, wkbPolygon, c_parcels, [](int i) {
        constexpr int c_columns = 1000;
        double const x = i % c_columns * 1.6, y = i / c_columns * 2.0;
        auto ring = std::make_unique<OGRLinearRing>();
        for (auto const &[dx, dy] : {std::pair(0.1, 0.1), {0.1, 1.8}, {1.4, 1.9}, {1.5, 0.2}, {0.1, 0.1}})
            ring->addPoint(x + dx, y + dy);
        auto polygon = std::make_unique<OGRPolygon>();
        polygon->addRingDirectly(ring.release());
        return polygon;
    });
}

/// A line that is crooked on every scale, cut into features.
std::string coast_file()
{
    std::mt19937 random(3);
    std::normal_distribution<double> shift(0, 1);
    std::vector<Tvx_pnt_d2> line{{0.05 * c_width, 0.5 * c_height}, {0.95 * c_width, 0.5 * c_height}};
    double by = 0.1 * c_height;
    while (line.size() < c_coast) {
        std::vector<Tvx_pnt_d2> finer;
        for (std::size_t i = 0; i + 1 < line.size(); ++i) {
            finer.push_back(line[i]);
            finer.push_back({(line[i].x + line[i + 1].x) / 2 + by * shift(random) / 3,
                             (line[i].y + line[i + 1].y) / 2 + by * shift(random)});
        }
        finer.push_back(line.back());
        line.swap(finer);
        by *= 0.6;
    }
    constexpr int c_each = c_coast / c_coast_lines;
    return made_file("ESRI Shapefile", "map_coast.shp", wkbLineString, c_coast_lines, [&](int i) {
        auto part = std::make_unique<OGRLineString>();
        for (int v = 0; v < c_each; ++v)
            part->addPoint(line[std::size_t(i) * c_each + std::size_t(v)].x,
                           line[std::size_t(i) * c_each + std::size_t(v)].y);
        return part;
    });
}

std::string many_points_file()
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> x(0, c_width), y(0, c_height);
    return made_file("ESRI Shapefile", "map_points_10.shp", wkbPoint, 10 * c_records, [&](int) {
        double const px = x(random);
        return std::make_unique<OGRPoint>(px, y(random));
    });
}

// ---- the own way

Tvx_map_view view_of(double part)
{
    Tvx_map_view view;
    double const side = std::sqrt(part);
    view.world.add(0.37 * c_width * (1 - side), 0.41 * c_height * (1 - side));
    view.world.add(view.world.min_x + c_width * side, view.world.min_y + c_height * side);
    view.width = c_width;
    view.height = c_height;
    return view;
}

QImage white_picture()
{
    QImage image(c_width, c_height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

layer_ptr opened_layer(std::string const &file)
{
    std::wstring error;
    layer_ptr layer(
        vx_shp_lr2d_open(std::wstring(file.begin(), file.end()).c_str(), Tvx_std_wstring_adapter(error)));
    if (!layer)
        std::abort();
    if (void *const mngr = vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer.get())) {
        void *const base = vx_pnt_style_get_bpnt_style_ptr(
            vx_stl_prm_get_pnt_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr), false));
        vx_bpnt_style_set_color(base, c_ink);
        vx_bpnt_style_set_size(base, c_point_mm);
    } else if (void *const areas = vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get())) {
        void *const style = vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(areas), false);
        vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style), c_ink);
        vx_bpln_style_set_color(vx_pgn_style_get_bpln_style_ptr(style), c_rim);
        vx_bpln_style_set_width(vx_pgn_style_get_bpln_style_ptr(style), 0.15);
    } else if (void *const lines = vx_shp_pln_lr2d_get_stl_mngr_ptr(layer.get())) {
        void *const style = vx_stl_prm_get_pln_style_ptr(vx_stl_mngr_get_simple_sp_ptr(lines), false);
        vx_bpln_style_set_color(vx_pln_style_get_bpln_style_ptr(style), c_rim);
        vx_bpln_style_set_width(vx_pln_style_get_bpln_style_ptr(style), 0.15);
    }
    return layer;
}

void color_by_values(Ivx_layer *layer)
{
    void *const mngr = vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer);
    void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_val_scale_set_size(scale, c_values);
    for (unsigned i = 0; i < c_values; ++i) {
        vx_val_scale_set_text_w(scale, i, (L"value " + std::to_wstring(i)).c_str());
        void *const base = vx_pnt_style_get_bpnt_style_ptr(vx_stl_prm_get_pnt_style_ptr(
            vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)), false));
        vx_bpnt_style_set_color(base, vx_clr_init_rgb(i % 251, i % 241, i % 239));
        vx_bpnt_style_set_size(base, c_point_mm);
    }
    vx_stl_mngr_set_val_prop_name_w(mngr, L"value");
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
}

QImage own_picture(Ivx_layer *layer, Tvx_map_view const &view)
{
    QImage image = white_picture();
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(dc.get(), image.bits(), c_width, c_height, int(image.bytesPerLine()));
    if (!vx_render_layer(layer, view, dc.get()))
        std::abort();
    return image;
}

auto own_first(std::string const &file, Tvx_map_view const &view)
{
    layer_ptr layer = opened_layer(file);
    QImage image = own_picture(layer.get(), view);
    return std::make_pair(std::move(layer), std::move(image));
}

// ---- the plain way

QImage stamp(QColor color)
{
    double const size = c_point_mm * 96 / 25.4;
    int const side = int(std::ceil(size)) + 2;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF((side - size) / 2, (side - size) / 2, size, size));
    return image;
}

/// The format library's loop, which draws each geometry as it comes.
class plain_painter
{
public:
    explicit plain_painter(Tvx_map_view const &view) : f_view(view), f_stamp(stamp(qt_color(c_ink)))
    {
        f_painter.begin(&f_image);
        f_painter.setRenderHint(QPainter::Antialiasing);
        QPen pen(qt_color(c_rim), 1);
        pen.setJoinStyle(Qt::BevelJoin);
        f_painter.setPen(pen);
        f_painter.setBrush(qt_color(c_ink));
    }
    void draw_point(double x, double y, QImage const &with)
    {
        f_painter.drawImage(QPoint(int(std::floor(f_view.world_to_px_x(x))) - with.width() / 2,
                                   int(std::floor(f_view.world_to_px_y(y))) - with.height() / 2),
                            with);
    }
    void draw(OGRGeometry const &geometry)
    {
        if (wkbFlatten(geometry.getGeometryType()) == wkbPoint)
            return draw_point(geometry.toPoint()->getX(), geometry.toPoint()->getY(), f_stamp);
        OGRLinearRing const &ring = *geometry.toPolygon()->getExteriorRing();
        f_polygon.resize(ring.getNumPoints());
        for (int i = 0; i < ring.getNumPoints(); ++i)
            f_polygon[i] = {f_view.world_to_px_x(ring.getX(i)), f_view.world_to_px_y(ring.getY(i))};
        f_painter.drawPolygon(f_polygon);
    }
    void draw(std::vector<Tvx_pnt_d2> const &ring)
    {
        f_polygon.resize(qsizetype(ring.size()));
        for (std::size_t i = 0; i < ring.size(); ++i)
            f_polygon[qsizetype(i)] = {f_view.world_to_px_x(ring[i].x), f_view.world_to_px_y(ring[i].y)};
        f_painter.drawPolygon(f_polygon);
    }
    /// Less vertices that are nearer than half a pixel to the one before.
    void draw_thinned(std::vector<Tvx_pnt_d2> const &line)
    {
        f_polygon.clear();
        for (Tvx_pnt_d2 const &p : line) {
            QPointF const at(f_view.world_to_px_x(p.x), f_view.world_to_px_y(p.y));
            if (f_polygon.isEmpty() || std::abs(at.x() - f_polygon.back().x()) > 0.5 ||
                std::abs(at.y() - f_polygon.back().y()) > 0.5)
                f_polygon.push_back(at);
        }
        f_painter.setBrush(Qt::NoBrush);
        f_painter.drawPolyline(f_polygon);
    }

private:
    Tvx_map_view f_view;
    QImage f_image = white_picture();
    QImage f_stamp;
    QPainter f_painter;
    QPolygonF f_polygon;
};

auto plain_first(std::string const &file, Tvx_map_view const &view, bool is_part)
{
    std::unique_ptr<GDALDataset> set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    OGRLayer &layer = *set->GetLayer(0);
    char const *const ignored[] = {"value", "number", "OGR_STYLE", nullptr};
    (void)layer.SetIgnoredFields(const_cast<char const **>(ignored));
    if (is_part)
        layer.SetSpatialFilterRect(view.world.min_x, view.world.min_y, view.world.max_x, view.world.max_y);
    plain_painter painter(view);
    for (auto const &feature : layer)
        if (OGRGeometry const *const geometry = feature->GetGeometryRef())
            painter.draw(*geometry);
    return set;
}

/// The coordinates of a file, feature by feature.
std::vector<std::vector<Tvx_pnt_d2>> coordinates(std::string const &file)
{
    std::vector<std::vector<Tvx_pnt_d2>> all;
    std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    for (auto const &feature : *set->GetLayer(0)) {
        OGRGeometry const *const geometry = feature->GetGeometryRef();
        auto &part = all.emplace_back();
        auto const type = wkbFlatten(geometry->getGeometryType());
        if (type == wkbPoint) {
            part.push_back({geometry->toPoint()->getX(), geometry->toPoint()->getY()});
            continue;
        }
        OGRSimpleCurve const &line =
            type == wkbPolygon ? *geometry->toPolygon()->getExteriorRing() : *geometry->toSimpleCurve();
        for (int i = 0; i < line.getNumPoints(); ++i)
            part.push_back({line.getX(i), line.getY(i)});
    }
    return all;
}

// ---- the table

std::string wanted_rows;

bool is_wanted(std::string_view name)
{
    return name.find(wanted_rows) != std::string_view::npos;
}

template <class Plain, class Own>
void row(std::string const &name, double bound, double margin, int rounds, Plain plain, Own own)
{
    if (!is_wanted(name))
        return;
    auto const times = compare(plain, own, rounds);
    double const ratio = times.own.processor / times.plain.processor;
    std::printf("%-58s plain %7.1f ms  own %7.1f ms  ratio %5.2f (wall %5.2f)  bound %5.2f  %s\n",
                name.c_str(), times.plain.processor * 1e3, times.own.processor * 1e3, ratio,
                times.own.wall / times.plain.wall, bound, ratio * margin <= bound ? "holds" : "EXCEEDED");
    std::fflush(stdout);
}

void first_pictures()
{
    struct
    {
        char const *driver;
        char const *ending;
    } const formats[] = {{"GPKG", "gpkg"}, {"ESRI Shapefile", "shp"}};
    for (auto const &f : formats) {
        bool const is_indexed = std::string_view(f.ending) == "gpkg";
        std::string const suffix = std::string(", ") + f.ending;
        std::string const points = points_file(f.driver, f.ending);
        std::string const polygons = polygons_file(f.driver, f.ending);
        auto const whole = view_of(1), part = view_of(0.01);
        row(
            "first picture of 1,000,000 points" + suffix, 1.0, c_margin, 3,
            [&] { return plain_first(points, whole, false); }, [&] { return own_first(points, whole); });
        row(
            "first picture of 100,000 polygons" + suffix, 1.1, c_margin, 3,
            [&] { return plain_first(polygons, whole, false); }, [&] { return own_first(polygons, whole); });
        double const bound = is_indexed ? 1.5 : 1.1;
        row(
            "first picture of 1 % of the points" + suffix, bound, c_margin, 7,
            [&] { return plain_first(points, part, true); }, [&] { return own_first(points, part); });
        row(
            "first picture of 1 % of the polygons" + suffix, bound, c_margin, 7,
            [&] { return plain_first(polygons, part, true); }, [&] { return own_first(polygons, part); });
    }
}

void repaint_points()
{
    constexpr char const *c_one = "repaint of 1,000,000 points, one style";
    constexpr char const *c_many = "repaint of 1,000,000 points, 2,000 values";
    constexpr char const *c_ten = "repaint of 10 times as many points";
    if (!is_wanted(c_one) && !is_wanted(c_many) && !is_wanted(c_ten))
        return;
    std::string const file = points_file("ESRI Shapefile", "shp");
    auto const whole = view_of(1);
    layer_ptr const layer = opened_layer(file);
    double own_time = 0;
    {
        auto const all = coordinates(file);
        std::vector<Tvx_pnt_d2> points;
        for (auto const &part : all)
            points.push_back(part.front());
        (void)own_picture(layer.get(), whole);
        auto const one = stamp(qt_color(c_ink));
        row(
            c_one, 1.3, 1, 7,
            [&] {
                plain_painter painter(whole);
                for (auto const &p : points)
                    painter.draw_point(p.x, p.y, one);
            },
            [&] { (void)own_picture(layer.get(), whole); });
        own_time = compare([] {}, [&] { (void)own_picture(layer.get(), whole); }).own.processor;
        std::vector<QImage> stamps;
        for (int i = 0; i < c_values; ++i)
            stamps.push_back(stamp(QColor(i % 251, i % 241, i % 239)));
        std::vector<std::uint16_t> values;
        for (int i = 0; i < c_records; ++i)
            values.push_back(static_cast<std::uint16_t>(i * 7919LL % c_values));
        color_by_values(layer.get());
        (void)own_picture(layer.get(), whole);
        row(
            c_many, 1.5, 1, 7,
            [&] {
                plain_painter painter(whole);
                for (std::size_t i = 0; i < points.size(); ++i)
                    painter.draw_point(points[i].x, points[i].y, stamps[values[i]]);
            },
            [&] { (void)own_picture(layer.get(), whole); });
    }
    if (!is_wanted(c_ten))
        return;
    layer_ptr const many = opened_layer(many_points_file());
    (void)own_picture(many.get(), whole);
    double const ten = compare([] {}, [&] { (void)own_picture(many.get(), whole); }).own.processor;
    std::printf("%-58s once  %7.1f ms  ten %7.1f ms  ratio %5.2f               bound %5.2f  %s\n", c_ten,
                own_time * 1e3, ten * 1e3, ten / own_time, 10.5,
                ten / own_time <= 10.5 ? "holds" : "EXCEEDED");
}

void repaint_areas_and_lines()
{
    auto const whole = view_of(1);
    constexpr char const *c_polygons_row = "repaint of 100,000 polygons";
    if (is_wanted(c_polygons_row)) {
        std::string const polygons = polygons_file("ESRI Shapefile", "shp");
        layer_ptr const areas = opened_layer(polygons);
        auto const rings = coordinates(polygons);
        (void)own_picture(areas.get(), whole);
        row(
            c_polygons_row, 1.1, c_margin, 7,
            [&] {
                plain_painter painter(whole);
                for (auto const &ring : rings)
                    painter.draw(ring);
            },
            [&] { (void)own_picture(areas.get(), whole); });
    }
    if (is_wanted("repaint of a coast of 2,000,000 vertices, whole, zoomed")) {
        std::string const coast = coast_file();
        layer_ptr const lines = opened_layer(coast);
        auto const parts = coordinates(coast);
        for (double const share : {1.0, 0.01}) {
            auto view = view_of(share);
            if (share < 1) { // about the middle of the coast
                Tvx_pnt_d2 const at = parts[c_coast_lines / 2].front();
                double const w = view.world.width() / 2, h = view.world.height() / 2;
                view.world = {at.x - w, at.y - h, at.x + w, at.y + h};
            }
            (void)own_picture(lines.get(), view);
            row(
                share == 1 ? "repaint of a coast of 2,000,000 vertices, whole"
                           : "repaint of a coast of 2,000,000 vertices, zoomed",
                1.3, c_margin, 7,
                [&] {
                    plain_painter painter(view);
                    for (auto const &line : parts)
                        painter.draw_thinned(line);
                },
                [&] { (void)own_picture(lines.get(), view); });
        }
    }
}

// ---- memory: each file in a process of its own

double status_bytes(char const *what)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind(what, 0) == 0)
            return std::atof(line.c_str() + std::string_view(what).size() + 1) * 1024;
    return 0;
}

double heap_bytes()
{
    auto const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// What the shapes take, with the index that answers small windows, and how far above what was before the
/// process had grown meanwhile.
int print_memory(std::string const &file, double units, double bound, char const *unit)
{
    layer_ptr const layer = opened_layer(file);
    malloc_trim(0);
    double const heap = heap_bytes();
    double const resident = status_bytes("VmRSS:");
    std::ofstream("/proc/self/clear_refs") << "5"; // the peak starts anew
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(
        vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layer.get())));
    Tvx_box_d2 const window = view_of(0.0001).world;
    vx_shape_files_visit(
        shapes.get(), &window, [](unsigned, Tvx_shape_view const *, void *) { return true; }, nullptr);
    double const peak = status_bytes("VmHWM:") - resident;
    double const stays = heap_bytes() - heap;
    double const each = stays / units;
    std::printf("%-58s %6.1f bytes a %s (bound %.1f)  peak %.2f of what stays (bound 1.50)  %s\n",
                ("memory of " + std::filesystem::path(file).filename().string()).c_str(), each, unit, bound,
                peak / stays, each <= bound && peak <= 1.5 * stays ? "holds" : "EXCEEDED");
    return 0;
}

void memory(char const *program)
{
    struct
    {
        std::string file;
        char const *units;
        char const *bound;
        char const *unit;
    } const cases[] = {
        {points_file("GPKG", "gpkg"), "1000000", "24", "point"},
        {points_file("ESRI Shapefile", "shp"), "1000000", "24", "point"},
        {polygons_file("GPKG", "gpkg"), "3100000", "20.8", "vertex"},
        {polygons_file("ESRI Shapefile", "shp"), "3100000", "20.8", "vertex"},
        {parcels_file("GPKG", "gpkg"), "2500000", "20.8", "vertex"},
        {parcels_file("ESRI Shapefile", "shp"), "2500000", "20.8", "vertex"},
        {coast_file(), "2000000", "20.8", "vertex"},
    };
    for (auto const &c : cases) {
        pid_t const child = fork();
        if (child == 0) {
            execl("/proc/self/exe", program, "--memory", c.file.c_str(), c.units, c.bound, c.unit, nullptr);
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
    }
}
} // namespace

int main(int count, char **words)
{
    GDALAllRegister();
    vx_bundles_load();
    if (count == 6 && std::string_view(words[1]) == "--memory")
        return print_memory(words[2], std::atof(words[3]), std::atof(words[4]), words[5]);
    wanted_rows = count > 1 ? words[1] : "";
    std::printf("%d by %d pixels, antialiased; times of the processor, the least of several rounds in turn\n",
                c_width, c_height);
    first_pictures();
    repaint_points();
    repaint_areas_and_lines();
    if (is_wanted("memory"))
        memory(words[0]);
    return 0;
}
