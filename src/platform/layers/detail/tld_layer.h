#pragma once

#include "platform/layers/detail/layer.h"

namespace vx::layers {
/// A dynamic text layer; inside another layer it knows that one as its parent.
struct dtld_layer final : Ivx_layer
{
    explicit dtld_layer(Ivx_layer *parent_layer = nullptr);
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;
    /// A copy inside another layer.
    [[nodiscard]] std::unique_ptr<dtld_layer> clone_into(Ivx_layer *new_parent) const;

    Ivx_layer *parent; ///< not owned
};
} // namespace vx::layers
