#include "vector_set.h"

#include "data_types.h"
#include "database_guard.h"
#include "field_dict.h"
#include "long_work.h"
#include "sql_answer.h"
#include "sql_names.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"

#include <cpl_vsi.h>
#include <ogr_spatialref.h>

#include <climits>

namespace vx::gdal {
namespace {
void visit_proj4(vx::string_visitor visitor, OGRSpatialReference const *system)
{
    char *text = nullptr;
    if (system && system->exportToProj4(&text) == OGRERR_NONE)
        visit_utf8(visitor, text);
    CPLFree(text);
}

/// Longest field name in bytes that the format keeps; 0: no bound.
std::size_t longest_field_name(dataset const &set)
{
    return set.is_driver("ESRI Shapefile") ? 10 : set.is_driver("MapInfo File") ? 31 : 0;
}

/// Formats that are no text, and so keep every number.
cell_rules rules_of(dataset const &set, OGRLayer *layer)
{
    cell_rules rules;
    bool const is_server = set.is_driver("PostgreSQL");
    bool const is_binary = set.is_driver("FlatGeobuf") || set.is_driver("Memory");
    rules.keeps_nan = is_server || is_binary;
    rules.keeps_infinity = rules.keeps_nan || set.is_driver("GPKG") || set.is_driver("SQLite");
    rules.bounds_texts = is_server;
    rules.is_dbf = set.is_driver("ESRI Shapefile");
    char const *const encoding =
        rules.is_dbf && layer ? layer->GetMetadataItem("SOURCE_ENCODING", "SHAPEFILE") : nullptr;
    if (encoding && *encoding && !EQUAL(encoding, CPL_ENC_UTF8))
        rules.encoding = encoding;
    return rules;
}

/// The text cut to `bytes` bytes of UTF-8 without cutting through a character.
std::wstring cut(std::wstring text, std::size_t bytes)
{
    while (!text.empty() && text::wide_to_utf8(text).size() > bytes)
        text.pop_back();
    return text;
}
} // namespace

vector_set *vector_set::make(std::unique_ptr<dataset> set, std::wstring &error)
{
    auto *const result = new vector_set(std::move(set));
    GDALDataset &gdal = result->f_set->gdal();
    {
        error_guard const guard(result->f_set->error());
        if (result->f_set->is_driver("PostgreSQL"))
            start_session(gdal);
        std::wstring const &tail = result->f_set->connection().layer_tail;
        if (!tail.empty() && gdal.GetLayerByName(text::wide_to_utf8(tail).c_str()))
            result->f_set->take_layer_tail();
    }
    connection_text const &connection = result->f_set->connection();
    if (!connection.layer.empty()) {
        if (!result->select_vector(connection.layer.c_str()))
            error =
                vx_reason_make(vx_res_format_w(c_drv_no_table, {connection.layer, connection.source}), {});
    } else if (gdal.GetLayerCount() > 0)
        result->select(gdal.GetLayer(0));
    if (error.empty() && !connection.geom.empty() && !result->select_geom_field(connection.geom.c_str()))
        error = vx_reason_make(vx_res_format_w(c_drv_no_geometry_field, {connection.geom, connection.source}),
                               {});
    if (!error.empty()) {
        delete result;
        return nullptr;
    }
    result->f_only_type = geom_type_of_name(connection.geom_type);
    return result;
}

void vector_set::start_session(GDALDataset &server)
{
    // Walks over a large table would else begin where another one is.
    sql_answer const in_order(server, "SET synchronize_seqscans = off");
}

vector_set::~vector_set()
{
    for (gdal_feature *feature : f_outside)
        if (feature->is_left_behind())
            delete feature;
        else
            feature->leave_store();
}

void vector_set::detach()
{
    std::wstring loss;
    {
        error_guard guard(loss);
        (void)store_all(guard);
        if (f_in_transaction)
            f_set->gdal().CommitTransaction();
        (void)f_set->save(guard);
    }
    // Nothing comes back from here: the user is told.
    if (!loss.empty())
        vx_reason_report(loss.c_str());
    std::wstring ignored;
    error_guard const guard(ignored);
    delete this;
}

void vector_set::select(OGRLayer *layer)
{
    f_layer = layer;
    f_geom_field = 0;
    f_filter.clear();
    f_page = {};
    f_is_pushed = false;
    f_has_box = false;
    f_box = {};
    f_deleted.reset();
    f_stats.clear();
    f_distinct.clear();
    f_kept.reset();
    f_walked_columns = 0;
    f_server.reset();
    if (layer && f_set->is_driver("PostgreSQL"))
        f_server.emplace(f_set->gdal(), *layer);
    f_rules = rules_of(*f_set, layer);
    if (layer) {
        layer->SetAttributeFilter(nullptr);
        layer->SetSpatialFilter(nullptr);
    }
    reset_reading();
}

int vector_set::driver_id()
{
    return f_set->driver_id();
}

bool vector_set::has_capability(int capability)
{
    if (!f_layer)
        return capability == can_create_vectors && !f_set->read_only();
    error_guard const guard(f_set->error());
    auto const layer_can = [&](char const *what) { return f_layer->TestCapability(what) != FALSE; };
    bool const writable = !f_set->read_only();
    switch (capability) {
    case can_read_by_index:
        // Some formats find single features fast, but count them from 1; servers by numbers with gaps.
        return !f_server && layer_can(OLCRandomRead) && layer_can(OLCFastSetNextByIndex) &&
               deleted_records().empty() && OGRFeatureUniquePtr(f_layer->GetFeature(0));
    case can_create_features:
        return writable && layer_can(OLCSequentialWrite);
    case can_change_features:
        return writable && layer_can(OLCRandomWrite);
    case can_delete_features:
        return writable && layer_can(OLCDeleteFeature);
    case can_create_fields:
        return writable && layer_can(OLCCreateField);
    case can_delete_fields:
        return writable && layer_can(OLCDeleteField);
    case can_alter_fields:
        return writable && layer_can(OLCAlterFieldDefn);
    case can_reorder_fields:
        return writable && layer_can(OLCReorderFields);
    case can_roll_back:
        return f_set->can_roll_back();
    case can_create_vectors:
        return writable && f_set->gdal().TestCapability(ODsCCreateLayer);
    case can_count_fast:
        return layer_can(OLCFastFeatureCount);
    case can_filter_by_box_fast:
        return layer_can(OLCFastSpatialFilter);
    default:
        return false;
    }
}

bool vector_set::with_extent(Tvx_box_d2 *box, bool force)
{
    if (!f_layer || !box || f_geom_field >= f_layer->GetLayerDefn()->GetGeomFieldCount())
        return false;
    error_guard const guard(f_set->error());
    // A server works it out beside what is being read.
    std::optional<position_keeper> keeper;
    if (!f_server)
        keeper.emplace(*this);
    OGREnvelope e;
    OGRErr result = OGRERR_FAILURE;
    attend([&](auto const &) { result = f_layer->GetExtent(f_geom_field, &e, force); },
           [&] { f_set->gdal().AbortSQL(); });
    if (result != OGRERR_NONE)
        return false;
    *box = {e.MinX, e.MinY, e.MaxX, e.MaxY};
    return !box->is_empty();
}

bool vector_set::with_extent_z(Tvx_box_d3 *box, bool force)
{
    // No driver tells it at once: every feature is looked at.
    if (!f_layer || !box || !force || !wkbHasZ(f_layer->GetGeomType()))
        return false;
    error_guard const guard(f_set->error());
    position_keeper const keeper(*this);
    f_layer->ResetReading();
    Tvx_box_d3 all;
    while (OGRFeatureUniquePtr const record{f_layer->GetNextFeature()}) {
        note_database_progress();
        OGRGeometry const *const shape = record->GetGeomFieldRef(f_geom_field);
        if (!shape || shape->IsEmpty())
            continue;
        OGREnvelope3D e;
        shape->getEnvelope(&e);
        all.min_x = std::min(all.min_x, e.MinX);
        all.min_y = std::min(all.min_y, e.MinY);
        all.min_z = std::min(all.min_z, e.MinZ);
        all.max_x = std::max(all.max_x, e.MaxX);
        all.max_y = std::max(all.max_y, e.MaxY);
        all.max_z = std::max(all.max_z, e.MaxZ);
    }
    if (all.is_empty())
        return false;
    *box = all;
    return true;
}

void vector_set::with_proj4(vx::string_visitor visitor)
{
    geom_field_proj4(f_geom_field, visitor);
}

int vector_set::field_count()
{
    return f_layer ? f_layer->GetLayerDefn()->GetFieldCount() : 0;
}

OGRFieldDefn const *vector_set::field_at(int field) const
{
    if (!f_layer || field < 0 || field >= f_layer->GetLayerDefn()->GetFieldCount())
        return nullptr;
    return f_layer->GetLayerDefn()->GetFieldDefn(field);
}

OGRGeomFieldDefn const *vector_set::geom_field_at(int field) const
{
    if (!f_layer || field < 0 || field >= f_layer->GetLayerDefn()->GetGeomFieldCount())
        return nullptr;
    return f_layer->GetLayerDefn()->GetGeomFieldDefn(field);
}

void vector_set::field_name(int field, vx::string_visitor visitor)
{
    if (auto const *const f = field_at(field))
        visit_utf8(visitor, f->GetNameRef());
}

void vector_set::field_alias(int field, vx::string_visitor visitor)
{
    if (auto const *const f = field_at(field))
        visit_utf8(visitor, f->GetAlternativeNameRef());
}

int vector_set::field_type(int field)
{
    auto const *const f = field_at(field);
    return f ? field_type_of(*f) : field_none;
}

int vector_set::field_subtype(int field)
{
    auto const *const f = field_at(field);
    return f ? field_subtype_of(*f) : subtype_none;
}

bool vector_set::field_nullable(int field)
{
    auto const *const f = field_at(field);
    return f && f->IsNullable();
}

bool vector_set::field_readonly(int)
{
    return f_set->read_only();
}

void vector_set::field_default(int field, vx::string_visitor visitor)
{
    auto const *const f = field_at(field);
    if (!f || !f->GetDefault())
        return;
    // Text stands in quotes there, doubled within.
    std::string value = f->GetDefault();
    if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'') {
        value = value.substr(1, value.size() - 2);
        for (std::size_t at = value.find("''"); at != std::string::npos; at = value.find("''", at + 1))
            value.erase(at, 1);
    }
    visit_utf8(visitor, value.c_str());
}

