#pragma once

#include "platform/base/export.h"

/// The root that every entity derives from. Known to the engine modules alone; others see the name only.
struct VX_API Ivx_entity
{
    Ivx_entity() = default;
    Ivx_entity(Ivx_entity const &) = delete;
    Ivx_entity &operator=(Ivx_entity const &) = delete;
    virtual ~Ivx_entity();

    /// Valid while the entity lives.
    [[nodiscard]] virtual char const *entity_type() const = 0;
};
