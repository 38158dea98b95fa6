#pragma once

#include "platform/base/export.h"

class TBitmap;

/// Pixels of the screen for one logical pixel, rounded up: the scale in which pictures look sharp.
[[nodiscard]] VX_API int vx_screen_pixel_scale();
/// Makes a bitmap count as drawn for so many pixels in one logical pixel. Buttons show it that much smaller;
/// its `Width` and `Height` stay in its own pixels.
VX_API void vx_bitmap_set_pixel_scale(TBitmap &bitmap, int scale);
