#pragma once

#include "style_manager/api/data_events.h"

#include "platform/base/export.h"

/// The range builder as plain functions. The events are those of `Tvx_data_events`, called with no sender;
/// all but `on_data_get_stat` must be set, or there are no statistics and no rescale. Main thread only.

/// Shows the dialog at a point of the screen, (0, 0) for the middle, and gives true if it changed the
/// manager's range scale. A dialog that was cancelled leaves the scale as it was.
[[nodiscard]] VX_API bool
vx_rng_type_dlg(int x, int y, void *stl_mngr, Tvx_data_open_event on_data_open,
                Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                Tvx_data_get_no_event on_data_get_no, Tvx_data_get_prop_event on_data_get_prop,
                Tvx_data_get_stat_event on_data_get_stat, Tvx_data_get_str_event on_data_get_str,
                Tvx_data_get_val_event on_data_get_val);
/// Repeats the classification of the manager's range scale on what its field holds now (see
/// `Tvx_rng_rescale`). True if the scale was classified.
[[nodiscard]] VX_API bool
vx_rng_type_rescale(void *stl_mngr, Tvx_data_open_event on_data_open, Tvx_data_close_event on_data_close,
                    Tvx_data_get_np_event on_data_get_np, Tvx_data_get_no_event on_data_get_no,
                    Tvx_data_get_prop_event on_data_get_prop, Tvx_data_get_stat_event on_data_get_stat,
                    Tvx_data_get_str_event on_data_get_str, Tvx_data_get_val_event on_data_get_val);

/// Whether the dialog offers natural breaks, as the last kind; false at first. A host says so once, for the
/// life of the process; a dialog that is open stays as it is.
VX_API void vx_rng_type_set_offer_natural(bool offer);
[[nodiscard]] VX_API bool vx_rng_type_get_offer_natural();
