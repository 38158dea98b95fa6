#include "platform/data/detail/entity.h"

#include "platform/base/text_codec.h"
#include "platform/base/virtual_mark.h"
#include "platform/data/vx_entity.h"

namespace {
constexpr wchar_t c_option_mark = L'|';
constexpr std::wstring_view c_separators = L"/\\";
} // namespace

Ivx_entity::~Ivx_entity() = default;
Ivx_entities::~Ivx_entities() = default;

std::wstring vx::data::source_base_name(std::wstring const &source)
{
    std::wstring_view name = without_virtual_mark(source);
    name = name.substr(0, name.find(c_option_mark));
    name.remove_prefix(name.find_last_of(c_separators) + 1); // npos + 1 is 0
    // A dot at the start of the name begins no extension.
    if (auto const dot = name.rfind(L'.'); dot != name.npos && dot > 0)
        name = name.substr(0, dot);
    return std::wstring(name);
}

char const *vx_entity_get_type(Ivx_entity const *entity)
{
    return entity ? entity->entity_type() : "";
}

char const *vx_entity_get_caption(Ivx_entity const *entity)
{
    if (!entity)
        return "";
    entity->caption_bytes = vx::text::to_bytes(entity->display_name());
    return entity->caption_bytes.c_str();
}

void vx_entity_get_wcaption(Ivx_entity const *entity, Ivx_string_adp *caption)
{
    vx_string_adp_feed(caption, entity ? entity->display_name().c_str() : nullptr);
}

int vx_entities_get_count(Ivx_entities const *list)
{
    return list ? list->entity_count() : 0;
}

Ivx_entity *vx_entities_get_entity(Ivx_entities const *list, int index)
{
    return index >= 0 && index < vx_entities_get_count(list) ? list->entity_at(index) : nullptr;
}