bool vector_set::field_dict(int field, vx::dict_visitor visitor)
{
    auto const *const f = field_at(field);
    if (!f || f->GetDomainName().empty() || !visitor)
        return false;
    OGRFieldDomain const *const domain = f_set->gdal().GetFieldDomain(f->GetDomainName());
    if (!domain || domain->GetDomainType() != OFDT_CODED)
        return false;
    auto *const values = new coded_dict(static_cast<OGRCodedFieldDomain const &>(*domain));
    visitor.visit(*values);
    return true;
}

bool vector_set::field_index(wchar_t const *name, int *index)
{
    if (!f_layer || !name || !index)
        return false;
    int const found = f_layer->GetLayerDefn()->GetFieldIndex(text::wide_to_utf8(name).c_str());
    if (found < 0)
        return false;
    *index = found;
    return true;
}

bool vector_set::make_field_name(wchar_t const *name, vx::string_visitor visitor)
{
    if (!f_layer || !name || !*name)
        return false;
    std::size_t const longest = longest_field_name(*f_set);
    std::wstring result = longest ? cut(name, longest) : name;
    for (int number = 1; f_layer->GetLayerDefn()->GetFieldIndex(text::wide_to_utf8(result).c_str()) >= 0;
         ++number) {
        std::wstring const tail = std::to_wstring(number);
        result = (longest ? cut(name, longest - tail.size()) : std::wstring(name)) + tail;
    }
    visitor.visit(result.c_str());
    return true;
}

