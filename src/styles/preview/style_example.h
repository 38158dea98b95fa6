#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/toolkit/core/types.h"

class TBitmap;
class TCanvas;

/// Samples: small pictures that show what a style draws, painted by the renderer of the map.
///
/// A sample fills its bitmap, whatever its size, from a square of 100 by 100 units: the geometry stretches
/// with the bitmap, the sizes of the style stay true to their millimetres, and what is too large is cut off.
/// What the style leaves free shows the bitmap's transparent colour; a bitmap without one is white there.
/// Nothing is kept between two calls: who repaints often keeps the bitmap. Without a style, a bitmap or a
/// pixel in it nothing is done.
///
/// A bitmap for a screen of high resolution has a pixel scale (`vx_bitmap_set_pixel_scale`): the sample is
/// drawn that much larger, and is sharp where it is shown by a button or by `TCanvas::StretchDraw` on its
/// logical size.

/// Gives the bitmap `width` by `height` logical pixels and the scale, as a rule `vx_screen_pixel_scale()`.
VX_API void vx_style_example_bmp_set_size(TBitmap *bitmap, int width, int height, int scale);

/// A point in the middle, if the style's flag is set.
VX_API void vx_pnt_style_example_bmp(void *style, TBitmap *bitmap);
/// A zigzag of three strokes, and the points at its two inner vertices. The points at its ends are not shown.
VX_API void vx_pln_style_example_bmp(void *style, TBitmap *bitmap);
/// The fill over the whole bitmap, on a check pattern that shows through what is translucent; the zigzag in
/// the outline's style; the points at its two inner vertices.
VX_API void vx_pgn_style_example_bmp(void *style, TBitmap *bitmap);

/// As the three above, for styles of objects in space: drawn by a style of the plane with their flags and the
/// parameters that `vx_copy_bpnt_params`, `vx_copy_bpln_params` and `vx_copy_bpgn_params` take over.
VX_API void vx_pnt3d_style_example_bmp(void *style, TBitmap *bitmap);
VX_API void vx_pln3d_style_example_bmp(void *style, TBitmap *bitmap);
VX_API void vx_pgn3d_style_example_bmp(void *style, TBitmap *bitmap);

/// The colour over an opaque check pattern, on the whole bitmap.
VX_API void vx_clr_style_example_bmp(Tvx_color const *color, TBitmap *bitmap);
/// The same on a part of a canvas, with a thin black border inside `rect`.
VX_API void vx_clr_style_example_canvas(TCanvas *canvas, TRect const &rect, Tvx_color const &color);

/// The letter "T" in the middle, in its true size, with the background, shadow and outline of a text style.
/// A positive gap moves the shadow to the right and up.
VX_API void vx_txt_style_example_bmp(void *style, TBitmap *bitmap);
