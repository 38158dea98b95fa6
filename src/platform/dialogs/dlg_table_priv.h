#pragma once

#include "platform/dialogs/vx_dlg_table.h"

namespace vx::dialogs {
/// The dialogs in force.
[[nodiscard]] vx_dlg_table const &table();
} // namespace vx::dialogs
