#include "platform/styles/vx_style.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::fields;
using namespace vx::styles;

void *vx_pnt_style_create()
{
    return new pnt_style;
}

void *vx_pnt_style_clone(void const *style)
{
    return clone<pnt_style>(style);
}

void vx_pnt_style_destroy(void *style)
{
    destroy<pnt_style>(style);
}

void vx_pnt_style_assign(void *target, void const *source)
{
    assign<pnt_style>(target, source);
}

bool vx_pnt_style_equal(void const *a, void const *b)
{
    return equal<pnt_style>(a, b);
}

void *vx_pnt_style_get_bpnt_style_ptr(void *style)
{
    return part(style, &pnt_style::bpnt);
}

bool vx_pnt_style_get_pnt_visible(void const *style)
{
    return get(style, &pnt_style::pnt_visible);
}

void vx_pnt_style_set_pnt_visible(void *style, bool value)
{
    set(style, &pnt_style::pnt_visible, value);
}

void *vx_pln_style_create()
{
    return new pln_style;
}

void *vx_pln_style_clone(void const *style)
{
    return clone<pln_style>(style);
}

void vx_pln_style_destroy(void *style)
{
    destroy<pln_style>(style);
}

void vx_pln_style_assign(void *target, void const *source)
{
    assign<pln_style>(target, source);
}

bool vx_pln_style_equal(void const *a, void const *b)
{
    return equal<pln_style>(a, b);
}

void *vx_pln_style_get_bpln_style_ptr(void *style)
{
    return part(style, &pln_style::bpln);
}

void *vx_pln_style_get_bpnt_style_ptr(void *style)
{
    return part(style, &pln_style::bpnt);
}

void *vx_pln_style_get_bend_style_ptr(void *style)
{
    return part(style, &pln_style::bend);
}

void *vx_pln_style_get_bbeg_style_ptr(void *style)
{
    return part(style, &pln_style::bbeg);
}

bool vx_pln_style_get_pln_visible(void const *style)
{
    return get(style, &pln_style::pln_visible);
}

void vx_pln_style_set_pln_visible(void *style, bool value)
{
    set(style, &pln_style::pln_visible, value);
}

bool vx_pln_style_get_pnt_visible(void const *style)
{
    return get(style, &pln_style::pnt_visible);
}

void vx_pln_style_set_pnt_visible(void *style, bool value)
{
    set(style, &pln_style::pnt_visible, value);
}

bool vx_pln_style_get_end_visible(void const *style)
{
    return get(style, &pln_style::end_visible);
}

void vx_pln_style_set_end_visible(void *style, bool value)
{
    set(style, &pln_style::end_visible, value);
}

bool vx_pln_style_get_beg_visible(void const *style)
{
    return get(style, &pln_style::beg_visible);
}

void vx_pln_style_set_beg_visible(void *style, bool value)
{
    set(style, &pln_style::beg_visible, value);
}

void *vx_pgn_style_create()
{
    return new pgn_style;
}

void *vx_pgn_style_clone(void const *style)
{
    return clone<pgn_style>(style);
}

void vx_pgn_style_destroy(void *style)
{
    destroy<pgn_style>(style);
}

void vx_pgn_style_assign(void *target, void const *source)
{
    assign<pgn_style>(target, source);
}

bool vx_pgn_style_equal(void const *a, void const *b)
{
    return equal<pgn_style>(a, b);
}

void *vx_pgn_style_get_bpgn_style_ptr(void *style)
{
    return part(style, &pgn_style::bpgn);
}

void *vx_pgn_style_get_bpln_style_ptr(void *style)
{
    return part(style, &pgn_style::bpln);
}

void *vx_pgn_style_get_bpnt_style_ptr(void *style)
{
    return part(style, &pgn_style::bpnt);
}

bool vx_pgn_style_get_pgn_visible(void const *style)
{
    return get(style, &pgn_style::pgn_visible);
}

void vx_pgn_style_set_pgn_visible(void *style, bool value)
{
    set(style, &pgn_style::pgn_visible, value);
}

bool vx_pgn_style_get_pln_visible(void const *style)
{
    return get(style, &pgn_style::pln_visible);
}

void vx_pgn_style_set_pln_visible(void *style, bool value)
{
    set(style, &pgn_style::pln_visible, value);
}

bool vx_pgn_style_get_pnt_visible(void const *style)
{
    return get(style, &pgn_style::pnt_visible);
}

void vx_pgn_style_set_pnt_visible(void *style, bool value)
{
    set(style, &pgn_style::pnt_visible, value);
}
