#include "data_types.h"
#include "database_guard.h"
#include "dbf_column.h"
#include "geometry.h"
#include "long_work.h"
#include "paged_filter.h"
#include "sql_names.h"
#include "vector_set.h"

#include "platform/base/text_codec.h"

namespace vx::gdal {
namespace {
/// As a server calls the kinds of geometry that belong to the type.
std::string names_of_type(int type)
{
    switch (flat(type)) {
    case geom_point:
        return "'ST_Point'";
    case geom_multipoint:
        return "'ST_Point', 'ST_MultiPoint'";
    case geom_polyline:
        return "'ST_LineString', 'ST_MultiLineString', 'ST_CircularString', 'ST_CompoundCurve', "
               "'ST_MultiCurve'";
    case geom_polygon:
        return "'ST_Polygon', 'ST_MultiPolygon', 'ST_CurvePolygon', 'ST_MultiSurface', 'ST_Triangle'";
    case geom_multipatch:
        return "'ST_PolyhedralSurface', 'ST_Tin'";
    default:
        return "''";
    }
}

/// The same of the single parts without curves that a collection belongs to the type by; empty where it
/// belongs to none.
std::string names_of_parts(int type)
{
    switch (flat(type)) {
    case geom_multipoint:
        return "'ST_Point'";
    case geom_polyline:
        return "'ST_LineString'";
    case geom_polygon:
        return "'ST_Polygon', 'ST_Triangle'";
    default:
        return {};
    }
}
} // namespace

vector_set::position_keeper::~position_keeper()
{
    if (!f_set.f_layer)
        return;
    f_set.f_layer->ResetReading();
    if (f_set.f_position > 0)
        (void)f_set.seek(f_set.f_position);
}

std::vector<long long> const &vector_set::deleted_records()
{
    if (!f_deleted) {
        f_deleted.emplace();
        if (f_set->is_driver("ESRI Shapefile")) {
            if (!f_set->read_only())
                f_layer->SyncToDisk();
            *f_deleted = read_deleted_records(f_set->gdal().GetDescription(), *f_layer);
        }
    }
    return *f_deleted;
}

std::optional<fid_span> vector_set::fids_in_a_row()
{
    if (!f_set->read_only() || has_filter() || !f_set->is_driver("GPKG"))
        return std::nullopt;
    return consecutive_fids(static_cast<sqlite3 *>(f_set->gdal().GetInternalHandle("SQLITE_HANDLE")),
                            *f_layer);
}

bool vector_set::seek(long long index)
{
    if (auto const fids = fids_in_a_row()) {
        if (index > fids->last - fids->first)
            return false;
        f_coming = {fids->first + index, fids->last};
        return true;
    }
    // Without a filter such formats count records.
    long long record = index;
    if (!f_has_box && f_filter.empty())
        for (long long const deleted : deleted_records())
            record += deleted <= record;
    return f_layer->SetNextByIndex(record) == OGRERR_NONE;
}

bool vector_set::has_filter() const
{
    return !f_filter.empty() || f_has_box || f_page.limit >= 0 || f_page.offset > 0 ||
           f_only_type != geom_unknown;
}

bool vector_set::set_spatial_filter(Tvx_box_d2 *box)
{
    if (!geom_field_at(f_geom_field))
        return box == nullptr;
    error_guard guard(f_set->error());
    f_has_box = box && !box->is_empty();
    f_box = f_has_box ? *box : Tvx_box_d2();
    filter_changed();
    if (f_has_box)
        f_layer->SetSpatialFilterRect(f_geom_field, box->min_x, box->min_y, box->max_x, box->max_y);
    else
        f_layer->SetSpatialFilter(f_geom_field, nullptr);
    // A page is one of what both filters let pass.
    bool const stays = f_page.limit < 0 && f_page.offset == 0;
    if (!stays && !apply_filter(std::string(f_filter), f_page, guard))
        return false;
    return reset_reading();
}

std::string vector_set::pushed_page(std::string const &filter, page const &wanted) const
{
    char const *const fid = f_layer->GetFIDColumn();
    bool const is_server = f_server.has_value();
    bool const has_sql = is_server || f_set->is_driver("GPKG") || f_set->is_driver("SQLite");
    if (!has_sql || !*fid || (f_has_box && !is_server) || f_only_type != geom_unknown ||
        (wanted.limit < 0 && wanted.offset == 0))
        return {};
    std::string const name = quoted_name(fid);
    std::string text = name + " IN (SELECT " + name + " FROM " +
                       (is_server ? f_server->name() : table_name(*f_layer, false));
    std::string const box = f_has_box ? box_condition(f_box) : std::string();
    if (!filter.empty() || !box.empty())
        text += " WHERE " + (filter.empty() ? box : "(" + filter + ")" + (box.empty() ? "" : " AND " + box));
    text += " ORDER BY " + name;
    if (wanted.limit >= 0)
        text += " LIMIT " + std::to_string(wanted.limit);
    else if (!is_server)
        text += " LIMIT -1"; // this language knows no offset without a limit
    return text + " OFFSET " + std::to_string(wanted.offset) + ")";
}

bool vector_set::apply_filter(std::string const &filter, page const &wanted, error_guard &guard)
{
    std::string const pushed = pushed_page(filter, wanted);
    if (!install_filter(pushed.empty() ? filter : pushed, guard)) {
        std::string const former = f_is_pushed ? pushed_page(f_filter, f_page) : f_filter;
        f_layer->SetAttributeFilter(former.empty() ? nullptr : former.c_str());
        return false;
    }
    f_filter = filter;
    f_page = wanted;
    f_is_pushed = !pushed.empty();
    filter_changed();
    return true;
}

void vector_set::filter_changed()
{
    f_stats.clear();
    f_distinct.clear();
}

std::string vector_set::box_condition(Tvx_box_d2 const &box) const
{
    return quoted_name(geom_field_at(f_geom_field)->GetNameRef()) + " && " +
           CPLSPrintf("ST_MakeEnvelope(%.17g,%.17g,%.17g,%.17g)", box.min_x, box.min_y, box.max_x, box.max_y);
}

server_table const *vector_set::server()
{
    if (!f_server || own_page().limit >= 0 || own_page().offset > 0)
        return nullptr;
    std::string condition = f_is_pushed ? pushed_page(f_filter, f_page) : f_filter;
    if (!server_table::is_condition(condition))
        return nullptr;
    auto const add = [&](std::string const &more) {
        condition = condition.empty() ? more : "(" + condition + ") AND " + more;
    };
    if (f_has_box)
        add(box_condition(f_box));
    if (f_only_type != geom_unknown) {
        if (!geom_field_at(f_geom_field))
            return nullptr;
        std::string const shape = quoted_name(geom_field_at(f_geom_field)->GetNameRef());
        std::string const parts = names_of_parts(f_only_type);
        std::string const kind = "ST_GeometryType(" + shape + ")";
        add("(" + shape + " IS NULL OR " + kind + " IN (" + names_of_type(f_only_type) + ") OR (" + kind +
            " = 'ST_GeometryCollection' AND (ST_IsEmpty(" + shape + ")" +
            (parts.empty()
                 ? std::string()
                 : " OR EXISTS (SELECT 1 FROM ST_Dump(ST_CurveToLine(" + shape +
                       ")) d WHERE NOT ST_IsEmpty(d.geom) AND ST_GeometryType(d.geom) IN (" + parts + "))") +
            ")))");
    }
    f_server->set_condition(condition);
    f_server->set_in_transaction(f_in_transaction);
    return &*f_server;
}

/// Some drivers take any text and fail at the first feature, so that one is asked for. A server tells without
/// reading one.
bool vector_set::install_filter(std::string const &text, error_guard &guard)
{
    bool const is_asked = f_server && !text.empty() && server_table::is_condition(text);
    if (is_asked) {
        f_server->set_in_transaction(f_in_transaction);
        if (!f_server->takes(text)) {
            guard.add(c_drv_filter);
            return false;
        }
    }
    if (f_layer->SetAttributeFilter(text.empty() ? nullptr : text.c_str()) != OGRERR_NONE) {
        guard.add(c_drv_filter);
        return false;
    }
    if (text.empty() || is_asked)
        return true;
    f_layer->ResetReading();
    OGRFeatureUniquePtr const first(f_layer->GetNextFeature());
    return guard.text().empty();
}

bool vector_set::set_attribute_filter(wchar_t const *text)
{
    if (!f_layer)
        return false;
    error_guard guard(f_set->error());
    store_changes();
    paged_filter const wanted(text ? text : L"");
    // Formats that only have numbers of records for identifiers find a page by its number, without a filter.
    bool const is_everything = !*f_layer->GetFIDColumn() && selects_all_identifiers(wanted.expression);
    std::string expression = is_everything ? std::string() : text::wide_to_utf8(wanted.expression);
    // Whoever asks for a page does not know how names are written.
    std::string const fid = f_layer->GetFIDColumn();
    if (!fid.empty() && selects_all_identifiers(wanted.expression, text::utf8_to_wide(fid)))
        expression = quoted_name(fid) + " >= 0";
    bool const taken = apply_filter(expression, {wanted.limit, wanted.offset}, guard);
    (void)reset_reading();
    return taken;
}

bool vector_set::reset_reading()
{
    renew_connection();
    f_started = f_is_broken_off = false;
    f_position = f_delivered = 0;
    f_coming.reset();
    if (!f_layer)
        return false;
    f_layer->ResetReading();
    return true;
}

bool vector_set::is_wanted(OGRFeature const &record) const
{
    if (f_only_type == geom_unknown)
        return true;
    OGRGeometry const *const shape =
        f_geom_field < record.GetGeomFieldCount() ? record.GetGeomFieldRef(f_geom_field) : nullptr;
    int const type = geom_type_of_geometry(shape, f_only_type);
    // A feature without geometry belongs to every type, a collection to those of its parts.
    return type == geom_none || flat(type) == flat(f_only_type) ||
           (flat(f_only_type) == geom_multipoint && flat(type) == geom_point);
}

OGRFeatureUniquePtr vector_set::next_record()
{
    if (f_coming) {
        // One may have gone since.
        OGRFeatureUniquePtr found;
        while (!found && f_coming->first <= f_coming->last)
            found.reset(f_layer->GetFeature(f_coming->first++));
        return found;
    }
    // A server sends them in parts, and may take its time for each.
    constexpr long long c_part = 500;
    if (!f_server)
        return OGRFeatureUniquePtr(f_layer->GetNextFeature());
    if (f_is_broken_off)
        return nullptr;
    OGRFeatureUniquePtr record;
    if (f_position % c_part != 0)
        record.reset(f_layer->GetNextFeature());
    else
        record = read_by_server([&] { return f_layer->GetNextFeature(); });
    f_is_broken_off = !record;
    return record;
}

OGRFeatureUniquePtr vector_set::read_by_server(std::function<OGRFeature *()> const &read)
{
    server_savepoint point(f_set->gdal(), f_in_transaction);
    OGRFeatureUniquePtr record;
    std::wstring reason;
    if (point.is_good()) {
        error_guard const guard(reason);
        attend([&](auto const &) { record.reset(read()); }, [&] { f_set->gdal().AbortSQL(); });
    }
    if (reason.empty())
        point.keep();
    f_is_stuck = f_is_stuck || !reason.empty();
    renew_connection();
    return record;
}

/// GDAL never ends the transaction of a cursor that has failed, and the server takes nothing more in it.
void vector_set::renew_connection()
{
    if (!f_is_stuck || f_in_transaction || !f_outside.empty())
        return;
    std::wstring ignored;
    error_guard guard(ignored);
    std::string const name = f_layer->GetName();
    if (!f_set->reconnect())
        return;
    f_is_stuck = false;
    start_session(f_set->gdal());
    int const geom_field = f_geom_field;
    bool const is_broken_off = f_is_broken_off;
    std::string const filter = f_filter;
    page const paged = f_page;
    Tvx_box_d2 box = f_box;
    select(f_set->gdal().GetLayerByName(name.c_str()));
    if (!f_layer)
        return;
    f_geom_field = geom_field;
    if (!box.is_empty())
        (void)set_spatial_filter(&box);
    (void)apply_filter(filter, paged, guard);
    f_is_broken_off = is_broken_off;
}

OGRFeatureUniquePtr vector_set::read_next()
{
    while (OGRFeatureUniquePtr record = next_record()) {
        ++f_position;
        note_database_progress();
        if (is_wanted(*record))
            return record;
    }
    return nullptr;
}

void vector_set::hand_out(OGRFeatureUniquePtr record, vx::feature_visitor visitor)
{
    if (!visitor)
        return;
    feature_store *const store = f_set->read_only() ? nullptr : this;
    auto *const outside = new gdal_feature(store, f_layer, std::move(record), f_geom_field, f_only_type);
    if (store)
        f_outside.push_back(outside);
    visitor.visit(*outside);
}

bool vector_set::with_next_feature(vx::feature_visitor visitor)
{
    if (!f_layer)
        return false;
    OGRFeatureUniquePtr record;
    {
        error_guard const guard(f_set->error());
        store_changes();
        if (!f_started && !moveto_index(0))
            return false;
        if (own_page().limit >= 0 && f_delivered >= own_page().limit)
            return false;
        record = read_next();
    }
    if (!record)
        return false;
    ++f_delivered;
    hand_out(std::move(record), visitor);
    return true;
}

bool vector_set::has_random_read()
{
    return f_layer && f_layer->TestCapability(OLCRandomRead);
}

bool vector_set::with_feature(long long fid, vx::feature_visitor visitor)
{
    if (!f_layer)
        return false;
    // What was refused is given back as it is, to be mended.
    if (gdal_feature *const refused = left_behind_at(fid); refused && visitor) {
        refused->take_up();
        visitor.visit(*refused);
        return true;
    }
    OGRFeatureUniquePtr record;
    {
        error_guard const guard(f_set->error());
        store_changes();
        // Where reading by identifier is a walk in disguise, it moves the reading position.
        auto const read = [&] { return f_layer->GetFeature(fid); };
        std::optional<position_keeper> keeper;
        if (!f_layer->TestCapability(OLCRandomRead))
            keeper.emplace(*this);
        record = f_server ? read_by_server(read) : OGRFeatureUniquePtr(read());
    }
    if (!record)
        return false;
    hand_out(std::move(record), visitor);
    return true;
}

bool vector_set::has_moveto_index()
{
    return f_layer && f_only_type == geom_unknown &&
           (f_layer->TestCapability(OLCFastSetNextByIndex) || fids_in_a_row());
}

bool vector_set::moveto_index(long long index)
{
    if (!f_layer || index < 0)
        return false;
    error_guard const guard(f_set->error());
    store_changes();
    reset_reading();
    f_started = true;
    long long const target = own_page().offset + index;
    if (f_only_type != geom_unknown) {
        for (long long i = 0; i < target; ++i)
            if (!read_next())
                return false;
    } else if (target > 0) {
        if (!seek(target))
            return false;
        f_position = target;
    }
    f_delivered = index;
    return true;
}
} // namespace vx::gdal
