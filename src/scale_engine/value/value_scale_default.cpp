#include "scale_engine/value/value_scale_default.h"

#include "scale_engine/model/scale_save_load.h"
#include "scale_engine/value/value_scale_make_colors.h"
#include "scale_engine/value/value_scale_rebuild.h"

#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"

#include <utility>

namespace vx::task {
value_scale_default::value_scale_default(vx::data::connection connection, std::wstring field,
                                         Tvx_clr_palette_idx palette)
    : f_connection(std::move(connection)), f_field(std::move(field)), f_palette(palette)
{
}

bool value_scale_default::execute(void *stl_mngr, std::uint64_t limit) const
{
    init_scale(stl_mngr);
    if (load_scale(stl_mngr))
        return true;
    make_default_scale(stl_mngr, limit);
    return save_scale(stl_mngr);
}

void value_scale_default::init_scale(void *stl_mngr) const
{
    vx_stl_mngr_set_mode(stl_mngr, c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(stl_mngr, f_field.c_str());
}

bool value_scale_default::load_scale(void *stl_mngr) const
{
    return scale_save_load::load_value(f_connection.source(), f_field, stl_mngr);
}

void value_scale_default::make_default_scale(void *stl_mngr, std::uint64_t limit) const
{
    void *const scale = vx_stl_mngr_get_val_scale_ptr(stl_mngr);
    vx_val_scale_init_opacity_pts(scale);
    value_scale_rebuild(f_field, limit).execute(scale, f_connection);
    value_scale_make_colors::execute(scale, f_palette, nullptr, false, false, false);
}

bool value_scale_default::save_scale(void const *stl_mngr) const
{
    return detail::scale_save::save_value(f_connection.source(), f_field, stl_mngr);
}
} // namespace vx::task
