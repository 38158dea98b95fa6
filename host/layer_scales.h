#pragma once

#include <string>
#include <vector>

struct Ivx_layer;

/// A scale that lies in a file beside the data of a layer, named after them and one of their fields.
struct Tvx_layer_scale
{
    /// The manager's mode that draws by it: `c_stl_mngr_mode_value`, `_range` or `_rule`.
    unsigned mode;
    std::wstring field;
    std::wstring file;
};

/// The scales that are there now, in the order of the fields. Looks at names only.
[[nodiscard]] std::vector<Tvx_layer_scale> vx_layer_scales_find(Ivx_layer *layer);
/// Whether the layer is drawn by the values or ranges of the scale's field. False for rules, which do not
/// tell the field that their file is named after.
[[nodiscard]] bool vx_layer_is_drawn_by(Ivx_layer *layer, Tvx_layer_scale const &scale);
[[nodiscard]] bool vx_layer_is_drawn_by_rules(Ivx_layer *layer);
/// Reads the scale into the layer's manager, which draws by it from then on. False, with the layer as it was
/// and a sentence about the file in `reason`, when the file is gone, damaged, or of another kind of layer;
/// the sentence is empty for a layer that takes no scale.
[[nodiscard]] bool vx_layer_draw_by(Ivx_layer *layer, Tvx_layer_scale const &scale, std::wstring &reason);
/// Draws all objects of the layer in its simple style again. False for layers that have none.
[[nodiscard]] bool vx_layer_draw_simple(Ivx_layer *layer);
