#pragma once

#include "platform/storage/vx_xml_data.h"

/// Files of style libraries, one library in each; the suffix is `c_style_lib_ext`. The libraries of the
/// process (vx_global_lib_styles.h) are all files of this suffix in the folder `style_libs` of the user's
/// storage and, behind them, in `share/vxk/style_libs` beside the directory of the system's own library or,
/// where there is none, one level up, each folder in the order of the file names.

/// Appends the library to `libs` (vx_style_lib.h), or leaves the list as it was.
[[nodiscard]] VX_API bool vx_xml_data_load_style_lib(Ivx_xml_data *xml, wchar_t const *file, void *libs);
VX_API bool vx_xml_data_save_style_lib(Ivx_xml_data *xml, wchar_t const *file, void const *lib);
