#include "data_types.h"
#include "extension/binding/string_visitors.h"
#include "vector_set.h"

#include "platform/base/text_codec.h"

#include <ogr_spatialref.h>

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
        result->SetDefault(value.c_str());
    return result;
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
    f_stats.clear();
}

bool vector_set::store(OGRFeature &feature)
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    content_changed();
    return f_layer->SetFeature(&feature) == OGRERR_NONE;
}

bool vector_set::flush_features()
{
    bool good = true;
    for (gdal_feature *feature : f_outside)
        good = feature->flush() && good;
    return good;
}

void vector_set::release_features()
{
    (void)flush_features();
    for (gdal_feature *feature : f_outside)
        feature->leave_table();
    f_outside.clear();
}

bool vector_set::create_vector(wchar_t const *name, int geom_type, long long,
                               vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (f_set->read_only() || !name) {
        guard.add(c_drv_read_only);
        return false;
    }
    connection_text const parsed(name);
    CPLStringList options;
    for (auto const &[key, value] : parsed.options)
        options.SetNameValue(text::wide_to_utf8(key).c_str(), text::wide_to_utf8(value).c_str());
    std::string const fid = asked([&](vx::string_visitor v) { definition.with_fid_field(v); });
    if (!fid.empty() && !f_set->is_driver("ESRI Shapefile"))
        options.SetNameValue("FID", fid.c_str());
    // The format's own default would lose every character outside the West of Europe.
    if (f_set->is_driver("ESRI Shapefile") && !options.FetchNameValue("ENCODING"))
        options.SetNameValue("ENCODING", "UTF-8");
    OGRSpatialReference *const system =
        make_system(asked([&](vx::string_visitor v) { definition.with_proj4(v); }));
    OGRLayer *const layer = f_set->gdal().CreateLayer(text::wide_to_utf8(parsed.source).c_str(), system,
                                                      ogr_type_of(geom_type), options.List());
    if (system)
        system->Release();
    if (!layer)
        return false;
    select(layer);
    for (int field = 0; field < definition.field_count(); ++field) {
        auto const made = make_field(definition, field);
        if (layer->CreateField(made.get()) != OGRERR_NONE)
            return false;
    }
    return true;
}

bool vector_set::create_field(vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || definition.field_count() == 0)
        return false;
    release_features();
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
    release_features();
    content_changed();
    return f_layer->DeleteField(field) == OGRERR_NONE && reset_reading();
}

bool vector_set::alter_field(int field, vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || !field_at(field) || definition.field_count() == 0)
        return false;
    release_features();
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
    release_features();
    content_changed();
    return f_layer->ReorderFields(order) == OGRERR_NONE && reset_reading();
}

bool vector_set::create_geom_field(vx::vector_definition definition)
{
    error_guard guard(f_set->error());
    if (!may_change(guard) || definition.geom_field_count() == 0)
        return false;
    release_features();
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
    if (!may_change(guard) || f_in_transaction)
        return false;
    (void)flush_features();
    if (!f_set->gdal().TestCapability(ODsCTransactions)) {
        guard.add(c_drv_no_transactions);
        return false;
    }
    f_in_transaction = f_set->gdal().StartTransaction(FALSE) == OGRERR_NONE;
    return f_in_transaction;
}

bool vector_set::transaction_commit()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    bool const stored = flush_features();
    if (!f_in_transaction)
        return stored && f_layer->SyncToDisk() == OGRERR_NONE;
    f_in_transaction = false;
    return f_set->gdal().CommitTransaction() == OGRERR_NONE && stored;
}

bool vector_set::transaction_rollback()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    for (gdal_feature *feature : f_outside)
        feature->drop_changes();
    if (!f_in_transaction) {
        guard.add(c_drv_no_rollback);
        return false;
    }
    f_in_transaction = false;
    content_changed();
    bool const good = f_set->gdal().RollbackTransaction() == OGRERR_NONE;
    reset_reading();
    return good;
}

bool vector_set::flush_changes()
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    bool const stored = flush_features();
    return f_layer->SyncToDisk() == OGRERR_NONE && stored;
}

bool vector_set::create_feature(long long fid, vx::feature_visitor visitor)
{
    {
        error_guard guard(f_set->error());
        if (!may_change(guard) || !visitor)
            return false;
    }
    // The copy that is stored: the visitor may end the feature before it comes back.
    struct maker final : feature_store
    {
        OGRFeature *target = nullptr;
        bool is_ended = false;
        bool store(OGRFeature &) override { return true; }
        bool can_store() const override { return true; }
        void ended(gdal_feature *feature) override
        {
            target = feature->record().Clone();
            is_ended = true;
        }
    } making;
    OGRFeatureUniquePtr record(OGRFeature::CreateFeature(f_layer->GetLayerDefn()));
    auto *const outside = new gdal_feature(&making, std::move(record), f_geom_field, true);
    visitor.visit(*outside);

    error_guard const guard(f_set->error());
    OGRFeatureUniquePtr const kept(making.is_ended ? making.target : nullptr);
    OGRFeature &stored = making.is_ended ? *kept : outside->record();
    stored.SetFID(fid > 0 ? fid : OGRNullFID);
    content_changed();
    bool const good = f_layer->CreateFeature(&stored) == OGRERR_NONE;
    if (!making.is_ended) {
        outside->set_stored();
        outside->set_store(good ? this : nullptr);
        if (good)
            f_outside.insert(outside);
    }
    return good;
}

bool vector_set::delete_feature(long long fid)
{
    error_guard guard(f_set->error());
    if (!may_change(guard))
        return false;
    // A change of the feature that is still outside would bring it back.
    for (gdal_feature *feature : f_outside)
        if (feature->fid() == fid)
            feature->drop_changes();
    content_changed();
    return f_layer->DeleteFeature(fid) == OGRERR_NONE;
}
} // namespace vx::gdal
