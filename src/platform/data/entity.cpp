#include "platform/data/entity.h"

#include "platform/data/vx_entity.h"

Ivx_entity::~Ivx_entity() = default;

char const *vx_entity_get_type(Ivx_entity const *entity)
{
    return entity ? entity->entity_type() : "";
}
