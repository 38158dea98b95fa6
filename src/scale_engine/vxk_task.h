#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "scale_engine/model/scale_path.h"
#include "scale_engine/model/scale_prm.h"
#include "scale_engine/model/scale_save_load.h"
