#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"

#include <cstdint>

/// A picture: rows of pixels from the top, four bytes a pixel: red, green, blue, alpha, not multiplied by it.
/// All functions accept null; it counts as an empty picture.
struct Ivx_dib;

/// Sizes below 1, and ones that no memory can be had for, make the picture empty. New pixels are fully
/// transparent.
[[nodiscard]] VX_API Ivx_dib *vx_dib_create(int width, int height);
VX_API void vx_dib_destroy(Ivx_dib *dib);
VX_API void vx_dib_assign(Ivx_dib *target, Ivx_dib const *source);
VX_API void vx_dib_set_size(Ivx_dib *dib, int width, int height);
[[nodiscard]] VX_API int vx_dib_get_width(Ivx_dib const *dib);
[[nodiscard]] VX_API int vx_dib_get_height(Ivx_dib const *dib);
/// First byte of a row, `width * 4` bytes; null outside of the picture. Good until the size changes.
[[nodiscard]] VX_API std::uint8_t *vx_dib_get_row(Ivx_dib *dib, int row);
[[nodiscard]] VX_API std::uint8_t const *vx_dib_get_crow(Ivx_dib const *dib, int row);
/// All bytes 0 outside of the picture.
[[nodiscard]] VX_API Tvx_color vx_dib_get_pixel(Ivx_dib const *dib, int x, int y);
VX_API void vx_dib_set_pixel(Ivx_dib *dib, int x, int y, Tvx_color color);

/// Pictures and cursors by number, drawn from `resources/glyphs/<number>.svg`, which are built into the
/// library. A drawing is laid out for 16 by 16 pixels (a cursor for 32 by 32) and drawn in any size: `scale`
/// is the number of pixels for one of these.
///
/// Null for an unknown number and a scale outside 1 to 16. The picture belongs to the module and lives to the
/// end of the process.
[[nodiscard]] VX_API Ivx_dib const *vx_res_get_dib(int number, int scale = 1);
/// The same for a cursor; the hot spot is in pixels of the picture.
[[nodiscard]] VX_API Ivx_dib const *vx_res_load_cursor(int number, int *hot_x, int *hot_y);

namespace vx::res {
/// Draws an SVG text into all of a picture. Installed by the module that can.
using svg_painter = bool (*)(char const *svg, int length, Ivx_dib *dib);
VX_API void set_svg_painter(svg_painter painter);
} // namespace vx::res
