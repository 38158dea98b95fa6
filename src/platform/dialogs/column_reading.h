#pragma once

#include "platform/base/export.h"

struct Ivx_attr_files;

/// Reads the column of a field of the attribute table, so that its cells are there at once. Reading that
/// lasts shows its progress as `vx_progress_start` does: nothing else takes the user's events until it has
/// ended. False when he has stopped it; the next reading goes on where this one was. True also where there is
/// no such field, and where it cannot be read: its cells have no value then.
///
/// While the progress is shown events are handled: whatever the caller holds, the table too, may be gone
/// afterwards.
[[nodiscard]] VX_API bool vx_attr_files_read_column(Ivx_attr_files const *files, unsigned field);
