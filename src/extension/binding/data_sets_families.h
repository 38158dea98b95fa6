#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Data sets: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(datasource_handle_visitor, 0)
VX_BINDING_BARE(datasource_service, 34,
    [[nodiscard]] VX_LOCAL int priority() const { return 0; })
[[nodiscard]] VX_LOCAL inline int vxk_datasource_datasource_service_priority(
    t_vx_datasource_service_interface)
{ return 0; }

VX_BINDING_BARE(datasource_service_visitor, 34)
VX_BINDING_BARE(datasource_visitor, 25)
VX_BINDING_BARE(feature_create_request, 0)
VX_BINDING_BARE(feature_extent_request, 12)
VX_BINDING_BARE(poly_data_3d, 6)
VX_BINDING_BARE(poly_data_3d_attr_buffer, 0)
VX_BINDING_BARE(poly_data_3d_attr_buffers, 0)
VX_BINDING_BARE_PASSED(poly_data_3d_cells, 1)
VX_BINDING_BARE_PASSED(poly_data_3d_points, 0)
