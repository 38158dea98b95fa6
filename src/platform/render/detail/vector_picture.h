#pragma once

#include "platform/render/dc_priv.h"
#include "platform/render/vx_map_view.h"

struct Ivx_layer;

namespace vx::render {
/// Draws what has pixels only (`draw` is `draw_raster` or `draw_cells`) on a device of vectors, as one
/// picture; on others as it is.
[[nodiscard]] bool draw_as_picture(bool (*draw)(Ivx_layer *, Tvx_map_view const &, surface const &),
                                   Ivx_layer *layer, Tvx_map_view const &view, surface const &target);
} // namespace vx::render
