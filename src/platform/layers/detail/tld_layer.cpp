#include "platform/layers/detail/tld_layer.h"

#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_tld_lr2d.h"

namespace vx::layers {
dtld_layer::dtld_layer(Ivx_layer *parent_layer) : Ivx_layer(c_lr_key_dynamic_tld), parent(parent_layer)
{
}

// A clone stands by itself: its parent does not hold it.
std::unique_ptr<Ivx_layer> dtld_layer::clone() const
{
    return clone_into(nullptr);
}

std::unique_ptr<dtld_layer> dtld_layer::clone_into(Ivx_layer *new_parent) const
{
    auto copy = std::make_unique<dtld_layer>(new_parent);
    copy->take_common(*this);
    return copy;
}
} // namespace vx::layers

Ivx_layer *vx_dtld_lr2d_get_parent_lr2d_ptr(Ivx_layer *layer)
{
    auto *const text = vx::layers::as<vx::layers::dtld_layer>(layer);
    return text ? text->parent : nullptr;
}
