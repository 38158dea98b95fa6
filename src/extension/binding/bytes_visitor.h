#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(bytes_visitor)
struct vx_bytes_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit)(void const* table, void* self, unsigned long long count, char const* bytes);
};
VX_BINDING_FUNCTIONS(bytes_visitor, 0)
VX_LOCAL inline void vxk_framework_bytes_visitor_visit(
    t_vx_bytes_visitor_interface h, unsigned long long count, char const* bytes)
{
    if (h.table && h.self)
        h.table->visit(h.table, h.self, count, bytes);
}
namespace vx
{
/// A run of bytes.
class VX_API bytes_visitor : public binding::wrapper<t_vx_bytes_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit(unsigned long long count, char const* bytes) const
    { vxk_framework_bytes_visitor_visit(f_handle, count, bytes); }
};
}
