#include "platform/styles/vx_rng_scale.h"

#include "platform/base/detail/fields.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_ints.h"
#include "platform/styles/detail/round_digits.h"
#include "platform/styles/detail/scale_model.h"

using namespace vx::fields;
using namespace vx::styles;

namespace {
rng_scale *scale_of(void *scale)
{
    return static_cast<rng_scale *>(scale);
}
rng_scale const *scale_of(void const *scale)
{
    return static_cast<rng_scale const *>(scale);
}

rng_entry *entry_of(void *scale, unsigned index)
{
    return scale ? scale_of(scale)->at(index) : nullptr;
}
rng_entry const *entry_of(void const *scale, unsigned index)
{
    return scale ? scale_of(scale)->at(index) : nullptr;
}

std::wstring wide(char const *text)
{
    return text ? vx::text::to_wide(text) : std::wstring();
}

void assign_style(scale_prm *target, void const *prm, bool sel)
{
    if (target && prm)
        target->prm.assign_variant(*static_cast<stl_prm const *>(prm), variant_of(sel));
}

void run(gradient kind, void *scale, unsigned first, unsigned last, bool sel)
{
    if (auto *s = scale_of(scale))
        run_gradient(kind, first, last, s->size() + 2, variant_of(sel),
                     [s](unsigned i) -> stl_prm & { return s->row(i)->prm; });
}
} // namespace

unsigned vx_rng_scale_get_size(void const *scale)
{
    return scale ? scale_of(scale)->size() : 0;
}

void vx_rng_scale_set_size(void *scale, unsigned size)
{
    if (scale)
        scale_of(scale)->resize(size);
}

unsigned vx_rng_scale_ins(void *scale, unsigned index)
{
    return scale ? scale_of(scale)->insert(index) : 0;
}

void vx_rng_scale_del(void *scale, unsigned index)
{
    if (scale)
        scale_of(scale)->erase(index);
}

void vx_rng_scale_del_marked(void *scale)
{
    if (scale)
        scale_of(scale)->erase_marked();
}

void vx_rng_scale_move(void *scale, unsigned from, unsigned to)
{
    if (scale)
        scale_of(scale)->move(from, to);
}

void vx_rng_scale_set_order(void *scale, void const *ints)
{
    if (scale && ints)
        scale_of(scale)->set_order(vx_ints_get_data(ints), vx_ints_get_size(ints));
}

void vx_rng_scale_assign(void *target, void const *source)
{
    if (target && source && scale_of(target)->kind() == scale_of(source)->kind())
        *scale_of(target) = *scale_of(source);
}

bool vx_rng_scale_equal(void const *a, void const *b)
{
    return equal<rng_scale>(a, b);
}

char const *vx_rng_scale_get_style_type(void const *scale)
{
    return scale ? style_key(scale_of(scale)->kind()) : nullptr;
}

double vx_rng_scale_get_min(void const *scale, unsigned index)
{
    return get(entry_of(scale, index), &rng_entry::min);
}

double vx_rng_scale_get_max(void const *scale, unsigned index)
{
    return get(entry_of(scale, index), &rng_entry::max);
}

void vx_rng_scale_set_min(void *scale, unsigned index, double value)
{
    if (auto const *entry = entry_of(scale, index))
        scale_of(scale)->set_bounds(index, value, entry->max);
}

void vx_rng_scale_set_max(void *scale, unsigned index, double value)
{
    if (auto const *entry = entry_of(scale, index))
        scale_of(scale)->set_bounds(index, entry->min, value);
}

double vx_rng_scale_get_min_value(void const *scale)
{
    return get(part(scale, &rng_scale::min), &rng_end::value);
}

double vx_rng_scale_get_max_value(void const *scale)
{
    return get(part(scale, &rng_scale::max), &rng_end::value);
}

void vx_rng_scale_set_min_value(void *scale, double value)
{
    if (scale)
        scale_of(scale)->set_span(value, scale_of(scale)->max.value);
}

void vx_rng_scale_set_max_value(void *scale, double value)
{
    if (scale)
        scale_of(scale)->set_span(scale_of(scale)->min.value, value);
}

void vx_rng_scale_get_caption_w(void const *scale, unsigned index, Ivx_string_adp *adp)
{
    feed_text(entry_of(scale, index), &rng_entry::caption, adp);
}

void vx_rng_scale_set_caption_w(void *scale, unsigned index, wchar_t const *text)
{
    set_text(entry_of(scale, index), &rng_entry::caption, text);
}

void vx_rng_scale_set_caption(void *scale, unsigned index, char const *text)
{
    vx_rng_scale_set_caption_w(scale, index, wide(text).c_str());
}

void vx_rng_scale_set_default_caption(void *scale, unsigned index)
{
    auto *entry = entry_of(scale, index);
    if (!entry)
        return;
    int const digits = scale_of(scale)->round_digits;
    entry->caption = format_number(digits, entry->min) + L" - " + format_number(digits, entry->max);
}

void vx_rng_scale_get_min_caption_w(void const *scale, Ivx_string_adp *adp)
{
    feed_text(part(scale, &rng_scale::min), &rng_end::caption, adp);
}

void vx_rng_scale_set_min_caption_w(void *scale, wchar_t const *text)
{
    set_text(part(scale, &rng_scale::min), &rng_end::caption, text);
}

void vx_rng_scale_set_min_caption(void *scale, char const *text)
{
    vx_rng_scale_set_min_caption_w(scale, wide(text).c_str());
}

