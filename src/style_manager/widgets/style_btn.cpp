#include "style_manager/widgets/style_btn.h"

#include "captions/style_manager.h"
#include "controls/prop/image_convert.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <algorithm>

namespace {
constexpr int c_border = 2;
}

Tvx_style_btn::Tvx_style_btn(TComponent *owner) : Tvx_bitbtn(owner)
{
    SetShowHint(true);
    OnClick = make_closure<&Tvx_style_btn::on_self_click>(this);
}

void Tvx_style_btn::load_res()
{
    UnicodeString const action = vx_res_get_wstr(selected ? c_stl_edit_selected_style : c_stl_edit_style);
    SetHint(action);
    SetAccessibleName(action);
}

void Tvx_style_btn::update_controls()
{
    if (!stl_prm || !on_draw_style)
        return;
    // In the screen's own pixels.
    int const scale = vx_screen_pixel_scale();
    TBitmap sample(std::max(GetWidth() - 2 * c_border, 1) * scale,
                   std::max(GetHeight() - 2 * c_border, 1) * scale);
    sample.SetPixelFormat(pf24bit);
    sample.SetTransparentMode(tmFixed);
    sample.SetTransparentColor(GetColor());
    vx_bmp_fill_color(&sample, GetColor());
    vx_bitmap_set_pixel_scale(sample, scale);
    on_draw_style(this, &sample, stl_prm, selected);
    SetGlyph(&sample);
}

void Tvx_style_btn::on_self_click(TObject * /*sender*/)
{
    if (!stl_prm || !on_edit_style)
        return;
    TPoint const corner = ClientToScreen({0, GetHeight()});
    if (!on_edit_style(this, corner.X, corner.Y, stl_prm, selected))
        return;
    update_controls();
    on_changed(this);
}
