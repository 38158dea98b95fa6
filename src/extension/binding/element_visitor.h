#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/grid_layout.h"
