#pragma once

/// The type keys of layers that the layer pages know, as the engine gives them.

inline constexpr char c_shp_pnt_lr2d[] = "shp_pnt_lr2d";     ///< vector points
inline constexpr char c_shp_pln_lr2d[] = "shp_pln_lr2d";     ///< vector polylines
inline constexpr char c_shp_pgn_lr2d[] = "shp_pgn_lr2d";     ///< vector polygons
inline constexpr char c_rtr_lr2d[] = "rtr_lr2d";             ///< raster
inline constexpr char c_tos_grid_lr2d[] = "tos_grid_lr2d";   ///< property grid, 2-D
inline constexpr char c_tos_grid_lr1d[] = "tos_grid_lr1d";   ///< property grid, 1-D
inline constexpr char c_tos_slice_lr2d[] = "tos_slice_lr2d"; ///< slice of a property grid
inline constexpr char c_tos_2crd_lr2d[] = "tos_2crd_lr2d";   ///< points with two property coordinates
inline constexpr char c_tld_lr2d[] = "tld_lr2d";             ///< text layer
inline constexpr char c_dynamic_tld_lr2d[] = "dyn_tld_lr2d"; ///< dynamic text layer

inline constexpr wchar_t c_shp_pntz_sub_lr2d[] = L"shp_pntz_sub_lr2d"; ///< sub-layer of vector points with z
inline constexpr wchar_t c_shp_plnz_sub_lr2d[] =
    L"shp_plnz_sub_lr2d"; ///< sub-layer of vector polylines with z
inline constexpr wchar_t c_shp_pgnz_sub_lr2d[] =
    L"shp_pgnz_sub_lr2d"; ///< sub-layer of vector polygons with z

/// The meta identifier of vector layers.
inline constexpr char c_shp_lr2d_meta_id[] = "ShapeLayerMetaID";
