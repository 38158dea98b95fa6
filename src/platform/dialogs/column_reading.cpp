#include "platform/dialogs/column_reading.h"

#include "captions/builders.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/toolkit/core/screen.h"

bool vx_attr_files_read_column(Ivx_attr_files const *files, unsigned field)
{
    constexpr int c_slice_ms = 20;
    // The one that the caller has may be closed on the way.
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const own(
        vx_attr_files_open(vx_attr_files_get_data(files), 1, 0));
    vx_wait_cursor const waiting;
    if (!vx_attr_files_read_on(own.get(), field, c_slice_ms))
        return true;
    Tvx_progress progress(
        vx_res_format_w(c_bld_reading, vx_attr_files_get_field_name_w(own.get(), field)).c_str());
    do {
        if (progress.is_stopped())
            return false;
        progress.set(static_cast<int>(100 * vx_attr_files_get_read_part(own.get(), field)));
    } while (vx_attr_files_read_on(own.get(), field, c_slice_ms));
    return true;
}
