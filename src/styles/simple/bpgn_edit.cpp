#include "styles/simple/bpgn_edit.h"

#include "captions/simple.h"
#include "styles/complex/edit_cpx_style.h"

#include "platform/styles/vx_base_style.h"

Tvx_bpgn_edit::Tvx_bpgn_edit(TComponent *owner)
    : Tvx_base_style_edit(owner, {{&vx_bpgn_style_create, &vx_bpgn_style_destroy, &vx_bpgn_style_assign},
                                  &vx_bpgn_style_get_color,
                                  &vx_bpgn_style_set_color,
                                  &vx_bpgn_style_get_use_complex,
                                  &vx_bpgn_style_set_use_complex,
                                  &vx_bpgn_style_get_complex_style,
                                  &vx_edit_cpx_pgn_style})
{
    add_common_rows();
}
