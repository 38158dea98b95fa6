#include "scale_engine/model/scale_prm.h"

#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style.h"

namespace vx::task::detail {
namespace {
constexpr bool c_base = false;
}

void scale_prm::assign_pnt_style(void *scale_prm, void const *style)
{
    void *const stl_prm = vx_scale_prm_get_stl_prm_ptr(scale_prm);
    vx_pnt_style_assign(vx_stl_prm_get_pnt_style_ptr(stl_prm, c_base), style);
}

void scale_prm::assign_pln_style(void *scale_prm, void const *style)
{
    void *const stl_prm = vx_scale_prm_get_stl_prm_ptr(scale_prm);
    vx_pln_style_assign(vx_stl_prm_get_pln_style_ptr(stl_prm, c_base), style);
}

void scale_prm::assign_pgn_style(void *scale_prm, void const *style)
{
    void *const stl_prm = vx_scale_prm_get_stl_prm_ptr(scale_prm);
    vx_pgn_style_assign(vx_stl_prm_get_pgn_style_ptr(stl_prm, c_base), style);
}
} // namespace vx::task::detail
