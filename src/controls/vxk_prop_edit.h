#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "controls/prop/bool_panel.h"
#include "controls/prop/chrmap_panel.h"
#include "controls/prop/clr_panel.h"
#include "controls/prop/clr_picker.h"
#include "controls/prop/clr_vsb_panel.h"
#include "controls/prop/color_convert.h"
#include "controls/prop/data_events.h"
#include "controls/prop/dbf_prop_panel.h"
#include "controls/prop/dbf_show.h"
#include "controls/prop/entities_prop_edit.h"
#include "controls/prop/figure_dialog_form.h"
#include "controls/prop/figure_panel.h"
#include "controls/prop/file_panel.h"
#include "controls/prop/fnt_panel.h"
#include "controls/prop/histogram_panel.h"
#include "controls/prop/image_convert.h"
#include "controls/prop/prop_combo_box.h"
#include "controls/prop/prop_edit.h"
#include "controls/prop/visible_ctrl.h"
