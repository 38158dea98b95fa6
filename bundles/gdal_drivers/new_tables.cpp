#include "new_tables.h"

#include "gdal_errors.h"

#include "platform/basic/vx_res.h"

#include <cpl_conv.h>
#include <cpl_error.h>

#include <cstring>

namespace vx::gdal {
namespace {
bool has_feature_without_place(OGRLayer &layer)
{
    unfiltered all(layer);
    while (OGRFeatureUniquePtr const record = all.next())
        if (!record->GetGeometryRef() || record->GetGeometryRef()->IsEmpty())
            return true;
    return false;
}
} // namespace

unfiltered::unfiltered(OGRLayer &layer)
    : f_layer(layer), f_expression(layer.GetAttrQueryString() ? layer.GetAttrQueryString() : ""),
      f_shape(layer.GetSpatialFilter() ? layer.GetSpatialFilter()->clone() : nullptr)
{
    layer.SetAttributeFilter(nullptr);
    layer.SetSpatialFilter(nullptr);
    layer.ResetReading();
}

unfiltered::~unfiltered()
{
    f_layer.SetAttributeFilter(f_expression.empty() ? nullptr : f_expression.c_str());
    f_layer.SetSpatialFilter(f_shape.get());
    f_layer.ResetReading();
}

bool new_tables::is_for(char const *driver, std::string const &path)
{
    auto const is = [&](char const *name) { return std::strcmp(driver, name) == 0; };
    return is("GeoJSON") || is("KML") || is("GML") ||
           (is("CSV") && EQUAL(CPLGetExtension(path.c_str()), "csv")) ||
           (is("FlatGeobuf") && EQUAL(CPLGetExtension(path.c_str()), "fgb"));
}

bool new_tables::is_format(char const *name) const
{
    return std::strcmp(GDALGetDriverShortName(GDALDriver::ToHandle(f_format)), name) == 0;
}

OGRLayer *new_tables::add(GDALDataset &memory, std::string const &name, OGRSpatialReference *system,
                          OGRwkbGeometryType type, CPLStringList options)
{
    if (!f_tables.empty() && !is_format("KML") && !is_format("GML")) {
        error_guard::add_to_innermost(vx_res_get_wstr(c_drv_one_table));
        return nullptr;
    }
    // Without being told how, the format would keep no geometry.
    if (is_format("CSV") && type != wkbNone && !options.FetchNameValue("GEOMETRY"))
        options.SetNameValue("GEOMETRY", "AS_WKT");
    OGRLayer *const content = memory.CreateLayer(name.c_str(), system, type, nullptr);
    if (content)
        f_tables.push_back({content, name, type, std::move(options)});
    return content;
}

bool new_tables::read(GDALDataset &from, GDALDataset &memory)
{
    for (OGRLayer *source : from.GetLayers()) {
        OGRLayer *const content =
            add(memory, source->GetName(), source->GetSpatialRef(), source->GetGeomType(), {});
        if (!content)
            return false;
        OGRFeatureDefn *const fields = source->GetLayerDefn();
        for (int field = 0; field < fields->GetFieldCount(); ++field)
            if (content->CreateField(fields->GetFieldDefn(field)) != OGRERR_NONE)
                return false;
        source->ResetReading();
        while (OGRFeatureUniquePtr const record{source->GetNextFeature()}) {
            OGRFeatureUniquePtr const taken(OGRFeature::CreateFeature(content->GetLayerDefn()));
            if (taken->SetFrom(record.get()) != OGRERR_NONE ||
                taken->SetFID(record->GetFID()) != OGRERR_NONE ||
                content->CreateFeature(taken.get()) != OGRERR_NONE)
                return false;
        }
    }
    return true;
}

void new_tables::drop_last(GDALDataset &memory)
{
    f_tables.pop_back();
    memory.DeleteLayer(memory.GetLayerCount() - 1);
}

bool new_tables::write(std::string const &path) const
{
    GDALDatasetUniquePtr const file(
        f_format->Create(path.c_str(), 0, 0, 0, GDT_Unknown, CPLStringList(f_options).List()));
    if (!file)
        return false;
    for (table const &from : f_tables)
        if (!write(from, *file))
            return false;
    return true;
}

bool new_tables::write(table const &from, GDALDataset &to) const
{
    CPLStringList options = from.options;
    // The index has no place for what has none; it is made when the file is.
    if (is_format("FlatGeobuf") && !options.FetchNameValue("SPATIAL_INDEX") &&
        has_feature_without_place(*from.content))
        options.SetNameValue("SPATIAL_INDEX", "NO");
    OGRLayer *const target =
        to.CreateLayer(from.name.c_str(), from.content->GetSpatialRef(), from.type, options.List());
    if (!target)
        return false;
    OGRFeatureDefn *const fields = from.content->GetLayerDefn();
    std::vector<int> places;
    for (int field = 0; field < fields->GetFieldCount(); ++field) {
        if (target->CreateField(fields->GetFieldDefn(field)) != OGRERR_NONE)
            return false;
        places.push_back(target->GetLayerDefn()->GetFieldCount() - 1);
    }
    unfiltered all(*from.content);
    for (GIntBig number = 0; OGRFeatureUniquePtr const record = all.next(); ++number) {
        OGRFeatureUniquePtr const written(OGRFeature::CreateFeature(target->GetLayerDefn()));
        if (written->SetFrom(record.get(), places.data(), TRUE) != OGRERR_NONE)
            return false;
        // Identifiers that count the features need not be kept.
        if (is_format("GeoJSON") && record->GetFID() != number)
            written->SetFID(record->GetFID());
        if (target->CreateFeature(written.get()) != OGRERR_NONE)
            return false;
    }
    return true;
}
} // namespace vx::gdal
