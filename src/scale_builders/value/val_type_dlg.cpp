#include "scale_builders/value/val_type_dlg.h"

#include "scale_builders/value/val_type_form.h"

bool vx_val_type_dlg(int x, int y, void *stl_mngr, Tvx_data_open_event on_data_open,
                     Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                     Tvx_data_get_no_event on_data_get_no, Tvx_data_get_prop_event on_data_get_prop,
                     Tvx_data_get_capt_prop_event on_data_get_capt_prop,
                     Tvx_data_get_stat_event on_data_get_stat, Tvx_data_get_str_event on_data_get_str,
                     Tvx_data_get_val_event on_data_get_val)
{
    if (!stl_mngr)
        return false;
    auto data = vx_gather_data(on_data_open, on_data_close, on_data_get_np, on_data_get_no, on_data_get_prop,
                               on_data_get_stat, on_data_get_str, on_data_get_val);
    data.get_capt_prop = on_data_get_capt_prop;
    Tvx_vcl_val_type_form form(nullptr);
    return form.dialog(x, y, stl_mngr, data);
}
