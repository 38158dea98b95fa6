#include "shape_reading.h"

#include "data_types.h"
#include "gdal_errors.h"
#include "layer_apart.h"
#include "vector_set.h"

#include <ogrsf_frmts.h>

#include <chrono>

namespace vx::gdal {
namespace {
class feature_walk final : public shape_walk
{
public:
    feature_walk(std::shared_ptr<GDALDataset> set, OGRLayer &layer, bool numbers_records)
        : f_set(std::move(set)), f_layer(layer), f_numbers_records(numbers_records)
    {
        f_layer.ResetReading();
    }

    step_result step(shape_run &run) override
    {
        constexpr int c_at_once = 64;
        for (int i = 0; i < c_at_once && !run.is_large(); ++i) {
            OGRFeatureUniquePtr const feature(f_layer.GetNextFeature());
            if (!feature)
                return c_end;
            run.add(feature->GetGeometryRef(),
                    f_numbers_records ? static_cast<unsigned long long>(feature->GetFID()) : 0);
        }
        return c_more;
    }

private:
    std::shared_ptr<GDALDataset> f_set;
    OGRLayer &f_layer;
    bool f_numbers_records;
};
} // namespace

std::unique_ptr<shape_walk> walk_features(std::shared_ptr<GDALDataset> set, OGRLayer &layer,
                                          bool numbers_records)
{
    return std::make_unique<feature_walk>(std::move(set), layer, numbers_records);
}

int gdal_shape_reading::next(int milliseconds, vx::shape_visitor visitor)
{
    using clock = std::chrono::steady_clock;
    auto const end = clock::now() + std::chrono::milliseconds(milliseconds);
    std::wstring complaints;
    // What the last call had no time for.
    if (f_run.is_huge())
        f_run.flush(visitor);
    while (f_walk) {
        error_guard const guard(complaints);
        auto const result = f_walk->step(f_run);
        bool const is_over = result != shape_walk::c_more;
        f_is_damaged = f_is_damaged || result == shape_walk::c_broken || !guard.text().empty();
        bool const is_late = clock::now() >= end;
        if (!is_over && is_late && f_run.is_huge())
            return reading_goes_on;
        if (is_over || f_run.is_large())
            f_run.flush(visitor);
        if (is_over)
            f_walk.reset();
        else if (is_late)
            break;
    }
    f_run.flush(visitor);
    if (f_walk)
        return reading_goes_on;
    return f_is_damaged ? reading_damaged : reading_ended;
}

bool vector_set::read_shapes(Tvx_box_d2 *window, vx::shape_reading_visitor visitor)
{
    // In a set that is being changed GDAL may hold what is not in the file yet.
    if (!visitor || !f_layer || !geom_field_at(f_geom_field) || !f_set->read_only() || has_filter())
        return false;
    error_guard const guard(f_set->error());
    std::unique_ptr<shape_walk> walk;
    shape_window box{};
    if (window)
        box = {window->min_x, window->min_y, window->max_x, window->max_y};
    if (f_set->is_driver("GPKG") && f_geom_field == 0) {
        walk = walk_geopackage(static_cast<sqlite3 *>(f_set->gdal().GetInternalHandle("SQLITE_HANDLE")),
                               *f_layer, window ? &box : nullptr);
    } else if (f_set->is_driver("ESRI Shapefile")) {
        walk = walk_shapefile(f_set->gdal().GetDescription(), *f_layer, deleted_records(),
                              window ? &box : nullptr);
    } else if (f_set->is_driver("FlatGeobuf") && (!window || f_layer->TestCapability(OLCFastSpatialFilter))) {
        layer_apart const apart = open_apart(*f_set, f_layer->GetName(), c_no_field);
        if (apart.layer) {
            if (window)
                apart.layer->SetSpatialFilterRect(window->min_x, window->min_y, window->max_x, window->max_y);
            walk = walk_features(apart.set, *apart.layer, window != nullptr);
        }
    } else if (f_server && f_server->has_columns()) {
        if (GDALDatasetUniquePtr apart = f_set->connect_apart())
            walk = walk_server(std::move(apart),
                               f_server->shapes(geom_field_at(f_geom_field)->GetNameRef(),
                                                window ? box_condition(*window) : std::string()),
                               window != nullptr);
    }
    if (!walk)
        return false;
    auto *const reading = new gdal_shape_reading(std::move(walk), window != nullptr);
    visitor.visit(*reading);
    return true;
}
} // namespace vx::gdal
