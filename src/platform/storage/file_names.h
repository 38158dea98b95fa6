#pragma once

/// Suffixes and names of the files that hold scales and the user's palettes. (Those of single styles stand in
/// platform/styles/vx_style_keys.h.)
inline constexpr wchar_t const *c_val_scale_ext = L"._vl";
inline constexpr wchar_t const *c_rng_scale_ext = L"._rg";
inline constexpr wchar_t const *c_rule_scale_ext = L"._rl";
inline constexpr wchar_t const *c_clr_palettes_basename = L"user_palettes";
inline constexpr wchar_t const *c_clr_palettes_ext = L".clrs";
/// A map legend; named here so that all suffixes stand together, written by nobody yet.
inline constexpr wchar_t const *c_mapleg_ext = L"._leg";
inline constexpr wchar_t const *c_mapleg_type = L"mapleg_type";
/// A library of ready-made styles.
inline constexpr wchar_t const *c_style_lib_ext = L".slib";
