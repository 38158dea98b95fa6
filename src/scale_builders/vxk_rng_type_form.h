#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "scale_builders/common/builder_form.h"
#include "scale_builders/common/choice_panel.h"
#include "scale_builders/range/rng_choice_panels.h"
#include "scale_builders/range/rng_exec.h"
#include "scale_builders/range/rng_logarithm_params_panel.h"
#include "scale_builders/range/rng_panel.h"
#include "scale_builders/range/rng_param_panels.h"
#include "scale_builders/range/rng_params.h"
#include "scale_builders/range/rng_params_panel.h"
#include "scale_builders/range/rng_rescale.h"
#include "scale_builders/range/rng_sample_calc.h"
#include "scale_builders/range/rng_stat_info_panel.h"
#include "scale_builders/range/rng_statistic.h"
#include "scale_builders/range/rng_statistic_calc.h"
#include "scale_builders/range/rng_type_dlg.h"
#include "scale_builders/range/rng_type_form.h"
