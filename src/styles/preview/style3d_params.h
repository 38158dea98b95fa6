#pragma once

#include "platform/base/export.h"

/// Take over from a base style of space what its twin of the plane has too. The other parameters of the
/// target stay. Null does nothing.

/// Colour and size.
VX_API void vx_copy_bpnt_params(void const *source_3d, void *target_2d);
/// Colour, and a quarter of the width: the width of a line in space counts four times that of a line in the
/// plane.
VX_API void vx_copy_bpln_params(void const *source_3d, void *target_2d);
/// Colour.
VX_API void vx_copy_bpgn_params(void const *source_3d, void *target_2d);
