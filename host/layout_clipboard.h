#pragma once

#include "host/layout_elements.h"

#include <vector>

/// Elements of a layout on the clipboard, the lowest first, as a scene file whose layers they are, so that
/// another program of ours can take them. One has a format of its own.

void vx_layout_clipboard_put(std::vector<Ivx_layer const *> const &elements);
[[nodiscard]] bool vx_layout_clipboard_has_any();
/// Empty when there are none.
[[nodiscard]] std::vector<Tvx_layout_element_ptr> vx_layout_clipboard_get();
