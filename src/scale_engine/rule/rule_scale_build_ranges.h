#pragma once

#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"

#include <string>

namespace vx::task {
/// Turns the range scale of a manager into an equal rule scale: a rule for the min entry, for each range and
/// for the max entry, with their captions and styles. A bound belongs to the rule below it. Bounds are
/// written as the scale's round digits show them. What the rule scale held before is lost.
class VX_API rule_scale_build_ranges
{
public:
    explicit rule_scale_build_ranges(void *stl_mngr);
    /// False, with the rule scale as it was, when there is none or the manager names no field.
    [[nodiscard]] bool execute();
    [[nodiscard]] static bool build(void *stl_mngr);

private:
    void make_min_rule();
    void make_rule(unsigned range);
    void make_max_rule(unsigned index);
    void make_min_style();
    void make_style(unsigned range);
    void make_max_style(unsigned index);
    void make_other();
    void add(wchar_t const *relation, double bound, wchar_t const *logic);
    /// The filter becomes the text of a rule, and is empty again.
    void store(unsigned index);
    void set_entry(unsigned index, std::wstring const &caption, void const *scale_prm);

    void *f_rule_scale;
    void *f_rng_scale;
    std::wstring f_field;
    int f_digits;
    vx::owned<void, &vx_calc_filter_destroy> f_filter;
};
} // namespace vx::task
