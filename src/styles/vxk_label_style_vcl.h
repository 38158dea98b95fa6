#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "styles/label/label_style_edit_dlg.h"
#include "styles/label/label_style_effects_dlg.h"
#include "styles/label/label_style_new_class_dlg.h"
#include "styles/label/label_style_panel.h"
