#include "styles/simple/bpnt_edit.h"

#include "captions/simple.h"
#include "styles/complex/edit_cpx_style.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_base_style.h"

namespace {
constexpr int c_size_decimals = 1;

bool use_symbol(void const *style)
{
    return !vx_bpnt_style_get_use_figure(style);
}
} // namespace

Tvx_bpnt_edit::Tvx_bpnt_edit(TComponent *owner)
    : Tvx_base_style_edit(owner, {{&vx_bpnt_style_create, &vx_bpnt_style_destroy, &vx_bpnt_style_assign},
                                  &vx_bpnt_style_get_color,
                                  &vx_bpnt_style_set_color,
                                  &vx_bpnt_style_get_use_complex,
                                  &vx_bpnt_style_set_use_complex,
                                  &vx_bpnt_style_get_complex_style,
                                  &vx_edit_cpx_pnt_style,
                                  &vx_bpnt_style_get_size,
                                  &vx_bpnt_style_set_size,
                                  c_smp_size,
                                  c_size_decimals}),
      f_use_symbol(add_row<Tvx_bool_panel>()),
      f_figure(add_row<Tvx_figure_panel>(&vx_bpnt_style_get_use_figure)),
      f_symbol(add_row<Tvx_chrmap_panel>(&use_symbol))
{
    add_common_rows();
    f_use_symbol->on_changed = make_closure<&Tvx_bpnt_edit::on_use_symbol_changed>(this);
    f_figure->on_change = make_closure<&Tvx_bpnt_edit::on_figure_changed>(this);
    f_symbol->on_changed = make_closure<&Tvx_bpnt_edit::on_symb_changed>(this);
}

void Tvx_bpnt_edit::update_controls()
{
    void *const style = get_style();
    f_use_symbol->set_flag(use_symbol(style));
    f_figure->set_figure(vx_bpnt_style_get_figure(style));
    f_symbol->set_font(vx_bpnt_style_get_fnt_type_ptr(style));
    f_symbol->set_symbol(vx_bpnt_style_get_symbol(style));
    Tvx_base_style_edit::update_controls();
}

void Tvx_bpnt_edit::load_res()
{
    Tvx_base_style_edit::load_res();
    f_use_symbol->set_caption(vx_res_get_wstr(c_smp_use_symbol));
    f_figure->load_res();
    f_figure->set_caption(vx_res_get_wstr(c_smp_figure));
    f_symbol->load_res();
    f_symbol->set_caption(vx_res_get_wstr(c_smp_symbol));
}

void Tvx_bpnt_edit::on_use_symbol_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_use_figure(get_style(), !f_use_symbol->get_flag());
    update_controls();
    call_changed();
}

void Tvx_bpnt_edit::on_figure_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_figure(get_style(), f_figure->get_figure());
    call_changed();
}

void Tvx_bpnt_edit::on_symb_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_fnt_type(get_style(), f_symbol->get_font());
    vx_bpnt_style_set_symbol(get_style(), f_symbol->get_symbol());
    call_changed();
}
