#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"

/// Draws a text in a text style on a device of vx_bmp_dc.h whose unit is the pixel: the background as large
/// as the upright text, on it the shadow and the text itself, both outlined. `at` is the anchor; `align_x`
/// and `align_y` say on which side of it the text stands, as those of `Tvx_txt_params` do; the style's own
/// place and shift are the caller's. Lines are parted by line feeds. Millimetres are those of the device, and
/// a positive gap moves the shadow to the right and up. A size that cannot be seen is drawn as the nearest
/// that can. Null draws nothing.
VX_API void vx_txt_style_draw(void *dc, void *style, wchar_t const *text, Tvx_pnt_d2 at, int align_x = 0,
                              int align_y = 0);
