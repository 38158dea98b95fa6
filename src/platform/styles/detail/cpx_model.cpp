#include "platform/styles/detail/cpx_model.h"

#include "platform/styles/vx_style_keys.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vx::styles {
namespace {
/// In the order of the alternatives of `style_lr::data_t`.
struct layer_key
{
    char const *key;
    style_kind holder;
};
constexpr std::array<layer_key, 10> c_layer_keys{{
    {c_pnt_figr_style_lr, style_kind::pnt},
    {c_pnt_geom_style_lr, style_kind::pnt},
    {c_pnt_symb_style_lr, style_kind::pnt},
    {c_pnt_text_style_lr, style_kind::pnt},
    {c_pln_line_style_lr, style_kind::pln},
    {c_pln_tplt_style_lr, style_kind::pln},
    {c_pln_cart_style_lr, style_kind::pln},
    {c_pgn_fill_style_lr, style_kind::pgn},
    {c_pgn_htch_style_lr, style_kind::pgn},
    {c_pgn_spot_style_lr, style_kind::pgn},
}};
static_assert(std::variant_size_v<style_lr::data_t> == c_layer_keys.size());

template <std::size_t I = 0>
style_lr::data_t make_data(std::size_t index)
{
    if constexpr (I + 1 < std::variant_size_v<style_lr::data_t>)
        if (index != I)
            return make_data<I + 1>(index);
    return style_lr::data_t(std::in_place_index<I>);
}

template <class... F>
struct overloaded : F...
{
    using F::operator()...;
};
template <class... F>
overloaded(F...) -> overloaded<F...>;

/// Colour of one layer, null for a layer without one of its own.
Tvx_color *own_color(style_lr &lr)
{
    return std::visit(overloaded{[](pgn_htch_lr &) -> Tvx_color * { return nullptr; },
                                 [](pgn_spot_lr &l) -> Tvx_color * { return &l.point_clr; },
                                 [](auto &l) -> Tvx_color * { return &l.color; }},
                      lr.data);
}

cpx_slot *nested(style_lr &lr)
{
    if (auto *t = std::get_if<pln_tplt_lr>(&lr.data))
        return &t->cpx_pnt;
    if (auto *h = std::get_if<pgn_htch_lr>(&lr.data))
        return &h->cpx_pln;
    if (auto *s = std::get_if<pgn_spot_lr>(&lr.data))
        return &s->cpx_pnt;
    return nullptr;
}

/// Whether the nested style is what shows: a spot layer has a plain point besides.
bool nested_leads(style_lr const &lr)
{
    if (auto const *s = std::get_if<pgn_spot_lr>(&lr.data))
        return s->use_cpx_pnt;
    return std::holds_alternative<pgn_htch_lr>(lr.data);
}

style_lr &mutable_lr(std::unique_ptr<style_lr> const &lr)
{
    return *lr;
}

std::optional<double> own_size(style_lr const &lr)
{
    return std::visit(
        overloaded{[](pnt_figr_lr const &l) { return std::optional(std::max(l.size_x, l.size_y)); },
                   [](pnt_geom_lr const &l) { return std::optional(l.size); },
                   [](pnt_symb_lr const &l) { return std::optional(l.size); },
                   [](pnt_text_lr const &l) { return std::optional(l.size); },
                   [](pln_line_lr const &l) { return std::optional(l.width); },
                   [](pln_tplt_lr const &l) { return std::optional(l.width); },
                   [](pln_cart_lr const &l) { return std::optional(l.width); },
                   [](pgn_fill_lr const &) { return std::optional<double>(); },
                   [](pgn_htch_lr const &) { return std::optional<double>(); },
                   [](pgn_spot_lr const &l) { return std::optional(l.point_size); }},
        lr.data);
}

void scale_layer(style_lr &lr, double k)
{
    auto const scale = [k](auto &...values) { ((values *= k), ...); };
    std::visit(overloaded{[&](pnt_figr_lr &l) { scale(l.size_x, l.size_y, l.dx, l.dy, l.line_width); },
                          [&](pnt_geom_lr &l) { scale(l.size, l.dx, l.dy, l.line_width); },
                          [&](pnt_symb_lr &l) { scale(l.size, l.dx, l.dy); },
                          [&](pnt_text_lr &l) { scale(l.size, l.dx, l.dy); },
                          [&](pln_line_lr &l) { scale(l.width, l.delta); },
                          [&](pln_tplt_lr &l) { scale(l.width, l.dash, l.gap, l.shift, l.delta); },
                          [&](pln_cart_lr &l) {
                              scale(l.width, l.delta, l.casing_width);
                              for (double &dash : l.dashes)
                                  dash *= k;
                          },
                          [&](pgn_fill_lr &) {}, [&](pgn_htch_lr &l) { scale(l.delta, l.shift); },
                          [&](pgn_spot_lr &l) { scale(l.dx, l.dy, l.x0, l.y0, l.point_size); }},
               lr.data);
    if (cpx_slot *slot = nested(lr); slot && slot->find())
        for (auto &inner : slot->get().lrs)
            scale_layer(*inner, k);
}
} // namespace

cpx_slot::cpx_slot(cpx_slot const &other)
    : f_style(other.f_style ? std::make_unique<cpx_style>(*other.f_style) : nullptr), f_kind(other.f_kind)
{
}

