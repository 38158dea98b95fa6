#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/render/vx_box.h"

class TCanvas;

/// A bitmap device: pixels on which the drawing calls and the renderer work. It draws on pixels of its own
/// (`vx_bmp_dc_set_nxy`) or on pixels that somebody lends it (`vx_bmp_dc_set_pixels`).
///
/// Until `vx_bmp_dc_set_mm2pxl` is called the unit of drawing is one pixel, and sizes in millimetres are
/// turned to pixels with the screen's `vx_options_get_mm2px_x` and `_y`. All functions accept null.

[[nodiscard]] VX_API void *vx_bmp_dc_create();
VX_API void vx_bmp_dc_destroy(void *dc);

/// Gives the device `width` by `height` pixels of its own, filled with the transparent colour; clear without
/// one. Sizes below 1 leave it without pixels; so do sizes that memory cannot hold.
VX_API void vx_bmp_dc_set_nxy(void *dc, int width, int height);
/// Draws on lent pixels from now on: 32 bits each, blue, green, red, alpha in memory, colours premultiplied
/// by alpha (QImage::Format_ARGB32_Premultiplied). What they hold stays. They must outlive the device or the
/// next call.
VX_API void vx_bmp_dc_set_pixels(void *dc, unsigned char *pixels, int width, int height, int bytes_per_line);
[[nodiscard]] VX_API int vx_bmp_dc_get_width(void const *dc);
[[nodiscard]] VX_API int vx_bmp_dc_get_height(void const *dc);
/// A pixel, not premultiplied; all 0 outside.
[[nodiscard]] VX_API Tvx_color vx_bmp_dc_get_pixel(void const *dc, int x, int y);

/// The colour of a device without drawing; own pixels that have not been drawn on are filled with it.
VX_API void vx_bmp_dc_set_transparent_clr(void *dc, Tvx_color color);
/// Fills all pixels.
VX_API void vx_bmp_dc_clear(void *dc, Tvx_color color);

/// The box in millimetres lies on the box in pixels: drawing calls take millimetres from now on. Boxes
/// without extent are ignored.
VX_API void vx_bmp_dc_set_mm2pxl(void *dc, Tvx_box_d2 const &mm, Tvx_box_i2 const &pixels);
/// So many pixels of the device stand for one logical pixel, 1 at first: a millimetre of a device that is not
/// mapped, and the check pattern, take that many times the pixels. On a screen of high resolution a sample is
/// drawn with `vx_screen_pixel_scale` on as many times the pixels and shown by `vx_bmp_dc_stretch_on_hdc`.
VX_API void vx_bmp_dc_set_pixel_scale(void *dc, int scale);
/// Pixels in a millimetre.
[[nodiscard]] VX_API double vx_bmp_dc_get_px_per_mm_x(void const *dc);
[[nodiscard]] VX_API double vx_bmp_dc_get_px_per_mm_y(void const *dc);

/// Copies the device's upper left `width` by `height` pixels to the canvas at (x, y).
VX_API void vx_bmp_dc_draw_on_hdc(void *dc, TCanvas *canvas, int x, int y, int width, int height);
/// Lays all of the device on `width` by `height` units of the canvas from (x, y) on.
VX_API void vx_bmp_dc_stretch_on_hdc(void *dc, TCanvas *canvas, int x, int y, int width, int height);
