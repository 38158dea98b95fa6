#pragma once

#include "extension/binding/grid_palette.h"
#include "extension/binding/grid_palette_visitor.h"

#include "platform/base/color.h"
#include "platform/base/export.h"

namespace vx::data {
/// The colours of a field of coded cells. Owns its handle and detaches it.
class VX_API grid_palette
{
public:
    grid_palette() = default;
    grid_palette(grid_palette const &) = delete;
    grid_palette &operator=(grid_palette const &) = delete;
    ~grid_palette();

    /// Detaches what is held and takes the handle; true if it is not null.
    bool init(vx::grid_palette handle);
    [[nodiscard]] bool valid() const { return static_cast<bool>(f_handle); }
    [[nodiscard]] t_vx_grid_palette_interface handle() const { return f_handle.handle(); }

    [[nodiscard]] int color_count() const { return f_handle.color_count(); }
    /// A colour of all zeros for an index that has none.
    [[nodiscard]] Tvx_color fetch_color(int i) const;
    /// False, with `color` unchanged, for an index that has none.
    bool fetch_color(int i, Tvx_color &color) const;

private:
    vx::grid_palette f_handle;
};

/// Hands the visited palette to a `grid_palette`.
class VX_API grid_palette_visitor final : public vx::grid_palette_visitor_impl
{
public:
    explicit grid_palette_visitor(grid_palette &target) : f_target(target) {}
    void visit(vx::grid_palette handle) override { f_target.init(handle); }

private:
    grid_palette &f_target;
};
} // namespace vx::data
