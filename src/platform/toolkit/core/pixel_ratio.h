#pragma once

#include "platform/base/export.h"

class TBitmap;
class TCanvas;

/// Pixels of the screen for one logical pixel, rounded up: the scale in which pictures look sharp.
[[nodiscard]] VX_API int vx_screen_pixel_scale();
/// Makes a bitmap count as drawn for so many pixels in one logical pixel. Buttons show it that much smaller;
/// its `Width` and `Height` stay in its own pixels.
VX_API void vx_bitmap_set_pixel_scale(TBitmap &bitmap, int scale);
/// What was set, 1 at first. A bitmap that gets another size goes back to 1.
[[nodiscard]] VX_API int vx_bitmap_get_pixel_scale(TBitmap const &bitmap);
/// Pixels for one unit of what the canvas draws on, rounded up: those of the screen on a control that paints
/// itself, 1 on a bitmap and for null.
[[nodiscard]] VX_API int vx_canvas_pixel_scale(TCanvas *canvas);
