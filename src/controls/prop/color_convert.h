#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/toolkit/core/types.h"
#include "platform/toolkit/graphics/font.h"

/// Between the values of the toolkit and those of the engine. Alpha plays no part.

/// The three bytes of a colour; red is the lowest one of a `TColor`. System colours are resolved.
VX_API void clr_2_rgb(TColor color, unsigned char &r, unsigned char &g, unsigned char &b);
VX_API void rgb_2_clr(unsigned char r, unsigned char g, unsigned char b, TColor &color);
/// An opaque colour.
[[nodiscard]] VX_API Tvx_color clr2rgb(TColor color);
[[nodiscard]] VX_API TColor rgb2clr(Tvx_color const &color);

/// Left 0, right 1, middle 2.
[[nodiscard]] VX_API int mouse_btn_2_vx(TMouseButton button);
/// Bits from 0: Shift, Alt, Ctrl, left, right, middle button, double click.
[[nodiscard]] VX_API int shift_state_2_vx(TShiftState shift);

/// Gives `target` the name, character set and style of `font`, and `size` in points unless that is 0. Null
/// pointers are ignored.
VX_API void fnt_type_2_font(vx_fnt_type const *font, TFont *target, int size);
