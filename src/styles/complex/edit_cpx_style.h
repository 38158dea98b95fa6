#pragma once

#include "platform/base/export.h"

/// Edit a complex style of the kind that the name says in a modal dialog, on a copy: true when the user
/// accepted, and only then is `style` changed. False too for null and for a style of another kind.
[[nodiscard]] VX_API bool vx_edit_cpx_pnt_style(void *style);
[[nodiscard]] VX_API bool vx_edit_cpx_pln_style(void *style);
[[nodiscard]] VX_API bool vx_edit_cpx_pgn_style(void *style);
