#include "platform/styles/vx_stl_mngr_list.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/mngr_model.h"
#include "platform/styles/vx_txt_settings.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace vx::styles {
bool operator==(stl_mngr const &a, stl_mngr const &b)
{
    return a.mode == b.mode && a.name == b.name && a.val_prop_name == b.val_prop_name &&
           a.rng_prop_name == b.rng_prop_name && a.need_scale == b.need_scale &&
           a.just_loaded == b.just_loaded && a.rotate_flag == b.rotate_flag &&
           a.rotate_spot_flag == b.rotate_spot_flag && a.rotate_hatch_flag == b.rotate_hatch_flag &&
           a.rotate_prop_name == b.rotate_prop_name && a.rotate_start == b.rotate_start &&
           a.rotate_dir == b.rotate_dir && a.simple == b.simple && a.values == b.values &&
           a.ranges == b.ranges && a.rules == b.rules;
}

stl_mngr_list &stl_mngr_list::operator=(stl_mngr_list const &source)
{
    if (this == &source)
        return *this;
    std::vector<std::unique_ptr<stl_mngr>> copies;
    copies.reserve(source.mngrs.size());
    for (auto const &mngr : source.mngrs)
        copies.push_back(std::make_unique<stl_mngr>(*mngr));
    // Managers that both lists have stay the same objects: editors hold on to theirs.
    std::size_t const common = std::min(mngrs.size(), copies.size());
    mngrs.reserve(copies.size());
    for (std::size_t i = 0; i < common; ++i)
        *mngrs[i] = std::move(*copies[i]);
    mngrs.resize(common);
    std::move(copies.begin() + static_cast<std::ptrdiff_t>(common), copies.end(), std::back_inserter(mngrs));
    kind = source.kind;
    active = source.active;
    visible = source.visible;
    return *this;
}
} // namespace vx::styles

using namespace vx::fields;
using namespace vx::styles;

namespace {
stl_mngr_list *list_of(void *list)
{
    return static_cast<stl_mngr_list *>(list);
}
stl_mngr_list const *list_of(void const *list)
{
    return static_cast<stl_mngr_list const *>(list);
}
} // namespace

void *vx_stl_mngr_list_create(char const *type)
{
    auto const kind = style_kind_of(type);
    return kind ? new stl_mngr_list(*kind) : nullptr;
}

void *vx_stl_mngr_list_clone(void const *list)
{
    return clone<stl_mngr_list>(list);
}

void vx_stl_mngr_list_destroy(void *list)
{
    destroy<stl_mngr_list>(list);
}

void vx_stl_mngr_list_assign(void *target, void const *source)
{
    assign<stl_mngr_list>(target, source);
}

char const *vx_stl_mngr_list_get_type(void const *list)
{
    return list ? mngr_key(list_of(list)->kind) : nullptr;
}

unsigned vx_stl_mngr_list_get_count(void const *list)
{
    return list ? static_cast<unsigned>(list_of(list)->mngrs.size()) : 0;
}

void *vx_stl_mngr_list_get_mngr(void *list, unsigned index)
{
    return index < vx_stl_mngr_list_get_count(list) ? list_of(list)->mngrs[index].get() : nullptr;
}

unsigned vx_stl_mngr_list_get_active_idx(void const *list)
{
    return get(list, &stl_mngr_list::active);
}

void *vx_stl_mngr_list_get_active_mngr(void *list)
{
    return vx_stl_mngr_list_get_mngr(list, vx_stl_mngr_list_get_active_idx(list));
}

void vx_stl_mngr_list_set_active_by_idx(void *list, unsigned index)
{
    if (index < vx_stl_mngr_list_get_count(list))
        list_of(list)->active = index;
}

void vx_stl_mngr_list_set_active_by_mngr(void *list, void const *mngr)
{
    for (unsigned i = 0; i < vx_stl_mngr_list_get_count(list); ++i)
        if (list_of(list)->mngrs[i].get() == mngr)
            list_of(list)->active = i;
}

void *vx_stl_mngr_list_add(void *list)
{
    if (!list)
        return nullptr;
    auto *l = list_of(list);
    return l->mngrs.emplace_back(std::make_unique<stl_mngr>(l->kind)).get();
}

bool vx_stl_mngr_list_can_erase(void const *list, unsigned index)
{
    unsigned const count = vx_stl_mngr_list_get_count(list);
    return index < count && count > 1;
}

void vx_stl_mngr_list_erase_by_idx(void *list, unsigned index)
{
    if (!vx_stl_mngr_list_can_erase(list, index))
        return;
    auto *l = list_of(list);
    l->mngrs.erase(l->mngrs.begin() + index);
    if (l->active > index || l->active >= l->mngrs.size())
        --l->active;
}

bool vx_stl_mngr_list_get_visible(void const *list)
{
    return get(list, &stl_mngr_list::visible);
}

void vx_stl_mngr_list_set_visible(void *list, bool visible)
{
    set(list, &stl_mngr_list::visible, visible);
}

// ---- text settings
void *vx_txt_settings_create(char const *type)
{
    auto const kind = style_kind_of(type);
    if (!kind ||
        (*kind != style_kind::txt_pnt && *kind != style_kind::txt_pln && *kind != style_kind::txt_pgn))
        return nullptr;
    return new txt_settings(*kind);
}

void *vx_txt_settings_clone(void const *settings)
{
    return clone<txt_settings>(settings);
}

void vx_txt_settings_destroy(void *settings)
{
    destroy<txt_settings>(settings);
}

void vx_txt_settings_assign(void *target, void const *source)
{
    assign<txt_settings>(target, source);
}

void *vx_txt_settings_get_stl_mngr_list(void *settings)
{
    return part(settings, &txt_settings::list);
}
