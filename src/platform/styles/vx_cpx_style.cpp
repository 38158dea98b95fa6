#include "platform/styles/vx_cpx_style.h"

#include "platform/styles/detail/cpx_model.h"
#include "platform/styles/detail/fields.h"

#include <algorithm>

using namespace vx::styles;

namespace {
cpx_style *style_of(void *style)
{
    return static_cast<cpx_style *>(style);
}
cpx_style const *style_of(void const *style)
{
    return static_cast<cpx_style const *>(style);
}

/// The layer's parameters if it is of this key.
template <class T>
T *layer_of(void *layer)
{
    return layer ? std::get_if<T>(&static_cast<style_lr *>(layer)->data) : nullptr;
}
template <class T>
T const *layer_of(void const *layer)
{
    return layer ? std::get_if<T>(&static_cast<style_lr const *>(layer)->data) : nullptr;
}
} // namespace

#define VX_CPX_LIFE(kind)                                                                                    \
    void *vx_cpx_##kind##_style_create()                                                                     \
    {                                                                                                        \
        return new cpx_style(style_kind::kind);                                                              \
    }                                                                                                        \
    void vx_cpx_##kind##_style_destroy(void *style)                                                          \
    {                                                                                                        \
        delete style_of(style);                                                                              \
    }
VX_CPX_LIFE(pnt)
VX_CPX_LIFE(pln)
VX_CPX_LIFE(pgn)

void vx_cpx_style_assign(void *target, void const *source)
{
    if (target && source)
        *style_of(target) = *style_of(source);
}

bool vx_cpx_style_equal(void const *a, void const *b)
{
    return a == b || (a && b && *style_of(a) == *style_of(b));
}

char const *vx_cpx_style_get_type(void const *style)
{
    return style ? style_key(style_of(style)->kind) : nullptr;
}

// The list of layers is the style itself.
void *vx_cpx_style_get_style_lrs_ptr(void *style)
{
    return style;
}

unsigned vx_style_lrs_get_size(void const *list)
{
    return list ? static_cast<unsigned>(style_of(list)->lrs.size()) : 0;
}

void *vx_style_lrs_get_lr_ptr(void *list, unsigned index)
{
    return index < vx_style_lrs_get_size(list) ? style_of(list)->lrs[index].get() : nullptr;
}

void *vx_style_lrs_add_lr(void *list, char const *key)
{
    auto lr = list ? style_lr::create(key) : nullptr;
    if (!lr || lr->holder_kind() != style_of(list)->kind)
        return nullptr;
    return style_of(list)->lrs.emplace_back(std::move(lr)).get();
}

void vx_style_lrs_del_lr(void *list, unsigned index)
{
    if (index < vx_style_lrs_get_size(list))
        style_of(list)->lrs.erase(style_of(list)->lrs.begin() + index);
}

void vx_style_lrs_move_lr(void *list, unsigned from, unsigned to)
{
    unsigned const size = vx_style_lrs_get_size(list);
    if (from >= size || to >= size || from == to)
        return;
    auto &lrs = style_of(list)->lrs;
    auto lr = std::move(lrs[from]);
    lrs.erase(lrs.begin() + from);
    lrs.insert(lrs.begin() + to, std::move(lr));
}

char const *vx_style_lr_get_type(void const *layer)
{
    return layer ? static_cast<style_lr const *>(layer)->key() : nullptr;
}

void vx_style_lr_assign(void *target, void const *source)
{
    if (!target || !source || target == source)
        return;
    auto &to = static_cast<style_lr *>(target)->data;
    auto const &from = static_cast<style_lr const *>(source)->data;
    if (to.index() == from.index())
        to = from;
}

bool vx_style_lr_equal(void const *a, void const *b)
{
    return a == b || (a && b && *static_cast<style_lr const *>(a) == *static_cast<style_lr const *>(b));
}

#define VX_LAYER_FIELD(kind, name, field, type)                                                              \
    type vx_##kind##_lr_get_##name(void const *layer)                                                        \
    {                                                                                                        \
        auto const *lr = layer_of<kind##_lr>(layer);                                                         \
        return lr ? lr->field : type{};                                                                      \
    }                                                                                                        \
    void vx_##kind##_lr_set_##name(void *layer, type value)                                                  \
    {                                                                                                        \
        auto *lr = layer_of<kind##_lr>(layer);                                                               \
        if (lr && is_valid(value))                                                                           \
            lr->field = value;                                                                               \
    }
