#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_BARE(service_visitor, 0)
