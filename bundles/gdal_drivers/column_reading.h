#pragma once

#include "column.h"
#include "extension/binding/column_reading.h"

#include <memory>

namespace vx::gdal {
/// What hands batches to a visitor.
[[nodiscard]] column_sink sink_of(vx::column_visitor visitor);

/// A walk as it crosses the component interface. What it runs into is told at its end.
class gdal_column_reading final : public vx::column_reading_impl
{
public:
    explicit gdal_column_reading(std::unique_ptr<column_walk> walk) : f_walk(std::move(walk)) {}

    void detach() override { delete this; }
    int next(int milliseconds, vx::column_visitor visitor) override;

private:
    ~gdal_column_reading() = default;

    std::unique_ptr<column_walk> f_walk; ///< null at the end
    bool f_is_damaged = false;
};
} // namespace vx::gdal
