#pragma once

/// Marks what a library of the system offers to other modules: everything else is hidden. Used for classes,
/// functions and data alike; ELF needs no import form, so one macro serves the maker and the user.
#define VX_API __attribute__((visibility("default")))

/// An exported function of the plain interface: C linkage, found by name in the loaded library.
#define VX_C_API extern "C" VX_API
