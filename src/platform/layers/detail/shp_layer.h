#pragma once

#include "platform/data/vx_attr_data.h"
#include "platform/layers/detail/layer.h"
#include "platform/layers/detail/tld_layer.h"

namespace vx::layers {
/// What a vector layer draws.
struct shp_geometry
{
    char const *key;
    char const *style;
    char const *text_style;
};
/// The geometry of a layer key, that of a sub-layer with z included; null for other keys.
[[nodiscard]] shp_geometry const *find_shp_geometry(std::string_view key);

struct shp_layer final : Ivx_layer
{
    shp_layer(std::string type_key, shp_geometry const &layer_geometry);
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;
    [[nodiscard]] Ivx_entity *data() override;
    void file_name_changed() override { attr_data.reset(); }

    [[nodiscard]] Ivx_attr_data *attributes() const;

    shp_geometry const &geometry;
    stl_mngr_list styles;
    txt_settings texts;
    std::unique_ptr<dtld_layer> text_layer;
    mutable vx::owned<Ivx_attr_data, &vx_attr_data_release> attr_data; ///< made on first use
};
} // namespace vx::layers
