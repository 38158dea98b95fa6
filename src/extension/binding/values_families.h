#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Value visitors: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(extent_2d_visitor, 0)
VX_BINDING_BARE_PASSED(interleaved_bytes_visitor, 0)
VX_BINDING_BARE(receive_coords_visitor, 0)
VX_BINDING_BARE(thrice_interleaved_bytes_visitor, 0)
VX_BINDING_BARE(transfer_coords_visitor, 1)
VX_BINDING_BARE_PASSED(twice_interleaved_bytes_visitor, 0)
