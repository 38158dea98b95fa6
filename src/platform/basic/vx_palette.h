#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// Numbers of the built-in palettes. Every one but `c_palette_different` is a row of colours, between which
/// the way runs straight in OKLab.
enum Tvx_clr_palette_idx : int
{
    c_palette_white_gray = 0,
    c_palette_white_blue = 1,
    c_palette_white_red = 2,
    c_palette_white_green = 3,
    c_palette_white_yellow = 4,
    c_palette_blue_white_red = 5,
    c_palette_red_white_blue = 6,
    c_palette_green_white_brown = 7,
    c_palette_rainbow = 8,
    c_palette_gentle_rainbow = 9,
    c_palette_blue = 13,
    c_palette_green = 14,
    c_palette_fresh = 15,
    c_palette_different = 16, ///< colours as unlike as possible
    c_palette_height_light = 17,
    c_palette_height_dark = 18,
    c_palette_height_depth = 19,
    c_palette_turquoise = 20,
    c_palette_calm = 21,
    c_palette_red = 22,
    c_palette_orange_yellow = 23,
    c_palette_violet = 24,
    c_palette_red_black = 25,
    c_palette_height_depth_2 = 27,
};

/// Fills `count` colours, opaque, along the palette from its first colour to its last; a single one comes
/// from the middle. A number without palette leaves the array as it is.
VX_API void vx_clr_arrays_generate(int palette, unsigned count, Tvx_color *colors);
/// The same; with `random` in an order by chance, which is the same each time for a palette and a count.
VX_API void vx_clr_arrays_generate_ex(int palette, unsigned count, Tvx_color *colors, bool random);
/// The same from a palette object; null and an empty one leave the array as it is.
VX_API void vx_clr_arrays_generate_palette_ex(void const *palette, unsigned count, Tvx_color *colors,
                                              bool random);

/// A palette object: a caption and a row of colours. All functions accept null and places outside the row.
[[nodiscard]] VX_API void *vx_clr_palette_create();
VX_API void vx_clr_palette_destroy(void *palette);
VX_API void vx_clr_palette_assign(void *target, void const *source);
VX_API void vx_clr_palette_get_wcaption(void const *palette, Ivx_string_adp *adp);
VX_API void vx_clr_palette_set_wcaption(void *palette, wchar_t const *caption);
[[nodiscard]] VX_API unsigned vx_clr_palette_get_size(void const *palette);
/// New colours are white.
VX_API void vx_clr_palette_set_size(void *palette, unsigned size);
[[nodiscard]] VX_API Tvx_color vx_clr_palette_get_color(void const *palette, unsigned index);
VX_API void vx_clr_palette_set_color(void *palette, unsigned index, Tvx_color color);

/// A list of palettes, which it owns; a palette keeps its address while it is in the list.
[[nodiscard]] VX_API void *vx_clr_palettes_create();
VX_API void vx_clr_palettes_destroy(void *palettes);
VX_API void vx_clr_palettes_assign(void *target, void const *source);
VX_API void vx_clr_palettes_clear(void *palettes);
[[nodiscard]] VX_API unsigned vx_clr_palettes_get_size(void const *palettes);
[[nodiscard]] VX_API void *vx_clr_palettes_get_palette(void *palettes, unsigned index);
/// Appends an empty palette and returns it.
VX_API void *vx_clr_palettes_add(void *palettes);
VX_API void vx_clr_palettes_del(void *palettes, unsigned index);
VX_API void vx_clr_palettes_move(void *palettes, unsigned from, unsigned to);

/// The user's palettes, one list for the process. The first call has it filled by the loader, which the
/// storage sets.
[[nodiscard]] VX_API void *vx_get_user_palettes();
VX_API void vx_user_palettes_set_loader(void (*loader)(void *palettes));
