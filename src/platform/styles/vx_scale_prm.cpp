#include "platform/styles/vx_scale_prm.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::fields;
using namespace vx::styles;

namespace {
scale_prm *prm_of(void *prm)
{
    return static_cast<scale_prm *>(prm);
}
scale_prm const *prm_of(void const *prm)
{
    return static_cast<scale_prm const *>(prm);
}
} // namespace

void *vx_scale_prm_create(char const *type)
{
    auto const kind = style_kind_of(type);
    return kind ? new scale_prm(*kind) : nullptr;
}

void *vx_scale_prm_clone(void const *prm)
{
    return clone<scale_prm>(prm);
}

void vx_scale_prm_destroy(void *prm)
{
    destroy<scale_prm>(prm);
}

void vx_scale_prm_assign(void *target, void const *source)
{
    if (!target || !source)
        return;
    prm_of(target)->visible = prm_of(source)->visible;
    prm_of(target)->prm.assign_variant(prm_of(source)->prm, variant_of_style::base);
    prm_of(target)->prm.assign_variant(prm_of(source)->prm, variant_of_style::selected);
}

bool vx_scale_prm_equal(void const *a, void const *b)
{
    return equal<scale_prm>(a, b);
}

void *vx_scale_prm_get_stl_prm_ptr(void *prm)
{
    return part(prm, &scale_prm::prm);
}

bool vx_scale_prm_get_visible(void const *prm)
{
    return get(prm, &scale_prm::visible);
}

void vx_scale_prm_set_visible(void *prm, bool visible)
{
    set(prm, &scale_prm::visible, visible);
}