#define VX_LAYER_NESTED(kind, name)                                                                          \
    void *vx_##kind##_lr_get_##name##_style_ptr(void *layer)                                                 \
    {                                                                                                        \
        auto *lr = layer_of<kind##_lr>(layer);                                                               \
        return lr ? &lr->name.get() : nullptr;                                                               \
    }

vx_fnt_type *vx_pnt_symb_lr_get_fnt_type_ptr(void *layer)
{
    auto *lr = layer_of<pnt_symb_lr>(layer);
    return lr ? &lr->font : nullptr;
}

VX_LAYER_FIELD(pnt_symb, symbol, symbol, unsigned)
VX_LAYER_FIELD(pnt_symb, color, color, Tvx_color)
VX_LAYER_FIELD(pnt_symb, size, size, double)
VX_LAYER_FIELD(pnt_symb, dx, dx, double)
VX_LAYER_FIELD(pnt_symb, dy, dy, double)
VX_LAYER_FIELD(pnt_symb, angle, angle, double)

VX_LAYER_FIELD(pnt_figr, lr_figure, figure, int)
VX_LAYER_FIELD(pnt_figr, color, color, Tvx_color)
VX_LAYER_FIELD(pnt_figr, size_x, size_x, double)
VX_LAYER_FIELD(pnt_figr, size_y, size_y, double)
VX_LAYER_FIELD(pnt_figr, dx, dx, double)
VX_LAYER_FIELD(pnt_figr, dy, dy, double)
VX_LAYER_FIELD(pnt_figr, angle, angle, double)
VX_LAYER_FIELD(pnt_figr, line_width, line_width, double)

VX_LAYER_FIELD(pnt_geom, fill, fill, bool)
VX_LAYER_FIELD(pnt_geom, color, color, Tvx_color)
VX_LAYER_FIELD(pnt_geom, size, size, double)
VX_LAYER_FIELD(pnt_geom, dx, dx, double)
VX_LAYER_FIELD(pnt_geom, dy, dy, double)
VX_LAYER_FIELD(pnt_geom, angle, angle, double)
VX_LAYER_FIELD(pnt_geom, line_width, line_width, double)

unsigned vx_pnt_geom_lr_get_part_count(void const *layer)
{
    auto const *lr = layer_of<pnt_geom_lr>(layer);
    return lr ? static_cast<unsigned>(lr->parts.size()) : 0;
}

unsigned vx_pnt_geom_lr_get_vertex_count(void const *layer, unsigned part)
{
    if (part >= vx_pnt_geom_lr_get_part_count(layer))
        return 0;
    return static_cast<unsigned>(layer_of<pnt_geom_lr>(layer)->parts[part].size());
}

Tvx_pnt_d2 vx_pnt_geom_lr_get_vertex(void const *layer, unsigned part, unsigned index)
{
    if (index >= vx_pnt_geom_lr_get_vertex_count(layer, part))
        return {};
    return layer_of<pnt_geom_lr>(layer)->parts[part][index];
}

void vx_pnt_geom_lr_add_part(void *layer, Tvx_pnt_d2 const *vertices, unsigned count)
{
    auto *lr = layer_of<pnt_geom_lr>(layer);
    if (lr && vertices && std::all_of(vertices, vertices + count, [](Tvx_pnt_d2 const &v) {
            return std::isfinite(v.x) && std::isfinite(v.y);
        }))
        lr->parts.emplace_back(vertices, vertices + count);
}

void vx_pnt_geom_lr_clear(void *layer)
{
    if (auto *lr = layer_of<pnt_geom_lr>(layer))
        lr->parts.clear();
}

vx_fnt_type *vx_pnt_text_lr_get_fnt_type_ptr(void *layer)
{
    auto *lr = layer_of<pnt_text_lr>(layer);
    return lr ? &lr->font : nullptr;
}

VX_LAYER_FIELD(pnt_text, color, color, Tvx_color)
VX_LAYER_FIELD(pnt_text, size, size, double)
VX_LAYER_FIELD(pnt_text, dx, dx, double)
VX_LAYER_FIELD(pnt_text, dy, dy, double)
VX_LAYER_FIELD(pnt_text, angle, angle, double)

