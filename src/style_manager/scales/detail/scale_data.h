#pragma once

#include "style_manager/api/data_events.h"

#include <string>

struct Ivx_xml_data;

/// What the editors of scales ask of the data and of the files behind them.

/// The property of that name, in any case, among those that are offered; -1 for none. The data are open.
[[nodiscard]] int vx_find_prop(Tvx_data_events const &data, TObject *sender, std::wstring const &name);
/// The file of the scale of a property, with this extension; of property 0 where there is none of the name.
/// Empty where scales have no files and without data.
[[nodiscard]] std::wstring vx_scale_file_of_prop(Tvx_data_events const &data, TObject *sender,
                                                 std::wstring const &name, wchar_t const *ext);
/// A dialog has asked about the name that was typed: asks about the one that is to be written, where that is
/// another one that exists. False when the user refuses.
[[nodiscard]] bool vx_may_replace(std::wstring const &chosen, std::wstring const &written);
/// Tells the user why a storage object, of `vx_xml_save_2d_create`, could not read a scale.
void vx_show_unreadable(std::wstring const &text, Ivx_xml_data const *xml);
