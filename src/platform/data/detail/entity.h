#pragma once

#include "platform/base/export.h"

#include <string>

/// The root that every entity derives from. Known to the engine modules alone; others see the name only.
struct VX_API Ivx_entity
{
    Ivx_entity() = default;
    Ivx_entity(Ivx_entity const &) = delete;
    Ivx_entity &operator=(Ivx_entity const &) = delete;
    virtual ~Ivx_entity();

    /// Valid while the entity lives.
    [[nodiscard]] virtual char const *entity_type() const = 0;
    [[nodiscard]] virtual std::wstring display_name() const = 0;

    mutable std::string caption_bytes; ///< behind `vx_entity_get_caption`
};

/// A list of entities, as seen from outside.
struct VX_API Ivx_entities
{
    Ivx_entities() = default;
    Ivx_entities(Ivx_entities const &) = delete;
    Ivx_entities &operator=(Ivx_entities const &) = delete;
    virtual ~Ivx_entities();

    [[nodiscard]] virtual int entity_count() const = 0;
    /// `index` is inside the list.
    [[nodiscard]] virtual Ivx_entity *entity_at(int index) const = 0;
};

namespace vx::data {
/// Name of a file without directory, extension, virtual mark and the options of a connection string.
[[nodiscard]] VX_API std::wstring source_base_name(std::wstring const &source);
} // namespace vx::data
