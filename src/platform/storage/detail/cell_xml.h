#pragma once

#include "platform/storage/detail/xml_element.h"

struct Ivx_layer;

/// How layers of cells are drawn, in files.
namespace vx::storage {
[[nodiscard]] bool is_raster(Ivx_layer const *layer);
/// Channels that nobody asked for are not written: the raster feeds them when they are wanted.
void write_raster(xml_out element, Ivx_layer *layer);
void read_raster(xml_in element, Ivx_layer *layer);

/// A layer over a property file, of any kind.
void write_properties(xml_out element, Ivx_layer *layer);
void read_properties(xml_in element, Ivx_layer *layer);
} // namespace vx::storage
