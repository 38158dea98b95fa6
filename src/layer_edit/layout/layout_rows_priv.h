#pragma once

#include "controls/prop/entities_prop_edit.h"

#include <string>

struct Ivx_layer;

/// What the pages of elements have alike: rows from the top, and a name that the layer holds as its file.
namespace vx::layout_rows {
inline constexpr int c_caption_width = 80;

/// Below the rows that are there.
void place(TControl *row, TWinControl *page);
/// A choice of which nothing may be chosen.
[[nodiscard]] Tvx_entities_prop_edit *add_entities(TWinControl *page);

[[nodiscard]] std::wstring name_of(Ivx_layer const *layer);
/// Reads the choice anew and shows the layer's name. Fires nothing.
void show_name(Tvx_entities_prop_edit *edit, Ivx_layer const *layer);
/// Gives the layer the name that the user chose; false if there was none to give.
[[nodiscard]] bool take_name(Tvx_entities_prop_edit *edit, Ivx_layer *layer);
} // namespace vx::layout_rows
