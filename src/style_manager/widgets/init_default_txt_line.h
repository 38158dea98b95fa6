#pragma once

#include "platform/base/export.h"

/// Gives text styles that have no line yet their first one, so that a text scale labels objects by its own
/// property. Styles of other types and styles with lines are left alone; null is accepted.
class VX_API Tvx_init_default_txt_line
{
public:
    /// Every entry of a value scale, then the other entry.
    static void execute_val(void *scale, wchar_t const *name);
    /// Every range, then the other, the min and the max entry.
    static void execute_rng(void *scale, wchar_t const *name);
    static void init_stl_prm_default_txt(void *stl_prm, wchar_t const *name);
};
