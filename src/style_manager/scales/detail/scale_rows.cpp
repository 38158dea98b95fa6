#include "style_manager/scales/detail/scale_rows.h"

#include "scale_engine/range/detail/range_rows.h"
#include "scale_engine/value/detail/value_rows.h"

#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"

namespace engine = vx::task::detail;

Tvx_scale_rows::Tvx_scale_rows(void *mngr)
    : f_mode(mngr ? vx_stl_mngr_get_mode(mngr) : c_style_mode_none),
      f_scale(f_mode == c_style_mode_value   ? vx_stl_mngr_get_val_scale_ptr(mngr)
              : f_mode == c_style_mode_range ? vx_stl_mngr_get_rng_scale_ptr(mngr)
              : f_mode == c_style_mode_rule  ? vx_stl_mngr_get_rule_scale_ptr(mngr)
                                             : nullptr)
{
}

unsigned Tvx_scale_rows::get_size() const
{
    if (!f_scale)
        return 0;
    return is_range() ? vx_rng_scale_get_size(f_scale) + 2 : vx_val_scale_get_size(f_scale);
}

bool Tvx_scale_rows::get_marked(unsigned row) const
{
    if (!is_range())
        return vx_val_scale_get_marked(f_scale, row);
    if (row == 0)
        return vx_rng_scale_get_min_marked(f_scale);
    return row + 1 < get_size() ? vx_rng_scale_get_marked(f_scale, row - 1)
                                : vx_rng_scale_get_max_marked(f_scale);
}

void Tvx_scale_rows::set_marked(unsigned row, bool marked)
{
    if (!is_range())
        vx_val_scale_set_marked(f_scale, row, marked);
    else if (row == 0)
        vx_rng_scale_set_min_marked(f_scale, marked);
    else if (row + 1 < get_size())
        vx_rng_scale_set_marked(f_scale, row - 1, marked);
    else
        vx_rng_scale_set_max_marked(f_scale, marked);
}

bool Tvx_scale_rows::has_marked() const
{
    return is_range() ? find_first(true) >= 0 : vx_val_scale_get_marked_count(f_scale) > 0;
}

int Tvx_scale_rows::find_first(bool only_marked) const
{
    for (unsigned row = 0, size = get_size(); row < size; ++row)
        if (!only_marked || get_marked(row))
            return static_cast<int>(row);
    return -1;
}

void *Tvx_scale_rows::get_scale_prm_ptr(unsigned row) const
{
    return is_range() ? engine::range_row_prm(f_scale, row) : vx_val_scale_get_scale_prm_ptr(f_scale, row);
}

void *Tvx_scale_rows::get_stl_prm_ptr(unsigned row) const
{
    return vx_scale_prm_get_stl_prm_ptr(get_scale_prm_ptr(row));
}

void Tvx_scale_rows::set_stl_prm(unsigned row, void const *stl_prm, bool sel)
{
    if (is_range())
        engine::set_range_row_style(f_scale, row, stl_prm, sel);
    else
        vx_val_scale_set_stl_prm(f_scale, row, stl_prm, sel);
}

std::vector<unsigned> Tvx_scale_rows::select(bool only_marked) const
{
    if (!f_scale)
        return {};
    return is_range() ? engine::range_rows(f_scale, only_marked) : engine::value_rows(f_scale, only_marked);
}
