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
/// A copy is a holder of its own and attaches itself. A holder must not move while attached, since the object
/// knows its address; the containers of nodes keep it in place.
template <class T, class Traits>
class VX_API ref<T, false, Traits> : public referrer_impl
{
public:
    ref() = default;
    /// Holds and attaches.
    explicit ref(T held) : f_held(std::move(held)) { attach(); }
    ref(ref const &other) : referrer_impl(other), f_held(other.f_held) { attach(); }
    ref &operator=(ref const &other)
    {
        if (this != &other)
            hold(other.f_held);
        return *this;
    }
    virtual ~ref() { detach(); }

    [[nodiscard]] T const &get() const { return f_held; }
    T const *operator->() const { return &f_held; }
    [[nodiscard]] bool is_null() const { return !f_held; }
    /// For the assignment between `detach` and `attach`.
    ref &assign(T held)
    {
        f_held = std::move(held);
        return *this;
    }
    void hold(T held)
    {
        detach();
        f_held = std::move(held);
        attach();
    }

    /// Retains what is held. Does nothing on a null handle and when attached already.
    void attach()
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
    void detach()
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
    void invalidate(vx::referent) override
    {
        f_held = Traits::null();
        f_attached = false;
    }
    bool reachable() override { return true; }

private:
    T f_held = Traits::null();
    bool f_attached = false;
};
} // namespace vx
