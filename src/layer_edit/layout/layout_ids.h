#pragma once

#include "platform/layers/layout_keys.h"

/// Identifiers of page layouts, for modules that make, keep or exchange their elements.

// ---- type keys of elements, as `vx_lr2d_get_lr_type` gives them
inline constexpr auto &c_layout_page = c_lr_key_layout_page;
inline constexpr auto &c_layout_scene_frame = c_lr_key_layout_scene_frame;
inline constexpr auto &c_layout_text = c_lr_key_layout_text;
inline constexpr auto &c_layout_neatline = c_lr_key_layout_neatline;
inline constexpr auto &c_layout_legend = c_lr_key_layout_legend;
inline constexpr auto &c_layout_north_arrow = c_lr_key_layout_north_arrow;
inline constexpr auto &c_layout_scale_bar = c_lr_key_layout_scale_bar;
inline constexpr auto &c_layout_scale_text = c_lr_key_layout_scale_text;
inline constexpr auto &c_layout_image = c_lr_key_layout_image;
inline constexpr auto &c_layout_table = c_lr_key_layout_table;
inline constexpr auto &c_layout_ole_object = c_lr_key_layout_ole_object;

// ---- meta identifiers
inline constexpr char c_layout_legend_layer_meta_id[] = "vx_layout_legend_layer_meta_id";
inline constexpr wchar_t c_layout_legend_layer_meta_id_w[] = L"vx_layout_legend_layer_meta_id";
inline constexpr char c_layout_meta_id[] = "LayoutMetaID";
inline constexpr char c_legend_obj_meta_id[] = "LegendObjectMetaID";
inline constexpr char c_legend_item_meta_id[] = "LegendItemMetaID";

// ---- kinds of legend items
inline constexpr wchar_t c_legend_item_type_mapleg[] = L"mapleg_type"; ///< from the legend of a map
inline constexpr wchar_t c_legend_item_type_text[] = L"text_type";

// ---- clipboard formats: a host name and a path, as the categories of extensions
inline constexpr wchar_t c_layout_lr2d_clipboard_type[] = L"vxk/clipboard/layout_layer2d";
inline constexpr wchar_t c_layout_lr2d_clipboard_group_type[] = L"vxk/clipboard/layout_group_layer2d";
inline constexpr wchar_t c_layout_scn2d_clipboard_type[] = L"vxk/clipboard/layout_scene2d";
inline constexpr wchar_t c_layout_scns2d_clipboard_type[] = L"vxk/clipboard/layout_scenes2d";
