#include "data_types.h"
#include "extension/binding/string_visitors.h"
#include "vector_set.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace vx::gdal {
namespace {
template <class Ask>
std::string asked(Ask ask)
{
    std::string text;
    vx::stdstring_visitor visitor(text, vx::c_encoding_utf8);
    ask(visitor);
    return text;
}

OGRFieldType ogr_field_type(int type, int subtype)
{
    switch (subtype) {
    case subtype_date:
        return OFTDate;
    case subtype_time:
        return OFTTime;
    case subtype_date_time:
        return OFTDateTime;
    case subtype_binary:
        return OFTBinary;
    default:
        break;
    }
    switch (type) {
    case field_integer:
        return OFTInteger;
    case field_bigint:
        return OFTInteger64;
    case field_numeric:
        return OFTReal;
    default:
        return OFTString;
    }
}

/// A default as databases take it: text in quotes, doubled within. What stands in quotes already is taken as
/// it is, and so is the name of the present moment.
std::string default_text(std::string const &value, OGRFieldType type)
{
    bool const is_number = type == OFTInteger || type == OFTInteger64 || type == OFTReal;
    bool const is_quoted = value.size() >= 2 && value.front() == '\'' && value.back() == '\'';
    bool const is_moment = type != OFTString && value.rfind("CURRENT_", 0) == 0;
    if (is_number || is_quoted || is_moment)
        return value;
    std::string text = "'";
    for (char const c : value)
        text.append(c == '\'' ? 2 : 1, c);
    return text + "'";
}

std::unique_ptr<OGRFieldDefn> make_field(vx::vector_definition definition, int field)
{
    std::string const name = asked([&](vx::string_visitor v) { definition.field_name(field, v); });
    int const subtype = definition.field_subtype(field);
    auto result =
        std::make_unique<OGRFieldDefn>(name.c_str(), ogr_field_type(definition.field_type(field), subtype));
    if (subtype == subtype_boolean)
        result->SetSubType(OFSTBoolean);
    if (subtype == subtype_structured)
        result->SetSubType(OFSTJSON);
    result->SetWidth(std::max(0, definition.field_width(field)));
    result->SetPrecision(std::max(0, definition.field_precision(field)));
    result->SetNullable(definition.field_nullable(field));
    std::string const value = asked([&](vx::string_visitor v) { definition.field_default(field, v); });
    if (!value.empty())
        result->SetDefault(default_text(value, result->GetType()).c_str());
    return result;
}

/// The name that would be there twice, in the definition or with the fields of `layer`, which may be null;
/// empty when all differ. Some formats find out late, others never.
std::string double_name(vx::vector_definition definition, OGRLayer *layer, bool minds_case)
{
    std::vector<std::string> names;
    for (int i = 0; layer && i < layer->GetLayerDefn()->GetFieldCount(); ++i)
        names.emplace_back(layer->GetLayerDefn()->GetFieldDefn(i)->GetNameRef());
    for (int i = 0; i < definition.field_count(); ++i) {
        std::string name = asked([&](vx::string_visitor v) { definition.field_name(i, v); });
        if (std::any_of(names.begin(), names.end(), [&](std::string const &other) {
                return minds_case ? other == name : EQUAL(other.c_str(), name.c_str());
            }))
            return name;
        names.push_back(std::move(name));
    }
    return {};
}

/// Null for an empty text. Coordinates go x first.
OGRSpatialReference *make_system(std::string const &proj4)
{
    if (proj4.empty())
        return nullptr;
    auto *const system = new OGRSpatialReference;
    system->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (system->importFromProj4(proj4.c_str()) == OGRERR_NONE)
        return system;
    system->Release();
    return nullptr;
}
} // namespace

bool vector_set::may_change(error_guard &guard) const
{
    if (f_layer && !f_set->read_only())
        return true;
    guard.add(c_drv_read_only);
    return false;
}

void vector_set::content_changed()
{
    f_set->touch();
    f_stats.clear();
    f_distinct.clear();
}

bool vector_set::can_store(OGRLayer &table, bool is_new)
{
    if (f_set->read_only())
        refuse(vx_res_get_wstr(c_drv_read_only));
    else if (!table.TestCapability(is_new ? OLCSequentialWrite : OLCRandomWrite))
        refuse(vx_res_get_wstr(is_new ? static_cast<int>(c_drv_takes_no_features) : c_drv_takes_no_changes));
    else
        return true;
    return false;
}

