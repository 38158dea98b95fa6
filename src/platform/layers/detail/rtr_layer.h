#pragma once

#include "platform/base/color.h"
#include "platform/layers/detail/layer.h"

namespace vx::layers {
struct rtr_layer final : Ivx_layer
{
    rtr_layer();
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;

    int draw_type = 0;
    Tvx_color transparent;
    double opacity = 1;
};
} // namespace vx::layers
