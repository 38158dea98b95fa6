#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "raster_property/channels/channel_combo_box.h"
#include "raster_property/channels/channel_edit.h"
#include "raster_property/channels/channel_events.h"
#include "raster_property/channels/channel_histogramm.h"
#include "raster_property/channels/channels_edit.h"
#include "raster_property/channels/track_double.h"
