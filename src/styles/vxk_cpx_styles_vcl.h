#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "styles/complex/edit_cpx_style.h"
