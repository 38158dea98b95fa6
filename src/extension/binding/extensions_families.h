#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Editor extensions: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(attr_table_extension, 0)
VX_BINDING_BARE(attr_table_extension_service, 0)
VX_BINDING_BARE(attr_table_extension_service_visitor, 0)
VX_BINDING_BARE(attr_table_extension_visitor, 0)
VX_BINDING_BARE(tos_grid_extension, 1)
VX_BINDING_BARE(tos_grid_extension_service, 1)
VX_BINDING_BARE(tos_grid_extension_service_visitor, 1)
VX_BINDING_BARE(tos_grid_extension_visitor, 1)
