#include "platform/render/vx_render.h"

#include "platform/render/detail/style_painter.h"

#include <span>

using namespace vx::render;

namespace {
struct renderer
{
    Tvx_box_d2 box;
    bmp_dc *dc = nullptr;

    [[nodiscard]] bool ready() const { return dc && dc->width() > 0 && box.width() > 0 && box.height() > 0; }

    [[nodiscard]] px_line to_px(std::span<Tvx_vtx_d2 const> part) const
    {
        px_line out;
        out.reserve(part.size());
        for (Tvx_vtx_d2 const &v : part)
            out.push_back({(v.x - box.min_x) * dc->width() / box.width(),
                           (box.max_y - v.y) * dc->height() / box.height()});
        return out;
    }
};

/// The renderer, if it can draw this.
renderer const *ready_renderer(void *render, Tvx_op2d const *geometry, void const *style)
{
    auto const *r = static_cast<renderer const *>(render);
    return r && geometry && style && r->ready() ? r : nullptr;
}

std::vector<px_line> parts_of(renderer const &r, Tvx_op2d const *geometry)
{
    std::vector<px_line> parts;
    for (std::size_t i = 0; i < vx_ov_d2_get_size(geometry); ++i) {
        Tvx_pv_d2 const *part = vx_ov_d2_get_pv_ptr(geometry, i);
        parts.push_back(r.to_px({vx_pv_d2_get_data(part), vx_pv_d2_get_size(part)}));
    }
    return parts;
}
} // namespace

void *vx_render_create()
{
    return new renderer;
}

void vx_render_destroy(void *render)
{
    delete static_cast<renderer *>(render);
}

void vx_render_init(void *render, Tvx_box_d2 const &box, void *dc)
{
    if (!render)
        return;
    auto *r = static_cast<renderer *>(render);
    r->box = box;
    r->dc = static_cast<bmp_dc *>(dc);
}

void vx_render_cr_bpnt(void *render, Tvx_op2d const *geometry, void const *style)
{
    renderer const *r = ready_renderer(render, geometry, style);
    if (!r)
        return;
    // A picture of the symbol pays from about this many points.
    constexpr std::size_t c_many = 8;
    surface const target = r->dc->get_surface();
    point_painter painter(target, *static_cast<vx::styles::bpnt_style const *>(style),
                          vx_ov_d2_get_vtx_count(geometry) < c_many ? use_of_painter::few
                                                                    : use_of_painter::many);
    for (px_line const &part : parts_of(*r, geometry))
        for (Tvx_pnt_d2 const &at : part)
            painter.draw(at);
}

void vx_render_cr_bpln(void *render, Tvx_op2d const *geometry, void const *style)
{
    renderer const *r = ready_renderer(render, geometry, style);
    if (!r)
        return;
    surface const target = r->dc->get_surface();
    line_painter painter(target, *static_cast<vx::styles::bpln_style const *>(style));
    for (px_line const &part : parts_of(*r, geometry))
        painter.draw(part);
}

void vx_render_cr_bpgn(void *render, Tvx_op2d const *geometry, void const *style)
{
    renderer const *r = ready_renderer(render, geometry, style);
    if (!r)
        return;
    surface const target = r->dc->get_surface();
    fill_painter painter(target, *static_cast<vx::styles::bpgn_style const *>(style));
    painter.draw(parts_of(*r, geometry));
}
