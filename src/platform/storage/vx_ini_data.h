#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// The user's storage: the folder that keeps what the user makes for all maps, such as palettes and style
/// libraries. It is `vxk` below the user's data directory (`XDG_DATA_HOME`, else `.local/share` in the home
/// directory).
struct Ivx_ini_data;

[[nodiscard]] VX_API Ivx_ini_data *vx_ini_data_create();
VX_API void vx_ini_data_destroy(Ivx_ini_data *ini);
/// Full path of the file of this name in the user's storage; the folder is made if it is missing. Empty for a
/// name that is no plain file name, and when there is no home directory.
VX_API void vx_ini_data_get_storage_path(Ivx_ini_data *ini, wchar_t const *name, Ivx_string_adp *path);
/// Takes another folder for the process from now on; null goes back to the user's. For hosts with profiles of
/// their own, and for tests.
VX_API void vx_ini_data_set_storage_directory(wchar_t const *directory);
