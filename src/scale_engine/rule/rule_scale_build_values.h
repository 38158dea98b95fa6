#pragma once

#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"

#include <string>

namespace vx::task {
/// Turns the value scale of a manager into an equal rule scale: one rule for each entry, with its caption and
/// style. What the rule scale held before is lost.
class VX_API rule_scale_build_values
{
public:
    explicit rule_scale_build_values(void *stl_mngr);
    /// False, with the rule scale as it was, when there is none or the manager names no field.
    [[nodiscard]] bool execute();
    [[nodiscard]] static bool build(void *stl_mngr);

private:
    void make_rule(unsigned index);
    void make_style(unsigned index);
    void make_other();

    void *f_rule_scale;
    void *f_val_scale;
    std::wstring f_field;
    vx::owned<void, &vx_calc_filter_destroy> f_filter;
};
} // namespace vx::task