void vx_pnt_text_lr_get_text_w(void const *layer, Ivx_string_adp *adp)
{
    auto const *lr = layer_of<pnt_text_lr>(layer);
    vx_string_adp_feed(adp, lr ? lr->text.c_str() : L"");
}

void vx_pnt_text_lr_set_text_w(void *layer, wchar_t const *text)
{
    if (auto *lr = layer_of<pnt_text_lr>(layer))
        lr->text = text ? text : L"";
}

VX_LAYER_FIELD(pln_line, color, color, Tvx_color)
VX_LAYER_FIELD(pln_line, width, width, double)
VX_LAYER_FIELD(pln_line, delta, delta, double)

VX_LAYER_FIELD(pln_tplt, color, color, Tvx_color)
VX_LAYER_FIELD(pln_tplt, width, width, double)
VX_LAYER_FIELD(pln_tplt, dash, dash, double)
VX_LAYER_FIELD(pln_tplt, gap, gap, double)
VX_LAYER_FIELD(pln_tplt, shift, shift, double)
VX_LAYER_FIELD(pln_tplt, delta, delta, double)
VX_LAYER_NESTED(pln_tplt, cpx_pnt)

char const *vx_pln_tplt_lr_get_template(void const *layer)
{
    auto const *lr = layer_of<pln_tplt_lr>(layer);
    return lr ? lr->tplt.c_str() : "";
}

void vx_pln_tplt_lr_set_template(void *layer, char const *text)
{
    if (auto *lr = layer_of<pln_tplt_lr>(layer))
        lr->tplt = text ? text : "";
}

VX_LAYER_FIELD(pln_cart, color, color, Tvx_color)
VX_LAYER_FIELD(pln_cart, width, width, double)
VX_LAYER_FIELD(pln_cart, delta, delta, double)
VX_LAYER_FIELD(pln_cart, cap, cap, int)
VX_LAYER_FIELD(pln_cart, join, join, int)
VX_LAYER_FIELD(pln_cart, casing_width, casing_width, double)
VX_LAYER_FIELD(pln_cart, casing_color, casing_color, Tvx_color)

unsigned vx_pln_cart_lr_get_dash_count(void const *layer)
{
    auto const *lr = layer_of<pln_cart_lr>(layer);
    return lr ? static_cast<unsigned>(lr->dashes.size()) : 0;
}

double vx_pln_cart_lr_get_dash(void const *layer, unsigned index)
{
    return index < vx_pln_cart_lr_get_dash_count(layer) ? layer_of<pln_cart_lr>(layer)->dashes[index] : 0;
}

void vx_pln_cart_lr_set_dashes(void *layer, double const *lengths, unsigned count)
{
    auto *lr = layer_of<pln_cart_lr>(layer);
    if (!lr || (count && !lengths))
        return;
    if (std::all_of(lengths, lengths + count, [](double v) { return std::isfinite(v) && v >= 0; }))
        lr->dashes.assign(lengths, lengths + count);
}

VX_LAYER_FIELD(pgn_fill, color, color, Tvx_color)

VX_LAYER_FIELD(pgn_htch, delta, delta, double)
VX_LAYER_FIELD(pgn_htch, angle, angle, double)
VX_LAYER_FIELD(pgn_htch, shift, shift, double)
VX_LAYER_NESTED(pgn_htch, cpx_pln)

VX_LAYER_FIELD(pgn_spot, spot_type, spot_type, int)
VX_LAYER_FIELD(pgn_spot, dx, dx, double)
VX_LAYER_FIELD(pgn_spot, dy, dy, double)
VX_LAYER_FIELD(pgn_spot, x0, x0, double)
VX_LAYER_FIELD(pgn_spot, y0, y0, double)
VX_LAYER_FIELD(pgn_spot, use_cpx_pnt, use_cpx_pnt, bool)
VX_LAYER_FIELD(pgn_spot, point_clr, point_clr, Tvx_color)
VX_LAYER_FIELD(pgn_spot, point_size, point_size, double)
VX_LAYER_FIELD(pgn_spot, random_x, random_x, bool)
VX_LAYER_FIELD(pgn_spot, random_y, random_y, bool)
VX_LAYER_FIELD(pgn_spot, random_angle, random_angle, bool)
VX_LAYER_NESTED(pgn_spot, cpx_pnt)
