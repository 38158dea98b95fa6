#include "styles/simple/style_btns.h"

#include "captions/simple.h"
#include "styles/preview/style_example.h"
#include "styles/simple/style_dialog.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_style.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"

namespace {
constexpr int c_sample_size = 20;
}

Tvx_basic_style_btn::Tvx_basic_style_btn(TComponent *owner) : Tvx_bitbtn(owner)
{
    SetShowHint(true);
    OnClick = make_closure<&Tvx_basic_style_btn::on_self_click>(this);
}

void Tvx_basic_style_btn::update_controls()
{
    // In the screen's own pixels.
    int const scale = vx_screen_pixel_scale();
    TBitmap sample(c_sample_size * scale, c_sample_size * scale);
    vx_bitmap_set_pixel_scale(sample, scale);
    sample.Dormant();
    sample.SetTransparent(false);
    sample.SetTransparentMode(tmFixed);
    draw(&sample);
    SetGlyph(&sample);
    Repaint();
}

void Tvx_basic_style_btn::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_smp_edit_style);
    SetHint(action);
    SetAccessibleName(action);
}

void Tvx_basic_style_btn::on_self_click(TObject * /*sender*/)
{
    TPoint const corner = ClientToScreen({0, GetHeight()});
    if (!edit(corner.X, corner.Y))
        return;
    update_controls();
    call_changed();
}

Tvx_composed_style_btn::Tvx_composed_style_btn(TComponent *owner, style_functions const &functions)
    : Tvx_basic_style_btn(owner), f_functions(functions), f_style(functions.create(), functions.destroy)
{
}

Tvx_pnt_style_btn::Tvx_pnt_style_btn(TComponent *owner)
    : Tvx_composed_style_btn(owner, {&vx_pnt_style_create, &vx_pnt_style_destroy, &vx_pnt_style_assign,
                                     &vx_pnt_style_example_bmp, &vx_pnt_style_dialog})
{
}

Tvx_pln_style_btn::Tvx_pln_style_btn(TComponent *owner)
    : Tvx_composed_style_btn(owner, {&vx_pln_style_create, &vx_pln_style_destroy, &vx_pln_style_assign,
                                     &vx_pln_style_example_bmp, &vx_pln_style_dialog})
{
}

Tvx_pgn_style_btn::Tvx_pgn_style_btn(TComponent *owner)
    : Tvx_composed_style_btn(owner, {&vx_pgn_style_create, &vx_pgn_style_destroy, &vx_pgn_style_assign,
                                     &vx_pgn_style_example_bmp, &vx_pgn_style_dialog})
{
}

Tvx_clr_style_btn::Tvx_clr_style_btn(TComponent *owner) : Tvx_basic_style_btn(owner)
{
}

void Tvx_clr_style_btn::load_res()
{
    UnicodeString const action = vx_res_get_wstr(c_smp_edit_color);
    SetHint(action);
    SetAccessibleName(action);
}

void Tvx_clr_style_btn::draw(TBitmap *bitmap)
{
    vx_clr_style_example_bmp(&f_color, bitmap);
}

bool Tvx_clr_style_btn::edit(int x, int y)
{
    return vx_clr_style_dialog(x, y, &f_color);
}
