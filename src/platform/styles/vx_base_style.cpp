#include "platform/styles/vx_base_style.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::fields;
using namespace vx::styles;

void *vx_bpnt_style_create()
{
    return new bpnt_style;
}

void *vx_bpnt_style_clone(void const *style)
{
    return clone<bpnt_style>(style);
}

void vx_bpnt_style_destroy(void *style)
{
    destroy<bpnt_style>(style);
}

void vx_bpnt_style_assign(void *target, void const *source)
{
    assign<bpnt_style>(target, source);
}

bool vx_bpnt_style_equal(void const *a, void const *b)
{
    return equal<bpnt_style>(a, b);
}

bool vx_bpnt_style_get_use_figure(void const *style)
{
    return get(style, &bpnt_style::use_figure);
}

void vx_bpnt_style_set_use_figure(void *style, bool value)
{
    set(style, &bpnt_style::use_figure, value);
}

int vx_bpnt_style_get_figure(void const *style)
{
    return get(style, &bpnt_style::figure);
}

void vx_bpnt_style_set_figure(void *style, int value)
{
    set(style, &bpnt_style::figure, value);
}

unsigned vx_bpnt_style_get_symbol(void const *style)
{
    return get(style, &bpnt_style::symbol);
}

void vx_bpnt_style_set_symbol(void *style, unsigned value)
{
    set(style, &bpnt_style::symbol, value);
}

Tvx_color vx_bpnt_style_get_color(void const *style)
{
    return get(style, &bpnt_style::color);
}

void vx_bpnt_style_set_color(void *style, Tvx_color value)
{
    set(style, &bpnt_style::color, value);
}

double vx_bpnt_style_get_size(void const *style)
{
    return get(style, &bpnt_style::size);
}

void vx_bpnt_style_set_size(void *style, double value)
{
    set(style, &bpnt_style::size, value);
}

bool vx_bpnt_style_get_use_complex(void const *style)
{
    return get(style, &bpnt_style::use_complex);
}

void vx_bpnt_style_set_use_complex(void *style, bool value)
{
    set(style, &bpnt_style::use_complex, value);
}

vx_fnt_type *vx_bpnt_style_get_fnt_type_ptr(void *style)
{
    return part(style, &bpnt_style::font);
}

void vx_bpnt_style_set_fnt_type(void *style, vx_fnt_type const *font)
{
    vx_fnt_type_assign(vx_bpnt_style_get_fnt_type_ptr(style), font);
}

void *vx_bpnt_style_get_complex_style(void *style)
{
    return style_in(part(style, &bpnt_style::complex));
}

void *vx_bpln_style_create()
{
    return new bpln_style;
}

void *vx_bpln_style_clone(void const *style)
{
    return clone<bpln_style>(style);
}

void vx_bpln_style_destroy(void *style)
{
    destroy<bpln_style>(style);
}

void vx_bpln_style_assign(void *target, void const *source)
{
    assign<bpln_style>(target, source);
}

bool vx_bpln_style_equal(void const *a, void const *b)
{
    return equal<bpln_style>(a, b);
}

Tvx_color vx_bpln_style_get_color(void const *style)
{
    return get(style, &bpln_style::color);
}

void vx_bpln_style_set_color(void *style, Tvx_color value)
{
    set(style, &bpln_style::color, value);
}

double vx_bpln_style_get_width(void const *style)
{
    return get(style, &bpln_style::width);
}

void vx_bpln_style_set_width(void *style, double value)
{
    set(style, &bpln_style::width, value);
}

bool vx_bpln_style_get_use_complex(void const *style)
{
    return get(style, &bpln_style::use_complex);
}

void vx_bpln_style_set_use_complex(void *style, bool value)
{
    set(style, &bpln_style::use_complex, value);
}

void *vx_bpln_style_get_complex_style(void *style)
{
    return style_in(part(style, &bpln_style::complex));
}

void *vx_bpgn_style_create()
{
    return new bpgn_style;
}

void *vx_bpgn_style_clone(void const *style)
{
    return clone<bpgn_style>(style);
}

void vx_bpgn_style_destroy(void *style)
{
    destroy<bpgn_style>(style);
}

void vx_bpgn_style_assign(void *target, void const *source)
{
    assign<bpgn_style>(target, source);
}

bool vx_bpgn_style_equal(void const *a, void const *b)
{
    return equal<bpgn_style>(a, b);
}

Tvx_color vx_bpgn_style_get_color(void const *style)
{
    return get(style, &bpgn_style::color);
}

void vx_bpgn_style_set_color(void *style, Tvx_color value)
{
    set(style, &bpgn_style::color, value);
}

bool vx_bpgn_style_get_use_complex(void const *style)
{
    return get(style, &bpgn_style::use_complex);
}

void vx_bpgn_style_set_use_complex(void *style, bool value)
{
    set(style, &bpgn_style::use_complex, value);
}

void *vx_bpgn_style_get_complex_style(void *style)
{
    return style_in(part(style, &bpgn_style::complex));
}
