#include "styles/libraries/lib_style_paint.h"

#include "styles/preview/style_example.h"

#include "platform/styles/vx_style_keys.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/collation.h"

Tvx_lib_style_paint::Tvx_lib_style_paint(TComponent *owner) : TCustomControl(owner)
{
}

void Tvx_lib_style_paint::set_styles(void *pnt_style, void *pln_style, void *pgn_style)
{
    f_pnt_style = pnt_style;
    f_pln_style = pln_style;
    f_pgn_style = pgn_style;
}

void Tvx_lib_style_paint::set_pnt_style(void *style)
{
    set_styles(style, nullptr, nullptr);
}

void Tvx_lib_style_paint::set_pln_style(void *style)
{
    set_styles(nullptr, style, nullptr);
}

void Tvx_lib_style_paint::set_pgn_style(void *style)
{
    set_styles(nullptr, nullptr, style);
}

void Tvx_lib_style_paint::set_none()
{
    set_styles(nullptr, nullptr, nullptr);
}

void Tvx_lib_style_paint::Paint()
{
    int const width = GetWidth();
    int const height = GetHeight();
    if (width <= 0 || height <= 0)
        return;
    TBitmap bitmap;
    vx_style_example_bmp_set_size(&bitmap, width, height, vx_screen_pixel_scale());
    if (f_pnt_style)
        vx_pnt_style_example_bmp(f_pnt_style, &bitmap);
    else if (f_pln_style)
        vx_pln_style_example_bmp(f_pln_style, &bitmap);
    else if (f_pgn_style)
        vx_pgn_style_example_bmp(f_pgn_style, &bitmap);
    else
        return;
    GetCanvas()->StretchDraw(Bounds(0, 0, width, height), &bitmap);
}

Tvx_lib_style_draw::Tvx_lib_style_draw(TComponent *owner)
    : Tvx_panel(owner), f_frame(new Tvx_panel(this)), f_paint(new Tvx_lib_style_paint(this))
{
    f_frame->SetParent(this);
    f_frame->SetAlignWithMargins(true);
    f_frame->SetBevelInner(bvLowered);
    f_frame->SetBevelOuter(bvLowered);
    f_frame->SetAlign(alClient);
    f_paint->SetParent(f_frame);
    f_paint->SetAlign(alClient);
}

void Tvx_lib_style_draw::update_controls()
{
    char const *const type = vx_idx_style_get_type(f_idx_style);
    auto const is = [&](char const *key) { return type && lstrcmpiA(type, key) == 0; };
    if (is(c_pnt_style))
        f_paint->set_pnt_style(vx_idx_pnt_style_get_pnt_style_ptr(f_idx_style));
    else if (is(c_pln_style))
        f_paint->set_pln_style(vx_idx_pln_style_get_pln_style_ptr(f_idx_style));
    else if (is(c_pgn_style))
        f_paint->set_pgn_style(vx_idx_pgn_style_get_pgn_style_ptr(f_idx_style));
    else
        f_paint->set_none();
    f_paint->Invalidate();
}
