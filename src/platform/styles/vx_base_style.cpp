#include "platform/styles/vx_base_style.h"

#include "platform/styles/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::styles;

VX_LIFE(vx_bpnt_style, bpnt_style)
VX_FIELD(vx_bpnt_style, bpnt_style, use_figure, bool)
VX_FIELD(vx_bpnt_style, bpnt_style, figure, int)
VX_FIELD(vx_bpnt_style, bpnt_style, symbol, unsigned)
VX_FIELD(vx_bpnt_style, bpnt_style, color, Tvx_color)
VX_FIELD(vx_bpnt_style, bpnt_style, size, double)
VX_FIELD(vx_bpnt_style, bpnt_style, use_complex, bool)

vx_fnt_type *vx_bpnt_style_get_fnt_type_ptr(void *style)
{
    return style ? &static_cast<bpnt_style *>(style)->font : nullptr;
}

void vx_bpnt_style_set_fnt_type(void *style, vx_fnt_type const *font)
{
    vx_fnt_type_assign(vx_bpnt_style_get_fnt_type_ptr(style), font);
}

void *vx_bpnt_style_get_complex_style(void *style)
{
    return style ? &static_cast<bpnt_style *>(style)->complex.get() : nullptr;
}

VX_LIFE(vx_bpln_style, bpln_style)
VX_FIELD(vx_bpln_style, bpln_style, color, Tvx_color)
VX_FIELD(vx_bpln_style, bpln_style, width, double)
VX_FIELD(vx_bpln_style, bpln_style, use_complex, bool)

void *vx_bpln_style_get_complex_style(void *style)
{
    return style ? &static_cast<bpln_style *>(style)->complex.get() : nullptr;
}

VX_LIFE(vx_bpgn_style, bpgn_style)
VX_FIELD(vx_bpgn_style, bpgn_style, color, Tvx_color)
VX_FIELD(vx_bpgn_style, bpgn_style, use_complex, bool)

void *vx_bpgn_style_get_complex_style(void *style)
{
    return style ? &static_cast<bpgn_style *>(style)->complex.get() : nullptr;
}
