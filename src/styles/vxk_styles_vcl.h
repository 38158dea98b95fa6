#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "styles/preview/style3d_params.h"
#include "styles/preview/style_example.h"
#include "styles/preview/txt_style_draw.h"
#include "styles/simple/base_style_edit.h"
#include "styles/simple/bpgn_edit.h"
#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "styles/simple/composed_style_edit.h"
#include "styles/simple/cpx_stl_panel.h"
#include "styles/simple/lib_stl_panel.h"
#include "styles/simple/paged_style_edit.h"
#include "styles/simple/pgn_stl_edit.h"
#include "styles/simple/pln_stl_edit.h"
#include "styles/simple/pnt_stl_edit.h"
#include "styles/simple/style_btns.h"
#include "styles/simple/style_dialog.h"
#include "styles/simple/style_dlgs.h"
#include "styles/simple/style_edit.h"
#include "styles/simple/style_panels.h"