bool vector_set::store(OGRLayer &table, OGRFeature &record, bool is_new)
{
    error_guard guard(f_set->error());
    if (f_set->read_only()) {
        guard.add(c_drv_read_only);
        return false;
    }
    content_changed();
    server_savepoint point(f_set->gdal(), f_server && f_in_transaction);
    if (!point.is_good() || !store_in(table, record, is_new, guard))
        return false;
    point.keep();
    return true;
}

bool vector_set::store_in(OGRLayer &table, OGRFeature &record, bool is_new, error_guard &guard)
{
    if (!is_new)
        return table.SetFeature(&record) == OGRERR_NONE;
    GIntBig const wanted = record.GetFID();
    bool is_taken = false;
    if (wanted != OGRNullFID) {
        quiet_errors const quiet; // it is no error that there is none
        is_taken = OGRFeatureUniquePtr(table.GetFeature(wanted)) != nullptr;
    }
    if (is_taken) {
        guard.add(c_drv_fid_taken);
        return false;
    }
    OGRFeatureUniquePtr const stored(record.Clone());
    stored->FillUnsetWithDefault(FALSE, nullptr);
    if (f_set->is_driver("CSV"))
        stored->SetFID(next_row(table));
    if (table.CreateFeature(stored.get()) != OGRERR_NONE)
        return false;
    record.SetFrom(stored.get());
    record.SetFID(stored->GetFID());
    return true;
}

long long vector_set::next_row(OGRLayer &table)
{
    auto const [found, is_first] = f_rows.try_emplace(&table);
    if (is_first) {
        position_keeper const keeper(*this);
        unfiltered all(table);
        while (all.next())
            ++found->second.last;
    }
    return ++found->second.last;
}

void vector_set::renumber_rows()
{
    for (gdal_feature *feature : f_outside) {
        auto const rows = f_rows.find(feature->table());
        if (rows == f_rows.end() || feature->is_new())
            continue;
        auto const &gone = rows->second.deleted;
        auto const before =
            std::count_if(gone.begin(), gone.end(), [&](long long f) { return f < feature->fid(); });
        feature->renumber(feature->fid() - before);
    }
    f_rows.clear();
}

void vector_set::ended(gdal_feature *feature)
{
    if (feature == f_making) {
        f_making = nullptr;
        f_was_made = true;
    }
    std::erase(f_outside, feature);
}

void vector_set::left_behind(gdal_feature *feature)
{
    // Whoever is told that a new feature was refused makes another.
    if (feature == f_making) {
        forget(feature);
        f_making = nullptr;
        f_was_made = false;
    }
}

void vector_set::forget(gdal_feature *feature)
{
    std::erase(f_outside, feature);
    if (feature->is_left_behind())
        delete feature;
    else
        feature->leave_store();
}

gdal_feature *vector_set::left_behind_at(long long fid) const
{
    for (gdal_feature *feature : f_outside)
        if (feature->is_left_behind() && feature->table() == f_layer && feature->fid() == fid)
            return feature;
    return nullptr;
}

void vector_set::store_changes()
{
    for (gdal_feature *feature : f_outside)
        if (feature->is_changed() && !feature->is_new() && !feature->is_refused())
            (void)feature->flush();
}

bool vector_set::store_all(error_guard &guard)
{
    bool is_good = true;
    for (gdal_feature *feature : std::vector(f_outside)) {
        std::wstring const number = std::to_wstring(feature->fid());
        if (!feature->flush()) {
            std::wstring const why = f_set->error();
            guard.add(vx_res_format_w(c_drv_feature_refused, number));
            error_guard::add_to_innermost(why);
            is_good = false;
        } else if (feature->is_left_behind())
            forget(feature);
    }
    return is_good;
}

bool vector_set::release_features(error_guard &guard)
{
    if (!store_all(guard))
        return false;
    for (gdal_feature *feature : f_outside)
        feature->leave_table();
    f_outside.clear();
    return true;
}

bool vector_set::minds_case_of_names() const
{
    return !f_set->is_driver("GPKG") && !f_set->is_driver("SQLite") && !f_set->is_driver("ESRI Shapefile") &&
           !f_set->is_driver("CSV");
}

