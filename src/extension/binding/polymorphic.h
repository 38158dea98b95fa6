#pragma once

#include "extension/binding/interface.h"

namespace vx {
class polymorphic_base;

/// A link of the chain of interfaces of one object.
class VX_API polymorphic_next
{
public:
    polymorphic_next(polymorphic_next const &) = delete;
    polymorphic_next &operator=(polymorphic_next const &) = delete;

protected:
    polymorphic_next() = default;
    virtual ~polymorphic_next() = default;

private:
    friend class polymorphic_base;
    virtual void specialize_next(char const *name, void **table, void **self) = 0;

    polymorphic_next *f_next = nullptr;
};

/// Head of the chain, shared by all interfaces of the object.
class VX_API polymorphic_base
{
protected:
    polymorphic_base() = default;
    ~polymorphic_base() = default;

    /// Asks every link, without stopping at a hit: names differ, so at most one of them writes.
    VX_LOCAL void specialize_base(char const *name, void **table, void **self)
    {
        for (polymorphic_next *link = f_head; link; link = link->f_next)
            link->specialize_next(name, table, self);
    }
    VX_LOCAL void put_first(polymorphic_next *link)
    {
        link->f_next = f_head;
        f_head = link;
    }

private:
    polymorphic_next *f_head = nullptr;
};

/// One interface of an object with several: whichever of the object's handles is generalized, all its
/// interfaces can be reached.
template <class Interface>
class VX_API polymorphic_impl : public Interface, private polymorphic_next, public virtual polymorphic_base
{
public:
    VX_LOCAL void specialize(char const *name, void **table, void **self) override
    {
        specialize_base(name, table, self);
    }

protected:
    VX_LOCAL polymorphic_impl() { put_first(this); }
    ~polymorphic_impl() = default;

private:
    VX_LOCAL void specialize_next(char const *name, void **table, void **self) override
    {
        Interface::specialize(name, table, self);
    }
};

/// Base of an object that implements the families of all the `_impl` classes listed:
/// `class pages final : public polymorphic<service_visitor_impl, docker_visitor_impl>`.
template <class... Interfaces>
class VX_API polymorphic : public polymorphic_impl<Interfaces>...
{
protected:
    ~polymorphic() = default;
};
} // namespace vx
