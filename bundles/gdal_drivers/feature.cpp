#include "feature.h"

#include "data_types.h"
#include "dataset.h"
#include "gdal_errors.h"
#include "geometry.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"

#include <cpl_error.h>
#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <charconv>
#include <climits>
#include <cmath>

namespace vx::gdal {
namespace {
std::string two_digits(int value)
{
    return CPLSPrintf("%02d", value);
}

std::string date_text(OGRFeature const &record, int field, OGRFieldType type)
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
    float second = 0;
    if (!record.GetFieldAsDateTime(field, &year, &month, &day, &hour, &minute, &second, &zone))
        return {};
    std::string text;
    if (type != OFTTime)
        text += CPLSPrintf("%04d-%02d-%02d", year, month, day);
    if (type == OFTDateTime)
        text += 'T';
    if (type != OFTDate) {
        text += two_digits(hour) + ":" + two_digits(minute) + ":";
        // Whole seconds as two digits, parts of a second to the millisecond.
        text += second == std::floor(second) ? two_digits(static_cast<int>(second))
                                             : CPLSPrintf("%06.3f", second);
    }
    if (type == OFTDateTime && zone == 100)
        text += 'Z';
    else if (type == OFTDateTime && zone > 1) {
        // Quarters of an hour, counted from 100.
        int const minutes = std::abs(zone - 100) * 15;
        text += (zone < 100 ? "-" : "+") + two_digits(minutes / 60) + ":" + two_digits(minutes % 60);
    }
    return text;
}
} // namespace

std::string number_text(double value)
{
    // Both zeros are one value: the sum makes a negative one positive.
    char text[40];
    auto const end = std::to_chars(text, text + sizeof text, value + 0.0, std::chars_format::general, 15).ptr;
    return {text, end};
}

std::string cell_bytes(OGRFeature const &record, int field)
{
    OGRFieldType const type = record.GetFieldDefnRef(field)->GetType();
    if (type == OFTDate || type == OFTTime || type == OFTDateTime)
        return date_text(record, field, type);
    if (type == OFTReal)
        return number_text(record.GetFieldAsDouble(field));
    return record.GetFieldAsString(field);
}

bool gdal_feature::flush()
{
    if (!f_store || (!f_changed && !is_new()))
        return true;
    f_is_refused = !f_store->store(*f_table, *f_record, is_new());
    if (f_is_refused)
        return false;
    f_changed = false;
    f_new_fid = 0;
    return true;
}

void gdal_feature::revert(OGRFeatureUniquePtr record)
{
    f_changed = f_is_refused = false;
    if (record)
        f_record = std::move(record);
    else
        f_store = nullptr;
}

void gdal_feature::leave_table()
{
    OGRFeatureUniquePtr copy(OGRFeature::CreateFeature(f_record->GetDefnRef()->Clone()));
    copy->SetFrom(f_record.get());
    copy->SetFID(f_record->GetFID());
    f_record = std::move(copy);
    f_store = nullptr;
}

void gdal_feature::detach()
{
    if (!flush()) {
        f_is_left_behind = true;
        f_store->left_behind(this); // which may end it
        return;
    }
    if (f_store)
        f_store->ended(this);
    delete this;
}

long long gdal_feature::fid()
{
    return is_new() ? f_new_fid : f_record->GetFID();
}

OGRGeometry const *gdal_feature::geometry() const
{
    return f_geom_field < f_record->GetGeomFieldCount() ? f_record->GetGeomFieldRef(f_geom_field) : nullptr;
}

int gdal_feature::geom_type()
{
    return geom_type_of_geometry(geometry(), f_only_type);
}

void gdal_feature::with_proj4(vx::string_visitor visitor)
{
    OGRGeometry const *const shape = geometry();
    OGRSpatialReference const *const system = shape ? shape->getSpatialReference() : nullptr;
    char *text = nullptr;
    if (system && system->exportToProj4(&text) == OGRERR_NONE)
        visit_utf8(visitor, text);
    CPLFree(text);
}

bool gdal_feature::with_extent(Tvx_box_d2 *box)
{
    OGRGeometry const *const shape = geometry();
    if (!shape || !box || shape->IsEmpty())
        return false;
    OGREnvelope e;
    shape->getEnvelope(&e);
    *box = {e.MinX, e.MinY, e.MaxX, e.MaxY};
    return true;
}

