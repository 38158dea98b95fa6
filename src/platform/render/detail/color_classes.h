#pragma once

#include "platform/base/color.h"

#include <string>
#include <vector>

struct Ivx_layer;

namespace vx::render {
/// A row of a legend about cells: what it is about, and the colours that these have, from one end of its
/// sample to the other.
struct color_class
{
    std::wstring caption;
    std::vector<Tvx_color> colors;
};

/// What cells are drawn by that have no styles: by the palette of their raster, or by channels. Of a palette
/// a row for each number that cells have, unless its colours go from one into the next or are too many to be
/// told apart: then they are one row. One for gray, one for each colour that a band feeds. None for other
/// layers, and while a raster cannot be read.
[[nodiscard]] std::vector<color_class> color_classes(Ivx_layer *layer);
} // namespace vx::render
