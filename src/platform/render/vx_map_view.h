#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"
#include "platform/base/string_adp.h"

/// What part of the world a picture shows: the world box fills the picture, its upper edge at pixel row 0.
struct Tvx_map_view
{
    Tvx_box_d2 world;
    int width = 0; ///< of the picture, in pixels
    int height = 0;
    double mm2px_x = 0; ///< pixels per millimetre; 0 takes the screen's from the options
    double mm2px_y = 0;

    [[nodiscard]] bool is_valid() const
    {
        return width > 0 && height > 0 && world.width() > 0 && world.height() > 0;
    }
    [[nodiscard]] double world_to_px_x(double x) const { return (x - world.min_x) * width / world.width(); }
    [[nodiscard]] double world_to_px_y(double y) const { return (world.max_y - y) * height / world.height(); }
    [[nodiscard]] double px_to_world_x(double x) const { return world.min_x + x * world.width() / width; }
    [[nodiscard]] double px_to_world_y(double y) const { return world.max_y - y * world.height() / height; }
    /// Where the point (0, 0) of the world lies, in pixels, reckoned from the middle: the corners are
    /// rounded, each for itself. Patterns of areas are fixed to the map by it.
    [[nodiscard]] Tvx_pnt_d2 origin() const
    {
        return {width * (0.5 - (world.min_x + world.width() / 2) / world.width()),
                height * (0.5 + (world.min_y + world.height() / 2) / world.height())};
    }
};

/// The view of `width` by `height` pixels that shows all of `box`, centred, with square pixels and
/// `margin_px` free pixels on each side. A box without extent in a direction, or an empty one, gets an extent
/// of its own, so the view is valid whenever the picture has pixels.
[[nodiscard]] VX_API Tvx_map_view vx_map_view_fit(Tvx_box_d2 const &box, int width, int height,
                                                  int margin_px = 0);

/// "1 : 25 000" for N of the scale 1 : N, with thin spaces, the same in every locale. Below 10 two decimals
/// are kept; nothing sensible gives an empty text.
VX_API void vx_map_scale_get_text_w(double scale, Ivx_string_adp *text);
