#pragma once

#include "platform/base/export.h"

/// Whether there is an editor of complex styles.
[[nodiscard]] VX_API bool vx_cpx_style_editor_exists();

/// Edit a complex style of the kind that the name says in a modal dialog, on a copy: true when the user
/// accepted, and only then is `style` changed. False too where there is no editor for it.
[[nodiscard]] VX_API bool vx_edit_cpx_pnt_style(void *style);
[[nodiscard]] VX_API bool vx_edit_cpx_pln_style(void *style);
[[nodiscard]] VX_API bool vx_edit_cpx_pgn_style(void *style);
