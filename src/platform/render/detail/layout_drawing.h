#pragma once

#include "platform/base/closure.h"
#include "platform/base/geometry.h"

struct Ivx_scn_2d;

namespace vx::render {
class bmp_dc;

enum class layout_drawing : unsigned char
{
    whole,
    incomplete, ///< something could not be read; the rest is drawn
    cancelled,
};
/// Draws a box of the page on all of a device; see `vx_layout_render`.
[[nodiscard]] layout_drawing draw_layout(Ivx_scn_2d *layout, Tvx_box_d2 const &page_box, bmp_dc &dc,
                                         closure<bool()> cancelled);
} // namespace vx::render
