#include "platform/styles/vx_stl_mngr.h"

#include "platform/base/detail/fields.h"
#include "platform/base/text_codec.h"
#include "platform/styles/detail/mngr_model.h"
#include "platform/styles/vx_stl_mngr_life.h"

using namespace vx::fields;
using namespace vx::styles;

namespace {
stl_mngr *mngr_of(void *mngr)
{
    return static_cast<stl_mngr *>(mngr);
}
stl_mngr const *mngr_of(void const *mngr)
{
    return static_cast<stl_mngr const *>(mngr);
}
} // namespace

void *vx_stl_mngr_create(char const *type)
{
    auto const kind = style_kind_of(type);
    return kind ? new stl_mngr(*kind) : nullptr;
}

void *vx_stl_mngr_clone(void const *mngr)
{
    return clone<stl_mngr>(mngr);
}

void vx_stl_mngr_destroy(void *mngr)
{
    destroy<stl_mngr>(mngr);
}

std::weak_ptr<void const> vx_stl_mngr_life(void const *mngr)
{
    return mngr ? mngr_of(mngr)->life.watch() : std::weak_ptr<void const>();
}

void vx_stl_mngr_assign(void *target, void const *source)
{
    assign<stl_mngr>(target, source);
}

bool vx_stl_mngr_equal(void const *a, void const *b)
{
    return equal<stl_mngr>(a, b);
}

char const *vx_stl_mngr_get_style_type(void const *mngr)
{
    return mngr ? style_key(mngr_of(mngr)->simple.kind()) : nullptr;
}

char const *vx_stl_mngr_get_type(void const *mngr)
{
    return mngr ? mngr_key(mngr_of(mngr)->simple.kind()) : nullptr;
}

void *vx_stl_mngr_get_simple_sp_ptr(void *mngr)
{
    return part(mngr, &stl_mngr::simple);
}

void *vx_stl_mngr_get_val_scale_ptr(void *mngr)
{
    return part(mngr, &stl_mngr::values);
}

void *vx_stl_mngr_get_rng_scale_ptr(void *mngr)
{
    return part(mngr, &stl_mngr::ranges);
}

void *vx_stl_mngr_get_rule_scale_ptr(void *mngr)
{
    return part(mngr, &stl_mngr::rules);
}

void vx_stl_mngr_get_name_w(void const *mngr, Ivx_string_adp *adp)
{
    feed_text(mngr, &stl_mngr::name, adp);
}

void vx_stl_mngr_set_name_w(void *mngr, wchar_t const *text)
{
    set_text(mngr, &stl_mngr::name, text);
}

void vx_stl_mngr_get_val_prop_name_w(void const *mngr, Ivx_string_adp *adp)
{
    feed_text(mngr, &stl_mngr::val_prop_name, adp);
}

void vx_stl_mngr_set_val_prop_name_w(void *mngr, wchar_t const *text)
{
    set_text(mngr, &stl_mngr::val_prop_name, text);
}

void vx_stl_mngr_get_rng_prop_name_w(void const *mngr, Ivx_string_adp *adp)
{
    feed_text(mngr, &stl_mngr::rng_prop_name, adp);
}

void vx_stl_mngr_set_rng_prop_name_w(void *mngr, wchar_t const *text)
{
    set_text(mngr, &stl_mngr::rng_prop_name, text);
}

void vx_stl_mngr_get_rotate_prop_name_w(void const *mngr, Ivx_string_adp *adp)
{
    feed_text(mngr, &stl_mngr::rotate_prop_name, adp);
}

char const *vx_stl_mngr_get_val_prop_name(void const *mngr)
{
    if (!mngr)
        return "";
    auto const *m = mngr_of(mngr);
    m->narrow_val_prop_name = vx::text::to_bytes(m->val_prop_name);
    return m->narrow_val_prop_name.c_str();
}

char const *vx_stl_mngr_get_rng_prop_name(void const *mngr)
{
    if (!mngr)
        return "";
    auto const *m = mngr_of(mngr);
    m->narrow_rng_prop_name = vx::text::to_bytes(m->rng_prop_name);
    return m->narrow_rng_prop_name.c_str();
}

void vx_stl_mngr_set_rotate_prop_name(void *mngr, char const *name)
{
    if (mngr)
        mngr_of(mngr)->rotate_prop_name = name ? vx::text::to_wide(name) : std::wstring();
}

unsigned vx_stl_mngr_get_mode(void const *mngr)
{
    return get(mngr, &stl_mngr::mode);
}

void vx_stl_mngr_set_mode(void *mngr, unsigned value)
{
    set(mngr, &stl_mngr::mode, value);
}

bool vx_stl_mngr_get_need_scale(void const *mngr)
{
    return get(mngr, &stl_mngr::need_scale);
}

void vx_stl_mngr_set_need_scale(void *mngr, bool value)
{
    set(mngr, &stl_mngr::need_scale, value);
}

bool vx_stl_mngr_get_just_loaded(void const *mngr)
{
    return get(mngr, &stl_mngr::just_loaded);
}

void vx_stl_mngr_set_just_loaded(void *mngr, bool value)
{
    set(mngr, &stl_mngr::just_loaded, value);
}

bool vx_stl_mngr_get_rotate_flag(void const *mngr)
{
    return get(mngr, &stl_mngr::rotate_flag);
}

void vx_stl_mngr_set_rotate_flag(void *mngr, bool value)
{
    set(mngr, &stl_mngr::rotate_flag, value);
}

bool vx_stl_mngr_get_rotate_spot_flag(void const *mngr)
{
    return get(mngr, &stl_mngr::rotate_spot_flag);
}

void vx_stl_mngr_set_rotate_spot_flag(void *mngr, bool value)
{
    set(mngr, &stl_mngr::rotate_spot_flag, value);
}

bool vx_stl_mngr_get_rotate_hatch_flag(void const *mngr)
{
    return get(mngr, &stl_mngr::rotate_hatch_flag);
}

void vx_stl_mngr_set_rotate_hatch_flag(void *mngr, bool value)
{
    set(mngr, &stl_mngr::rotate_hatch_flag, value);
}

int vx_stl_mngr_get_rotate_start(void const *mngr)
{
    return get(mngr, &stl_mngr::rotate_start);
}

void vx_stl_mngr_set_rotate_start(void *mngr, int value)
{
    if (value >= 0 && value <= 3)
        set(mngr, &stl_mngr::rotate_start, value);
}

int vx_stl_mngr_get_rotate_dir(void const *mngr)
{
    return get(mngr, &stl_mngr::rotate_dir);
}

void vx_stl_mngr_set_rotate_dir(void *mngr, int value)
{
    if (value == 0 || value == 1)
        set(mngr, &stl_mngr::rotate_dir, value);
}

void vx_txt_stl_mngr_init(void *mngr, wchar_t const *column_name)
{
    auto *text = mngr ? mngr_of(mngr)->simple.edit<txt_style>(variant_of_style::base) : nullptr;
    if (text)
        text->lines.lines.assign(1, column_name ? column_name : L"");
}

void vx_clr_stl_mngr_set_style_mngr_mode(void *mngr, unsigned mode)
{
    if (mngr && mngr_of(mngr)->simple.kind() == style_kind::clr)
        mngr_of(mngr)->mode = mode;
}