bool gdal_feature::with_extent_z(Tvx_box_d3 *box)
{
    OGRGeometry const *const shape = geometry();
    if (!shape || !box || shape->IsEmpty())
        return false;
    OGREnvelope3D e;
    shape->getEnvelope(&e);
    *box = {e.MinX, e.MinY, e.MinZ, e.MaxX, e.MaxY, e.MaxZ};
    return true;
}

bool gdal_feature::get_point(Tvx_vtx_d2 *vertex)
{
    Tvx_vtx_d3 found;
    if (!vertex || !gdal::get_point(geometry(), found))
        return false;
    *vertex = {found.x, found.y};
    return true;
}

bool gdal_feature::get_point_z(Tvx_vtx_d3 *vertex)
{
    return vertex && gdal::get_point(geometry(), *vertex);
}

bool gdal_feature::get_multipoint(Tvx_op2d *list)
{
    return list && gdal::get_multipoint(geometry(), list, f_only_type);
}

bool gdal_feature::get_multipoint_z(Tvx_ovtx_d3 *list)
{
    return list && gdal::get_multipoint(geometry(), list, f_only_type);
}

bool gdal_feature::get_polypoint(Tvx_op2d *list)
{
    return list && gdal::get_polypoint(geometry(), list, f_only_type);
}

bool gdal_feature::get_polypoint_z(Tvx_ovtx_d3 *list)
{
    return list && gdal::get_polypoint(geometry(), list, f_only_type);
}

bool gdal_feature::refuses_geometry()
{
    bool const holds_more = f_only_type != geom_unknown && geom_type_of_geometry(geometry()) == geom_unknown;
    if (holds_more)
        f_store->refuse(vx_res_get_wstr(c_drv_other_parts));
    return holds_more;
}

bool gdal_feature::set_geometry(std::unique_ptr<OGRGeometry> geometry)
{
    if (!geometry || f_geom_field >= f_record->GetGeomFieldCount() || !can_change() || refuses_geometry())
        return false;
    OGRGeomFieldDefn const *const defn = f_record->GetGeomFieldDefnRef(f_geom_field);
    geometry->assignSpatialReference(defn->GetSpatialRef());
    quiet_errors const quiet;
    // A table of multi geometries takes no single ones in strict formats, and the other way round.
    OGRwkbGeometryType const wanted = defn->GetType();
    if (wkbFlatten(wanted) != wkbUnknown)
        geometry.reset(OGRGeometryFactory::forceTo(geometry.release(), wanted));
    int const kind = flat(geom_type_of(wanted));
    if (!geometry || (kind != geom_unknown && kind != flat(geom_type_of(geometry->getGeometryType())))) {
        f_store->refuse(vx_res_get_wstr(c_drv_geometry_type));
        return false;
    }
    if (f_record->SetGeomFieldDirectly(f_geom_field, geometry.release()) != OGRERR_NONE)
        return false;
    f_changed = true;
    f_is_refused = false;
    return true;
}

bool gdal_feature::set_empty()
{
    if (f_geom_field >= f_record->GetGeomFieldCount() || !can_change() || refuses_geometry())
        return false;
    f_record->SetGeomFieldDirectly(f_geom_field, nullptr);
    f_changed = true;
    f_is_refused = false;
    return true;
}

bool gdal_feature::set_point(Tvx_vtx_d2 *vertex)
{
    return vertex && set_geometry(std::make_unique<OGRPoint>(vertex->x, vertex->y));
}

bool gdal_feature::set_point_z(Tvx_vtx_d3 *vertex)
{
    return vertex && set_geometry(std::make_unique<OGRPoint>(vertex->x, vertex->y, vertex->z));
}

bool gdal_feature::set_multipoint(Tvx_op2d *list)
{
    return set_geometry(make_multipoint(list));
}

bool gdal_feature::set_multipoint_z(Tvx_ovtx_d3 *list)
{
    return set_geometry(make_multipoint(list));
}

bool gdal_feature::set_polyline(Tvx_op2d *list)
{
    return set_geometry(make_polyline(list));
}

bool gdal_feature::set_polyline_z(Tvx_ovtx_d3 *list)
{
    return set_geometry(make_polyline(list));
}

bool gdal_feature::set_polygon(Tvx_op2d *list)
{
    return set_geometry(make_polygon(list));
}

bool gdal_feature::set_polygon_z(Tvx_ovtx_d3 *list)
{
    return set_geometry(make_polygon(list));
}

