#pragma once

#include "platform/base/closure.h"

#include <string>

class TBitmap;
class TObject;

/// Events by which the editors of a style manager reach the styles, whose type they do not know. `stl_prm`
/// are style parameters (vx_stl_prm.h), not owned; `sel` means the style of selected objects.

/// Paints an example of the style into the bitmap.
using Tvx_draw_style_event = closure<void(TObject *sender, TBitmap *bitmap, void *stl_prm, bool sel)>;
/// Opens the style dialog at a point of the screen; true if the style was changed.
using Tvx_edit_style_event = closure<bool(TObject *sender, int x, int y, void *stl_prm, bool sel)>;
/// Puts symbol `code` of library `lib_idx` into the style and gives its caption; false if there is none.
using Tvx_lib_symbol_style_event =
    closure<bool(TObject *sender, int lib_idx, int code, void *stl_prm, bool sel, std::wstring &caption)>;
/// Lets the user edit the text of a rule; true if it was accepted.
using Tvx_edit_value_item_event = closure<bool(std::wstring &text)>;
