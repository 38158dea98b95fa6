#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// Common root of the engine objects that cross as one pointer: layers, data objects, scenes. A module tells
/// whether an entity is one of its own by its `..._safe_downcast`, and gives it as an entity by
/// `..._safe_upcast`; both take null and give null.
struct Ivx_entity;
/// A list of entities that belongs to another object: the layers of a scene, the scenes of a project.
struct Ivx_entities;

/// Type of the entity: the type key of a layer, "attr_data" of a vector data object, "scn_2d" of a scene.
/// Empty for null.
[[nodiscard]] VX_API char const *vx_entity_get_type(Ivx_entity const *entity);
/// Display name in the system code page, valid until the next call for this entity; empty for null.
[[nodiscard]] VX_API char const *vx_entity_get_caption(Ivx_entity const *entity);
VX_API void vx_entity_get_wcaption(Ivx_entity const *entity, Ivx_string_adp *caption);

[[nodiscard]] VX_API int vx_entities_get_count(Ivx_entities const *list);
/// Null outside the list.
[[nodiscard]] VX_API Ivx_entity *vx_entities_get_entity(Ivx_entities const *list, int index);
