#pragma once

#include "platform/base/export.h"
#include "platform/basic/vx_dib.h"
#include "platform/toolkit/core/types.h"

class TBitmap;
class TCanvas;
class TGraphic;
class TCustomImageList;

/// Between pictures of the toolkit and those of the engine. Null pointers are ignored, and an empty source
/// gives an empty picture.

VX_API void bmp_2_dib(TBitmap const *bitmap, Ivx_dib *dib);
/// The bitmap has opacity afterwards.
VX_API void dib_2_bmp(Ivx_dib const *dib, TBitmap *bitmap);
/// Pixels of `color` become fully transparent.
VX_API void bmp_2_dib_transparent(TBitmap const *bitmap, Ivx_dib *dib, TColor color);
/// Any graphic, drawn over `color` and taken out of it again.
VX_API void icon_2_dib_transparent(TGraphic *icon, Ivx_dib *dib, TColor color);
/// Sets every pixel.
VX_API void vx_bmp_fill_color(TBitmap *bitmap, TColor color);

/// Makes a picture of a number the content of a glyph, as sharp as the screen shows it. An unknown number
/// gives an empty one.
VX_API void vx_glyph_get_res(TBitmap *glyph, int number);

/// Draws the picture of a number in the middle of `rect`, in greys if it is not enabled. An unknown number
/// draws nothing.
VX_API void canvas_draw_rsrc(TCanvas *canvas, int number, TRect const &rect, bool enabled);
/// The same with the whole of `rect` filled by the canvas's brush before.
VX_API void canvas_draw_rsrc_opaque(TCanvas *canvas, int number, TRect const &rect, bool enabled);
/// Adds the picture of a number to a list and gives its place, -1 if there is none.
VX_API int vx_image_list_get_res(TCustomImageList *list, int number);
