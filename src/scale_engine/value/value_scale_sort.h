#pragma once

#include "scale_engine/model/scale_sort_types.h"

#include "platform/base/export.h"

namespace vx::task {
/// Sorts the entries of a value or rule scale by text or caption, each with its style.
class VX_API value_scale_sort
{
public:
    value_scale_sort(scale_sortby by, scale_sortas as, scale_sortord order = scale_sortord::ascending);
    void execute(void *scale) const;
    /// The order alone, in a list of `vx_ints_create`: for each new place the old index. Empty when entries
    /// do not have what they are to be sorted by.
    void execute(void const *scale, void *ints) const;

private:
    scale_sortby f_by;
    scale_sortas f_as;
    scale_sortord f_order;
};
} // namespace vx::task
