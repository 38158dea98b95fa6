#pragma once

struct Ivx_layer;

/// Makes scales for the counties of the example data (nc.shp) and saves them beside the file of the layer:
/// the values of NAME, the ranges of BIR74, rules under the name of SID74. The layer stays as it is. True
/// when all three files are there afterwards.
[[nodiscard]] bool vx_example_scales_save(Ivx_layer *counties);
