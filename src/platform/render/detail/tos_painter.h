#pragma once

#include "platform/base/closure.h"
#include "platform/render/dc_priv.h"
#include "platform/render/vx_map_view.h"
#include "platform/styles/detail/style_model.h"

struct Ivx_layer;

namespace vx::render {
/// Draws a layer of a property file whose objects lie along a line, each at the height of its property. An
/// object without a value is a gap. Where many objects share a column of pixels, those are drawn that show.
/// False when the drawing is to end, or not all of the file could be read.
bool draw_curve(Ivx_layer *layer, Tvx_map_view const &view, surface const &target);

/// Draws a layer of a property file whose objects are placed by two properties, those in `box`; of them only
/// the selected ones where `selected` is set. False as above. Objects past the last number of 32 bits are not
/// drawn.
bool draw_points(Ivx_layer *layer, Tvx_map_view const &view, surface const &target, Tvx_box_d2 const &box,
                 styles::variant_of_style variant, closure<bool(unsigned long long)> selected);
} // namespace vx::render
