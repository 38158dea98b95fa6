#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"

/// Widens a matrix of the plane to one of space that leaves heights as they are: x and y of the result depend
/// on x and y as in `plane`, its z is the z. Null pointers are ignored.
VX_API void vx_matrix4x4_init_matrix3x3(Tvx_matrix4x4 *space, Tvx_matrix3x3 const *plane);
