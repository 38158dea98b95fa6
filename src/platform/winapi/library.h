#pragma once

#include "platform/base/export.h"
#include "platform/base/fault.h"

/// A loaded module. Opaque; the same module gives the same handle.
struct HINSTANCE__;
using HMODULE = HINSTANCE__ *;

/// Loads the module of this name and counts the reference; null when there is none or it fails to load.
///
/// The historical names serve: a name that ends in ".dll" (in any case) stands for the shared object of the
/// same base name, `name.so` or `libname.so`; "\" in a path counts as "/". A name without a directory is
/// looked for beside this library, then in the bundle folder `vxk_bundles` beside it, then by the system's
/// own rules. Other names are taken as they stand.
[[nodiscard]] VX_API HMODULE LoadLibraryW(wchar_t const *name);
/// The module of this name if it is loaded already, else null; loads nothing and counts no reference. Null
/// gives the program itself.
[[nodiscard]] VX_API HMODULE GetModuleHandleW(wchar_t const *name);
/// Takes one reference back.
VX_API bool FreeLibrary(HMODULE module);
/// Address of an exported function or datum of the module itself, not of those it depends on; null when it
/// has none.
[[nodiscard]] VX_API void *GetProcAddress(HMODULE module, char const *name);

/// Why this thread's last `LoadLibraryW` failed; no fault after a success.
[[nodiscard]] VX_API vx::fault const &vx_library_get_fault();
/// Directory of the library that holds this function when it was loaded, absolute, with a "/" at its end;
/// empty when the system does not say.
[[nodiscard]] VX_API wchar_t const *vx_library_get_own_directory();
