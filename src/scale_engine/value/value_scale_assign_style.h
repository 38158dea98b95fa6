#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Gives the base styles of all entries of a value scale, the other entry among them, one free-standing
/// composed style. Entries of another style type stay as they are.
struct VX_API value_scale_assign_style
{
    static void execute_pnt(void *scale, void const *style);
    static void execute_pln(void *scale, void const *style);
    static void execute_pgn(void *scale, void const *style);
};
} // namespace vx::task
