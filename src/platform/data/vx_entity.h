#pragma once

#include "platform/base/export.h"

/// Common root of the engine objects that cross as one pointer: layers, data objects, scenes. A module tells
/// whether an entity is one of its own by its `..._safe_downcast`, and gives it as an entity by
/// `..._safe_upcast`; both take null and give null.
struct Ivx_entity;

/// Type of the entity: the type key of a layer, "attr_data" of a vector data object. Empty for null.
[[nodiscard]] VX_API char const *vx_entity_get_type(Ivx_entity const *entity);
