#include "geometry.h"

#include "data_types.h"

#include <ogr_geometry.h>

#include <vector>

namespace vx::gdal {
namespace {
/// One spelling of the list functions for both dimensions.
struct flat_list
{
    using list = Tvx_op2d;
    using vertex = Tvx_vtx_d2;
    static constexpr bool c_has_z = false;
    static void clear(list *l) { vx_ov_d2_clear(l); }
    static std::size_t size(list const *l) { return vx_ov_d2_get_size(l); }
    static void set_size(list *l, std::size_t n) { vx_ov_d2_set_size(l, n); }
    static void set_type(list *l, Tvx_vector_type t) { vx_ov_d2_set_vector_type(l, t); }
    static vertex *fill(list *l, std::size_t part, std::size_t count)
    {
        Tvx_pv_d2 *const p = vx_ov_d2_get_pv_ptr(l, part);
        vx_pv_d2_set_size(p, count);
        return vx_pv_d2_get_data(p);
    }
    static vertex const *data(list const *l, std::size_t part, std::size_t &count)
    {
        Tvx_pv_d2 const *const p = vx_ov_d2_get_pv_ptr(l, part);
        count = vx_pv_d2_get_size(p);
        return vx_pv_d2_get_data(p);
    }
    static void read(OGRSimpleCurve const &line, vertex *to)
    {
        line.getPoints(&to->x, sizeof(vertex), &to->y, sizeof(vertex));
    }
    static vertex read(OGRPoint const &point) { return {point.getX(), point.getY()}; }
    static OGRPoint make(vertex const &v) { return {v.x, v.y}; }
    static void write(OGRSimpleCurve &line, vertex const *from, std::size_t count)
    {
        line.setNumPoints(static_cast<int>(count), FALSE);
        for (std::size_t i = 0; i < count; ++i)
            line.setPoint(static_cast<int>(i), from[i].x, from[i].y);
    }
};

struct space_list
{
    using list = Tvx_ovtx_d3;
    using vertex = Tvx_vtx_d3;
    static constexpr bool c_has_z = true;
    static void clear(list *l) { vx_ov_d3_clear(l); }
    static std::size_t size(list const *l) { return vx_ov_d3_get_size(l); }
    static void set_size(list *l, std::size_t n) { vx_ov_d3_set_size(l, n); }
    static void set_type(list *l, Tvx_vector_type t) { vx_ov_d3_set_vector_type(l, t); }
    static vertex *fill(list *l, std::size_t part, std::size_t count)
    {
        Tvx_pv_d3 *const p = vx_ov_d3_get_pv_ptr(l, part);
        vx_pv_d3_set_size(p, count);
        return vx_pv_d3_get_data(p);
    }
    static vertex const *data(list const *l, std::size_t part, std::size_t &count)
    {
        Tvx_pv_d3 const *const p = vx_ov_d3_get_pv_ptr(l, part);
        count = vx_pv_d3_get_size(p);
        return vx_pv_d3_get_data(p);
    }
    static void read(OGRSimpleCurve const &line, vertex *to)
    {
        line.getPoints(&to->x, sizeof(vertex), &to->y, sizeof(vertex), &to->z, sizeof(vertex));
    }
    static vertex read(OGRPoint const &point)
    {
        return {point.getX(), point.getY(), point.Is3D() ? point.getZ() : 0};
    }
    static OGRPoint make(vertex const &v) { return {v.x, v.y, v.z}; }
    static void write(OGRSimpleCurve &line, vertex const *from, std::size_t count)
    {
        line.setNumPoints(static_cast<int>(count), FALSE);
        for (std::size_t i = 0; i < count; ++i)
            line.setPoint(static_cast<int>(i), from[i].x, from[i].y, from[i].z);
    }
};

/// Of one kind only: a collection may hold others too.
void collect_points(OGRGeometry const *geometry, std::vector<OGRPoint const *> &points)
{
    switch (wkbFlatten(geometry->getGeometryType())) {
    case wkbPoint:
        points.push_back(geometry->toPoint());
        return;
    case wkbMultiPoint:
    case wkbGeometryCollection:
        for (OGRGeometry const *item : *geometry->toGeometryCollection())
            collect_points(item, points);
        return;
    default:
        return;
    }
}

void collect_lines(OGRGeometry const *geometry, bool of_polygons, std::vector<OGRSimpleCurve const *> &lines)
{
    switch (wkbFlatten(geometry->getGeometryType())) {
    case wkbLineString:
        if (!of_polygons)
            lines.push_back(geometry->toSimpleCurve());
        return;
    case wkbPolygon:
    case wkbTriangle:
        if (of_polygons)
            for (OGRLinearRing const *ring : *geometry->toPolygon())
                lines.push_back(ring);
        return;
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection:
        for (OGRGeometry const *item : *geometry->toGeometryCollection())
            collect_lines(item, of_polygons, lines);
        return;
    case wkbPolyhedralSurface:
    case wkbTIN:
        for (OGRPolygon const *face : *geometry->toPolyhedralSurface())
            collect_lines(face, of_polygons, lines);
        return;
    default:
        return;
    }
}

/// What kinds of parts a collection has.
struct part_kinds
{
    bool points = false;
    bool lines = false;
    bool polygons = false;

