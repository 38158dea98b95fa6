#include "style_manager/widgets/init_default_txt_line.h"

#include "platform/base/ascii_case.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/styles/vx_val_scale.h"

namespace {
void *txt_style_of(void *stl_prm)
{
    char const *const type = vx_stl_prm_get_style_type(stl_prm);
    if (vx::text::ascii_same(type, c_txt_pgn_style))
        return vx_stl_prm_get_txt_pgn_style_ptr(stl_prm, false);
    if (vx::text::ascii_same(type, c_txt_pln_style))
        return vx_stl_prm_get_txt_pln_style_ptr(stl_prm, false);
    if (vx::text::ascii_same(type, c_txt_pnt_style))
        return vx_stl_prm_get_txt_pnt_style_ptr(stl_prm, false);
    return nullptr;
}

void init_scale_prm(void *scale_prm, wchar_t const *name)
{
    Tvx_init_default_txt_line::init_stl_prm_default_txt(vx_scale_prm_get_stl_prm_ptr(scale_prm), name);
}
} // namespace

void Tvx_init_default_txt_line::execute_val(void *scale, wchar_t const *name)
{
    unsigned const size = vx_val_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i)
        init_scale_prm(vx_val_scale_get_scale_prm_ptr(scale, i), name);
    init_scale_prm(vx_val_scale_get_other_prm_ptr(scale), name);
}

void Tvx_init_default_txt_line::execute_rng(void *scale, wchar_t const *name)
{
    unsigned const size = vx_rng_scale_get_size(scale);
    for (unsigned i = 0; i < size; ++i)
        init_scale_prm(vx_rng_scale_get_scale_prm_ptr(scale, i), name);
    init_scale_prm(vx_rng_scale_get_other_prm_ptr(scale), name);
    init_scale_prm(vx_rng_scale_get_min_prm_ptr(scale), name);
    init_scale_prm(vx_rng_scale_get_max_prm_ptr(scale), name);
}

void Tvx_init_default_txt_line::init_stl_prm_default_txt(void *stl_prm, wchar_t const *name)
{
    auto *const style = stl_prm ? txt_style_of(stl_prm) : nullptr;
    auto *const lines = style ? vx_txt_style_get_txt_stl_line(style) : nullptr;
    if (!lines || vx_txt_stl_line_count(lines) > 0)
        return;
    vx_txt_stl_line_add(lines, 1);
    vx_txt_stl_line_set_str(lines, name, 0);
}
