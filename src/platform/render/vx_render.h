#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"
#include "platform/base/vertex_list.h"

/// A renderer draws geometry with base styles on a device of vx_bmp_dc.h. All functions accept null.

[[nodiscard]] VX_API void *vx_render_create();
VX_API void vx_render_destroy(void *render);
/// `box` of the geometry's coordinates fills the device, its upper edge at the top. The device, which must
/// outlive the renderer's drawing, says how large a millimetre is. Nothing is drawn before, nor with a box
/// without extent.
VX_API void vx_render_init(void *render, Tvx_box_d2 const &box, void *dc);

/// Draws the point at each vertex of the geometry.
VX_API void vx_render_cr_bpnt(void *render, Tvx_op2d const *geometry, void const *bpnt_style);
/// Draws the line along each part.
VX_API void vx_render_cr_bpln(void *render, Tvx_op2d const *geometry, void const *bpln_style);
/// Fills the area that lies in an odd number of parts, each taken as a closed ring.
VX_API void vx_render_cr_bpgn(void *render, Tvx_op2d const *geometry, void const *bpgn_style);
