#pragma once

#include "platform/base/export.h"

/// Captions by number, in the language of `vx_options_get_language`.
///
/// The texts lie in `resources/captions/<language>.txt`, one `number<TAB>text` line each, and are built into
/// the library, so a caption is found wherever the library stands. "\n" and "\t" in a text stand for the
/// characters; a number that the language lacks is taken from the English catalogue. An unknown number gives
/// "#<number>" in a debug build and the empty text in a release build.
///
/// The pointers are never null and stay valid until the process ends, also when the language changes. Numbers
/// by owner: 1 to 99 engine, 100 to 299 forms, 300 to 399 layer editor, 400 to 599 host and dialogs, above
/// that the editors.
[[nodiscard]] VX_API wchar_t const *vx_res_get_wstr(int number);
/// The same text in the system code page.
[[nodiscard]] VX_API char const *vx_res_get_str(int number);
/// True when some catalogue holds the number.
[[nodiscard]] VX_API bool vx_res_has(int number);

/// Help context of a help number. The help module keeps them equal; a number below 0 gives 0, no help.
[[nodiscard]] VX_API int vx_help_mngr_find_help_id(int number);
