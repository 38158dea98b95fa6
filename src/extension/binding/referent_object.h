#pragma once

#include "extension/binding/referent.h"

#include <algorithm>
#include <vector>

namespace vx {
/// The usual implementation of `referent`: knows its holders, tells those that remain when it dies.
///
/// It does not end itself. A counted object overrides `on_unreferenced` and may delete itself there.
class VX_API referent_object : public referent_impl
{
public:
    VX_LOCAL referent_object() = default;
    referent_object(referent_object const &) = delete;
    referent_object &operator=(referent_object const &) = delete;

    VX_LOCAL void retain(vx::referrer holder) override { f_holders.push_back(holder); }
    /// A holder that is not known is ignored.
    VX_LOCAL void release(vx::referrer holder) override
    {
        auto const same = [&](t_vx_referrer_interface h) {
            return vx_referrer_interface_compare(h, holder) == 0;
        };
        auto const found = std::find_if(f_holders.rbegin(), f_holders.rend(), same);
        if (found == f_holders.rend())
            return;
        f_holders.erase(std::next(found).base());
        if (f_holders.empty() && !f_ends)
            on_unreferenced();
    }
    VX_LOCAL vx::referent owner() override { return {}; }
    VX_LOCAL vx::referent as_referent() override { return *this; }

    /// Holds that are not released, with those of null holders.
    [[nodiscard]] VX_LOCAL std::size_t hold_count() const { return f_holders.size(); }

protected:
    VX_LOCAL ~referent_object() { invalidate_holders(); }

    /// Tells all holders that the object is gone and forgets them. A class whose holders look at it while
    /// they are told calls this in its own destructor.
    VX_LOCAL void invalidate_holders()
    {
        f_ends = true;
        while (!f_holders.empty()) {
            vx::referrer const holder = f_holders.back();
            f_holders.pop_back();
            holder.invalidate(*this);
        }
    }
    /// The last hold was released; nothing touches the object after this.
    VX_LOCAL virtual void on_unreferenced() {}

private:
    std::vector<t_vx_referrer_interface> f_holders;
    bool f_ends = false; // a holder that is told may let go of another one: there is no second end
};
} // namespace vx
