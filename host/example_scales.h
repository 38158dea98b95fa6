#pragma once

#include <QString>

struct Ivx_layer;

/// Makes the scales of a layer of the example data and saves them beside its file; for the counties (nc.shp)
/// the values of NAME, the ranges of BIR74, rules under the name of SID74. The layer stays as it is. True
/// when all the files are there afterwards; false for a layer of another name.
[[nodiscard]] bool vx_example_scales_save(Ivx_layer *layer);
/// Saves the map that the program is shown with, over the example data in the folder and their scales:
/// countries by continent, counties by births, cities. False when one of the files is not there.
[[nodiscard]] bool vx_example_map_save(QString const &folder);
/// Name of its file.
inline constexpr char const *c_example_map = "sample_.sn";
