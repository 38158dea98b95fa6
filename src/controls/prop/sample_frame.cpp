#include "controls/prop/detail/sample_frame.h"

#include "controls/prop/image_convert.h"

#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
constexpr int c_edge = 1;
constexpr unsigned char c_veil_opacity = 170;
} // namespace

Tvx_sample_frame::Tvx_sample_frame(TComponent *owner) : Tvx_panel(owner)
{
    SetColor(clWindow);
}

void Tvx_sample_frame::Paint()
{
    Tvx_panel::Paint();
    GetCanvas()->GetBrush()->SetColor(clBtnShadow);
    GetCanvas()->FrameRect(GetClientRect());
}

void Tvx_sample_frame::AdjustClientRect(TRect &rect)
{
    Tvx_panel::AdjustClientRect(rect);
    rect.Inflate(-c_edge, -c_edge);
}

void vx_fade_disabled(TControl const &sample, TCanvas *canvas, TRect const &rect)
{
    bool enabled = sample.GetEnabled();
    for (TWinControl const *parent = sample.GetParent(); enabled && parent; parent = parent->GetParent())
        enabled = parent->GetEnabled();
    if (enabled || rect.IsEmpty())
        return;
    TBitmap veil(rect.Width(), rect.Height());
    vx_bmp_fill_color(&veil, clBtnFace);
    canvas->Draw(rect.Left, rect.Top, &veil, c_veil_opacity);
}
