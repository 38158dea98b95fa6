#pragma once

#include "platform/storage/detail/xml_element.h"

struct Ivx_layer;

/// Dynamic text layers in files.
namespace vx::storage {
/// Whether the layer has one class as it was made and is not visible, which a scene need not tell.
[[nodiscard]] bool has_new_text_classes(Ivx_layer *text_layer);
/// Writes visibility and classes of a dynamic text layer, and a number for its parent.
void write_text_layer(xml_out element, Ivx_layer *text_layer, int parent);
/// Where the reading fails the layer is as it was.
void read_text_layer(xml_in element, Ivx_layer *text_layer, int &parent);

/// The classes alone: an attribute `current` and an element for each class.
void write_text_classes(xml_out &element, Ivx_layer *text_layer);
void read_text_classes(xml_in &element, Ivx_layer *text_layer);
} // namespace vx::storage
