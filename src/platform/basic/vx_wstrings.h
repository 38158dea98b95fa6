#pragma once

#include "platform/base/export.h"

/// A list of wide strings. All functions accept null; null text counts as the empty one.
[[nodiscard]] VX_API void *vx_wstrings_create();
VX_API void vx_wstrings_destroy(void *strings);
VX_API void vx_wstrings_clear(void *strings);
[[nodiscard]] VX_API unsigned vx_wstrings_get_size(void const *strings);
VX_API void vx_wstrings_add(void *strings, wchar_t const *text);
/// The string at `index`, "" outside the list; good until the list changes.
[[nodiscard]] VX_API wchar_t const *vx_wstrings_get_str(void const *strings, unsigned index);
VX_API void vx_wstrings_set_str(void *strings, unsigned index, wchar_t const *text);
/// Appends the parts of `text` between separators; empty parts count, an empty text has none.
VX_API void vx_wstrings_split_str(void *strings, wchar_t const *text, wchar_t separator);
