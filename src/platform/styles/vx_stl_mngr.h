#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// A style manager decides how the objects of a layer are drawn. It holds one simple style, a value scale, a
/// range scale, a rule scale, and a mode that says which of the four is in force. All functions accept null
/// and then do nothing or give null, 0 or false.

/// Modes. 4 means that the manager is not edited here; larger values are kept as they are.
inline constexpr unsigned c_stl_mngr_mode_simple = 0;
inline constexpr unsigned c_stl_mngr_mode_value = 1;
inline constexpr unsigned c_stl_mngr_mode_range = 2;
inline constexpr unsigned c_stl_mngr_mode_rule = 3;
inline constexpr unsigned c_stl_mngr_mode_none = 4;

/// A manager for the style type `type`, a plain key ("pnt_style") or a manager key ("pnt_mngr_style"), in
/// simple mode with default styles and empty scales. Null for another key.
[[nodiscard]] VX_API void *vx_stl_mngr_create(char const *type);
[[nodiscard]] VX_API void *vx_stl_mngr_clone(void const *mngr);
VX_API void vx_stl_mngr_destroy(void *mngr);
/// Takes over everything from `source`, its style type included. Pointers into the target's scales and styles
/// end here.
VX_API void vx_stl_mngr_assign(void *target, void const *source);
/// Same type, mode, names, flags, styles and scales; marks and the active entries do not count.
[[nodiscard]] VX_API bool vx_stl_mngr_equal(void const *a, void const *b);

/// The plain key, such as "pnt_style", and the manager key, such as "pnt_mngr_style". Static text.
[[nodiscard]] VX_API char const *vx_stl_mngr_get_style_type(void const *mngr);
[[nodiscard]] VX_API char const *vx_stl_mngr_get_type(void const *mngr);

[[nodiscard]] VX_API unsigned vx_stl_mngr_get_mode(void const *mngr);
VX_API void vx_stl_mngr_set_mode(void *mngr, unsigned mode);

/// The `stl_prm` of the simple style, and the three scales; owned by the manager, never null for a live one.
[[nodiscard]] VX_API void *vx_stl_mngr_get_simple_sp_ptr(void *mngr);
[[nodiscard]] VX_API void *vx_stl_mngr_get_val_scale_ptr(void *mngr);
[[nodiscard]] VX_API void *vx_stl_mngr_get_rng_scale_ptr(void *mngr);
[[nodiscard]] VX_API void *vx_stl_mngr_get_rule_scale_ptr(void *mngr);

/// Name of the manager in a list of managers; may be empty.
VX_API void vx_stl_mngr_get_name_w(void const *mngr, Ivx_string_adp *adp);
VX_API void vx_stl_mngr_set_name_w(void *mngr, wchar_t const *name);

/// The property that the value scale classifies. The 8-bit text is in the system code page, belongs to the
/// manager and lives until the next call on it.
VX_API void vx_stl_mngr_get_val_prop_name_w(void const *mngr, Ivx_string_adp *adp);
[[nodiscard]] VX_API char const *vx_stl_mngr_get_val_prop_name(void const *mngr);
VX_API void vx_stl_mngr_set_val_prop_name_w(void *mngr, wchar_t const *name);
/// The property that the range scale classifies.
VX_API void vx_stl_mngr_get_rng_prop_name_w(void const *mngr, Ivx_string_adp *adp);
[[nodiscard]] VX_API char const *vx_stl_mngr_get_rng_prop_name(void const *mngr);
VX_API void vx_stl_mngr_set_rng_prop_name_w(void *mngr, wchar_t const *name);

/// The range scale still has to be filled from data.
[[nodiscard]] VX_API bool vx_stl_mngr_get_need_scale(void const *mngr);
VX_API void vx_stl_mngr_set_need_scale(void *mngr, bool need);
/// The scale was just read from outside and survives the next change of property.
[[nodiscard]] VX_API bool vx_stl_mngr_get_just_loaded(void const *mngr);
VX_API void vx_stl_mngr_set_just_loaded(void *mngr, bool loaded);

/// Rotation from a numeric property in degrees: of point symbols and line styles, of the spots and of the
/// hatches of polygon styles.
[[nodiscard]] VX_API bool vx_stl_mngr_get_rotate_flag(void const *mngr);
VX_API void vx_stl_mngr_set_rotate_flag(void *mngr, bool on);
[[nodiscard]] VX_API bool vx_stl_mngr_get_rotate_spot_flag(void const *mngr);
VX_API void vx_stl_mngr_set_rotate_spot_flag(void *mngr, bool on);
[[nodiscard]] VX_API bool vx_stl_mngr_get_rotate_hatch_flag(void const *mngr);
VX_API void vx_stl_mngr_set_rotate_hatch_flag(void *mngr, bool on);
VX_API void vx_stl_mngr_get_rotate_prop_name_w(void const *mngr, Ivx_string_adp *adp);
VX_API void vx_stl_mngr_set_rotate_prop_name(void *mngr, char const *name);
/// Zero position: 0 east, 1 north, 2 west, 3 south; other values are ignored.
[[nodiscard]] VX_API int vx_stl_mngr_get_rotate_start(void const *mngr);
VX_API void vx_stl_mngr_set_rotate_start(void *mngr, int start);
/// Turning direction: 0 counter-clockwise, 1 clockwise; other values are ignored.
[[nodiscard]] VX_API int vx_stl_mngr_get_rotate_dir(void const *mngr);
VX_API void vx_stl_mngr_set_rotate_dir(void *mngr, int dir);

/// Makes a text manager write the values of the column: one line with its name in the simple style. Managers
/// of other types are left alone.
VX_API void vx_txt_stl_mngr_init(void *mngr, wchar_t const *column_name);
/// Sets the mode of a colour manager; managers of other types are left alone.
VX_API void vx_clr_stl_mngr_set_style_mngr_mode(void *mngr, unsigned mode);
