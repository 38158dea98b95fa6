#include "platform/styles/vx_cpx_style.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/cpx_model.h"

#include <algorithm>

using namespace vx::fields;
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

void *vx_cpx_pnt_style_create()
{
    return new cpx_style(style_kind::pnt);
}

void vx_cpx_pnt_style_destroy(void *style)
{
    destroy<cpx_style>(style);
}

void *vx_cpx_pln_style_create()
{
    return new cpx_style(style_kind::pln);
}

void vx_cpx_pln_style_destroy(void *style)
{
    destroy<cpx_style>(style);
}

void *vx_cpx_pgn_style_create()
{
    return new cpx_style(style_kind::pgn);
}

void vx_cpx_pgn_style_destroy(void *style)
{
    destroy<cpx_style>(style);
}

void vx_cpx_style_assign(void *target, void const *source)
{
    assign<cpx_style>(target, source);
}

bool vx_cpx_style_equal(void const *a, void const *b)
{
    return equal<cpx_style>(a, b);
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
    return equal<style_lr>(a, b);
}

vx_fnt_type *vx_pnt_symb_lr_get_fnt_type_ptr(void *layer)
{
    return part(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::font);
}

unsigned vx_pnt_symb_lr_get_symbol(void const *layer)
{
    return get(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::symbol);
}

void vx_pnt_symb_lr_set_symbol(void *layer, unsigned value)
{
    set(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::symbol, value);
}

Tvx_color vx_pnt_symb_lr_get_color(void const *layer)
{
    return get(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::color);
}

void vx_pnt_symb_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::color, value);
}

double vx_pnt_symb_lr_get_size(void const *layer)
{
    return get(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::size);
}

void vx_pnt_symb_lr_set_size(void *layer, double value)
{
    set(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::size, value);
}

double vx_pnt_symb_lr_get_dx(void const *layer)
{
    return get(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::dx);
}

void vx_pnt_symb_lr_set_dx(void *layer, double value)
{
    set(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::dx, value);
}

double vx_pnt_symb_lr_get_dy(void const *layer)
{
    return get(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::dy);
}

void vx_pnt_symb_lr_set_dy(void *layer, double value)
{
    set(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::dy, value);
}

double vx_pnt_symb_lr_get_angle(void const *layer)
{
    return get(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::angle);
}

void vx_pnt_symb_lr_set_angle(void *layer, double value)
{
    set(layer_of<pnt_symb_lr>(layer), &pnt_symb_lr::angle, value);
}

int vx_pnt_figr_lr_get_lr_figure(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::figure);
}

void vx_pnt_figr_lr_set_lr_figure(void *layer, int value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::figure, value);
}

Tvx_color vx_pnt_figr_lr_get_color(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::color);
}

void vx_pnt_figr_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::color, value);
}

double vx_pnt_figr_lr_get_size_x(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::size_x);
}

void vx_pnt_figr_lr_set_size_x(void *layer, double value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::size_x, value);
}

double vx_pnt_figr_lr_get_size_y(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::size_y);
}

void vx_pnt_figr_lr_set_size_y(void *layer, double value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::size_y, value);
}

double vx_pnt_figr_lr_get_dx(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::dx);
}

void vx_pnt_figr_lr_set_dx(void *layer, double value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::dx, value);
}

double vx_pnt_figr_lr_get_dy(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::dy);
}

void vx_pnt_figr_lr_set_dy(void *layer, double value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::dy, value);
}

double vx_pnt_figr_lr_get_angle(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::angle);
}

void vx_pnt_figr_lr_set_angle(void *layer, double value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::angle, value);
}

double vx_pnt_figr_lr_get_line_width(void const *layer)
{
    return get(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::line_width);
}

void vx_pnt_figr_lr_set_line_width(void *layer, double value)
{
    set(layer_of<pnt_figr_lr>(layer), &pnt_figr_lr::line_width, value);
}

bool vx_pnt_geom_lr_get_fill(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::fill);
}

void vx_pnt_geom_lr_set_fill(void *layer, bool value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::fill, value);
}

Tvx_color vx_pnt_geom_lr_get_color(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::color);
}

void vx_pnt_geom_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::color, value);
}

double vx_pnt_geom_lr_get_size(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::size);
}

void vx_pnt_geom_lr_set_size(void *layer, double value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::size, value);
}

double vx_pnt_geom_lr_get_dx(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::dx);
}

void vx_pnt_geom_lr_set_dx(void *layer, double value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::dx, value);
}

double vx_pnt_geom_lr_get_dy(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::dy);
}

void vx_pnt_geom_lr_set_dy(void *layer, double value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::dy, value);
}

double vx_pnt_geom_lr_get_angle(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::angle);
}

