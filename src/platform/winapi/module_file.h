#pragma once

#include "platform/base/export.h"

#include <span>

/// What can be told of a module by looking at its file, with none of its code run and nothing mapped: a file
/// that is cut ends the process that maps it.
enum Tvx_module_state : int
{
    c_module_fits = 0,
    c_module_unreadable,    ///< no such file, no file, or not to be read
    c_module_no_module,     ///< anything but a shared object
    c_module_other_machine, ///< for another processor, byte order or word size
    c_module_cut,           ///< a header, segment or section lies beyond the end of the file
    c_module_lacks_names,   ///< one of the names is not among what it exports itself
};

/// Looks at the file, and for each of `names` whether the module exports it itself. `found`, if not empty, is
/// as long as `names` and tells which are there; it is all false where the file did not come so far.
[[nodiscard]] VX_API Tvx_module_state vx_module_look(wchar_t const *path, std::span<char const *const> names,
                                                     std::span<bool> found = {});

/// Whether the module can be loaded and gets through its own initialisers. They run in a copy of this process
/// that ends at once, since an exception, a fault or an `exit` in them would end the process that loads it.
/// Asked once for each state of a file; a copy that takes more than 10 seconds is ended and counts as a
/// failure.
[[nodiscard]] VX_API bool vx_module_starts(wchar_t const *path);
