#pragma once

/// Which parts of a colour the user may choose.
enum Tvx_color_format : int
{
    c_color_format_rgb = 0,  ///< red, green, blue; a chosen colour is opaque
    c_color_format_rgba = 1, ///< opacity too
};
