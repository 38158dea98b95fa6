#pragma once

#include "platform/base/color.h"

#include <cstddef>
#include <span>

/// The parameters of a text style, apart from its lines, as tables for editors and for copying one by one.
namespace vx::scene_editor {
/// In the order in which an editor shows them.
enum class txt_field : std::size_t
{
    font,
    color,
    size,
    angle,
    place, ///< side of the anchor, both ways
    delta_x,
    delta_y,
    outline, ///< with its colour
    outline_size,
    back,   ///< with its colour
    shadow, ///< with its colour
    shadow_width,
    shadow_gap_x,
    shadow_gap_y,
};
inline constexpr std::size_t c_txt_field_count = 14;

struct txt_number
{
    txt_field field;
    int caption;
    int unit; ///< number of its caption
    bool negative;
    double (*get)(void const *style);
    void (*set)(void *style, double value);
};

struct txt_color
{
    txt_field field;
    int caption;
    Tvx_color (*get)(void const *style);
    void (*set)(void *style, Tvx_color color);
    /// Whether there is what has this colour; null where there always is.
    bool (*get_on)(void const *style);
    void (*set_on)(void *style, bool on);
};

[[nodiscard]] std::span<txt_number const> txt_numbers();
[[nodiscard]] std::span<txt_color const> txt_colors();

/// Copies one parameter from one text style to another.
void copy_txt_field(txt_field field, void *target, void *source);
} // namespace vx::scene_editor
