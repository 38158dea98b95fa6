#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

struct Ivx_entity;
struct Tvx_stat_data;

/// A property file behind a layer, by name: nothing is opened here. Counted: clones of a layer hold one
/// object together. Main thread only; all functions accept null.
struct Ivx_tos_data;

/// With a count of one. The name of a data object never changes.
[[nodiscard]] VX_API Ivx_tos_data *vx_tos_data_create(wchar_t const *file_name);
/// Counts once more and gives the object back.
VX_API Ivx_tos_data *vx_tos_data_retain(Ivx_tos_data *data);
/// Counts once less; at none the object goes.
VX_API void vx_tos_data_release(Ivx_tos_data *data);
[[nodiscard]] VX_API Ivx_tos_data *vx_tos_data_safe_downcast(Ivx_entity *entity);
[[nodiscard]] VX_API Ivx_entity *vx_tos_data_safe_upcast(Ivx_tos_data *data);
VX_API void vx_tos_data_get_wfilename(Ivx_tos_data const *data, Ivx_string_adp *file_name);

/// What works statistics of one property out for the record of a channel (platform/basic/vx_stat.h). What the
/// file knows already is not worked out again; what is worked out of all cells is kept there, or in memory
/// where the file cannot be written.
struct Tvx_tos_stat;

/// The file is opened with the first question. The caller ends it with `vx_tos_data_tos_stat_destroy`.
[[nodiscard]] VX_API Tvx_tos_stat *vx_tos_data_tos_stat_create(wchar_t const *file_name, unsigned prop);
VX_API void vx_tos_data_tos_stat_destroy(Tvx_tos_stat *ts);
/// Fills the four numbers. False, with the record as it was, when the cells cannot be read or none has a
/// value.
VX_API bool vx_tos_data_compute_stat(Tvx_tos_stat *ts, Tvx_stat_data *stat);
/// Fills the histogram, of 256 classes from the record's minimum to its maximum, which are worked out first
/// where the record has none.
VX_API bool vx_tos_data_compute_hg(Tvx_tos_stat *ts, Tvx_stat_data *stat);
/// The same between bounds of the caller's, of which the lower comes first. False for bounds that are not
/// finite or not in order.
VX_API bool vx_tos_data_compute_hg_min_max(Tvx_tos_stat *ts, Tvx_stat_data *stat, double minimum,
                                           double maximum);
/// Goes over all cells whatever is known, and fills the four numbers and the histogram between them.
VX_API bool vx_tos_data_update_hg(Tvx_tos_stat *ts, Tvx_stat_data *stat);
