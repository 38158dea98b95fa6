#pragma once

/// Which of a style manager's four ways of drawing is in force, as the manager keeps it. Only
/// `c_style_mode_none` has no editor: nothing is edited here.
using Tvx_style_mode = unsigned;

inline constexpr Tvx_style_mode c_style_mode_simple = 0;
inline constexpr Tvx_style_mode c_style_mode_value = 1;
inline constexpr Tvx_style_mode c_style_mode_range = 2;
inline constexpr Tvx_style_mode c_style_mode_rule = 3;
inline constexpr Tvx_style_mode c_style_mode_none = 4;
