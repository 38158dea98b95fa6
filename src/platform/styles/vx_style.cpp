#include "platform/styles/vx_style.h"

#include "platform/styles/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::styles;

VX_LIFE(vx_pnt_style, pnt_style)
VX_PART(vx_pnt_style, pnt_style, bpnt)
VX_FIELD(vx_pnt_style, pnt_style, pnt_visible, bool)

VX_LIFE(vx_pln_style, pln_style)
VX_PART(vx_pln_style, pln_style, bpln)
VX_PART(vx_pln_style, pln_style, bpnt)
VX_PART(vx_pln_style, pln_style, bend)
VX_PART(vx_pln_style, pln_style, bbeg)
VX_FIELD(vx_pln_style, pln_style, pln_visible, bool)
VX_FIELD(vx_pln_style, pln_style, pnt_visible, bool)
VX_FIELD(vx_pln_style, pln_style, end_visible, bool)
VX_FIELD(vx_pln_style, pln_style, beg_visible, bool)

VX_LIFE(vx_pgn_style, pgn_style)
VX_PART(vx_pgn_style, pgn_style, bpgn)
VX_PART(vx_pgn_style, pgn_style, bpln)
VX_PART(vx_pgn_style, pgn_style, bpnt)
VX_FIELD(vx_pgn_style, pgn_style, pgn_visible, bool)
VX_FIELD(vx_pgn_style, pgn_style, pln_visible, bool)
VX_FIELD(vx_pgn_style, pgn_style, pnt_visible, bool)
