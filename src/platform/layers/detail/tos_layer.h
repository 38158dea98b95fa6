#pragma once

#include "platform/basic/vx_clr_channel.h"
#include "platform/data/vx_tos_data.h"
#include "platform/layers/detail/layer.h"
#include "platform/layers/detail/tld_layer.h"

/// Layers over a property file.
namespace vx::layers {
struct tos_layer : Ivx_layer
{
    using Ivx_layer::Ivx_layer;
    [[nodiscard]] Ivx_entity *data() override;
    void file_name_changed() override { tos_data.reset(); }

protected:
    void take_common(tos_layer const &source);

private:
    vx::owned<Ivx_tos_data, &vx_tos_data_release> tos_data; ///< made on first use
};

/// Grid, and slice of a stack of grids.
struct tos_grid_layer final : tos_layer
{
    explicit tos_grid_layer(std::string type_key);
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;
    [[nodiscard]] bool is_slice() const;

    int draw_type = 0;
    double opacity = 1;
    bool interpolate = false;
    int slice = 0;
    int slice_count = 1;
    stl_mngr colors;
    vx::owned<void, &vx_rgb_channels_destroy> channels{vx_rgb_channels_create()};
};

/// Curve.
struct tos_curve_layer final : tos_layer
{
    tos_curve_layer();
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;

    std::wstring height_property;
    stl_mngr styles;
};

/// Points placed by two properties.
struct tos_2crd_layer final : tos_layer
{
    tos_2crd_layer();
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;

    std::wstring property_x;
    std::wstring property_y;
    stl_mngr styles;
    txt_settings texts;
    std::unique_ptr<dtld_layer> text_layer;
};
} // namespace vx::layers
