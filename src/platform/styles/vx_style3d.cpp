#include "platform/styles/vx_style3d.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::fields;
using namespace vx::styles;

void *vx_bpnt3d_style_create()
{
    return new bpnt3d_style;
}

void *vx_bpnt3d_style_clone(void const *style)
{
    return clone<bpnt3d_style>(style);
}

void vx_bpnt3d_style_destroy(void *style)
{
    destroy<bpnt3d_style>(style);
}

void vx_bpnt3d_style_assign(void *target, void const *source)
{
    assign<bpnt3d_style>(target, source);
}

bool vx_bpnt3d_style_equal(void const *a, void const *b)
{
    return equal<bpnt3d_style>(a, b);
}

Tvx_color vx_bpnt3d_style_get_color(void const *style)
{
    return get(style, &bpnt3d_style::color);
}

void vx_bpnt3d_style_set_color(void *style, Tvx_color value)
{
    set(style, &bpnt3d_style::color, value);
}

double vx_bpnt3d_style_get_size(void const *style)
{
    return get(style, &bpnt3d_style::size);
}

void vx_bpnt3d_style_set_size(void *style, double value)
{
    set(style, &bpnt3d_style::size, value);
}

void *vx_bpln3d_style_create()
{
    return new bpln3d_style;
}

void *vx_bpln3d_style_clone(void const *style)
{
    return clone<bpln3d_style>(style);
}

void vx_bpln3d_style_destroy(void *style)
{
    destroy<bpln3d_style>(style);
}

void vx_bpln3d_style_assign(void *target, void const *source)
{
    assign<bpln3d_style>(target, source);
}

bool vx_bpln3d_style_equal(void const *a, void const *b)
{
    return equal<bpln3d_style>(a, b);
}

Tvx_color vx_bpln3d_style_get_color(void const *style)
{
    return get(style, &bpln3d_style::color);
}

void vx_bpln3d_style_set_color(void *style, Tvx_color value)
{
    set(style, &bpln3d_style::color, value);
}

double vx_bpln3d_style_get_width(void const *style)
{
    return get(style, &bpln3d_style::width);
}

void vx_bpln3d_style_set_width(void *style, double value)
{
    set(style, &bpln3d_style::width, value);
}

void *vx_bpgn3d_style_create()
{
    return new bpgn3d_style;
}

void *vx_bpgn3d_style_clone(void const *style)
{
    return clone<bpgn3d_style>(style);
}

void vx_bpgn3d_style_destroy(void *style)
{
    destroy<bpgn3d_style>(style);
}

void vx_bpgn3d_style_assign(void *target, void const *source)
{
    assign<bpgn3d_style>(target, source);
}

bool vx_bpgn3d_style_equal(void const *a, void const *b)
{
    return equal<bpgn3d_style>(a, b);
}

Tvx_color vx_bpgn3d_style_get_color(void const *style)
{
    return get(style, &bpgn3d_style::color);
}

void vx_bpgn3d_style_set_color(void *style, Tvx_color value)
{
    set(style, &bpgn3d_style::color, value);
}

void *vx_pnt3d_style_create()
{
    return new pnt3d_style;
}

void *vx_pnt3d_style_clone(void const *style)
{
    return clone<pnt3d_style>(style);
}

void vx_pnt3d_style_destroy(void *style)
{
    destroy<pnt3d_style>(style);
}

void vx_pnt3d_style_assign(void *target, void const *source)
{
    assign<pnt3d_style>(target, source);
}

bool vx_pnt3d_style_equal(void const *a, void const *b)
{
    return equal<pnt3d_style>(a, b);
}

void *vx_pnt3d_style_get_bpnt3d_style_ptr(void *style)
{
    return part(style, &pnt3d_style::bpnt3d);
}

bool vx_pnt3d_style_get_pnt_visible(void const *style)
{
    return get(style, &pnt3d_style::pnt_visible);
}

void vx_pnt3d_style_set_pnt_visible(void *style, bool value)
{
    set(style, &pnt3d_style::pnt_visible, value);
}

void *vx_pln3d_style_create()
{
    return new pln3d_style;
}

void *vx_pln3d_style_clone(void const *style)
{
    return clone<pln3d_style>(style);
}

void vx_pln3d_style_destroy(void *style)
{
    destroy<pln3d_style>(style);
}

void vx_pln3d_style_assign(void *target, void const *source)
{
    assign<pln3d_style>(target, source);
}

bool vx_pln3d_style_equal(void const *a, void const *b)
{
    return equal<pln3d_style>(a, b);
}

void *vx_pln3d_style_get_bpln3d_style_ptr(void *style)
{
    return part(style, &pln3d_style::bpln3d);
}

void *vx_pln3d_style_get_bpnt3d_style_ptr(void *style)
{
    return part(style, &pln3d_style::bpnt3d);
}

bool vx_pln3d_style_get_pln_visible(void const *style)
{
    return get(style, &pln3d_style::pln_visible);
}

void vx_pln3d_style_set_pln_visible(void *style, bool value)
{
    set(style, &pln3d_style::pln_visible, value);
}

bool vx_pln3d_style_get_pnt_visible(void const *style)
{
    return get(style, &pln3d_style::pnt_visible);
}

void vx_pln3d_style_set_pnt_visible(void *style, bool value)
{
    set(style, &pln3d_style::pnt_visible, value);
}

void *vx_pgn3d_style_create()
{
    return new pgn3d_style;
}

void *vx_pgn3d_style_clone(void const *style)
{
    return clone<pgn3d_style>(style);
}

void vx_pgn3d_style_destroy(void *style)
{
    destroy<pgn3d_style>(style);
}

void vx_pgn3d_style_assign(void *target, void const *source)
{
    assign<pgn3d_style>(target, source);
}

bool vx_pgn3d_style_equal(void const *a, void const *b)
{
    return equal<pgn3d_style>(a, b);
}

void *vx_pgn3d_style_get_bpgn3d_style_ptr(void *style)
{
    return part(style, &pgn3d_style::bpgn3d);
}

void *vx_pgn3d_style_get_bpln3d_style_ptr(void *style)
{
    return part(style, &pgn3d_style::bpln3d);
}

void *vx_pgn3d_style_get_bpnt3d_style_ptr(void *style)
{
    return part(style, &pgn3d_style::bpnt3d);
}

bool vx_pgn3d_style_get_pgn_visible(void const *style)
{
    return get(style, &pgn3d_style::pgn_visible);
}

void vx_pgn3d_style_set_pgn_visible(void *style, bool value)
{
    set(style, &pgn3d_style::pgn_visible, value);
}

bool vx_pgn3d_style_get_pln_visible(void const *style)
{
    return get(style, &pgn3d_style::pln_visible);
}

void vx_pgn3d_style_set_pln_visible(void *style, bool value)
{
    set(style, &pgn3d_style::pln_visible, value);
}

bool vx_pgn3d_style_get_pnt_visible(void const *style)
{
    return get(style, &pgn3d_style::pnt_visible);
}

void vx_pgn3d_style_set_pnt_visible(void *style, bool value)
{
    set(style, &pgn3d_style::pnt_visible, value);
}