    void note(OGRGeometry const &geometry)
    {
        if (geometry.IsEmpty())
            return;
        switch (flat(geom_type_of(geometry.getGeometryType()))) {
        case geom_point:
        case geom_multipoint:
            points = true;
            return;
        case geom_polyline:
            lines = true;
            return;
        case geom_polygon:
        case geom_multipatch:
            polygons = true;
            return;
        default:
            if (wkbFlatten(geometry.getGeometryType()) == wkbGeometryCollection)
                for (OGRGeometry const *item : *geometry.toGeometryCollection())
                    note(*item);
        }
    }
    [[nodiscard]] bool has(int kind) const
    {
        return kind == geom_multipoint ? points
               : kind == geom_polyline ? lines
                                       : kind == geom_polygon && polygons;
    }
    [[nodiscard]] int of(int wanted) const
    {
        if (has(wanted))
            return wanted;
        int const count = points + lines + polygons;
        return count > 1    ? geom_unknown
               : count == 0 ? geom_none
               : points     ? geom_multipoint
               : lines      ? geom_polyline
                            : geom_polygon;
    }
};

template <class Form>
bool read_multipoint(OGRGeometry const *geometry, typename Form::list *list, int wanted)
{
    Form::clear(list);
    int const type = flat(geom_type_of_geometry(geometry, wanted));
    if (type != geom_multipoint && type != geom_point)
        return false;
    std::vector<OGRPoint const *> points;
    collect_points(geometry, points);
    std::erase_if(points, [](OGRPoint const *p) { return p->IsEmpty(); });
    Form::set_size(list, points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        *Form::fill(list, i, 1) = Form::read(*points[i]);
    Form::set_type(list, c_vector_points);
    return true;
}

template <class Form>
bool read_polypoint(OGRGeometry const *geometry, typename Form::list *list, int wanted)
{
    Form::clear(list);
    int type = flat(geom_type_of_geometry(geometry, wanted));
    // Of several kinds the areas are what is seen first.
    for (int const kind : {geom_polygon, geom_polyline})
        if (type == geom_unknown)
            type = flat(geom_type_of_geometry(geometry, kind));
    if (type != geom_polyline && type != geom_polygon)
        return false;
    std::unique_ptr<OGRGeometry> straight;
    if (geometry->hasCurveGeometry()) {
        straight.reset(geometry->getLinearGeometry());
        geometry = straight.get();
    }
    std::vector<OGRSimpleCurve const *> lines;
    if (geometry)
        collect_lines(geometry, type == geom_polygon, lines);
    std::erase_if(lines, [](OGRSimpleCurve const *line) { return line->getNumPoints() == 0; });
    Form::set_size(list, lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        Form::read(*lines[i], Form::fill(list, i, static_cast<std::size_t>(lines[i]->getNumPoints())));
    Form::set_type(list, type == geom_polygon ? c_vector_polygon : c_vector_polyline);
    return true;
}

template <class Form>
std::unique_ptr<OGRGeometry> write_multipoint(typename Form::list const *list)
{
    auto result = std::make_unique<OGRMultiPoint>();
    for (std::size_t part = 0; part < Form::size(list); ++part) {
        std::size_t count = 0;
        auto const *const vertices = Form::data(list, part, count);
        for (std::size_t i = 0; i < count; ++i) {
            OGRPoint const point = Form::make(vertices[i]);
            result->addGeometry(&point);
        }
    }
    if (result->IsEmpty())
        return nullptr;
    return result;
}

template <class Form>
std::unique_ptr<OGRGeometry> write_polyline(typename Form::list const *list)
{
    auto result = std::make_unique<OGRMultiLineString>();
    for (std::size_t part = 0; part < Form::size(list); ++part) {
        std::size_t count = 0;
        auto const *const vertices = Form::data(list, part, count);
        if (count < 2)
            return nullptr;
        auto line = std::make_unique<OGRLineString>();
        Form::write(*line, vertices, count);
        result->addGeometryDirectly(line.release());
    }
    if (result->IsEmpty())
        return nullptr;
    if (result->getNumGeometries() == 1)
        return std::unique_ptr<OGRGeometry>(result->getGeometryRef(0)->clone());
    return result;
}

/// Outer rings against the clock, holes with it: what most formats ask for.
void turn_rings(OGRGeometry &geometry)
{
    if (wkbFlatten(geometry.getGeometryType()) == wkbMultiPolygon) {
        for (OGRPolygon *polygon : *geometry.toMultiPolygon())
            turn_rings(*polygon);
        return;
    }
    if (wkbFlatten(geometry.getGeometryType()) != wkbPolygon)
        return;
    bool is_outer = true;
    for (OGRLinearRing *ring : *geometry.toPolygon()) {
        if (ring->isClockwise() == is_outer)
            ring->reverseWindingOrder();
        is_outer = false;
    }
}

template <class Form>
std::unique_ptr<OGRGeometry> write_polygon(typename Form::list const *list)
{
    std::vector<OGRGeometry *> rings;
    bool good = Form::size(list) > 0;
    for (std::size_t part = 0; part < Form::size(list) && good; ++part) {
        std::size_t count = 0;
        auto const *const vertices = Form::data(list, part, count);
        good = count >= 3;
        if (!good)
            break;
        auto ring = std::make_unique<OGRLinearRing>();
        Form::write(*ring, vertices, count);
        ring->closeRings();
        auto polygon = std::make_unique<OGRPolygon>();
        polygon->addRingDirectly(ring.release());
        rings.push_back(polygon.release());
    }
    if (!good) {
        for (OGRGeometry *ring : rings)
            delete ring;
        return nullptr;
    }
    // The call takes the rings over, whatever it makes of them.
    int is_valid = FALSE;
    std::unique_ptr<OGRGeometry> result(
        rings.size() == 1 ? rings.front()
                          : OGRGeometryFactory::organizePolygons(rings.data(), static_cast<int>(rings.size()),
                                                                 &is_valid, nullptr));
    if (result)
        turn_rings(*result);
    return result;
}
} // namespace

int geom_type_of_geometry(OGRGeometry const *geometry, int wanted)
{
    if (!geometry || wkbFlatten(geometry->getGeometryType()) != wkbGeometryCollection)
        return geometry ? geom_type_of(geometry->getGeometryType()) : geom_none;
    part_kinds kinds;
    kinds.note(*geometry);
    int const type = kinds.of(flat(wanted));
    return geometry->Is3D() && type != geom_none && type != geom_unknown ? type + 10 : type;
}

bool get_point(OGRGeometry const *geometry, Tvx_vtx_d3 &vertex)
{
    vertex = {};
    if (flat(geom_type_of_geometry(geometry)) != geom_point || geometry->IsEmpty())
        return false;
    vertex = space_list::read(*geometry->toPoint());
    return true;
}

bool get_multipoint(OGRGeometry const *geometry, Tvx_op2d *list, int wanted)
{
    return read_multipoint<flat_list>(geometry, list, wanted);
}

bool get_multipoint(OGRGeometry const *geometry, Tvx_ovtx_d3 *list, int wanted)
{
    return read_multipoint<space_list>(geometry, list, wanted);
}

bool get_polypoint(OGRGeometry const *geometry, Tvx_op2d *list, int wanted)
{
    return read_polypoint<flat_list>(geometry, list, wanted);
}

bool get_polypoint(OGRGeometry const *geometry, Tvx_ovtx_d3 *list, int wanted)
{
    return read_polypoint<space_list>(geometry, list, wanted);
}

std::unique_ptr<OGRGeometry> make_multipoint(Tvx_op2d const *list)
{
    return write_multipoint<flat_list>(list);
}

std::unique_ptr<OGRGeometry> make_multipoint(Tvx_ovtx_d3 const *list)
{
    return write_multipoint<space_list>(list);
}

std::unique_ptr<OGRGeometry> make_polyline(Tvx_op2d const *list)
{
    return write_polyline<flat_list>(list);
}

std::unique_ptr<OGRGeometry> make_polyline(Tvx_ovtx_d3 const *list)
{
    return write_polyline<space_list>(list);
}

std::unique_ptr<OGRGeometry> make_polygon(Tvx_op2d const *list)
{
    return write_polygon<flat_list>(list);
}

std::unique_ptr<OGRGeometry> make_polygon(Tvx_ovtx_d3 const *list)
{
    return write_polygon<space_list>(list);
}
} // namespace vx::gdal
