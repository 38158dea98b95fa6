#pragma once

#include "platform/render/dc_priv.h"
#include "platform/render/vx_map_view.h"

struct Ivx_layer;

namespace vx::render {
/// Draws a grid of a property file, or a slice of one, as the layer says: by its colour manager, or by its
/// channels. Each pixel has the colour of the cell under its middle. False when the file or the cells cannot
/// be read, or the drawing was ended.
[[nodiscard]] bool draw_cells(Ivx_layer *layer, Tvx_map_view const &view, surface const &target);
} // namespace vx::render
