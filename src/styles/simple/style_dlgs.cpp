#include "styles/simple/style_dlgs.h"

#include "captions/simple.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_width = 350;
constexpr int c_height = 330;
} // namespace

Tvx_basic_style_dlg::Tvx_basic_style_dlg(TComponent *owner, int caption)
    : Tvx_dlg_form(owner), f_caption(caption)
{
    SetBounds(GetLeft(), GetTop(), c_width, c_height);
    GetConstraints()->SetMinWidth(c_width);
    GetConstraints()->SetMinHeight(c_height);
}

void Tvx_basic_style_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(f_caption));
    f_style_edit->load_res();
}

void Tvx_basic_style_dlg::set_style(void const *style)
{
    f_style_edit->set_style(style);
    f_style_edit->update_controls();
}

void Tvx_basic_style_dlg::place_edit(Tvx_style_edit *edit)
{
    f_style_edit = edit;
    edit->SetParent(get_content_panel());
    edit->SetAlign(alClient);
}

Tvx_bpnt_style_dlg::Tvx_bpnt_style_dlg(TComponent *owner)
    : Tvx_basic_style_dlg(owner, c_smp_dlg_bpnt), f_edit(add_edit<Tvx_bpnt_edit>())
{
}

Tvx_bpln_style_dlg::Tvx_bpln_style_dlg(TComponent *owner)
    : Tvx_basic_style_dlg(owner, c_smp_dlg_bpln), f_edit(add_edit<Tvx_bpln_edit>())
{
}

Tvx_bpgn_style_dlg::Tvx_bpgn_style_dlg(TComponent *owner)
    : Tvx_basic_style_dlg(owner, c_smp_dlg_bpgn), f_edit(add_edit<Tvx_bpgn_edit>())
{
}

Tvx_pnt_style_dlg::Tvx_pnt_style_dlg(TComponent *owner)
    : Tvx_basic_style_dlg(owner, c_smp_dlg_pnt), f_edit(add_edit<Tvx_pnt_stl_edit>())
{
}

Tvx_pln_style_dlg::Tvx_pln_style_dlg(TComponent *owner)
    : Tvx_basic_style_dlg(owner, c_smp_dlg_pln), f_edit(add_edit<Tvx_pln_stl_edit>())
{
}

Tvx_pgn_style_dlg::Tvx_pgn_style_dlg(TComponent *owner)
    : Tvx_basic_style_dlg(owner, c_smp_dlg_pgn), f_edit(add_edit<Tvx_pgn_stl_edit>())
{
}
