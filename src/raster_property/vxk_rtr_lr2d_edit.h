#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "raster_property/raster/rtr_draw_type_combo_box.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"
#include "raster_property/raster/rtr_lr2d_edit.h"