bool vector_set::create_vector(wchar_t const *name, int geom_type, long long,
                               vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (f_set->read_only() || !name) {
        guard.add(c_drv_read_only);
        return false;
    }
    if (std::string const twice = double_name(definition, nullptr, minds_case_of_names()); !twice.empty()) {
        guard.add(vx_res_format_w(c_drv_field_twice, text::utf8_to_wide(twice)));
        return false;
    }
    connection_text const parsed(name);
    store_changes();
    CPLStringList options;
    for (auto const &[key, value] : parsed.options)
        options.SetNameValue(text::wide_to_utf8(key).c_str(), text::wide_to_utf8(value).c_str());
    std::string const fid = asked([&](vx::string_visitor v) { definition.with_fid_field(v); });
    if (!fid.empty() && !f_set->is_driver("ESRI Shapefile"))
        options.SetNameValue("FID", fid.c_str());
    // The format's own default would lose every character outside the West of Europe.
    if (f_set->is_driver("ESRI Shapefile") && !options.FetchNameValue("ENCODING"))
        options.SetNameValue("ENCODING", "UTF-8");
    // Closing the gaps of deleted records would change the identifiers under whoever knows them.
    if (f_set->is_driver("ESRI Shapefile") && !options.FetchNameValue("AUTO_REPACK"))
        options.SetNameValue("AUTO_REPACK", "NO");
    // Names stay as they are given.
    if (f_set->is_driver("PostgreSQL") && !options.FetchNameValue("LAUNDER"))
        options.SetNameValue("LAUNDER", "NO");
    OGRSpatialReference *const system =
        make_system(asked([&](vx::string_visitor v) { definition.with_proj4(v); }));
    OGRLayer *const layer =
        f_set->create_table(text::wide_to_utf8(parsed.source), system, ogr_type_of(geom_type), options);
    if (system)
        system->Release();
    if (!layer)
        return false;
    bool is_good = true;
    for (int field = 0; is_good && field < definition.field_count(); ++field)
        is_good = layer->CreateField(make_field(definition, field).get()) == OGRERR_NONE;
    if (!f_set->finish_table(layer, is_good))
        return false;
    select(layer);
    return true;
}

bool vector_set::create_field(vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || definition.field_count() == 0)
        return false;
    if (std::string const twice = double_name(definition, f_layer, minds_case_of_names()); !twice.empty()) {
        guard.add(vx_res_format_w(c_drv_field_twice, text::utf8_to_wide(twice)));
        return false;
    }
    if (!release_features(guard))
        return false;
    for (int field = 0; field < definition.field_count(); ++field) {
        auto const made = make_field(definition, field);
        if (f_layer->CreateField(made.get()) != OGRERR_NONE)
            return false;
    }
    content_changed();
    return reset_reading();
}

bool vector_set::delete_field(int field)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || !field_at(field))
        return false;
    if (!release_features(guard))
        return false;
    content_changed();
    return f_layer->DeleteField(field) == OGRERR_NONE && reset_reading();
}

bool vector_set::alter_field(int field, vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || !field_at(field) || definition.field_count() == 0)
        return false;
    if (!release_features(guard))
        return false;
    content_changed();
    auto const made = make_field(definition, 0);
    return f_layer->AlterFieldDefn(field, made.get(), ALTER_ALL_FLAG) == OGRERR_NONE && reset_reading();
}

bool vector_set::reorder_fields(int *order)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || !order)
        return false;
    std::vector<bool> seen(static_cast<std::size_t>(field_count()), false);
    for (std::size_t i = 0; i < seen.size(); ++i) {
        if (!field_at(order[i]) || seen[static_cast<std::size_t>(order[i])]) {
            guard.add(c_drv_field_order);
            return false;
        }
        seen[static_cast<std::size_t>(order[i])] = true;
    }
    if (!release_features(guard))
        return false;
    content_changed();
    return f_layer->ReorderFields(order) == OGRERR_NONE && reset_reading();
}

bool vector_set::create_geom_field(vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || definition.geom_field_count() == 0)
        return false;
    if (!release_features(guard))
        return false;
    for (int field = 0; field < definition.geom_field_count(); ++field) {
        std::string const name = asked([&](vx::string_visitor v) { definition.geom_field_name(field, v); });
        OGRGeomFieldDefn made(name.c_str(), ogr_type_of(definition.geom_field_type(field)));
        OGRSpatialReference *const system =
            make_system(asked([&](vx::string_visitor v) { definition.geom_field_proj4(field, v); }));
        made.SetSpatialRef(system);
        if (system)
            system->Release();
        if (f_layer->CreateGeomField(&made) != OGRERR_NONE)
            return false;
    }
    return reset_reading();
}

bool vector_set::delete_geom_field(int)
{
    error_guard guard(f_set->error());
    guard.add(c_drv_keeps_geometry);
    return false;
}

