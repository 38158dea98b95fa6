#include "platform/styles/vx_style3d.h"

#include "platform/styles/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::styles;

VX_LIFE(vx_bpnt3d_style, bpnt3d_style)
VX_FIELD(vx_bpnt3d_style, bpnt3d_style, color, Tvx_color)
VX_FIELD(vx_bpnt3d_style, bpnt3d_style, size, double)

VX_LIFE(vx_bpln3d_style, bpln3d_style)
VX_FIELD(vx_bpln3d_style, bpln3d_style, color, Tvx_color)
VX_FIELD(vx_bpln3d_style, bpln3d_style, width, double)

VX_LIFE(vx_bpgn3d_style, bpgn3d_style)
VX_FIELD(vx_bpgn3d_style, bpgn3d_style, color, Tvx_color)

VX_LIFE(vx_pnt3d_style, pnt3d_style)
VX_PART(vx_pnt3d_style, pnt3d_style, bpnt3d)
VX_FIELD(vx_pnt3d_style, pnt3d_style, pnt_visible, bool)

VX_LIFE(vx_pln3d_style, pln3d_style)
VX_PART(vx_pln3d_style, pln3d_style, bpln3d)
VX_PART(vx_pln3d_style, pln3d_style, bpnt3d)
VX_FIELD(vx_pln3d_style, pln3d_style, pln_visible, bool)
VX_FIELD(vx_pln3d_style, pln3d_style, pnt_visible, bool)

VX_LIFE(vx_pgn3d_style, pgn3d_style)
VX_PART(vx_pgn3d_style, pgn3d_style, bpgn3d)
VX_PART(vx_pgn3d_style, pgn3d_style, bpln3d)
VX_PART(vx_pgn3d_style, pgn3d_style, bpnt3d)
VX_FIELD(vx_pgn3d_style, pgn3d_style, pgn_visible, bool)
VX_FIELD(vx_pgn3d_style, pgn3d_style, pln_visible, bool)
VX_FIELD(vx_pgn3d_style, pgn3d_style, pnt_visible, bool)
