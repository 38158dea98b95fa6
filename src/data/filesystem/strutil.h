#pragma once

/// Text helpers lie in the base, where the platform has them too.
#include "platform/base/strutil.h" // IWYU pragma: export
