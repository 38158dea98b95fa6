#pragma once

#include "platform/base/export.h"

namespace vx::task::detail {
/// Copies a free-standing composed style into the base style of scale parameters. Nothing happens when the
/// parameters are of another style type, or either is null.
struct VX_API scale_prm
{
    static void assign_pnt_style(void *scale_prm, void const *style);
    static void assign_pln_style(void *scale_prm, void const *style);
    static void assign_pgn_style(void *scale_prm, void const *style);
};
} // namespace vx::task::detail
