#ifndef VXK_LIB_STYLES_H
#define VXK_LIB_STYLES_H

#include "platform/base/export.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Let the user take a style over from the style libraries into `style`, a composed style of the kind that
/// the name says: true when one was taken. False, and `style` as it was, when the user cancelled and where
/// there is no browser for the libraries.
VX_API bool vxk_lib_styles_get_pnt(void *style);
VX_API bool vxk_lib_styles_get_pln(void *style);
VX_API bool vxk_lib_styles_get_pgn(void *style);

#ifdef __cplusplus
}
#endif

#endif
