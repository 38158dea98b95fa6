#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(monitor)
struct vx_monitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*message)(void const* table, void* self, wchar_t const* text);
    void (*report)(void const* table, void* self, double done);
    bool (*has_stopped)(void const* table, void* self);
};
VX_BINDING_FUNCTIONS(monitor, 0)
VX_LOCAL inline void vxk_datasource_monitor_message(t_vx_monitor_interface h, wchar_t const* text)
{
    if (h.table && h.self)
        h.table->message(h.table, h.self, text);
}
VX_LOCAL inline void vxk_datasource_monitor_report(t_vx_monitor_interface h, double done)
{
    if (h.table && h.self)
        h.table->report(h.table, h.self, done);
}
VX_LOCAL inline bool vxk_datasource_monitor_has_stopped(t_vx_monitor_interface h)
{
    return h.table && h.self ? h.table->has_stopped(h.table, h.self) : false;
}
namespace vx
{
/// Follows a long work and may end it.
class VX_API monitor : public binding::wrapper<t_vx_monitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void message(wchar_t const* text) const
    { vxk_datasource_monitor_message(f_handle, text); }
    /// 0 to 1.
    VX_LOCAL void report(double done) const
    { vxk_datasource_monitor_report(f_handle, done); }
    /// The user wants the work to end.
    VX_LOCAL bool has_stopped() const
    { return vxk_datasource_monitor_has_stopped(f_handle); }
};
class VX_API monitor_impl
    : public binding::implementation<monitor_impl, vx::monitor>
{
public:
    virtual void message(wchar_t const*) {}
    virtual void report(double) {}
    virtual bool has_stopped() { return false; }
    VX_LOCAL static char const* interface_name() { return vx_monitor_interface_name; }
    VX_LOCAL static vx_monitor_interface_table const* family_table();
protected:
    ~monitor_impl() = default;
};
VX_LOCAL inline constexpr vx_monitor_interface_table monitor_family_table{
    &binding::generalize_slot<monitor_impl>,
    &binding::slot<&monitor_impl::message>::call,
    &binding::slot<&monitor_impl::report>::call,
    &binding::slot<&monitor_impl::has_stopped>::call,
};
inline vx_monitor_interface_table const* monitor_impl::family_table()
{ return &monitor_family_table; }
}
