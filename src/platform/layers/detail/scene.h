#pragma once

#include "platform/base/geometry.h"
#include "platform/layers/detail/layer.h"

#include <vector>

/// A scene; see vx_scn_2d.h.
struct Ivx_scn_2d final : Ivx_entity, Ivx_entities
{
    [[nodiscard]] char const *entity_type() const override { return "scn_2d"; }
    [[nodiscard]] std::wstring display_name() const override { return caption; }
    [[nodiscard]] int entity_count() const override { return static_cast<int>(layers.size()); }
    [[nodiscard]] Ivx_entity *entity_at(int index) const override
    {
        return layers[static_cast<std::size_t>(index)].get();
    }

    [[nodiscard]] bool has(int index) const { return index >= 0 && index < entity_count(); }

    std::wstring caption;
    std::wstring file_name;
    bool izotropic = true;
    Tvx_pnt_d2 center{};
    double pixel = 0; ///< 0 for no view
    bool unit_is_degree = false;
    double unit_metres = 1;
    std::vector<std::unique_ptr<Ivx_layer>> layers;
};

/// A list of scenes; see vx_scn_2d.h.
struct Ivx_scns_2d final : Ivx_entities
{
    [[nodiscard]] int entity_count() const override { return static_cast<int>(scenes.size()); }
    [[nodiscard]] Ivx_entity *entity_at(int index) const override
    {
        return scenes[static_cast<std::size_t>(index)].get();
    }

    std::vector<std::unique_ptr<Ivx_scn_2d>> scenes;
    int active = 0;
};

namespace vx::layers {
/// Metres in one unit along each axis near the point. Where both axes have one scale, that along x counts.
[[nodiscard]] Tvx_pnt_d2 unit_metres(Ivx_scn_2d const *scene, Tvx_pnt_d2 at);
} // namespace vx::layers
