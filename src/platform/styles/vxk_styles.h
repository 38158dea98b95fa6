#pragma once

// All of the style module, for its users.
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_round_digits.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style3d.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/styles/vx_txt_settings.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/styles/vx_val_scale.h"
