#include "platform/styles/vx_stl_mngr.h"

#include "platform/base/text_codec.h"
#include "platform/styles/detail/mngr_model.h"

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
    return mngr ? new stl_mngr(*mngr_of(mngr)) : nullptr;
}

void vx_stl_mngr_destroy(void *mngr)
{
    delete mngr_of(mngr);
}

void vx_stl_mngr_assign(void *target, void const *source)
{
    if (target && source && target != source)
        *mngr_of(target) = *mngr_of(source);
}

bool vx_stl_mngr_equal(void const *a, void const *b)
{
    return a == b || (a && b && *mngr_of(a) == *mngr_of(b));
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
    return mngr ? &mngr_of(mngr)->simple : nullptr;
}

void *vx_stl_mngr_get_val_scale_ptr(void *mngr)
{
    return mngr ? &mngr_of(mngr)->values : nullptr;
}

void *vx_stl_mngr_get_rng_scale_ptr(void *mngr)
{
    return mngr ? &mngr_of(mngr)->ranges : nullptr;
}

void *vx_stl_mngr_get_rule_scale_ptr(void *mngr)
{
    return mngr ? &mngr_of(mngr)->rules : nullptr;
}

#define VX_MNGR_TEXT(name)                                                                                   \
    void vx_stl_mngr_get_##name##_w(void const *mngr, Ivx_string_adp *adp)                                   \
    {                                                                                                        \
        vx_string_adp_feed(adp, mngr ? mngr_of(mngr)->name.c_str() : L"");                                   \
    }
#define VX_MNGR_TEXT_SET(name)                                                                               \
    void vx_stl_mngr_set_##name##_w(void *mngr, wchar_t const *text)                                         \
    {                                                                                                        \
        if (mngr)                                                                                            \
            mngr_of(mngr)->name = text ? text : L"";                                                         \
    }
VX_MNGR_TEXT(name)
VX_MNGR_TEXT_SET(name)
VX_MNGR_TEXT(val_prop_name)
VX_MNGR_TEXT_SET(val_prop_name)
VX_MNGR_TEXT(rng_prop_name)
VX_MNGR_TEXT_SET(rng_prop_name)
VX_MNGR_TEXT(rotate_prop_name)
#undef VX_MNGR_TEXT
#undef VX_MNGR_TEXT_SET

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

#define VX_MNGR_FIELD(field, type, valid)                                                                    \
    type vx_stl_mngr_get_##field(void const *mngr)                                                           \
    {                                                                                                        \
        return mngr ? mngr_of(mngr)->field : type{};                                                         \
    }                                                                                                        \
    void vx_stl_mngr_set_##field(void *mngr, type value)                                                     \
    {                                                                                                        \
        if (mngr && (valid))                                                                                 \
            mngr_of(mngr)->field = value;                                                                    \
    }
VX_MNGR_FIELD(mode, unsigned, true)
VX_MNGR_FIELD(need_scale, bool, true)
VX_MNGR_FIELD(just_loaded, bool, true)
VX_MNGR_FIELD(rotate_flag, bool, true)
VX_MNGR_FIELD(rotate_spot_flag, bool, true)
VX_MNGR_FIELD(rotate_hatch_flag, bool, true)
VX_MNGR_FIELD(rotate_start, int, value >= 0 && value <= 3)
VX_MNGR_FIELD(rotate_dir, int, value == 0 || value == 1)
#undef VX_MNGR_FIELD

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
