#pragma once

#include "captions/host.h"

#include <QString>

/// The text in the language that is set. A `%1` in it is filled in by the caller.
[[nodiscard]] QString vx_host_caption(Tvx_host_caption number);
