#pragma once

#include "extension/binding/referent.h"

#include <utility>

namespace vx {
/// How `ref` gets at the lifetime of what it holds: from any wrapper with the method `as_referent`.
template <class T>
struct VX_API reftraits
{
    VX_LOCAL static vx::referent as_referent(T const &held) { return held.as_referent(); }
    VX_LOCAL static T null() { return {}; }
};

template <class T, bool Owner, class Traits>
class VX_API ref;

/// A holder that the object held knows of: while attached the object is retained, and when it dies all the
/// same the handle here becomes null. To change what is held: `detach`, assign, `attach`, in that order;
/// `hold` does the three.
///
/// A copy is a holder of its own, attached if the first one is. A holder must not move while attached, since
/// the object knows its address; the containers of nodes keep it in place.
template <class T, class Traits>
class VX_API ref<T, false, Traits> : public referrer_impl
{
public:
    VX_LOCAL ref() = default;
    /// Holds and attaches.
    VX_LOCAL explicit ref(T held) : f_held(std::move(held)) { attach(); }
    VX_LOCAL ref(ref const &other) : referrer_impl(other), f_held(other.f_held)
    {
        if (other.f_attached)
            attach();
    }
    VX_LOCAL ref &operator=(ref const &other)
    {
        if (this == &other)
            return *this;
        assign(other.f_held);
        if (other.f_attached)
            attach();
        return *this;
    }
    VX_LOCAL virtual ~ref() { detach(); }

    [[nodiscard]] VX_LOCAL T const &get() const { return f_held; }
    VX_LOCAL T const *operator->() const { return &f_held; }
    [[nodiscard]] VX_LOCAL bool is_null() const { return !f_held; }
    /// Changes what is held without attaching; what was held is released if it still is.
    VX_LOCAL ref &assign(T held)
    {
        detach();
        f_held = std::move(held);
        return *this;
    }
    VX_LOCAL void hold(T held) { assign(std::move(held)).attach(); }

    /// Retains what is held. Does nothing on a null handle and when attached already.
    VX_LOCAL void attach()
    {
        if (f_attached || !f_held)
            return;
        vx::referent const r = Traits::as_referent(f_held);
        if (!r)
            return;
        f_attached = true;
        r.retain(*this);
    }

    /// Releases what is held; the handle stays. The owner is kept alive meanwhile, since the last release of
    /// an object may end its owner's part in it.
    VX_LOCAL void detach()
    {
        if (!f_attached || !f_held)
            return;
        f_attached = false;
        vx::referent const r = Traits::as_referent(f_held);
        if (!r)
            return;
        vx::referent const owner = r.owner();
        if (owner)
            owner.retain({});
        r.release(*this);
        if (owner)
            owner.release({});
    }

    /// The object is gone: nothing is left to release.
    VX_LOCAL void invalidate(vx::referent) override
    {
        f_held = Traits::null();
        f_attached = false;
    }
    VX_LOCAL bool reachable() override { return true; }

private:
    T f_held = Traits::null();
    bool f_attached = false;
};
} // namespace vx