void vector_set::with_name(vx::string_visitor visitor)
{
    if (f_layer)
        visit_utf8(visitor, f_layer->GetName());
    else
        f_set->with_name(visitor);
}

void vector_set::with_error(vx::string_visitor visitor)
{
    if (!f_set->error().empty())
        visitor.visit(f_set->error().c_str());
}

bool vector_set::select_vector(wchar_t const *name)
{
    if (!name)
        return false;
    error_guard guard(f_set->error());
    OGRLayer *const layer = f_set->gdal().GetLayerByName(text::wide_to_utf8(name).c_str());
    if (!layer) {
        guard.add(c_drv_no_such_table);
        return false;
    }
    store_changes();
    select(layer);
    return true;
}

bool vector_set::select_geom_field(wchar_t const *name)
{
    if (!f_layer || !name)
        return false;
    int const found = f_layer->GetLayerDefn()->GetGeomFieldIndex(text::wide_to_utf8(name).c_str());
    if (found < 0)
        return false;
    f_geom_field = found;
    f_layer->SetSpatialFilter(nullptr);
    f_has_box = false;
    filter_changed();
    reset_reading();
    return true;
}

int vector_set::geom_type()
{
    if (f_only_type != geom_unknown)
        return f_only_type;
    return geom_field_type(f_geom_field);
}

