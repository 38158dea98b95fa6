#pragma once

/// Layer type keys, as `vx_lr2d_get_lr_type` gives them.
inline constexpr char c_lr_key_shp_pnt[] = "shp_pnt_lr2d";           ///< vector points
inline constexpr char c_lr_key_shp_pln[] = "shp_pln_lr2d";           ///< vector polylines
inline constexpr char c_lr_key_shp_pgn[] = "shp_pgn_lr2d";           ///< vector polygons
inline constexpr char c_lr_key_rtr[] = "rtr_lr2d";                   ///< raster
inline constexpr char c_lr_key_tos_grid[] = "tos_grid_lr2d";         ///< property grid, 2-D
inline constexpr char c_lr_key_tos_grid_1d[] = "tos_grid_lr1d";      ///< property grid, 1-D
inline constexpr char c_lr_key_tos_slice[] = "tos_slice_lr2d";       ///< slice of a property grid
inline constexpr char c_lr_key_tos_2crd[] = "tos_2crd_lr2d";         ///< points with two property coordinates
inline constexpr char c_lr_key_tld[] = "tld_lr2d";                   ///< text layer
inline constexpr char c_lr_key_dynamic_tld[] = "dyn_tld_lr2d";       ///< dynamic text layer
inline constexpr char c_lr_key_shp_pntz_sub[] = "shp_pntz_sub_lr2d"; ///< sub-layer of vector points with z
inline constexpr char c_lr_key_shp_plnz_sub[] = "shp_plnz_sub_lr2d"; ///< sub-layer of vector polylines with z
inline constexpr char c_lr_key_shp_pgnz_sub[] = "shp_pgnz_sub_lr2d"; ///< sub-layer of vector polygons with z

/// The meta identifier of vector layers.
inline constexpr char c_lr_shp_meta_id[] = "ShapeLayerMetaID";