bool vector_set::transaction_start()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    if (f_in_transaction) {
        guard.add(c_drv_transaction_open);
        return false;
    }
    // What was changed before does not belong to the transaction. New features become part of it.
    store_changes();
    for (gdal_feature *feature : f_outside)
        if (feature->is_refused()) {
            guard.add(vx_res_format_w(c_drv_feature_refused, std::to_wstring(feature->fid())));
            return false;
        }
    if (!f_set->can_roll_back()) {
        guard.add(c_drv_no_transactions);
        return false;
    }
    f_in_transaction = f_set->gdal().StartTransaction(FALSE) == OGRERR_NONE;
    return f_in_transaction;
}

bool vector_set::finish_save(error_guard &guard)
{
    // Drivers report some failures and give a good result all the same.
    std::wstring reason;
    bool is_good = false;
    {
        error_guard const inner(reason);
        is_good = f_layer->SyncToDisk() == OGRERR_NONE;
    }
    renumber_rows();
    return is_good && reason.empty() && f_set->save(guard);
}

bool vector_set::transaction_commit()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    // All or nothing: with something refused the transaction stays open, to be mended or rolled back.
    if (!store_all(guard))
        return false;
    if (f_in_transaction) {
        // A server takes everything back, and calls that a success, when a statement has failed before.
        if (!server_savepoint(f_set->gdal(), f_server.has_value()).is_good())
            return false;
        f_in_transaction = false;
        bool const is_committed = f_set->gdal().CommitTransaction() == OGRERR_NONE;
        renew_connection();
        if (!is_committed) {
            content_changed();
            return false;
        }
    }
    return finish_save(guard);
}

bool vector_set::transaction_rollback()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    bool const was_open = std::exchange(f_in_transaction, false);
    bool is_good = was_open;
    if (was_open)
        is_good = f_set->gdal().RollbackTransaction() == OGRERR_NONE;
    else
        guard.add(c_drv_no_rollback);
    content_changed();
    // The features outside are again what the table holds; new ones are in no table.
    position_keeper const keeper(*this);
    for (gdal_feature *feature : std::vector(f_outside)) {
        OGRFeatureUniquePtr record;
        if (!feature->is_new() && (was_open || feature->is_changed()))
            record.reset(feature->table()->GetFeature(feature->fid()));
        bool const is_kept = record || (!was_open && !feature->is_new() && !feature->is_changed());
        if (record)
            feature->revert(std::move(record));
        if (!is_kept || feature->is_left_behind())
            forget(feature);
    }
    if (was_open)
        reset_reading();
    renew_connection();
    return is_good;
}

bool vector_set::flush_changes()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    bool const is_stored = store_all(guard);
    return finish_save(guard) && is_stored;
}

bool vector_set::create_feature(long long fid, vx::feature_visitor visitor)
{
    {
        error_guard guard(f_set->error());
        if (!may_change(guard) || !visitor)
            return false;
    }
    if (!can_store(*f_layer, true))
        return false;
    OGRFeatureUniquePtr record(OGRFeature::CreateFeature(f_layer->GetLayerDefn()));
    record->SetFID(fid > 0 ? fid : OGRNullFID);
    auto *const outside =
        new gdal_feature(this, f_layer, std::move(record), f_geom_field, f_only_type, f_next_new_fid--);
    f_outside.push_back(outside);
    f_making = outside;
    f_set->error().clear();
    visitor.visit(*outside);
    bool const is_kept = f_making == outside;
    f_making = nullptr;
    // A feature that ended within the call is stored, or refused with a reason.
    return is_kept || f_was_made;
}

bool vector_set::delete_feature(long long fid)
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    content_changed();
    // A change of the feature that is still outside would bring it back.
    bool was_new = false;
    for (gdal_feature *feature : std::vector(f_outside))
        if (feature->fid() == fid && feature->table() == f_layer) {
            was_new = was_new || feature->is_new();
            forget(feature);
        }
    if (was_new)
        return true;
    if (f_set->is_driver("CSV") && fid > 0) {
        (void)next_row(*f_layer); // counts the rows before one is missing
        --f_rows[f_layer].last;
    }
    server_savepoint point(f_set->gdal(), f_server && f_in_transaction);
    if (!point.is_good() || f_layer->DeleteFeature(fid) != OGRERR_NONE)
        return false;
    point.keep();
    // Saving closes the gaps that deleted rows leave.
    if (f_set->is_driver("CSV"))
        f_rows[f_layer].deleted.push_back(fid);
    if (f_deleted)
        f_deleted->insert(std::lower_bound(f_deleted->begin(), f_deleted->end(), fid), fid);
    return true;
}
} // namespace vx::gdal
