#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"
#include "layer_edit/page_api/lr2d_extensions.h"
#include "layer_edit/page_api/lr2d_pages.h"
#include "layer_edit/page_set/lr2d_edit.h"
#include "layer_edit/page_set/page_table.h"
#include "layer_edit/shape/attr_lr2d_edit.h"
#include "layer_edit/shape/shp_lr2d_edit.h"
