#include "platform/styles/vx_scale_prm.h"

#include "platform/styles/detail/style_model.h"

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
    return prm ? new scale_prm(*prm_of(prm)) : nullptr;
}

void vx_scale_prm_destroy(void *prm)
{
    delete prm_of(prm);
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
    return a == b || (a && b && *prm_of(a) == *prm_of(b));
}

void *vx_scale_prm_get_stl_prm_ptr(void *prm)
{
    return prm ? &prm_of(prm)->prm : nullptr;
}

bool vx_scale_prm_get_visible(void const *prm)
{
    return prm && prm_of(prm)->visible;
}

void vx_scale_prm_set_visible(void *prm, bool visible)
{
    if (prm)
        prm_of(prm)->visible = visible;
}