void vx_pnt_geom_lr_set_angle(void *layer, double value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::angle, value);
}

double vx_pnt_geom_lr_get_line_width(void const *layer)
{
    return get(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::line_width);
}

void vx_pnt_geom_lr_set_line_width(void *layer, double value)
{
    set(layer_of<pnt_geom_lr>(layer), &pnt_geom_lr::line_width, value);
}

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
    return part(layer_of<pnt_text_lr>(layer), &pnt_text_lr::font);
}

Tvx_color vx_pnt_text_lr_get_color(void const *layer)
{
    return get(layer_of<pnt_text_lr>(layer), &pnt_text_lr::color);
}

void vx_pnt_text_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pnt_text_lr>(layer), &pnt_text_lr::color, value);
}

double vx_pnt_text_lr_get_size(void const *layer)
{
    return get(layer_of<pnt_text_lr>(layer), &pnt_text_lr::size);
}

void vx_pnt_text_lr_set_size(void *layer, double value)
{
    set(layer_of<pnt_text_lr>(layer), &pnt_text_lr::size, value);
}

double vx_pnt_text_lr_get_dx(void const *layer)
{
    return get(layer_of<pnt_text_lr>(layer), &pnt_text_lr::dx);
}

void vx_pnt_text_lr_set_dx(void *layer, double value)
{
    set(layer_of<pnt_text_lr>(layer), &pnt_text_lr::dx, value);
}

double vx_pnt_text_lr_get_dy(void const *layer)
{
    return get(layer_of<pnt_text_lr>(layer), &pnt_text_lr::dy);
}

void vx_pnt_text_lr_set_dy(void *layer, double value)
{
    set(layer_of<pnt_text_lr>(layer), &pnt_text_lr::dy, value);
}

double vx_pnt_text_lr_get_angle(void const *layer)
{
    return get(layer_of<pnt_text_lr>(layer), &pnt_text_lr::angle);
}

void vx_pnt_text_lr_set_angle(void *layer, double value)
{
    set(layer_of<pnt_text_lr>(layer), &pnt_text_lr::angle, value);
}

void vx_pnt_text_lr_get_text_w(void const *layer, Ivx_string_adp *adp)
{
    feed_text(layer_of<pnt_text_lr>(layer), &pnt_text_lr::text, adp);
}

void vx_pnt_text_lr_set_text_w(void *layer, wchar_t const *text)
{
    set_text(layer_of<pnt_text_lr>(layer), &pnt_text_lr::text, text);
}

Tvx_color vx_pln_line_lr_get_color(void const *layer)
{
    return get(layer_of<pln_line_lr>(layer), &pln_line_lr::color);
}

void vx_pln_line_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pln_line_lr>(layer), &pln_line_lr::color, value);
}

double vx_pln_line_lr_get_width(void const *layer)
{
    return get(layer_of<pln_line_lr>(layer), &pln_line_lr::width);
}

void vx_pln_line_lr_set_width(void *layer, double value)
{
    set(layer_of<pln_line_lr>(layer), &pln_line_lr::width, value);
}

double vx_pln_line_lr_get_delta(void const *layer)
{
    return get(layer_of<pln_line_lr>(layer), &pln_line_lr::delta);
}

void vx_pln_line_lr_set_delta(void *layer, double value)
{
    set(layer_of<pln_line_lr>(layer), &pln_line_lr::delta, value);
}

Tvx_color vx_pln_tplt_lr_get_color(void const *layer)
{
    return get(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::color);
}

void vx_pln_tplt_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::color, value);
}

double vx_pln_tplt_lr_get_width(void const *layer)
{
    return get(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::width);
}

void vx_pln_tplt_lr_set_width(void *layer, double value)
{
    set(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::width, value);
}

double vx_pln_tplt_lr_get_dash(void const *layer)
{
    return get(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::dash);
}

void vx_pln_tplt_lr_set_dash(void *layer, double value)
{
    set(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::dash, value);
}

double vx_pln_tplt_lr_get_gap(void const *layer)
{
    return get(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::gap);
}

void vx_pln_tplt_lr_set_gap(void *layer, double value)
{
    set(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::gap, value);
}

double vx_pln_tplt_lr_get_shift(void const *layer)
{
    return get(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::shift);
}

void vx_pln_tplt_lr_set_shift(void *layer, double value)
{
    set(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::shift, value);
}

double vx_pln_tplt_lr_get_delta(void const *layer)
{
    return get(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::delta);
}

void vx_pln_tplt_lr_set_delta(void *layer, double value)
{
    set(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::delta, value);
}

void *vx_pln_tplt_lr_get_cpx_pnt_style_ptr(void *layer)
{
    return style_in(part(layer_of<pln_tplt_lr>(layer), &pln_tplt_lr::cpx_pnt));
}

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

