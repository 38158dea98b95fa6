#pragma once

#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/basic/vx_event_channel.h"
#include "platform/data/detail/entity.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_txt_settings.h"

#include <memory>
#include <string>

/// What all layers have. Known to this module alone; others see the name only. A kind of layer derives from
/// it, names what it adds, and clones itself.
struct Ivx_layer : Ivx_entity
{
    explicit Ivx_layer(std::string type_key);
    ~Ivx_layer() override;

    /// A copy with a channel of its own and the common fields taken over; the kind adds the rest.
    [[nodiscard]] virtual std::unique_ptr<Ivx_layer> clone() const;
    /// The data object, made on first use; null for kinds without one.
    [[nodiscard]] virtual Ivx_entity *data() { return nullptr; }
    /// The file name changed: a kind with a data object drops it.
    virtual void file_name_changed() {}

    [[nodiscard]] char const *entity_type() const override { return key.c_str(); }
    [[nodiscard]] std::wstring display_name() const override;

    std::string const key;
    std::wstring caption;
    std::wstring file_name;
    bool visible = true;
    bool own_selected_style = false;
    void *plugin = nullptr;        ///< not owned
    void *layout_plugin = nullptr; ///< not owned
    vx::owned<Ivx_event_channel, &vx_event_channel_destroy> channel{vx_event_channel_create()};
    /// The layer, for those that do not hold it: gone with it.
    std::shared_ptr<Ivx_layer *const> const life = std::make_shared<Ivx_layer *const>(this);

protected:
    void take_common(Ivx_layer const &source);
};

namespace vx::layers {
using stl_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using stl_mngr_list = vx::owned<void, &vx_stl_mngr_list_destroy>;
using txt_settings = vx::owned<void, &vx_txt_settings_destroy>;

/// The layer as a kind, or null.
template <class Kind>
[[nodiscard]] Kind *as(Ivx_layer *layer)
{
    return dynamic_cast<Kind *>(layer);
}
template <class Kind>
[[nodiscard]] Kind const *as(Ivx_layer const *layer)
{
    return dynamic_cast<Kind const *>(layer);
}

/// A field of a kind, or what stands for it on other layers.
template <class Kind, class T>
[[nodiscard]] T get(Ivx_layer const *layer, T Kind::*field, T otherwise)
{
    auto const *const kind = as<Kind>(layer);
    return kind ? kind->*field : otherwise;
}
template <class Kind, class T>
void set(Ivx_layer *layer, T Kind::*field, T value)
{
    if (auto *const kind = as<Kind>(layer))
        kind->*field = std::move(value);
}

/// Opacities are 0 to 1: what lies outside is cut; false, with nothing changed, for what is no number.
[[nodiscard]] bool cut_opacity(double &opacity);
} // namespace vx::layers
