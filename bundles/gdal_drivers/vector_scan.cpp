#include "arrow_column.h"
#include "column_reading.h"
#include "data_types.h"
#include "database_guard.h"
#include "dbf_column.h"
#include "vector_set.h"

#include <string>

namespace vx::gdal {
namespace {
/// Reading only one column spares the drivers that can do so the geometry and all other fields.
class narrowed_layer
{
public:
    narrowed_layer(OGRLayer &layer, int field) : f_layer(layer)
    {
        std::vector<char const *> ignored{"OGR_GEOMETRY", "OGR_STYLE"};
        OGRFeatureDefn *const fields = layer.GetLayerDefn();
        for (int i = 0; i < fields->GetFieldCount(); ++i)
            if (i != field)
                ignored.push_back(fields->GetFieldDefn(i)->GetNameRef());
        ignored.push_back(nullptr);
        f_is_narrow =
            layer.TestCapability(OLCIgnoreFields) && layer.SetIgnoredFields(ignored.data()) == OGRERR_NONE;
        layer.ResetReading();
    }
    ~narrowed_layer()
    {
        if (f_is_narrow)
            f_layer.SetIgnoredFields(nullptr);
    }
    narrowed_layer(narrowed_layer const &) = delete;
    narrowed_layer &operator=(narrowed_layer const &) = delete;

private:
    OGRLayer &f_layer;
    bool f_is_narrow = false;
};
} // namespace

bool vector_set::has_plain_cells(OGRFieldDefn const &field)
{
    switch (field.GetType()) {
    case OFTInteger:
    case OFTInteger64:
    case OFTReal:
    case OFTString:
        return field.GetSubType() != OFSTBoolean;
    default:
        return false;
    }
}

bool vector_set::is_read_as_text() const
{
    for (char const *const format : {"CSV", "GeoJSON", "GeoJSONSeq", "KML", "LIBKML", "GML", "GPX"})
        if (f_set->is_driver(format))
            return true;
    return false;
}

kept_columns const *vector_set::columns_of_one_walk()
{
    // One question may be all there is: its walk keeps nothing.
    if (!f_set->read_only() || !is_read_as_text() || f_walked_columns++ == 0)
        return nullptr;
    if (f_kept || f_walked_columns < 0)
        return f_kept.get();
    auto all = std::make_unique<kept_columns>(*f_layer->GetLayerDefn());
    bool fits = true;
    std::wstring reason;
    {
        error_guard const guard(reason);
        f_layer->ResetReading();
        while (OGRFeatureUniquePtr const record{fits ? f_layer->GetNextFeature() : nullptr})
            fits = all->add(*record);
    }
    if (fits && reason.empty())
        f_kept = std::move(all);
    else
        f_walked_columns = c_never_kept;
    return f_kept.get();
}

column_result vector_set::walk_column(int field, column_sink const &sink)
{
    column_batch::cell_kind const kind = kind_of(*field_at(field));
    column_builder builder(kind, sink);
    f_layer->ResetReading();
    while (OGRFeatureUniquePtr const record{f_layer->GetNextFeature()}) {
        note_database_progress();
        if (!add_cell(builder, kind, *record, field))
            return column_result::done;
    }
    builder.finish();
    return column_result::done;
}

column_result vector_set::server_column(int field, column_sink const &sink)
{
    column_batch::cell_kind const kind = kind_of(*field_at(field));
    column_builder builder(kind, sink);
    bool goes_on = true;
    bool const is_good = f_server->column(
        *field_at(field), [&](OGRFeature const &row) { return goes_on = add_cell(builder, kind, row, 0); });
    if (is_good && goes_on)
        builder.finish();
    return is_good ? column_result::done : column_result::failed;
}

bool vector_set::scan(int field, column_sink const &sink)
{
    auto const *const defn = field_at(field);
    if (!defn || has_filter())
        return false;
    error_guard const guard(f_set->error());
    store_changes();
    position_keeper const keeper(*this);
    column_result columns = column_result::not_offered;
    // In a table that is being changed GDAL may hold records that are not in the file yet.
    if (f_set->read_only() && f_set->is_driver("ESRI Shapefile"))
        columns = read_dbf_column(f_set->gdal().GetDescription(), *f_layer, field, sink, f_deleted);
    if (f_server) {
        f_server->set_in_transaction(f_in_transaction);
        columns = f_server->has_columns() ? server_column(field, sink) : column_result::failed;
    }
    if (columns == column_result::not_offered)
        if (kept_columns const *const kept = columns_of_one_walk()) {
            kept->give(field, sink);
            columns = column_result::done;
        }
    if (columns == column_result::not_offered) {
        narrowed_layer const narrowed(*f_layer, field);
        if (has_plain_cells(*defn))
            columns = read_arrow_column(*f_layer, defn->GetNameRef(), sink);
        if (columns == column_result::not_offered)
            columns = walk_column(field, sink);
    }
    return columns == column_result::done && guard.text().empty();
}

bool vector_set::with_column(int field, vx::column_visitor visitor)
{
    if (!visitor)
        return false;
    return scan(field, sink_of(visitor));
}
} // namespace vx::gdal
