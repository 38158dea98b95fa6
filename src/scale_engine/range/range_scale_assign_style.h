#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Gives the base styles of all rows of a range scale, the other entry among them, one free-standing composed
/// style. Rows of another style type stay as they are.
struct VX_API range_scale_assign_style
{
    static void execute_pnt(void *scale, void const *style);
    static void execute_pln(void *scale, void const *style);
    static void execute_pgn(void *scale, void const *style);
};
} // namespace vx::task
