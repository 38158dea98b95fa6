#pragma once

#include "platform/base/export.h"
#include "platform/toolkit/core/types.h"

class TCanvas;

/// Paints the colours of a palette (vx_palette.h), a user's one or, where that is null, the built-in one of
/// the number: from the left to the right or, with `random`, as tiles in an order by chance. A palette
/// without colours leaves the frame empty.
VX_API void vx_clr_palette_draw(TCanvas *canvas, TRect const &rect, int number, void const *palette,
                                bool random);