unsigned long long vector_set::feature_count(bool force)
{
    if (!f_layer)
        return 0;
    error_guard const guard(f_set->error());
    store_changes();
    if (server_table const *const asked = server()) {
        auto const counted = asked->count();
        return counted ? static_cast<unsigned long long>(*counted) : ULLONG_MAX;
    }
    position_keeper const keeper(*this);
    long long count = -1;
    f_layer->ResetReading();
    // GDAL's own count of text tables is wrong once a box filter was taken off.
    bool const is_plain = !f_has_box && f_filter.empty();
    if (f_only_type == geom_unknown && !f_set->is_driver("CSV") && (is_plain || deleted_records().empty())) {
        attend([&](auto const &) { count = believable_count(force); }, [&] { f_set->gdal().AbortSQL(); });
        if (count >= 0 && is_plain)
            count = std::max(0LL, count - static_cast<long long>(deleted_records().size()));
    } else if (force) {
        count = 0;
        attend([&](std::atomic<bool> const &given_up) {
            while (OGRFeatureUniquePtr const record{f_layer->GetNextFeature()}) {
                note_database_progress();
                count += is_wanted(*record);
                if (given_up) {
                    count = -1;
                    break;
                }
            }
        });
    }
    // GDAL counts none where the server refuses.
    if (count < 0 || (f_server && !guard.text().empty()))
        return ULLONG_MAX;
    page const paged = own_page();
    count = std::max(0LL, count - paged.offset);
    return static_cast<unsigned long long>(paged.limit < 0 ? count : std::min(count, paged.limit));
}

/// Databases may state how many features a table has. What their file has no room for is counted.
long long vector_set::believable_count(bool force)
{
    long long const count = f_layer->GetFeatureCount(force);
    bool const may_state = f_set->is_driver("GPKG") || f_set->is_driver("SQLite");
    VSIStatBufL info = {};
    if (!may_state || !f_set->read_only() || count <= 0 || !f_filter.empty() || f_has_box ||
        VSIStatL(f_set->gdal().GetDescription(), &info) != 0 || count < info.st_size / 4)
        return count;
    auto *const rows = f_set->gdal().ExecuteSQL(
        ("SELECT COUNT(*) FROM " + table_name(*f_layer, false)).c_str(), nullptr, nullptr);
    if (!rows)
        return -1;
    OGRFeatureUniquePtr const row(rows->GetNextFeature());
    long long const counted = row ? row->GetFieldAsInteger64(0) : -1;
    f_set->gdal().ReleaseResultSet(rows);
    return counted;
}

void vector_set::fid_field_name(vx::string_visitor visitor)
{
    if (!f_layer)
        return;
    if (*f_layer->GetFIDColumn())
        visit_utf8(visitor, f_layer->GetFIDColumn());
    else if (f_layer->GetLayerDefn()->GetFieldIndex("FID") < 0)
        visitor.visit(
            L"FID"); // the name by which filters know the identifier of formats that have no field for it
}

int vector_set::field_width(int field)
{
    auto const *const f = field_at(field);
    return f ? f->GetWidth() : 0;
}

int vector_set::field_precision(int field)
{
    auto const *const f = field_at(field);
    return f ? f->GetPrecision() : 0;
}

int vector_set::geom_field_count()
{
    return f_layer ? f_layer->GetLayerDefn()->GetGeomFieldCount() : 0;
}

void vector_set::geom_field_name(int field, vx::string_visitor visitor)
{
    if (auto const *const f = geom_field_at(field))
        visit_utf8(visitor, f->GetNameRef());
}

int vector_set::geom_field_type(int field)
{
    auto const *const f = geom_field_at(field);
    return f ? geom_type_of(f->GetType()) : geom_none;
}

void vector_set::geom_field_proj4(int field, vx::string_visitor visitor)
{
    error_guard const guard(f_set->error());
    if (auto const *const f = geom_field_at(field))
        visit_proj4(visitor, f->GetSpatialRef());
}
} // namespace vx::gdal