void vx_rng_scale_get_max_caption_w(void const *scale, Ivx_string_adp *adp)
{
    feed_text(part(scale, &rng_scale::max), &rng_end::caption, adp);
}

void vx_rng_scale_set_max_caption_w(void *scale, wchar_t const *text)
{
    set_text(part(scale, &rng_scale::max), &rng_end::caption, text);
}

void vx_rng_scale_set_max_caption(void *scale, char const *text)
{
    vx_rng_scale_set_max_caption_w(scale, wide(text).c_str());
}

void vx_rng_scale_get_other_caption_w(void const *scale, Ivx_string_adp *adp)
{
    feed_text(part(scale, &rng_scale::other), &other_entry::caption, adp);
}

void vx_rng_scale_set_other_caption_w(void *scale, wchar_t const *text)
{
    set_text(part(scale, &rng_scale::other), &other_entry::caption, text);
}

void vx_rng_scale_set_other_caption(void *scale, char const *text)
{
    vx_rng_scale_set_other_caption_w(scale, wide(text).c_str());
}

bool vx_rng_scale_get_marked(void const *scale, unsigned index)
{
    return get(entry_of(scale, index), &rng_entry::marked);
}

void vx_rng_scale_set_marked(void *scale, unsigned index, bool marked)
{
    set(entry_of(scale, index), &rng_entry::marked, marked);
}

bool vx_rng_scale_get_min_marked(void const *scale)
{
    return get(part(scale, &rng_scale::min), &rng_end::marked);
}

void vx_rng_scale_set_min_marked(void *scale, bool marked)
{
    set(part(scale, &rng_scale::min), &rng_end::marked, marked);
}

bool vx_rng_scale_get_max_marked(void const *scale)
{
    return get(part(scale, &rng_scale::max), &rng_end::marked);
}

void vx_rng_scale_set_max_marked(void *scale, bool marked)
{
    set(part(scale, &rng_scale::max), &rng_end::marked, marked);
}

void *vx_rng_scale_get_scale_prm_ptr(void *scale, unsigned index)
{
    return part(entry_of(scale, index), &rng_entry::prm);
}

void *vx_rng_scale_get_min_prm_ptr(void *scale)
{
    return part(part(scale, &rng_scale::min), &rng_end::prm);
}

void *vx_rng_scale_get_max_prm_ptr(void *scale)
{
    return part(part(scale, &rng_scale::max), &rng_end::prm);
}

void *vx_rng_scale_get_other_prm_ptr(void *scale)
{
    return part(part(scale, &rng_scale::other), &other_entry::prm);
}

void vx_rng_scale_set_stl_prm(void *scale, unsigned index, void const *prm, bool sel)
{
    auto *entry = entry_of(scale, index);
    assign_style(entry ? &entry->prm : nullptr, prm, sel);
}

void vx_rng_scale_set_min_style_prm(void *scale, void const *prm, bool sel)
{
    assign_style(scale ? &scale_of(scale)->min.prm : nullptr, prm, sel);
}

void vx_rng_scale_set_max_style_prm(void *scale, void const *prm, bool sel)
{
    assign_style(scale ? &scale_of(scale)->max.prm : nullptr, prm, sel);
}

int vx_rng_scale_get_rng_type(void const *scale)
{
    return get(scale, &rng_scale::rng_type);
}

void vx_rng_scale_set_rng_type(void *scale, int type)
{
    set(scale, &rng_scale::rng_type, type);
}

int vx_rng_scale_get_round_digits(void const *scale)
{
    return get(scale, &rng_scale::round_digits);
}

void vx_rng_scale_set_round_digits(void *scale, int digits)
{
    set(scale, &rng_scale::round_digits, digits);
}

double vx_rng_scale_get_deviation_coeff(void const *scale)
{
    return get(scale, &rng_scale::deviation_coeff);
}

void vx_rng_scale_set_deviation_coeff(void *scale, double coeff)
{
    set(scale, &rng_scale::deviation_coeff, coeff);
}

unsigned vx_rng_scale_find(void const *scale, double value)
{
    return scale ? scale_of(scale)->find(value) : 0;
}

void vx_rng_scale_init_opacity_pts(void *scale)
{
    if (scale)
        scale_of(scale)->opacity = default_opacity_curve();
}

unsigned vx_rng_scale_get_opacity_pts_size(void const *scale)
{
    return scale ? static_cast<unsigned>(scale_of(scale)->opacity.size()) : 0;
}

void vx_rng_scale_get_opacity_pt(void const *scale, unsigned index, double *position, double *opacity)
{
    if (index >= vx_rng_scale_get_opacity_pts_size(scale))
        return;
    auto const &pt = scale_of(scale)->opacity[index];
    if (position)
        *position = pt.position;
    if (opacity)
        *opacity = pt.opacity;
}

bool vx_rng_scale_set_opacity_pts(void *scale, double const *positions, double const *opacities,
                                  unsigned count)
{
    auto curve = make_opacity_curve(positions, opacities, count);
    if (!scale || curve.empty())
        return false;
    scale_of(scale)->opacity = std::move(curve);
    return true;
}

void vx_rng_scale_clr_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::color, scale, first, last, sel);
}

void vx_rng_scale_hue_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::hue, scale, first, last, sel);
}

void vx_rng_scale_transparency_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::transparency, scale, first, last, sel);
}

void vx_rng_scale_size_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::size, scale, first, last, sel);
}
