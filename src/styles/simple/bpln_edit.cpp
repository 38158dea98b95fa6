#include "styles/simple/bpln_edit.h"

#include "captions/simple.h"
#include "styles/complex/edit_cpx_style.h"

#include "platform/styles/vx_base_style.h"

namespace {
constexpr int c_width_decimals = 2;
}

Tvx_bpln_edit::Tvx_bpln_edit(TComponent *owner)
    : Tvx_base_style_edit(owner, {{&vx_bpln_style_create, &vx_bpln_style_destroy, &vx_bpln_style_assign},
                                  &vx_bpln_style_get_color,
                                  &vx_bpln_style_set_color,
                                  &vx_bpln_style_get_use_complex,
                                  &vx_bpln_style_set_use_complex,
                                  &vx_bpln_style_get_complex_style,
                                  &vx_edit_cpx_pln_style,
                                  &vx_bpln_style_get_width,
                                  &vx_bpln_style_set_width,
                                  c_smp_width,
                                  c_width_decimals})
{
    add_common_rows();
}
