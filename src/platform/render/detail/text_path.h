#pragma once

#include "platform/render/detail/geom_clip.h"

#include <string_view>
#include <vector>

struct Tvx_color;
class vx_fnt_type;
struct vx_native_painter;

namespace vx::render {
/// Outlines of the text in pixels, y downwards, with the start of its base line at the origin, `size_px`
/// high; line breaks are not taken. Filled by the winding rule.
[[nodiscard]] std::vector<px_line> text_outlines(std::wstring_view text, vx_fnt_type const &font,
                                                 double size_px);

struct text_extent
{
    double width = 0;
    double ascent = 0;
    double descent = 0;
};
[[nodiscard]] text_extent measure_text(std::wstring_view text, vx_fnt_type const &font, double size_px);
/// Writes a line as letters, which a file of vectors keeps as such, with the start of its base line at the
/// painter's origin. It is as wide as measured.
void write_text(vx_native_painter *painter, std::wstring_view text, vx_fnt_type const &font, double size_px,
                Tvx_color color);
} // namespace vx::render
