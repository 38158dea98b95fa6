#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "layer_edit/text/dtld_lr2d_edit.h"
#include "layer_edit/text/tld_lr2d_edit.h"
#include "layer_edit/text/txt_mngr_lr2d_edit.h"
