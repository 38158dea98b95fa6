#pragma once

#include "platform/render/dc_priv.h"
#include "platform/render/vx_map_view.h"

struct Ivx_layer;

namespace vx::render {
/// Draws a raster layer, each pixel by the cell under its middle. Where cells are smaller than pixels, pieces
/// of equal numbers of them are read as one: of the raster's overviews where it has such, else the cell in
/// the middle, or in a picture of few cells the average. False when the drawing is to end, or not all cells
/// could be read.
bool draw_raster(Ivx_layer *layer, Tvx_map_view const &view, surface const &target);
} // namespace vx::render
