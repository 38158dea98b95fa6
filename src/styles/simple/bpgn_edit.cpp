#include "styles/simple/bpgn_edit.h"

#include "styles/complex/edit_cpx_style.h"
#include "styles/simple/simple_captions.h"

#include "platform/basic/vx_res.h"

Tvx_bpgn_edit::Tvx_bpgn_edit(TComponent *owner)
    : Tvx_base_style_edit(owner), f_style(vx_bpgn_style_create()), f_color(add_row<Tvx_clr_vsb_panel>())
{
    add_cpx_rows();
    f_color->set_can_visible(false);
    f_color->on_changed = make_closure<&Tvx_bpgn_edit::on_clr_changed>(this);
}

void Tvx_bpgn_edit::update_controls()
{
    bool const complex = vx_bpgn_style_get_use_complex(f_style.get());
    f_color->set_color(vx_bpgn_style_get_color(f_style.get()));
    show_rows({{f_color, !complex}}, complex);
}

void Tvx_bpgn_edit::load_res()
{
    Tvx_base_style_edit::load_res();
    f_color->load_res();
    f_color->set_text(vx_res_get_wstr(c_smp_color));
}

void Tvx_bpgn_edit::set_use_complex(bool use)
{
    vx_bpgn_style_set_use_complex(f_style.get(), use);
}

bool Tvx_bpgn_edit::edit_complex()
{
    return vx_edit_cpx_pgn_style(vx_bpgn_style_get_complex_style(f_style.get()));
}

void Tvx_bpgn_edit::on_clr_changed(TObject * /*sender*/)
{
    vx_bpgn_style_set_color(f_style.get(), f_color->get_color());
    call_changed();
}
