#pragma once

#include <memory>

namespace vx {
/// Calls a plain destroy function on the pointer, for `std::unique_ptr`.
template <auto Destroy>
struct destroyer
{
    template <class T>
    void operator()(T *object) const noexcept
    {
        Destroy(object);
    }
};

/// Owner of an engine object that a plain `vx_*_destroy` ends:
/// `vx::owned<Ivx_layer, &vx_lr2d_destroy> layer(vx_lr2d_clone(source));`
template <class T, auto Destroy>
using owned = std::unique_ptr<T, destroyer<Destroy>>;
} // namespace vx
