#include "data/vector/vector_feature.h"

#include "extension/binding/string_visitors.h"

#include "platform/basic/vx_datasource.h"

namespace vx::data {
namespace {
// The two kinds of vertex lists under one name each, so that one body serves both.
struct flat_list
{
    using list = Tvx_op2d;
    using vertex = Tvx_vtx_d2;
    static void clear(list *l) { vx_ov_d2_clear(l); }
    static void set_type(list *l, Tvx_vector_type t) { vx_ov_d2_set_vector_type(l, t); }
    static void set_one(list *l, vertex const &v)
    {
        vx_ov_d2_set_size(l, 1);
        auto *const part = vx_ov_d2_get_pv_ptr(l, 0);
        vx_pv_d2_set_size(part, 1);
        vx_pv_d2_set_vtx(part, 0, &v);
    }
    static bool point(vector_feature const &f, list *l) { return f.fetch_point2d(l); }
    static bool points(vector_feature const &f, list *l) { return f.fetch_multipoint2d(l); }
    static bool parts(vector_feature const &f, list *l) { return f.fetch_polypoint2d(l); }
};

struct space_list
{
    using list = Tvx_ovtx_d3;
    using vertex = Tvx_vtx_d3;
    static void clear(list *l) { vx_ov_d3_clear(l); }
    static void set_type(list *l, Tvx_vector_type t) { vx_ov_d3_set_vector_type(l, t); }
    static void set_one(list *l, vertex const &v)
    {
        vx_ov_d3_set_size(l, 1);
        auto *const part = vx_ov_d3_get_pv_ptr(l, 0);
        vx_pv_d3_set_size(part, 1);
        vx_pv_d3_set_vtx(part, 0, &v);
    }
    static bool point(vector_feature const &f, list *l) { return f.fetch_point3d(l); }
    static bool points(vector_feature const &f, list *l) { return f.fetch_multipoint3d(l); }
    static bool parts(vector_feature const &f, list *l) { return f.fetch_polypoint3d(l); }
};

template <class Kind>
bool fetch_geom(vector_feature const &feature, typename Kind::list *list)
{
    bool (*read)(vector_feature const &, typename Kind::list *) = nullptr;
    Tvx_vector_type type = c_vector_none;
    switch (feature.valid() ? geomtype_flatten(feature.geom_type()) : geom_type::unknown) {
    case geom_type::point:
        read = &Kind::point;
        type = c_vector_points;
        break;
    case geom_type::polyline:
        read = &Kind::parts;
        type = c_vector_polyline;
        break;
    case geom_type::polygon:
        read = &Kind::parts;
        type = c_vector_polygon;
        break;
    case geom_type::multipoint:
        read = &Kind::points;
        type = c_vector_points;
        break;
    default:
        Kind::clear(list);
        Kind::set_type(list, c_vector_none);
        return false;
    }
    bool const result = read(feature, list);
    Kind::set_type(list, type);
    return result;
}
} // namespace

vector_feature::~vector_feature()
{
    release();
}

void vector_feature::release()
{
    if (f_owned)
        vx_datasource_end(f_handle);
    f_owned = false;
    f_handle = {};
}

void vector_feature::from_handle(t_vx_feature_interface handle)
{
    release();
    f_handle = handle;
}

void vector_feature::init(vx::feature handle)
{
    release();
    f_handle = handle;
    f_owned = true;
}

vx::data::geom_type vector_feature::geom_type() const
{
    return static_cast<vx::data::geom_type>(f_handle.geom_type());
}

std::wstring vector_feature::projection() const
{
    return visited_text([&](auto &v) { f_handle.with_proj4(v); });
}

bool vector_feature::extent(Tvx_box_d2 &box) const
{
    return f_handle.with_extent(&box);
}

vx::data::field_type vector_feature::field_type(std::uint64_t field) const
{
    return static_cast<vx::data::field_type>(f_handle.field_type(interface_index(field)));
}

int vector_feature::field_subtype(std::uint64_t field) const
{
    return f_handle.field_subtype(interface_index(field));
}

bool vector_feature::fetch_style(void *style) const
{
    return f_handle.get_style(style);
}

bool vector_feature::fetch_point2d(Tvx_vtx_d2 &vertex) const
{
    return f_handle.get_point(&vertex);
}

bool vector_feature::fetch_point3d(Tvx_vtx_d3 &vertex) const
{
    return f_handle.get_point_z(&vertex);
}

bool vector_feature::fetch_point2d(Tvx_op2d *list) const
{
    Tvx_vtx_d2 vertex;
    flat_list::clear(list);
    if (!fetch_point2d(vertex))
        return false;
    flat_list::set_one(list, vertex);
    return true;
}

bool vector_feature::fetch_point3d(Tvx_ovtx_d3 *list) const
{
    Tvx_vtx_d3 vertex;
    space_list::clear(list);
    if (!fetch_point3d(vertex))
        return false;
    space_list::set_one(list, vertex);
    return true;
}

bool vector_feature::fetch_multipoint2d(Tvx_op2d *list) const
{
    return f_handle.get_multipoint(list);
}

bool vector_feature::fetch_multipoint3d(Tvx_ovtx_d3 *list) const
{
    return f_handle.get_multipoint_z(list);
}

bool vector_feature::fetch_polypoint2d(Tvx_op2d *list) const
{
    return f_handle.get_polypoint(list);
}

bool vector_feature::fetch_polypoint3d(Tvx_ovtx_d3 *list) const
{
    return f_handle.get_polypoint_z(list);
}

bool vector_feature::fetch_geom2d(Tvx_op2d *list) const
{
    return fetch_geom<flat_list>(*this, list);
}

bool vector_feature::fetch_geom3d(Tvx_ovtx_d3 *list) const
{
    return fetch_geom<space_list>(*this, list);
}

std::wstring vector_feature::read_string(std::uint64_t field, bool &not_null) const
{
    std::wstring text;
    vx::stdwstring_visitor visitor(text);
    not_null = false;
    f_handle.get_string(interface_index(field), &not_null, visitor);
    return text;
}

void vector_feature::read_string(std::uint64_t field, bool &not_null, Ivx_string_adp *target) const
{
    vx::string_adp_visitor visitor(target);
    not_null = false;
    f_handle.get_string(interface_index(field), &not_null, visitor);
}

std::int32_t vector_feature::read_integer(std::uint64_t field, bool &not_null) const
{
    not_null = false;
    return f_handle.get_integer(interface_index(field), &not_null);
}

std::int64_t vector_feature::read_bigint(std::uint64_t field, bool &not_null) const
{
    not_null = false;
    return f_handle.get_bigint(interface_index(field), &not_null);
}

double vector_feature::read_numeric(std::uint64_t field, bool &not_null) const
{
    not_null = false;
    return f_handle.get_numeric(interface_index(field), &not_null);
}

any vector_feature::read_any(std::uint64_t field) const
{
    bool not_null = false;
    any out;
    switch (field_type(field)) {
    case vx::data::field_type::string:
        out = any::from_string(read_string(field, not_null));
        break;
    case vx::data::field_type::numeric:
        out = any::from_numeric(read_numeric(field, not_null));
        break;
    case vx::data::field_type::integer:
        out = any::from_integer(read_integer(field, not_null));
        break;
    case vx::data::field_type::bigint:
        out = any::from_bigint(read_bigint(field, not_null));
        break;
    default:
        break;
    }
    return not_null ? out : any();
}

bool vector_feature::write_string(std::uint64_t field, wchar_t const *text)
{
    return f_handle.set_string(interface_index(field), text);
}

bool vector_feature::write_string(std::uint64_t field, std::wstring const &text)
{
    return write_string(field, text.c_str());
}

bool vector_feature::write_integer(std::uint64_t field, std::int32_t value)
{
    return f_handle.set_integer(interface_index(field), value);
}

bool vector_feature::write_bigint(std::uint64_t field, std::int64_t value)
{
    return f_handle.set_bigint(interface_index(field), value);
}

bool vector_feature::write_numeric(std::uint64_t field, double value)
{
    return f_handle.set_numeric(interface_index(field), value);
}

bool vector_feature::write_null(std::uint64_t field)
{
    return f_handle.set_undef(interface_index(field));
}

bool vector_feature::write_default(std::uint64_t field)
{
    switch (field_type(field)) {
    case vx::data::field_type::string:
        return write_string(field, L"");
    case vx::data::field_type::numeric:
        return write_numeric(field, 0.0);
    case vx::data::field_type::integer:
        return write_integer(field, 0);
    case vx::data::field_type::bigint:
        return write_bigint(field, 0);
    default:
        return write_null(field);
    }
}

bool vector_feature::write_any(std::uint64_t field, any const &value)
{
    switch (value.kind()) {
    case vx::data::field_type::none:
        return write_null(field);
    case vx::data::field_type::string:
        return write_string(field, value.string());
    case vx::data::field_type::numeric:
        return write_numeric(field, value.numeric());
    case vx::data::field_type::integer:
        return write_integer(field, value.integer());
    case vx::data::field_type::bigint:
        return write_bigint(field, value.bigint());
    }
    return false;
}
} // namespace vx::data
