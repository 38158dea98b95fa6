#include "platform/data/detail/shape_feed.h"

#include "extension/binding/codes.h"
#include "extension/binding/feature_visitor.h"
#include "extension/binding/shape_reading_visitor.h"
#include "extension/binding/shape_source.h"

#include "platform/base/owned.h"
#include "platform/base/vertex_list.h"
#include "platform/basic/vx_datasource.h"

#include <algorithm>
#include <cstdlib>

namespace vx::attr {
namespace {
using namespace codes::plain;

// Types with z have the number of the flat one and this; a patch of surfaces has no flat form.
constexpr int c_geom_z = geom_point_z - geom_point;
/// Shapes that are read slowly are seen when there are so many of them.
constexpr std::size_t c_worth_seeing = 256;
constexpr std::size_t c_most_missing = 1U << 20;

Tvx_shape_kind kind_of(int geom_type)
{
    switch (geom_type > c_geom_z ? geom_type - c_geom_z : geom_type) {
    case geom_point:
    case geom_multipoint:
        return c_shape_point;
    case geom_polyline:
        return c_shape_polyline;
    case geom_polygon:
        return c_shape_polygon;
    default:
        return c_shape_none;
    }
}

class reading_taker final : public vx::shape_reading_visitor_impl
{
public:
    vx::shape_reading f_reading;
    void visit(vx::shape_reading item) override { f_reading = item; }
};

vx::shape_reading begin_reading(vx::data_source source, Tvx_box_d2 const *window)
{
    vx::shape_source const shapes(
        vx_shape_source_interface_specialize(vx_data_source_interface_generalize(source)));
    reading_taker taker;
    Tvx_box_d2 box = window ? *window : Tvx_box_d2{};
    if (!shapes || !shapes.read_shapes(window ? &box : nullptr, taker))
        return {};
    return taker.f_reading;
}
} // namespace

/// Receives the runs of a driver, not more of them than there are records.
class shape_feed::run_reader final : public vx::shape_visitor_impl
{
public:
    explicit run_reader(shape_feed &feed) : f_feed(feed) {}

    void visit_points(unsigned long long count, double const *places,
                      unsigned long long const *records) override
    {
        static_assert(sizeof(Tvx_pnt_d2) == 2 * sizeof(double));
        auto const *const points = reinterpret_cast<Tvx_pnt_d2 const *>(places);
        if (!records) {
            std::size_t const taken = std::min<std::size_t>(count, f_feed.f_record_count - f_feed.f_taken);
            f_feed.f_shapes->append_points({points, taken});
            f_feed.f_taken += taken;
            return;
        }
        for (unsigned long long i = 0; i < count; ++i)
            if (takes(records, i))
                f_feed.f_shapes->append_points({points + i, 1});
    }
    void visit_shapes(unsigned long long count, int const *kinds, unsigned const *part_counts,
                      unsigned const *vertex_counts, double const *places,
                      unsigned long long const *records) override
    {
        auto const *points = reinterpret_cast<Tvx_pnt_d2 const *>(places);
        if (!records) {
            std::size_t const taken = std::min<std::size_t>(count, f_feed.f_record_count - f_feed.f_taken);
            f_kinds.assign(taken, c_shape_none);
            std::transform(kinds, kinds + taken, f_kinds.begin(),
                           [this](int kind) { return taken_kind(kind); });
            f_feed.f_shapes->append_run(f_kinds, part_counts, vertex_counts, points);
            f_feed.f_taken += taken;
            return;
        }
        for (unsigned long long i = 0; i < count; ++i) {
            std::span<unsigned const> const sizes(vertex_counts, part_counts[i]);
            if (takes(records, i))
                f_feed.f_shapes->append(taken_kind(kinds[i]), sizes, points);
            for (unsigned const size : sizes)
                points += size;
            vertex_counts += sizes.size();
        }
    }

private:
    /// Whether shape `i` of the run belongs to a record; that is noted then.
    [[nodiscard]] bool takes(unsigned long long const *records, unsigned long long i)
    {
        if (!f_feed.f_records || records[i] >= f_feed.f_record_count)
            return false;
        f_feed.f_records->push_back(static_cast<unsigned>(records[i]));
        return true;
    }

    /// Below zero the record has parts of other kinds as well.
    [[nodiscard]] Tvx_shape_kind taken_kind(int kind)
    {
        if (kind < 0)
            f_feed.f_shapes->set_has_more_kinds();
        return kind_of(std::abs(kind));
    }

    shape_feed &f_feed;
    std::vector<Tvx_shape_kind> f_kinds;
};

/// Receives features one by one; each is ended as soon as it was looked at.
class shape_feed::feature_reader final : public vx::feature_visitor_impl
{
public:
    explicit feature_reader(shape_set &shapes) : f_shapes(shapes) {}

