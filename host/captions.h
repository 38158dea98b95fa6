#pragma once

#include "captions/host.h"
#include "captions/layout_window.h"
#include "captions/map.h"

#include <QString>

/// The text in the language that is set. A `%1` in it is filled in by the caller.
[[nodiscard]] QString vx_host_caption(Tvx_host_caption number);
[[nodiscard]] QString vx_map_caption(Tvx_map_caption number);
[[nodiscard]] QString vx_layout_caption(Tvx_layout_window_caption number);
