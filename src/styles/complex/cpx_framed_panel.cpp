#include "styles/complex/cpx_framed_panel.h"

#include "controls/forms/edits.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/font.h"

namespace {
constexpr int c_caption_height = 20;
constexpr int c_margin = 3;
} // namespace

Tvx_cpx_framed_panel::Tvx_cpx_framed_panel(TComponent *owner, int caption)
    : Tvx_cpx_panel(owner), f_label(new Tvx_label(this)), f_frame(new Tvx_panel(this)), f_caption(caption)
{
    auto *const top = vx_new_on<Tvx_panel>(this, this);
    top->SetHeight(c_caption_height);
    top->SetAlign(alTop);
    f_label->SetParent(top);
    f_label->SetAutoSize(false);
    f_label->SetLayout(tlCenter);
    f_label->SetAlignWithMargins(true);
    f_label->GetMargins()->SetBounds(c_margin, 0, c_margin, 0);
    f_label->SetAlign(alClient);
    f_label->GetFont()->SetStyle({fsBold});
    f_frame->SetParent(this);
    f_frame->SetAlignWithMargins(true);
    f_frame->GetMargins()->SetBounds(c_margin, c_margin, c_margin, c_margin);
    f_frame->SetBevelInner(bvLowered);
    f_frame->SetBevelOuter(bvLowered);
    f_frame->SetAlign(alClient);
}

void Tvx_cpx_framed_panel::load_res()
{
    f_label->SetCaption(vx_res_get_wstr(f_caption));
}
