#pragma once

struct Ivx_layer;

/// Makes the scales of a layer of the example data and saves them beside its file; for the counties (nc.shp)
/// the values of NAME, the ranges of BIR74, rules under the name of SID74. The layer stays as it is. True
/// when all the files are there afterwards; false for a layer of another name.
[[nodiscard]] bool vx_example_scales_save(Ivx_layer *layer);
