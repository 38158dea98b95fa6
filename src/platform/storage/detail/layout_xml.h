#pragma once

#include "platform/storage/detail/xml_element.h"

struct Ivx_layer;

/// Elements of page layouts in files.
namespace vx::storage {
/// Whether the layer's file name says where data lie; else it is the name of a scene or of a frame.
[[nodiscard]] bool has_source(Ivx_layer const *layer);
/// What an element has beside what all layers have.
void write_layout_element(xml_out element, Ivx_layer *layer);
/// What lies outside its bounds makes the reading fail.
void read_layout_element(xml_in element, Ivx_layer *layer);
} // namespace vx::storage
