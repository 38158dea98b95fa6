#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// The style libraries of the process, one list (vx_style_lib.h). They are read once, by the loader that the
/// storage sets, when something first asks for them, and stay until the loader is set again: pointers into
/// them stay good. Main thread only.

/// Reads the libraries unless they are there; true if there is at least one. A failed reading is tried again.
[[nodiscard]] VX_API bool vx_global_lib_styles_load();
/// Whether there is a library. A reading that failed before is not tried again.
[[nodiscard]] VX_API bool vx_global_lib_styles_exists();
/// What could not be read at the last reading, a sentence in a line of its own for each, empty for nothing.
/// It is told once: a second call gives nothing.
VX_API void vx_global_lib_styles_take_faults(Ivx_string_adp *adp);
/// The list of libraries; never null.
[[nodiscard]] VX_API void *vx_global_lib_styles_get_libs();
/// The names of the libraries as a list of wide strings, which the caller ends with `vx_wstrings_destroy`.
[[nodiscard]] VX_API void *vx_global_lib_styles_create_name_list();

/// Copy the first style of the index `code` in library `lib` into `style`, a composed style of the kind that
/// the name says; false and no change if there is none.
[[nodiscard]] VX_API bool vx_global_lib_styles_get_spec_pnt(int lib, int code, void *style);
[[nodiscard]] VX_API bool vx_global_lib_styles_get_spec_pln(int lib, int code, void *style);
[[nodiscard]] VX_API bool vx_global_lib_styles_get_spec_pgn(int lib, int code, void *style);
/// The same as step `position`, from 0, of a gradient of `count` steps, which look equally far apart. The
/// colours are those that the library gives for the style; where it gives none, the leading colour runs from
/// a pale tint over itself to a deep shade, or is an end itself if it is light or dark enough. The opacity
/// stays. A position past the end is the last step; with less than two steps the style comes as it is.
[[nodiscard]] VX_API bool vx_global_lib_styles_get_spec_pnt_gradient(int lib, int code, unsigned position,
                                                                     unsigned count, void *style);
[[nodiscard]] VX_API bool vx_global_lib_styles_get_spec_pln_gradient(int lib, int code, unsigned position,
                                                                     unsigned count, void *style);
[[nodiscard]] VX_API bool vx_global_lib_styles_get_spec_pgn_gradient(int lib, int code, unsigned position,
                                                                     unsigned count, void *style);
/// The first item of the library's tree that names a style of this index, null if there is none.
[[nodiscard]] VX_API void *vx_global_lib_styles_get_spec_style_item(int lib, int code);

/// Fills an empty list; false if it cannot, and whatever it has put there then counts as not read.
using Tvx_style_libs_loader = bool (*)(void *libs);
/// Ends the libraries read so far. Gives the former loader.
VX_API Tvx_style_libs_loader vx_global_lib_styles_set_loader(Tvx_style_libs_loader loader);
