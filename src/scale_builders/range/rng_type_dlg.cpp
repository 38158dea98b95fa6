#include "scale_builders/range/rng_type_dlg.h"

#include "scale_builders/range/rng_rescale.h"
#include "scale_builders/range/rng_type_form.h"

namespace {
bool offers_natural = false;
} // namespace

bool vx_rng_type_dlg(int x, int y, void *stl_mngr, Tvx_data_open_event on_data_open,
                     Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                     Tvx_data_get_no_event on_data_get_no, Tvx_data_get_prop_event on_data_get_prop,
                     Tvx_data_get_stat_event on_data_get_stat, Tvx_data_get_str_event on_data_get_str,
                     Tvx_data_get_val_event on_data_get_val)
{
    if (!stl_mngr)
        return false;
    Tvx_vcl_rng_type_form form(nullptr);
    return form.dialog(x, y, stl_mngr,
                       vx_gather_data(on_data_open, on_data_close, on_data_get_np, on_data_get_no,
                                      on_data_get_prop, on_data_get_stat, on_data_get_str, on_data_get_val));
}

bool vx_rng_type_rescale(void *stl_mngr, Tvx_data_open_event on_data_open, Tvx_data_close_event on_data_close,
                         Tvx_data_get_np_event on_data_get_np, Tvx_data_get_no_event on_data_get_no,
                         Tvx_data_get_prop_event on_data_get_prop, Tvx_data_get_stat_event on_data_get_stat,
                         Tvx_data_get_str_event on_data_get_str, Tvx_data_get_val_event on_data_get_val)
{
    return Tvx_rng_rescale::execute(
        stl_mngr, vx_gather_data(on_data_open, on_data_close, on_data_get_np, on_data_get_no,
                                 on_data_get_prop, on_data_get_stat, on_data_get_str, on_data_get_val));
}

void vx_rng_type_set_offer_natural(bool offer)
{
    offers_natural = offer;
}

bool vx_rng_type_get_offer_natural()
{
    return offers_natural;
}
