#pragma once

/// Keys that tell what kind of style, style manager or style layer an object is. They are compared as 8-bit
/// text, without regard to case wherever this module compares them.

inline constexpr char const *c_pnt_style = "pnt_style";
inline constexpr char const *c_pln_style = "pln_style";
inline constexpr char const *c_pgn_style = "pgn_style";
inline constexpr char const *c_clr_style = "clr_style";
inline constexpr char const *c_grid1d_clr_style = "grid1d_clr_style";
inline constexpr char const *c_pnt3d_style = "pnt3d_style";
inline constexpr char const *c_pln3d_style = "pln3d_style";
inline constexpr char const *c_pgn3d_style = "pgn3d_style";
inline constexpr char const *c_txt_pnt_style = "txt_pnt_style";
inline constexpr char const *c_txt_pln_style = "txt_pln_style";
inline constexpr char const *c_txt_pgn_style = "txt_pgn_style";

inline constexpr char const *c_pnt_mngr_style = "pnt_mngr_style";
inline constexpr char const *c_pln_mngr_style = "pln_mngr_style";
inline constexpr char const *c_pgn_mngr_style = "pgn_mngr_style";
inline constexpr char const *c_clr_mngr_style = "clr_mngr_style";
inline constexpr char const *c_grid1d_clr_mngr_style = "grid1d_clr_mngr_style";
inline constexpr char const *c_pnt3d_mngr_style = "pnt3d_mngr_style";
inline constexpr char const *c_pln3d_mngr_style = "pln3d_mngr_style";
inline constexpr char const *c_pgn3d_mngr_style = "pgn3d_mngr_style";
inline constexpr char const *c_txt_pnt_mngr_style = "txt_pnt_mngr_style";
inline constexpr char const *c_txt_pln_mngr_style = "txt_pln_mngr_style";
inline constexpr char const *c_txt_pgn_mngr_style = "txt_pgn_mngr_style";

inline constexpr char const *c_pnt_figr_style_lr = "pnt_figr_slr";
inline constexpr char const *c_pnt_geom_style_lr = "pnt_geom_slr";
inline constexpr char const *c_pnt_symb_style_lr = "pnt_symb_slr";
inline constexpr char const *c_pnt_text_style_lr = "pnt_text_slr";
inline constexpr char const *c_pln_line_style_lr = "pln_line_slr";
inline constexpr char const *c_pln_tplt_style_lr = "pln_tplt_slr";
inline constexpr char const *c_pln_cart_style_lr = "pln_cart_slr";
inline constexpr char const *c_pgn_fill_style_lr = "pgn_fill_slr";
inline constexpr char const *c_pgn_htch_style_lr = "pgn_htch_slr";
inline constexpr char const *c_pgn_spot_style_lr = "pgn_spot_slr";

/// Kinds of geometry in legend tables.
inline constexpr int c_nil_legend_style_type = 0;
inline constexpr int c_pnt_legend_style_type = 1;
inline constexpr int c_pln_legend_style_type = 2;
inline constexpr int c_pgn_legend_style_type = 3;

/// Suffixes of files that hold one composed style.
inline constexpr wchar_t const *c_pnt_style_ext = L".s_p";
inline constexpr wchar_t const *c_pln_style_ext = L".s_l";
inline constexpr wchar_t const *c_pgn_style_ext = L".s_a";
