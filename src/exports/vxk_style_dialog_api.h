#ifndef VXK_STYLE_DIALOG_API_H
#define VXK_STYLE_DIALOG_API_H

/// The plain interface of the style dialogs, for hosts in C and C++. A host links against the library or
/// finds the functions by name with `dlsym`.

#include "styles/libraries/vxk_lib_styles.h"
#include "styles/simple/style_dialog.h"

#endif
