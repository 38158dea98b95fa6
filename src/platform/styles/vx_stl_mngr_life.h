#pragma once

#include "platform/base/export.h"

#include <memory>

/// Expires when the style manager ends, for whoever shows a dialog meanwhile and writes into the manager
/// behind it. What is assigned to the manager does not end it. Expired for null. On the main thread.
[[nodiscard]] VX_API std::weak_ptr<void const> vx_stl_mngr_life(void const *mngr);
