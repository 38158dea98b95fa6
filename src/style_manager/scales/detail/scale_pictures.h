#pragma once

/// Numbers of the pictures of the scale editors.
inline constexpr int c_picture_style = 70;
inline constexpr int c_picture_sel_style = 125;
inline constexpr int c_picture_visible = 130;
inline constexpr int c_cursor_gradient = 136;
inline constexpr int c_picture_insert = 141;
inline constexpr int c_picture_delete = 142;
inline constexpr int c_picture_save = 143;
inline constexpr int c_picture_open = 144;
inline constexpr int c_picture_build = 145;
inline constexpr int c_picture_rescale = 147;
