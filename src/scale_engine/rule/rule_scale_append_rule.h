#pragma once

#include "platform/base/export.h"

namespace vx::task {
/// Single rules of a rule scale and the filters (`vx_calc_filter_create`) that they hold as text.
struct VX_API rule_scale_append_rule
{
    /// A new rule with the filter as text and, printed for people, as caption: behind the active entry, or at
    /// the end when none is active. Gives its index.
    static int execute(void const *filter, void *scale);
};

struct VX_API rule_scale_edit_rule
{
    /// Loads a rule into the filter, which an empty rule leaves as it is.
    static void init(void *filter, void const *scale, unsigned index);
    /// Stores the filter into the rule, which keeps its caption.
    static void execute(void const *filter, void *scale, unsigned index);
};
} // namespace vx::task