    void visit(vx::feature item) override
    {
        struct ending
        {
            vx::feature const &item;
            ~ending() { vx_datasource_end(item); }
        } const ends{item};
        read(item);
    }

private:
    void read(vx::feature const &item)
    {
        int const type = item.geom_type();
        Tvx_shape_kind kind = kind_of(type);
        bool const is_single = (type > c_geom_z ? type - c_geom_z : type) == geom_point;
        if (is_single) {
            Tvx_vtx_d2 vertex;
            Tvx_pnt_d2 const point = item.get_point(&vertex) ? Tvx_pnt_d2{vertex.x, vertex.y} : c_nowhere;
            return f_shapes.append_points({&point, 1});
        }
        // A collection of several kinds gives its areas, else its lines.
        bool const has_more_kinds = type == geom_unknown;
        bool const is_read = kind == c_shape_point                    ? item.get_multipoint(f_list.get())
                             : kind != c_shape_none || has_more_kinds ? item.get_polypoint(f_list.get())
                                                                      : false;
        if (has_more_kinds) {
            Tvx_vector_type const of = vx_ov_d2_get_vector_type(f_list.get());
            kind = of == c_vector_polygon    ? c_shape_polygon
                   : of == c_vector_polyline ? c_shape_polyline
                                             : c_shape_none;
        }
        if (!is_read || kind == c_shape_none)
            return f_shapes.append_none();
        if (has_more_kinds)
            f_shapes.set_has_more_kinds();
        f_sizes.clear();
        f_points.clear();
        for (std::size_t p = 0; p < vx_ov_d2_get_size(f_list.get()); ++p) {
            Tvx_pv_d2 const *const part = vx_ov_d2_get_pv_ptr(f_list.get(), p);
            Tvx_vtx_d2 const *const vertices = vx_pv_d2_get_data(part);
            f_sizes.push_back(static_cast<unsigned>(vx_pv_d2_get_size(part)));
            for (std::size_t v = 0; v < f_sizes.back(); ++v)
                f_points.push_back({vertices[v].x, vertices[v].y});
        }
        f_shapes.append(kind, f_sizes, f_points.data());
    }

    static constexpr Tvx_pnt_d2 c_nowhere{std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::quiet_NaN()};
    shape_set &f_shapes;
    vx::owned<Tvx_op2d, &vx_ov_d2_destroy> f_list{vx_ov_d2_create()};
    std::vector<unsigned> f_sizes;
    std::vector<Tvx_pnt_d2> f_points;
};

shape_feed::shape_feed(vx::data_source source, std::size_t record_count)
    : f_source(source), f_reading(begin_reading(source, nullptr)), f_record_count(record_count)
{
    if (f_reading)
        return;
    f_walk = std::make_unique<feature_walk>(source, record_count);
    f_features = std::make_unique<feature_reader>(*f_shapes);
}

std::unique_ptr<shape_feed> shape_feed::in_window(vx::data_source source, std::size_t record_count,
                                                  Tvx_box_d2 const &window)
{
    vx::shape_reading const reading = begin_reading(source, &window);
    if (!reading)
        return nullptr;
    std::unique_ptr<shape_feed> feed(new shape_feed(source, record_count, reading));
    feed->f_records = std::make_shared<std::vector<unsigned>>();
    return feed;
}

shape_feed::shape_feed(vx::data_source source, std::size_t record_count, vx::shape_reading reading)
    : f_source(source), f_reading(reading), f_record_count(record_count)
{
}

shape_feed::~shape_feed()
{
    end_reading();
}

void shape_feed::end_reading()
{
    if (f_reading)
        vx_datasource_end(f_reading);
    f_reading = {};
    f_walk.reset();
    f_features.reset();
}

void shape_feed::give_up()
{
    f_is_over = f_is_broken = true;
    f_shapes->set_damaged();
    end_reading();
}

bool shape_feed::read_on(int milliseconds)
{
    if (f_is_over)
        return false;
    if (f_reading)
        read_runs(milliseconds);
    else
        read_features(milliseconds);
    if (!f_is_over && f_shapes->hidden_count() >= c_worth_seeing)
        f_shapes->publish();
    return !f_is_over;
}

void shape_feed::read_runs(int milliseconds)
{
    run_reader reader(*this);
    int const state = f_reading.next(milliseconds, reader);
    if (state != reading_goes_on)
        finish(state == reading_damaged);
}

void shape_feed::read_features(int milliseconds)
{
    auto const state = f_walk->read_on(milliseconds, *f_features);
    f_taken = f_walk->taken();
    if (state != feature_walk::c_more)
        finish(state == feature_walk::c_damaged);
}

void shape_feed::finish(bool is_damaged)
{
    // A driver that gives fewer features than it counts leaves the rest without geometry; far fewer, and its
    // count is not believed.
    std::size_t const filled = std::min(f_record_count, f_taken + c_most_missing);
    if (!f_records)
        for (; f_taken < filled; ++f_taken)
            f_shapes->append_none();
    if (is_damaged || (!f_records && filled < f_record_count))
        f_shapes->set_damaged();
    f_shapes->finish();
    f_is_over = true;
    end_reading();
}
} // namespace vx::attr
