#include "platform/styles/vx_val_scale.h"

#include "platform/base/detail/fields.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_ints.h"
#include "platform/styles/detail/scale_model.h"

using namespace vx::fields;
using namespace vx::styles;

namespace {
val_scale *scale_of(void *scale)
{
    return static_cast<val_scale *>(scale);
}
val_scale const *scale_of(void const *scale)
{
    return static_cast<val_scale const *>(scale);
}

/// To write to.
val_entry *edited(void *scale, unsigned index)
{
    return scale ? scale_of(scale)->edit(index) : nullptr;
}
val_entry const *entry_of(void const *scale, unsigned index)
{
    return scale ? scale_of(scale)->at(index) : nullptr;
}

std::wstring wide(char const *text)
{
    return text ? vx::text::to_wide(text) : std::wstring();
}

void run(gradient kind, void *scale, unsigned first, unsigned last, bool sel)
{
    if (auto *s = scale_of(scale))
        run_gradient(kind, first, last, s->size(), variant_of(sel),
                     [s](unsigned i) -> stl_prm & { return s->edit(i)->prm.prm; });
}
} // namespace

unsigned vx_val_scale_get_size(void const *scale)
{
    return scale ? scale_of(scale)->size() : 0;
}

void vx_val_scale_set_size(void *scale, unsigned size)
{
    if (scale)
        scale_of(scale)->resize(size);
}

unsigned vx_val_scale_add(void *scale)
{
    if (!scale)
        return 0;
    scale_of(scale)->insert(scale_of(scale)->size());
    return scale_of(scale)->size();
}

unsigned vx_val_scale_ins(void *scale, unsigned index)
{
    return scale ? scale_of(scale)->insert(index) : 0;
}

void vx_val_scale_del(void *scale, unsigned index)
{
    if (scale)
        scale_of(scale)->erase(index);
}

void vx_val_scale_del_marked(void *scale)
{
    if (scale)
        scale_of(scale)->erase_marked();
}

void vx_val_scale_move(void *scale, unsigned from, unsigned to)
{
    if (scale)
        scale_of(scale)->move(from, to);
}

void vx_val_scale_set_order(void *scale, void const *ints)
{
    if (scale && ints)
        scale_of(scale)->set_order(vx_ints_get_data(ints), vx_ints_get_size(ints));
}

void vx_val_scale_assign(void *target, void const *source)
{
    if (target && source && scale_of(target)->kind() == scale_of(source)->kind())
        *scale_of(target) = *scale_of(source);
}

bool vx_val_scale_equal(void const *a, void const *b)
{
    return equal<val_scale>(a, b);
}

char const *vx_val_scale_get_style_type(void const *scale)
{
    return scale ? style_key(scale_of(scale)->kind()) : nullptr;
}

int vx_val_scale_get_active_idx(void const *scale)
{
    return scale ? scale_of(scale)->active() : -1;
}

void vx_val_scale_set_active_idx(void *scale, int index)
{
    if (scale)
        scale_of(scale)->set_active(index);
}

void vx_val_scale_get_text_w(void const *scale, unsigned index, Ivx_string_adp *adp)
{
    feed_text(entry_of(scale, index), &val_entry::text, adp);
}

void vx_val_scale_set_text_w(void *scale, unsigned index, wchar_t const *text)
{
    if (scale)
        scale_of(scale)->set_text(index, text ? text : L"");
}

void vx_val_scale_set_text(void *scale, unsigned index, char const *text)
{
    vx_val_scale_set_text_w(scale, index, wide(text).c_str());
}

void vx_val_scale_get_caption_w(void const *scale, unsigned index, Ivx_string_adp *adp)
{
    feed_text(entry_of(scale, index), &val_entry::caption, adp);
}

void vx_val_scale_set_caption_w(void *scale, unsigned index, wchar_t const *text)
{
    set_text(edited(scale, index), &val_entry::caption, text);
}

void vx_val_scale_set_caption(void *scale, unsigned index, char const *text)
{
    vx_val_scale_set_caption_w(scale, index, wide(text).c_str());
}

void vx_val_scale_get_other_caption_w(void const *scale, Ivx_string_adp *adp)
{
    feed_text(part(scale, &val_scale::other), &other_entry::caption, adp);
}

void vx_val_scale_set_other_caption_w(void *scale, wchar_t const *text)
{
    set_text(part(scale, &val_scale::other), &other_entry::caption, text);
}

void vx_val_scale_set_other_caption(void *scale, char const *text)
{
    vx_val_scale_set_other_caption_w(scale, wide(text).c_str());
}

bool vx_val_scale_get_marked(void const *scale, unsigned index)
{
    return get(entry_of(scale, index), &val_entry::marked);
}

void vx_val_scale_set_marked(void *scale, unsigned index, bool marked)
{
    if (scale)
        scale_of(scale)->set_marked(index, marked);
}

unsigned vx_val_scale_get_marked_count(void const *scale)
{
    return scale ? scale_of(scale)->marked_count() : 0;
}

void *vx_val_scale_get_scale_prm_ptr(void *scale, unsigned index)
{
    return scale ? part(scale_of(scale)->expose(index), &val_entry::prm) : nullptr;
}

void *vx_val_scale_get_other_prm_ptr(void *scale)
{
    return part(part(scale, &val_scale::other), &other_entry::prm);
}

void vx_val_scale_set_stl_prm(void *scale, unsigned index, void const *prm, bool sel)
{
    auto *entry = edited(scale, index);
    if (entry && prm)
        entry->prm.prm.assign_variant(*static_cast<stl_prm const *>(prm), variant_of(sel));
}

int vx_val_scale_find_w(void const *scale, wchar_t const *value)
{
    return scale ? scale_of(scale)->find(std::wstring_view(value ? value : L"")) : -1;
}

void vx_val_scale_init_opacity_pts(void *scale)
{
    if (scale)
        scale_of(scale)->opacity = default_opacity_curve();
}

unsigned vx_val_scale_get_opacity_pts_size(void const *scale)
{
    return scale ? static_cast<unsigned>(scale_of(scale)->opacity.size()) : 0;
}

void vx_val_scale_get_opacity_pt(void const *scale, unsigned index, double *position, double *opacity)
{
    if (index >= vx_val_scale_get_opacity_pts_size(scale))
        return;
    auto const &pt = scale_of(scale)->opacity[index];
    if (position)
        *position = pt.position;
    if (opacity)
        *opacity = pt.opacity;
}

bool vx_val_scale_set_opacity_pts(void *scale, double const *positions, double const *opacities,
                                  unsigned count)
{
    auto curve = make_opacity_curve(positions, opacities, count);
    if (!scale || curve.empty())
        return false;
    scale_of(scale)->opacity = std::move(curve);
    return true;
}

void vx_val_scale_clr_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::color, scale, first, last, sel);
}

void vx_val_scale_hue_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::hue, scale, first, last, sel);
}

void vx_val_scale_transparency_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::transparency, scale, first, last, sel);
}

void vx_val_scale_size_gradient(void *scale, unsigned first, unsigned last, bool sel)
{
    run(gradient::size, scale, first, last, sel);
}