cpx_slot &cpx_slot::operator=(cpx_slot const &other)
{
    if (this == &other)
        return *this;
    // An object that was handed out keeps its address.
    if (f_style && other.f_style)
        *f_style = *other.f_style;
    else if (f_style)
        f_style->lrs.clear();
    else if (other.f_style)
        f_style = std::make_unique<cpx_style>(*other.f_style);
    return *this;
}

cpx_slot::~cpx_slot() = default;

cpx_style &cpx_slot::get()
{
    if (!f_style)
        f_style = std::make_unique<cpx_style>(f_kind);
    return *f_style;
}

bool operator==(cpx_slot const &a, cpx_slot const &b)
{
    bool const empty_a = !a.f_style || a.f_style->lrs.empty();
    bool const empty_b = !b.f_style || b.f_style->lrs.empty();
    return empty_a || empty_b ? empty_a == empty_b : *a.f_style == *b.f_style;
}

std::unique_ptr<style_lr> style_lr::create(char const *key)
{
    if (!key)
        return nullptr;
    for (std::size_t i = 0; i < c_layer_keys.size(); ++i)
        if (same_key(key, c_layer_keys[i].key))
            return std::make_unique<style_lr>(style_lr{make_data(i)});
    return nullptr;
}

char const *style_lr::key() const
{
    return c_layer_keys[data.index()].key;
}

style_kind style_lr::holder_kind() const
{
    return c_layer_keys[data.index()].holder;
}

cpx_style::cpx_style(cpx_style const &other) : kind(other.kind)
{
    lrs.reserve(other.lrs.size());
    for (auto const &lr : other.lrs)
        lrs.push_back(std::make_unique<style_lr>(*lr));
}

cpx_style &cpx_style::operator=(cpx_style const &other)
{
    if (this == &other)
        return *this;
    // Copied before the old layers go: `other` may be nested in one of them.
    std::vector<std::unique_ptr<style_lr>> copies;
    for (auto const &lr : other.lrs)
        if (lr->holder_kind() == kind)
            copies.push_back(std::make_unique<style_lr>(*lr));
    lrs = std::move(copies);
    return *this;
}

bool operator==(cpx_style const &a, cpx_style const &b)
{
    return a.kind == b.kind &&
           std::ranges::equal(a.lrs, b.lrs, [](auto const &x, auto const &y) { return *x == *y; });
}

std::optional<Tvx_color> leading_color(cpx_style const &style)
{
    for (auto const &lr : style.lrs) {
        if (nested_leads(*lr)) {
            cpx_style const *inner = nested(mutable_lr(lr))->find();
            if (auto color = inner ? leading_color(*inner) : std::nullopt)
                return color;
        } else if (Tvx_color const *color = own_color(mutable_lr(lr)))
            return *color;
    }
    return std::nullopt;
}

void set_leading_color(cpx_style &style, Tvx_color color)
{
    for (auto &lr : style.lrs) {
        if (nested_leads(*lr)) {
            cpx_slot *slot = nested(*lr);
            if (slot->find() && leading_color(*slot->find())) {
                set_leading_color(slot->get(), color);
                return;
            }
        } else if (Tvx_color *own = own_color(*lr)) {
            *own = color;
            return;
        }
    }
}

void set_all_colors(cpx_style &style, Tvx_color color)
{
    for (auto &lr : style.lrs) {
        if (Tvx_color *own = own_color(*lr))
            *own = color;
        if (auto *cart = std::get_if<pln_cart_lr>(&lr->data))
            cart->casing_color = color;
        if (cpx_slot *slot = nested(*lr); slot && slot->find())
            set_all_colors(slot->get(), color);
    }
}

bool replace_color(Tvx_color &color, Tvx_color of, Tvx_color by)
{
    if (color.r != of.r || color.g != of.g || color.b != of.b)
        return false;
    color = vx_clr_init_rgba(by.r, by.g, by.b, color.a);
    return true;
}

bool replace_color(cpx_style &style, Tvx_color of, Tvx_color by)
{
    bool found = false;
    for (auto &lr : style.lrs) {
        if (Tvx_color *own = own_color(*lr))
            found = replace_color(*own, of, by) || found;
        if (auto *cart = std::get_if<pln_cart_lr>(&lr->data))
            found = replace_color(cart->casing_color, of, by) || found;
        if (cpx_slot *slot = nested(*lr); slot && slot->find())
            found = replace_color(slot->get(), of, by) || found;
    }
    return found;
}

std::optional<double> leading_size(cpx_style const &style)
{
    for (auto const &lr : style.lrs) {
        if (nested_leads(*lr)) {
            cpx_style const *inner = nested(mutable_lr(lr))->find();
            if (auto size = inner ? leading_size(*inner) : std::nullopt)
                return size;
        } else if (auto size = own_size(*lr))
            return size;
    }
    return std::nullopt;
}

void set_leading_size(cpx_style &style, double size)
{
    auto const old = leading_size(style);
    if (!old || !(*old > 0) || !std::isfinite(size) || !(size > 0))
        return;
    double const k = size / *old;
    if (!std::isfinite(k))
        return;
    for (auto &lr : style.lrs)
        scale_layer(*lr, k);
}
} // namespace vx::styles
