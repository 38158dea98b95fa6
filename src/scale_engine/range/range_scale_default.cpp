#include "scale_engine/range/range_scale_default.h"

#include "scale_engine/model/scale_save_load.h"
#include "scale_engine/range/range_scale_make_colors.h"
#include "scale_engine/range/range_scale_reset.h"

#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"

#include <utility>

namespace vx::task {
range_scale_default::range_scale_default(vx::data::connection connection, std::wstring field,
                                         Tvx_clr_palette_idx palette)
    : f_connection(std::move(connection)), f_field(std::move(field)), f_palette(palette)
{
}

bool range_scale_default::execute(void *stl_mngr, unsigned nranges) const
{
    init_scale(stl_mngr);
    if (load_scale(stl_mngr))
        return true;
    make_default_scale(stl_mngr, nranges);
    return save_scale(stl_mngr);
}

void range_scale_default::init_scale(void *stl_mngr) const
{
    vx_stl_mngr_set_mode(stl_mngr, c_stl_mngr_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(stl_mngr, f_field.c_str());
}

bool range_scale_default::load_scale(void *stl_mngr) const
{
    return scale_save_load::load_range(f_connection.source(), f_field, stl_mngr);
}

void range_scale_default::make_default_scale(void *stl_mngr, unsigned nranges) const
{
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(stl_mngr);
    vx_rng_scale_init_opacity_pts(scale);
    if (range_scale_reset(f_connection, f_field).execute(scale, nranges))
        range_scale_make_colors::execute(scale, f_palette, nullptr, false, false, false);
}

bool range_scale_default::save_scale(void const *stl_mngr) const
{
    return detail::scale_save::save_range(f_connection.source(), f_field, stl_mngr);
}
} // namespace vx::task
