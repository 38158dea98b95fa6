#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "controls/tree_view/abstract_item_action.h"
#include "controls/tree_view/abstract_item_model.h"
#include "controls/tree_view/clm_widget.h"
#include "controls/tree_view/model_index.h"
#include "controls/tree_view/vcl_text_adapter.h"
#include "controls/tree_view/virtual_tree_view.h"
