#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "controls/item_grid/item_actions.h"
#include "controls/item_grid/item_column.h"
#include "controls/item_grid/item_columns.h"
#include "controls/item_grid/item_grid.h"
#include "controls/item_grid/item_panels.h"
