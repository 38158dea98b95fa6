#ifndef VXK_HOST_API_H
#define VXK_HOST_API_H

/// What a host needs beside the layer editor (vxk_lr2d_edit_form_api.h) when it has no toolkit of its own, or
/// is written in another language: a picture of a layer, and a loop of events. Layers themselves are opened,
/// cloned and ended by the functions of platform/layers/vx_shp_lr2d.h and vx_lr2d.h, which have C linkage
/// too.
///
/// Everything runs on the main thread. No exception passes these functions.

#include "platform/base/export.h"

#include <stdbool.h>

#ifdef __cplusplus
struct Ivx_layer;
extern "C" {
#else
typedef struct Ivx_layer Ivx_layer; ///< a layer of the engine
#endif

/// The box of the layer's features in map units: least x, least y, greatest x, greatest y. False, with
/// `extent` untouched, for null, for a layer without a vector data set, and for one without a feature that
/// has a place.
VX_API bool vx_host_get_extent(Ivx_layer *layer, double extent[4]);

/// Draws the layer with its own styles over what the pixels hold. All of `extent` is shown, centred, with
/// square pixels. A pixel has 32 bits: blue, green, red, alpha in memory, the colours premultiplied by alpha;
/// rows stand from the top, `bytes_per_line` apart. False for a null layer or null pixels, for sizes below 1,
/// lines shorter than their pixels, and when not all of the data could be read; what could be is drawn then.
VX_API bool vx_host_draw(Ivx_layer *layer, double const extent[4], int width, int height,
                         unsigned char *pixels, int bytes_per_line);

/// Handles the events of the library's windows that wait, and returns.
VX_API void vx_host_process_events(void);

/// Handles events until `vx_host_quit`, or until no window of the library is on the screen. Runs within
/// itself too; a quit ends all of them. Not for a host that has a loop of its own.
VX_API void vx_host_run(void);
VX_API void vx_host_quit(void);

#ifdef __cplusplus
}
#endif

#endif
