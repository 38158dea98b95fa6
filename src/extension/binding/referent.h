#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

VX_BINDING_HANDLE(referent)
VX_BINDING_HANDLE(referrer)
struct vx_referent_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*retain)(void const* table, void* self, t_vx_referrer_interface holder);
    void (*release)(void const* table, void* self, t_vx_referrer_interface holder);
    t_vx_referent_interface* (*owner)(t_vx_referent_interface* result, void const* table, void* self);
    t_vx_referent_interface* (*as_referent)(t_vx_referent_interface* result, void const* table, void* self);
};

struct vx_referrer_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*invalidate)(void const* table, void* self, t_vx_referent_interface object);
    bool (*reachable)(void const* table, void* self);
};

VX_BINDING_FUNCTIONS(referent, 1)
VX_LOCAL inline void vxk_framework_referent_retain(t_vx_referent_interface h, t_vx_referrer_interface holder)
{
    if (h.table && h.self)
        h.table->retain(h.table, h.self, holder);
}
VX_LOCAL inline void vxk_framework_referent_release(t_vx_referent_interface h, t_vx_referrer_interface holder)
{
    if (h.table && h.self)
        h.table->release(h.table, h.self, holder);
}
VX_LOCAL inline t_vx_referent_interface vxk_framework_referent_owner(t_vx_referent_interface h)
{
    t_vx_referent_interface result;
    if (h.table && h.self)
        h.table->owner(&result, h.table, h.self);
    return result;
}
VX_LOCAL inline t_vx_referent_interface vxk_framework_referent_as_referent(t_vx_referent_interface h)
{
    t_vx_referent_interface result;
    if (h.table && h.self)
        h.table->as_referent(&result, h.table, h.self);
    return result;
}

VX_BINDING_FUNCTIONS(referrer, 1)
VX_LOCAL inline void vxk_framework_referrer_invalidate(
    t_vx_referrer_interface h, t_vx_referent_interface object)
{
    if (h.table && h.self)
        h.table->invalidate(h.table, h.self, object);
}
VX_LOCAL inline bool vxk_framework_referrer_reachable(t_vx_referrer_interface h)
{
    return h.table && h.self ? h.table->reachable(h.table, h.self) : false;
}

namespace vx
{
class VX_API referent;
class VX_API referrer;

/// What has a lifetime of its own: it knows who holds it and tells those that remain when it dies.
class VX_API referent : public binding::wrapper<t_vx_referent_interface>
{
public:
    using wrapper::wrapper;
    /// A null holder counts without being told of the end.
    VX_LOCAL void retain(vx::referrer holder) const;
    VX_LOCAL void release(vx::referrer holder) const;
    /// What keeps this object alive, or null.
    VX_LOCAL vx::referent owner() const;
    VX_LOCAL vx::referent as_referent() const;
};

/// A holder of a referent.
class VX_API referrer : public binding::wrapper<t_vx_referrer_interface>
{
public:
    using wrapper::wrapper;
    /// The object is gone.
    VX_LOCAL void invalidate(vx::referent object) const;
    /// This holder is a live path to the object.
    VX_LOCAL bool reachable() const;
};

inline void referent::retain(vx::referrer holder) const
{ vxk_framework_referent_retain(f_handle, holder); }
inline void referent::release(vx::referrer holder) const
{ vxk_framework_referent_release(f_handle, holder); }
inline vx::referent referent::owner() const
{ return vxk_framework_referent_owner(f_handle); }
inline vx::referent referent::as_referent() const
{ return vxk_framework_referent_as_referent(f_handle); }

inline void referrer::invalidate(vx::referent object) const
{ vxk_framework_referrer_invalidate(f_handle, object); }
inline bool referrer::reachable() const
{ return vxk_framework_referrer_reachable(f_handle); }

class VX_API referent_impl
    : public binding::implementation<referent_impl, vx::referent>
{
public:
    virtual void retain(vx::referrer) {}
    virtual void release(vx::referrer) {}
    virtual vx::referent owner() { return {}; }
    virtual vx::referent as_referent() { return {}; }
    VX_LOCAL static char const* interface_name() { return vx_referent_interface_name; }
    VX_LOCAL static vx_referent_interface_table const* family_table();
protected:
    ~referent_impl() = default;
};
VX_LOCAL inline constexpr vx_referent_interface_table referent_family_table{
    &binding::generalize_slot<referent_impl>,
    &binding::slot<&referent_impl::retain>::call,
    &binding::slot<&referent_impl::release>::call,
    &binding::slot<&referent_impl::owner>::call,
    &binding::slot<&referent_impl::as_referent>::call,
};
inline vx_referent_interface_table const* referent_impl::family_table()
{ return &referent_family_table; }

class VX_API referrer_impl
    : public binding::implementation<referrer_impl, vx::referrer>
{
public:
    virtual void invalidate(vx::referent) {}
    virtual bool reachable() { return false; }
    VX_LOCAL static char const* interface_name() { return vx_referrer_interface_name; }
    VX_LOCAL static vx_referrer_interface_table const* family_table();
protected:
    ~referrer_impl() = default;
};
VX_LOCAL inline constexpr vx_referrer_interface_table referrer_family_table{
    &binding::generalize_slot<referrer_impl>,
    &binding::slot<&referrer_impl::invalidate>::call,
    &binding::slot<&referrer_impl::reachable>::call,
};
inline vx_referrer_interface_table const* referrer_impl::family_table()
{ return &referrer_family_table; }

}
