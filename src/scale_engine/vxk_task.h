#pragma once

// The scale engine, for its users.
#include "scale_engine/model/scale_path.h"
#include "scale_engine/model/scale_prm.h"
#include "scale_engine/model/scale_save_load.h"
