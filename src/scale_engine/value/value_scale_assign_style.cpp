#include "scale_engine/value/value_scale_assign_style.h"

#include "scale_engine/model/scale_prm.h"
#include "scale_engine/value/detail/value_rows.h"

#include "platform/styles/vx_val_scale.h"

namespace vx::task {
namespace {
detail::prm_list all_rows(void *scale)
{
    auto rows = detail::value_row_prms(scale, false);
    rows.push_back(vx_val_scale_get_other_prm_ptr(scale));
    return rows;
}
} // namespace

void value_scale_assign_style::execute_pnt(void *scale, void const *style)
{
    detail::assign_to_rows(all_rows(scale), style, &detail::scale_prm::assign_pnt_style);
}

void value_scale_assign_style::execute_pln(void *scale, void const *style)
{
    detail::assign_to_rows(all_rows(scale), style, &detail::scale_prm::assign_pln_style);
}

void value_scale_assign_style::execute_pgn(void *scale, void const *style)
{
    detail::assign_to_rows(all_rows(scale), style, &detail::scale_prm::assign_pgn_style);
}
} // namespace vx::task
