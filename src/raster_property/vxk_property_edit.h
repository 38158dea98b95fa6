#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "raster_property/property/interpolate_cb.h"
#include "raster_property/property/tos_2crd_lr2d_edit.h"
#include "raster_property/property/tos_draw_type_combo_box.h"
#include "raster_property/property/tos_grid_1d_lr2d_edit.h"
#include "raster_property/property/tos_grid_lr2d_edit.h"
#include "raster_property/property/tos_lr2d_edit.h"
#include "raster_property/property/tos_prp_crd_panel.h"
#include "raster_property/property/tos_slice_lr2d_edit.h"
