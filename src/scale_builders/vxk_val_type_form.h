#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "scale_builders/common/builder_form.h"
#include "scale_builders/common/choice_panel.h"
#include "scale_builders/value/stdleg_items.h"
#include "scale_builders/value/stdleg_load_dbf.h"
#include "scale_builders/value/val_capt_statistic.h"
#include "scale_builders/value/val_choice_panels.h"
#include "scale_builders/value/val_exec.h"
#include "scale_builders/value/val_legend_panels.h"
#include "scale_builders/value/val_panel.h"
#include "scale_builders/value/val_param_panels.h"
#include "scale_builders/value/val_params.h"
#include "scale_builders/value/val_rebuild_with_legend_exec.h"
#include "scale_builders/value/val_rescale_panel.h"
#include "scale_builders/value/val_statistic.h"
#include "scale_builders/value/val_statistic_calc.h"
#include "scale_builders/value/val_type_dlg.h"
#include "scale_builders/value/val_type_form.h"
