#include "styles/preview/style3d_params.h"

#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_style3d.h"

namespace {
/// Widths of lines have another scale in space.
constexpr double c_width_3d_to_2d = 0.25;
} // namespace

void vx_copy_bpnt_params(void const *source_3d, void *target_2d)
{
    if (!source_3d)
        return;
    vx_bpnt_style_set_color(target_2d, vx_bpnt3d_style_get_color(source_3d));
    vx_bpnt_style_set_size(target_2d, vx_bpnt3d_style_get_size(source_3d));
}

void vx_copy_bpln_params(void const *source_3d, void *target_2d)
{
    if (!source_3d)
        return;
    vx_bpln_style_set_color(target_2d, vx_bpln3d_style_get_color(source_3d));
    vx_bpln_style_set_width(target_2d, vx_bpln3d_style_get_width(source_3d) * c_width_3d_to_2d);
}

void vx_copy_bpgn_params(void const *source_3d, void *target_2d)
{
    if (source_3d)
        vx_bpgn_style_set_color(target_2d, vx_bpgn3d_style_get_color(source_3d));
}
