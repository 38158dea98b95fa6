#ifndef VXK_LIB_STYLES_H
#define VXK_LIB_STYLES_H

#include "platform/base/export.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Let the user take a style over from the style libraries into `style`, a composed style of the kind that
/// the name says, in a modal dialog: true when one was taken. False, and `style` as it was, when the user
/// cancelled and, after a warning, where there is no library.
VX_API bool vxk_lib_styles_get_pnt(void *style);
VX_API bool vxk_lib_styles_get_pln(void *style);
VX_API bool vxk_lib_styles_get_pgn(void *style);

/// Reads the libraries unless they are there, under the hourglass; true if there is at least one.
VX_API bool vx_call_vx_global_lib_styles_load(void);

#ifdef __cplusplus
}
#endif

#endif
