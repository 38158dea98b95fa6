#pragma once

#include "platform/base/export.h"

class TCanvas;
class TWinControl;

/// Paints a control, with all that it holds, on a canvas with its corner at (x, y), as it would look if it
/// were shown; the control may be hidden. Nothing for null pointers and on a canvas that is not open.
VX_API void vx_paint_to(TWinControl *control, TCanvas *canvas, int x, int y);
