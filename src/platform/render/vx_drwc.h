#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/base/geometry.h"

class vx_fnt_type;

/// Plain drawing on a device of vx_bmp_dc.h, in its drawing units: pixels, or millimetres once it is mapped.
/// All functions accept null.

/// An area filled with two colours.
struct Tvx_fill
{
    Tvx_color color1;
    Tvx_color color2;
    int density =
        50;        ///< share of `color1` in percent: 0 and 100 are plain, in between stands a check pattern
    int style = 0; ///< 0 is the check pattern, the only one there is
};

struct Tvx_pen
{
    Tvx_color color;
    int style = 0;    ///< 0 solid, 1 dash, 2 dot, 3 dash and dot
    double width = 1; ///< in pixels
};

/// A rim round the letters.
struct Tvx_txt_outline
{
    bool on = false;
    Tvx_color color;
    double size = 0; ///< in pixels
};

struct Tvx_txt_params
{
    vx_fnt_type const *font = nullptr; ///< null takes the default font
    Tvx_color color;
    Tvx_pnt_d2 center;
    double size = 12; ///< height in pixels
    double angle = 0; ///< degrees, counter-clockwise
    int align_x = 0;  ///< -1 the text ends at the centre, 0 stands on it, 1 begins there
    int align_y = 0;  ///< -1 below the centre, 0 on it, 1 above
    Tvx_txt_outline outline;
};

VX_API void vx_drwc_fill_pgn_rect(void *dc, Tvx_fill const &fill, Tvx_box_d2 const &box);
VX_API void vx_drwc_draw_pgn_rect(void *dc, Tvx_color color, Tvx_box_d2 const &box);
/// The border of the box, within it.
VX_API void vx_drwc_draw_pln_rect(void *dc, Tvx_pen const &pen, Tvx_box_d2 const &box);

/// Width and height of `length` characters (all up to the terminating zero if negative) at angle 0, in
/// pixels; lines are parted by line feeds. `flags` is 0.
VX_API void vx_drwc_get_txt_extent_w(Tvx_pnt_d2 *result, void *dc, Tvx_txt_params const &params,
                                     wchar_t const *text, int length, int flags);
VX_API void vx_drwc_draw_txt_w(void *dc, Tvx_txt_params const &params, wchar_t const *text, int length,
                               int flags);
