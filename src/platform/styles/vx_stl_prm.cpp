#include "platform/styles/vx_stl_prm.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::fields;
using namespace vx::styles;

namespace {
stl_prm *prm_of(void *prm)
{
    return static_cast<stl_prm *>(prm);
}
stl_prm const *prm_of(void const *prm)
{
    return static_cast<stl_prm const *>(prm);
}

template <class T>
T *part_of(void *prm, bool sel)
{
    return prm ? prm_of(prm)->edit<T>(variant_of(sel)) : nullptr;
}

txt_style *text_of(void *prm, bool sel, style_kind kind)
{
    return prm && prm_of(prm)->kind() == kind ? prm_of(prm)->edit<txt_style>(variant_of(sel)) : nullptr;
}
} // namespace

void *vx_stl_prm_create(char const *type)
{
    auto const kind = style_kind_of(type);
    return kind ? new stl_prm(*kind) : nullptr;
}

void *vx_stl_prm_clone(void const *stl_prm_ptr)
{
    return clone<stl_prm>(stl_prm_ptr);
}

void vx_stl_prm_destroy(void *stl_prm_ptr)
{
    destroy<stl_prm>(stl_prm_ptr);
}

void vx_stl_prm_assign(void *target, void const *source)
{
    assign<stl_prm>(target, source);
}

bool vx_stl_prm_equal(void const *a, void const *b)
{
    return equal<stl_prm>(a, b);
}

char const *vx_stl_prm_get_style_type(void const *prm)
{
    return prm ? style_key(prm_of(prm)->kind()) : nullptr;
}

Tvx_color vx_stl_prm_get_color(void const *prm, bool sel)
{
    return prm ? prm_of(prm)->read(variant_of(sel)).color() : Tvx_color{};
}

void vx_stl_prm_set_color(void *prm, bool sel, Tvx_color color)
{
    if (prm)
        prm_of(prm)->get(variant_of(sel)).set_color(color);
}

void vx_stl_prm_clr_set_all(void *prm, Tvx_color color, bool sel)
{
    if (prm)
        prm_of(prm)->get(variant_of(sel)).set_all_colors(color);
}

double vx_stl_prm_get_size(void const *prm, bool sel)
{
    return prm ? prm_of(prm)->read(variant_of(sel)).size() : 0;
}

void vx_stl_prm_set_size(void *prm, bool sel, double size)
{
    if (prm && is_valid(size))
        prm_of(prm)->get(variant_of(sel)).set_size(size);
}

void *vx_stl_prm_get_pnt_style_ptr(void *prm, bool sel)
{
    return part_of<pnt_style>(prm, sel);
}

void *vx_stl_prm_get_pln_style_ptr(void *prm, bool sel)
{
    return part_of<pln_style>(prm, sel);
}

void *vx_stl_prm_get_pgn_style_ptr(void *prm, bool sel)
{
    return part_of<pgn_style>(prm, sel);
}

void *vx_stl_prm_get_pnt3d_style_ptr(void *prm, bool sel)
{
    return part_of<pnt3d_style>(prm, sel);
}

void *vx_stl_prm_get_pln3d_style_ptr(void *prm, bool sel)
{
    return part_of<pln3d_style>(prm, sel);
}

void *vx_stl_prm_get_pgn3d_style_ptr(void *prm, bool sel)
{
    return part_of<pgn3d_style>(prm, sel);
}

Tvx_color *vx_stl_prm_get_clr_style_ptr(void *prm, bool sel)
{
    return part_of<Tvx_color>(prm, sel);
}

void *vx_stl_prm_get_txt_pnt_style_ptr(void *prm, bool sel)
{
    return text_of(prm, sel, style_kind::txt_pnt);
}

void *vx_stl_prm_get_txt_pln_style_ptr(void *prm, bool sel)
{
    return text_of(prm, sel, style_kind::txt_pln);
}

void *vx_stl_prm_get_txt_pgn_style_ptr(void *prm, bool sel)
{
    return text_of(prm, sel, style_kind::txt_pgn);
}
