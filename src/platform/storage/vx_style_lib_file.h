#pragma once

#include "platform/storage/vx_xml_data.h"

/// Files of style libraries, one library in each; the suffix is `c_style_lib_ext`. The libraries of the
/// process (vx_global_lib_styles.h) are all files of this suffix in the folder `style_libs` of the user's
/// storage and, behind them, in `share/vxk/style_libs` beside the directory of the system's own library or,
/// where there is none, one level up, each folder in the order of the file names.

/// Appends the library to `libs` (vx_style_lib.h), or leaves the list as it was.
[[nodiscard]] VX_API bool vx_xml_data_load_style_lib(Ivx_xml_data *xml, wchar_t const *file, void *libs);
VX_API bool vx_xml_data_save_style_lib(Ivx_xml_data *xml, wchar_t const *file, void const *lib);

/// Appends the libraries in the user's own folder as they are in their files now; one that cannot be read is
/// left out.
VX_API void vx_xml_data_load_user_style_libs(void *libs);
/// Puts a copy of a style into a library of the user's as `vx_style_lib_put_style` does, with version 1: in
/// its file as that is now, which is saved at once, and in the libraries of the process if they are read. A
/// null or empty `file` begins a library of this name in a file that is called after it; else the name counts
/// for nothing. False with the reason, and nothing changed, where the file cannot be read or saved or has a
/// style of the index; the user has been told then.
VX_API bool vx_xml_data_put_user_style(Ivx_xml_data *xml, wchar_t const *file, wchar_t const *name,
                                       char const *type, void const *style, int index, void const *groups,
                                       wchar_t const *caption);
