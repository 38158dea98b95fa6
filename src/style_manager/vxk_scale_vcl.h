#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "style_manager/api/data_events.h"
#include "style_manager/api/style_events.h"
#include "style_manager/api/style_mode.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/scales/scale_grid.h"
#include "style_manager/scales/val_edit.h"
#include "style_manager/scales/val_edit_btn.h"
#include "style_manager/scales/val_grid.h"
#include "style_manager/shell/smp_edit.h"
#include "style_manager/shell/stl_mngr_edit.h"
#include "style_manager/shell/style_avl_panel.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"
#include "style_manager/shell/vx2gp_env.h"
#include "style_manager/widgets/data_event_owner.h"
#include "style_manager/widgets/init_default_txt_line.h"
#include "style_manager/widgets/other_panel.h"
#include "style_manager/widgets/prp_scale.h"
#include "style_manager/widgets/style_btn.h"
#include "style_manager/widgets/style_mode_edit.h"
#include "style_manager/widgets/style_panel.h"
