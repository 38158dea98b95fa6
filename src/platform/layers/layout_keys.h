#pragma once

/// Layer type keys of the elements of a page layout, as `vx_lr2d_get_lr_type` gives them.
inline constexpr char c_lr_key_layout_page[] = "layout_page";               ///< the sheet itself
inline constexpr char c_lr_key_layout_scene_frame[] = "layout_scene_frame"; ///< a scene at a scale
inline constexpr char c_lr_key_layout_text[] = "layout_text";
inline constexpr char c_lr_key_layout_neatline[] = "layout_neatline"; ///< a line round other elements
inline constexpr char c_lr_key_layout_legend[] = "layout_legend";     ///< of the layers of a frame
inline constexpr char c_lr_key_layout_north_arrow[] = "layout_north_arrow";
inline constexpr char c_lr_key_layout_scale_bar[] = "layout_scale_bar";   ///< of a frame
inline constexpr char c_lr_key_layout_scale_text[] = "layout_scale_text"; ///< of a frame, as "1 : N"
inline constexpr char c_lr_key_layout_image[] = "layout_image";           ///< a picture file
inline constexpr char c_lr_key_layout_table[] = "layout_table";           ///< records of a vector data set
inline constexpr char c_lr_key_layout_ole_object[] = "layout_ole_object"; ///< what no driver here can show
