#include "styles/complex/cpx_paints.h"

#include "styles/preview/style_example.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/collation.h"

#include <utility>

namespace {
/// Draws the sample of a style of one geometry whose complex style `fill` has filled; nothing if that gives
/// false.
template <class Fill>
bool draw_points(TBitmap *bitmap, Fill fill)
{
    vx::owned<void, &vx_pnt_style_destroy> const style(vx_pnt_style_create());
    vx_pnt_style_set_pnt_visible(style.get(), true);
    void *const base = vx_pnt_style_get_bpnt_style_ptr(style.get());
    vx_bpnt_style_set_use_complex(base, true);
    if (!fill(vx_bpnt_style_get_complex_style(base)))
        return false;
    vx_pnt_style_example_bmp(style.get(), bitmap);
    return true;
}

template <class Fill>
bool draw_lines(TBitmap *bitmap, Fill fill)
{
    vx::owned<void, &vx_pln_style_destroy> const style(vx_pln_style_create());
    vx_pln_style_set_pnt_visible(style.get(), false);
    vx_pln_style_set_pln_visible(style.get(), true);
    void *const base = vx_pln_style_get_bpln_style_ptr(style.get());
    vx_bpln_style_set_use_complex(base, true);
    if (!fill(vx_bpln_style_get_complex_style(base)))
        return false;
    vx_pln_style_example_bmp(style.get(), bitmap);
    return true;
}

template <class Fill>
bool draw_areas(TBitmap *bitmap, Fill fill)
{
    vx::owned<void, &vx_pgn_style_destroy> const style(vx_pgn_style_create());
    vx_pgn_style_set_pnt_visible(style.get(), false);
    vx_pgn_style_set_pln_visible(style.get(), false);
    vx_pgn_style_set_pgn_visible(style.get(), true);
    void *const base = vx_pgn_style_get_bpgn_style_ptr(style.get());
    vx_bpgn_style_set_use_complex(base, true);
    if (!fill(vx_bpgn_style_get_complex_style(base)))
        return false;
    vx_pgn_style_example_bmp(style.get(), bitmap);
    return true;
}
} // namespace

Tvx_cpx_sample_paint::Tvx_cpx_sample_paint(TComponent *owner) : TCustomControl(owner)
{
    SetTabStop(false);
    SetColor(clWhite);
}

void Tvx_cpx_sample_paint::Paint()
{
    TRect const rect = GetClientRect();
    if (rect.IsEmpty())
        return;
    TBitmap bitmap;
    vx_style_example_bmp_set_size(&bitmap, rect.Width(), rect.Height(), vx_canvas_pixel_scale(GetCanvas()));
    bitmap.SetTransparentColor(clWhite);
    draw_sample(&bitmap);
    GetCanvas()->StretchDraw(rect, &bitmap);
}

void Tvx_cpx_layers_paint::draw_sample(TBitmap *bitmap)
{
    if (!f_style)
        return;
    auto const fill = [this](void *target) {
        vx_cpx_style_assign(target, f_style);
        return true;
    };
    char const *const type = vx_cpx_style_get_type(f_style);
    if (lstrcmpiA(type, c_pnt_style) == 0)
        draw_points(bitmap, fill);
    else if (lstrcmpiA(type, c_pln_style) == 0)
        draw_lines(bitmap, fill);
    else if (lstrcmpiA(type, c_pgn_style) == 0)
        draw_areas(bitmap, fill);
}

void Tvx_cpx_layer_paint::draw_sample(TBitmap *bitmap)
{
    if (!f_style_lr)
        return;
    // A complex style of the wrong kind takes no layer of the key.
    auto const fill = [this](void *target) {
        void *const layer =
            vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(target), vx_style_lr_get_type(f_style_lr));
        vx_style_lr_assign(layer, f_style_lr);
        return layer != nullptr;
    };
    if (!draw_points(bitmap, fill) && !draw_lines(bitmap, fill))
        draw_areas(bitmap, fill);
}
