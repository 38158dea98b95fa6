#pragma once

#include "extension/binding/shape_reading.h"
#include "shape_walk.h"

#include <string>

namespace vx::gdal {
/// A walk as it crosses the component interface. What it runs into is told at its end.
class gdal_shape_reading final : public vx::shape_reading_impl
{
public:
    gdal_shape_reading(std::unique_ptr<shape_walk> walk, bool has_records)
        : f_walk(std::move(walk)), f_run(has_records)
    {
    }

    void detach() override { delete this; }
    int next(int milliseconds, vx::shape_visitor visitor) override;

private:
    ~gdal_shape_reading() = default;

    std::unique_ptr<shape_walk> f_walk; ///< null at the end
    shape_run f_run;
    bool f_is_damaged = false;
};
} // namespace vx::gdal
