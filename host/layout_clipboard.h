#pragma once

#include "host/layout_elements.h"

/// An element of a layout on the clipboard, as a scene file of one layer, so that another program of ours
/// can take it.

void vx_layout_clipboard_put(Ivx_layer const *element);
[[nodiscard]] bool vx_layout_clipboard_has_any();
/// Null where the clipboard holds no element.
[[nodiscard]] Tvx_layout_element_ptr vx_layout_clipboard_get();
