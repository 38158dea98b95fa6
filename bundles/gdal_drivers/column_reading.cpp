#include "column_reading.h"

#include "arrow_column.h"
#include "data_types.h"
#include "dbf_column.h"
#include "extension/binding/column_reading_visitor.h"
#include "gdal_errors.h"
#include "layer_apart.h"
#include "shape_walk.h"
#include "vector_set.h"

#include <chrono>

namespace vx::gdal {
column_sink sink_of(vx::column_visitor visitor)
{
    return [visitor](column_batch const &batch) {
        switch (batch.kind) {
        case column_batch::integers:
            return visitor.visit_integers(batch.count, batch.numbers<int>(), batch.defined);
        case column_batch::bigints:
            return visitor.visit_bigints(batch.count, batch.numbers<long long>(), batch.defined);
        case column_batch::floatings:
            return visitor.visit_floatings(batch.count, batch.numbers<double>(), batch.defined);
        default:
            return visitor.visit_texts(batch.count, batch.bytes, batch.starts, batch.defined);
        }
    };
}

int gdal_column_reading::next(int milliseconds, vx::column_visitor visitor)
{
    using clock = std::chrono::steady_clock;
    auto const end = clock::now() + std::chrono::milliseconds(milliseconds);
    column_sink const sink = sink_of(visitor);
    std::wstring complaints;
    while (f_walk) {
        error_guard const guard(complaints);
        auto const result = f_walk->step(sink);
        f_is_damaged = f_is_damaged || result == column_walk::c_broken || !guard.text().empty();
        if (result != column_walk::c_more)
            f_walk.reset();
        else if (clock::now() >= end)
            return reading_goes_on;
    }
    return f_is_damaged ? reading_damaged : reading_ended;
}

bool vector_set::read_column(int field, vx::column_reading_visitor visitor)
{
    auto const *const defn = field_at(field);
    // In a set that is being changed GDAL may hold what is not in the file yet.
    if (!visitor || !defn || !f_set->read_only() || has_filter())
        return false;
    error_guard const guard(f_set->error());
    std::unique_ptr<column_walk> walk;
    if (f_set->is_driver("GPKG")) {
        walk = walk_geopackage_column(
            static_cast<sqlite3 *>(f_set->gdal().GetInternalHandle("SQLITE_HANDLE")), *f_layer, field);
    } else if (f_set->is_driver("ESRI Shapefile")) {
        walk = walk_dbf_column(f_set->gdal().GetDescription(), *f_layer, field);
    } else if (has_plain_cells(*defn)) {
        layer_apart const apart = open_apart(*f_set, f_layer->GetName(), field);
        if (apart.layer)
            walk = walk_arrow_column(apart.set, *apart.layer, defn->GetNameRef());
    }
    if (!walk)
        return false;
    auto *const reading = new gdal_column_reading(std::move(walk));
    visitor.visit(*reading);
    return true;
}
} // namespace vx::gdal
