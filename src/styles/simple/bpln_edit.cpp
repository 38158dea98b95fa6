#include "styles/simple/bpln_edit.h"

#include "styles/complex/edit_cpx_style.h"
#include "styles/simple/simple_captions.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_width_decimals = 2;
}

Tvx_bpln_edit::Tvx_bpln_edit(TComponent *owner)
    : Tvx_base_style_edit(owner), f_style(vx_bpln_style_create()), f_color(add_row<Tvx_clr_vsb_panel>()),
      f_width(add_row<Tvx_size_panel>())
{
    add_cpx_rows();
    f_color->set_can_visible(false);
    f_width->set_precision(c_width_decimals);
    f_width->set_min(0);
    show_unit(f_width);
    f_color->on_changed = make_closure<&Tvx_bpln_edit::on_clr_changed>(this);
    f_width->on_changed = make_closure<&Tvx_bpln_edit::on_width_changed>(this);
}

void Tvx_bpln_edit::update_controls()
{
    void *const style = f_style.get();
    bool const complex = vx_bpln_style_get_use_complex(style);
    f_color->set_color(vx_bpln_style_get_color(style));
    f_width->set_size(vx_bpln_style_get_width(style));
    show_rows({{f_color, !complex}, {f_width, !complex}}, complex);
}

void Tvx_bpln_edit::load_res()
{
    Tvx_base_style_edit::load_res();
    f_color->load_res();
    f_color->set_text(vx_res_get_wstr(c_smp_color));
    f_width->set_text(vx_res_get_wstr(c_smp_width));
    f_width->set_end_caption(vx_res_get_wstr(c_smp_mm));
}

void Tvx_bpln_edit::set_use_complex(bool use)
{
    vx_bpln_style_set_use_complex(f_style.get(), use);
}

bool Tvx_bpln_edit::edit_complex()
{
    return vx_edit_cpx_pln_style(vx_bpln_style_get_complex_style(f_style.get()));
}

void Tvx_bpln_edit::on_clr_changed(TObject * /*sender*/)
{
    vx_bpln_style_set_color(f_style.get(), f_color->get_color());
    call_changed();
}

void Tvx_bpln_edit::on_width_changed(TObject * /*sender*/)
{
    vx_bpln_style_set_width(f_style.get(), f_width->get_size());
    call_changed();
}