int gdal_feature::field_type(int field)
{
    if (field < 0 || field >= f_field_count)
        return field_none;
    return field_type_of(*f_record->GetFieldDefnRef(field));
}

int gdal_feature::field_subtype(int field)
{
    if (field < 0 || field >= f_field_count)
        return subtype_none;
    return field_subtype_of(*f_record->GetFieldDefnRef(field));
}

bool gdal_feature::has_value(int field, bool *not_null) const
{
    bool has = field >= 0 && field < f_field_count;
    if (has) {
        OGRField const *const raw = f_record->GetRawFieldRef(field);
        has = !OGR_RawField_IsUnset(raw) && !OGR_RawField_IsNull(raw);
    }
    if (not_null)
        *not_null = has;
    return has;
}

void gdal_feature::get_string(int field, bool *not_null, vx::string_visitor visitor)
{
    if (has_value(field, not_null))
        visit_utf8(visitor, cell_bytes(*f_record, field).c_str());
}

int gdal_feature::get_integer(int field, bool *not_null)
{
    if (!has_value(field, not_null))
        return 0;
    // A number out of range is cut to the bounds, which GDAL reports.
    quiet_errors const quiet(f_record->GetFieldDefnRef(field)->GetType() != OFTInteger);
    return f_record->GetFieldAsInteger(field);
}

long long gdal_feature::get_bigint(int field, bool *not_null)
{
    return has_value(field, not_null) ? f_record->GetFieldAsInteger64(field) : 0;
}

// This is what walks over all features spend their time with: GDAL's own reading looks at everything again.
double gdal_feature::get_numeric(int field, bool *not_null)
{
    if (!has_value(field, not_null))
        return 0.0;
    OGRField const *const raw = f_record->GetRawFieldRef(field);
    switch (f_record->GetFieldDefnRef(field)->GetType()) {
    case OFTReal:
        return raw->Real;
    case OFTInteger:
        return raw->Integer;
    case OFTInteger64:
        return static_cast<double>(raw->Integer64);
    default:
        return f_record->GetFieldAsDouble(field);
    }
}

void gdal_feature::get_binary(int field, bool *not_null, vx::bytes_visitor visitor)
{
    if (!has_value(field, not_null))
        return;
    OGRFieldType const type = f_record->GetFieldDefnRef(field)->GetType();
    if (type == OFTBinary) {
        int count = 0;
        auto const *const bytes = f_record->GetFieldAsBinary(field, &count);
        visitor.visit(static_cast<unsigned long long>(count), reinterpret_cast<char const *>(bytes));
        return;
    }
    // Of any other cell the bytes of its text, in UTF-8.
    std::string const bytes = cell_bytes(*f_record, field);
    visitor.visit(bytes.size(), bytes.data());
}

bool gdal_feature::can_change()
{
    return f_store && f_store->can_store(*f_table, is_new());
}

bool gdal_feature::can_change(int field)
{
    return field >= 0 && field < f_field_count && can_change();
}

bool gdal_feature::has_put(int field, bool is_taken)
{
    if (is_taken) {
        f_changed = true;
        f_is_refused = false;
    } else
        f_store->refuse(
            vx_res_format_w(c_drv_value, text::utf8_to_wide(f_record->GetFieldDefnRef(field)->GetNameRef())));
    return is_taken;
}

bool gdal_feature::set_string(int field, wchar_t const *text)
{
    if (!text)
        return set_undef(field);
    return can_change(field) &&
           has_put(field, put_text(*f_record, field, text::wide_to_utf8(text), f_store->rules()));
}

bool gdal_feature::set_integer(int field, int value)
{
    return set_bigint(field, value);
}

bool gdal_feature::set_bigint(int field, long long value)
{
    return can_change(field) && has_put(field, put_whole(*f_record, field, value, f_store->rules()));
}

bool gdal_feature::set_numeric(int field, double value)
{
    return can_change(field) && has_put(field, put_number(*f_record, field, value, f_store->rules()));
}

bool gdal_feature::set_binary(int field, int size, char *bytes)
{
    return can_change(field) && has_put(field, put_bytes(*f_record, field, size, bytes, f_store->rules()));
}

bool gdal_feature::set_undef(int field)
{
    if (!can_change(field))
        return false;
    f_record->SetFieldNull(field);
    return has_put(field, true);
}
} // namespace vx::gdal
