#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "styles/libraries/lib_panel.h"
#include "styles/libraries/lib_style_paint.h"
#include "styles/libraries/lib_style_panel.h"
#include "styles/libraries/lib_tree_panel.h"
#include "styles/libraries/libs_select_panel.h"
#include "styles/libraries/list_style_panel.h"
#include "styles/libraries/stl_lib_search_form.h"
#include "styles/libraries/style_libs_form.h"
#include "styles/libraries/vxk_lib_styles.h"
