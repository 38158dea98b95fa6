#pragma once

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"

#include <string>

/// Short forms for the tests of styles.
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_prm = vx::owned<void, &vx_stl_prm_destroy>;

[[nodiscard]] inline owned_mngr make_mngr(char const *type)
{
    return owned_mngr(vx_stl_mngr_create(type));
}

/// The text that `get(..., adapter)` hands out.
template <class F>
[[nodiscard]] std::wstring text_from(F get)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    get(adapter);
    return text;
}
[[nodiscard]] inline std::wstring val_text(void const *scale, unsigned i)
{
    return text_from([&](Ivx_string_adp *adp) { vx_val_scale_get_text_w(scale, i, adp); });
}
[[nodiscard]] inline void *val_prm(void *scale, unsigned i)
{
    return vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i));
}
/// Row of a range scale: 0 min, i + 1 range i, size + 1 max, size + 2 other.
[[nodiscard]] inline void *rng_row_prm(void *scale, unsigned row)
{
    unsigned const n = vx_rng_scale_get_size(scale);
    void *prm = row == 0       ? vx_rng_scale_get_min_prm_ptr(scale)
                : row <= n     ? vx_rng_scale_get_scale_prm_ptr(scale, row - 1)
                : row == n + 1 ? vx_rng_scale_get_max_prm_ptr(scale)
                               : vx_rng_scale_get_other_prm_ptr(scale);
    return vx_scale_prm_get_stl_prm_ptr(prm);
}

inline constexpr char const *c_all_types[] = {
    "pnt_style",   "pln_style",   "pgn_style",     "clr_style",     "grid1d_clr_style", "pnt3d_style",
    "pln3d_style", "pgn3d_style", "txt_pnt_style", "txt_pln_style", "txt_pgn_style"};
