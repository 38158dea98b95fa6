#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "layer_edit/layout/layout_ids.h"
#include "layer_edit/layout/layout_image_edit.h"
#include "layer_edit/layout/layout_scalebar_edit.h"
#include "layer_edit/layout/layout_scene_edit.h"
#include "layer_edit/layout/lr_layout_edit.h"
#include "layer_edit/layout/lr_layout_edit_form.h"