Tvx_color vx_pln_cart_lr_get_color(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::color);
}

void vx_pln_cart_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::color, value);
}

double vx_pln_cart_lr_get_width(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::width);
}

void vx_pln_cart_lr_set_width(void *layer, double value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::width, value);
}

double vx_pln_cart_lr_get_delta(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::delta);
}

void vx_pln_cart_lr_set_delta(void *layer, double value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::delta, value);
}

int vx_pln_cart_lr_get_cap(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::cap);
}

void vx_pln_cart_lr_set_cap(void *layer, int value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::cap, value);
}

int vx_pln_cart_lr_get_join(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::join);
}

void vx_pln_cart_lr_set_join(void *layer, int value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::join, value);
}

double vx_pln_cart_lr_get_casing_width(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::casing_width);
}

void vx_pln_cart_lr_set_casing_width(void *layer, double value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::casing_width, value);
}

Tvx_color vx_pln_cart_lr_get_casing_color(void const *layer)
{
    return get(layer_of<pln_cart_lr>(layer), &pln_cart_lr::casing_color);
}

void vx_pln_cart_lr_set_casing_color(void *layer, Tvx_color value)
{
    set(layer_of<pln_cart_lr>(layer), &pln_cart_lr::casing_color, value);
}

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

Tvx_color vx_pgn_fill_lr_get_color(void const *layer)
{
    return get(layer_of<pgn_fill_lr>(layer), &pgn_fill_lr::color);
}

void vx_pgn_fill_lr_set_color(void *layer, Tvx_color value)
{
    set(layer_of<pgn_fill_lr>(layer), &pgn_fill_lr::color, value);
}

double vx_pgn_htch_lr_get_delta(void const *layer)
{
    return get(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::delta);
}

void vx_pgn_htch_lr_set_delta(void *layer, double value)
{
    set(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::delta, value);
}

double vx_pgn_htch_lr_get_angle(void const *layer)
{
    return get(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::angle);
}

void vx_pgn_htch_lr_set_angle(void *layer, double value)
{
    set(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::angle, value);
}

double vx_pgn_htch_lr_get_shift(void const *layer)
{
    return get(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::shift);
}

void vx_pgn_htch_lr_set_shift(void *layer, double value)
{
    set(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::shift, value);
}

void *vx_pgn_htch_lr_get_cpx_pln_style_ptr(void *layer)
{
    return style_in(part(layer_of<pgn_htch_lr>(layer), &pgn_htch_lr::cpx_pln));
}

int vx_pgn_spot_lr_get_spot_type(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::spot_type);
}

void vx_pgn_spot_lr_set_spot_type(void *layer, int value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::spot_type, value);
}

double vx_pgn_spot_lr_get_dx(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::dx);
}

void vx_pgn_spot_lr_set_dx(void *layer, double value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::dx, value);
}

double vx_pgn_spot_lr_get_dy(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::dy);
}

void vx_pgn_spot_lr_set_dy(void *layer, double value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::dy, value);
}

double vx_pgn_spot_lr_get_x0(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::x0);
}

void vx_pgn_spot_lr_set_x0(void *layer, double value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::x0, value);
}

double vx_pgn_spot_lr_get_y0(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::y0);
}

void vx_pgn_spot_lr_set_y0(void *layer, double value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::y0, value);
}

bool vx_pgn_spot_lr_get_use_cpx_pnt(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::use_cpx_pnt);
}

void vx_pgn_spot_lr_set_use_cpx_pnt(void *layer, bool value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::use_cpx_pnt, value);
}

Tvx_color vx_pgn_spot_lr_get_point_clr(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::point_clr);
}

void vx_pgn_spot_lr_set_point_clr(void *layer, Tvx_color value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::point_clr, value);
}

double vx_pgn_spot_lr_get_point_size(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::point_size);
}

void vx_pgn_spot_lr_set_point_size(void *layer, double value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::point_size, value);
}

bool vx_pgn_spot_lr_get_random_x(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::random_x);
}

void vx_pgn_spot_lr_set_random_x(void *layer, bool value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::random_x, value);
}

bool vx_pgn_spot_lr_get_random_y(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::random_y);
}

void vx_pgn_spot_lr_set_random_y(void *layer, bool value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::random_y, value);
}

bool vx_pgn_spot_lr_get_random_angle(void const *layer)
{
    return get(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::random_angle);
}

void vx_pgn_spot_lr_set_random_angle(void *layer, bool value)
{
    set(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::random_angle, value);
}

void *vx_pgn_spot_lr_get_cpx_pnt_style_ptr(void *layer)
{
    return style_in(part(layer_of<pgn_spot_lr>(layer), &pgn_spot_lr::cpx_pnt));
}
