#pragma once

#include "platform/base/color.h"
#include "platform/base/geometry.h"
#include "platform/basic/vx_fnt_type.h"

#include <string>
#include <string_view>
#include <vector>

struct Tvx_layout_writing;

namespace vx::render {
/// More of a line is not written: texts come from files of strangers.
inline constexpr std::size_t c_most_line_characters = 2000;

class layout_canvas;

/// How a text of a page is written; `size` is in millimetres, and so is all that is measured.
struct text_look
{
    vx_fnt_type font;
    double size = 4;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
};
[[nodiscard]] text_look look_of(Tvx_layout_writing const &writing);

[[nodiscard]] double text_width(std::wstring_view line, text_look const &look);
[[nodiscard]] double text_ascent(text_look const &look);
/// From a base line to the next.
[[nodiscard]] double line_height(text_look const &look);
[[nodiscard]] std::vector<std::wstring> lines_of_text(std::wstring_view text);
/// In lines that are no wider, parted at spaces where there are any.
[[nodiscard]] std::vector<std::wstring> wrapped(std::wstring_view text, text_look const &look, double width);
/// Cut so that it is no wider, with a sign for what is left out.
[[nodiscard]] std::wstring elided(std::wstring_view line, text_look const &look, double width);

/// Writes a line with the begin of its base line at `at`; degrees are counter-clockwise. Letters stay letters
/// on devices of vectors.
void write_line(layout_canvas &canvas, Tvx_pnt_d2 at, std::wstring_view line, text_look const &look,
                double angle = 0);
/// Lines in a box, aligned as elements are (vx_layout_lr2d.h); the block is turned about its middle.
void write_block(layout_canvas &canvas, Tvx_box_d2 const &box, std::vector<std::wstring> const &lines,
                 text_look const &look, int align_x, int align_y, double angle = 0);
} // namespace vx::render
