#pragma once

#include "style_manager/api/data_events.h"

#include "platform/base/export.h"

/// The value builder as a plain function: shows the dialog at a point of the screen, (0, 0) for the middle,
/// and gives true if the user applied it. A dialog that was cancelled leaves the scale as it was. The events
/// are those of `Tvx_data_events`, called with no sender; without one of them, but for those of captions and
/// statistics, there are no values. Main thread only.
[[nodiscard]] VX_API bool
vx_val_type_dlg(int x, int y, void *stl_mngr, Tvx_data_open_event on_data_open,
                Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                Tvx_data_get_no_event on_data_get_no, Tvx_data_get_prop_event on_data_get_prop,
                Tvx_data_get_capt_prop_event on_data_get_capt_prop, Tvx_data_get_stat_event on_data_get_stat,
                Tvx_data_get_str_event on_data_get_str, Tvx_data_get_val_event on_data_get_val);
