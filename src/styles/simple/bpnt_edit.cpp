#include "styles/simple/bpnt_edit.h"

#include "styles/complex/edit_cpx_style.h"
#include "styles/simple/simple_captions.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_size_decimals = 1;
} // namespace

Tvx_bpnt_edit::Tvx_bpnt_edit(TComponent *owner)
    : Tvx_base_style_edit(owner), f_style(vx_bpnt_style_create()), f_use_symbol(add_row<Tvx_bool_panel>()),
      f_figure(add_row<Tvx_figure_panel>()), f_symbol(add_row<Tvx_chrmap_panel>()),
      f_color(add_row<Tvx_clr_vsb_panel>()), f_size(add_row<Tvx_size_panel>())
{
    add_cpx_rows();
    f_color->set_can_visible(false);
    f_size->set_precision(c_size_decimals);
    f_size->set_min(0);
    show_unit(f_size);
    f_use_symbol->on_changed = make_closure<&Tvx_bpnt_edit::on_use_symbol_changed>(this);
    f_figure->on_change = make_closure<&Tvx_bpnt_edit::on_figure_changed>(this);
    f_symbol->on_changed = make_closure<&Tvx_bpnt_edit::on_symb_changed>(this);
    f_color->on_changed = make_closure<&Tvx_bpnt_edit::on_clr_changed>(this);
    f_size->on_changed = make_closure<&Tvx_bpnt_edit::on_size_changed>(this);
}

void Tvx_bpnt_edit::update_controls()
{
    void *const style = f_style.get();
    bool const figure = vx_bpnt_style_get_use_figure(style);
    bool const complex = vx_bpnt_style_get_use_complex(style);
    f_use_symbol->set_flag(!figure);
    f_figure->set_figure(vx_bpnt_style_get_figure(style));
    f_symbol->set_font(vx_bpnt_style_get_fnt_type_ptr(style));
    f_symbol->set_symbol(vx_bpnt_style_get_symbol(style));
    f_color->set_color(vx_bpnt_style_get_color(style));
    f_size->set_size(vx_bpnt_style_get_size(style));
    show_rows({{f_use_symbol, !complex},
               {f_figure, !complex && figure},
               {f_symbol, !complex && !figure},
               {f_color, !complex},
               {f_size, !complex}},
              complex);
}

void Tvx_bpnt_edit::load_res()
{
    Tvx_base_style_edit::load_res();
    f_use_symbol->set_caption(vx_res_get_wstr(c_smp_use_symbol));
    f_figure->load_res();
    f_figure->set_caption(vx_res_get_wstr(c_smp_figure));
    f_symbol->load_res();
    f_symbol->set_caption(vx_res_get_wstr(c_smp_symbol));
    f_color->load_res();
    f_color->set_text(vx_res_get_wstr(c_smp_color));
    f_size->set_text(vx_res_get_wstr(c_smp_size));
    f_size->set_end_caption(vx_res_get_wstr(c_smp_mm));
}

void Tvx_bpnt_edit::set_use_complex(bool use)
{
    vx_bpnt_style_set_use_complex(f_style.get(), use);
}

bool Tvx_bpnt_edit::edit_complex()
{
    return vx_edit_cpx_pnt_style(vx_bpnt_style_get_complex_style(f_style.get()));
}

void Tvx_bpnt_edit::on_use_symbol_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_use_figure(f_style.get(), !f_use_symbol->get_flag());
    update_controls();
    call_changed();
}

void Tvx_bpnt_edit::on_figure_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_figure(f_style.get(), f_figure->get_figure());
    call_changed();
}

void Tvx_bpnt_edit::on_symb_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_fnt_type(f_style.get(), f_symbol->get_font());
    vx_bpnt_style_set_symbol(f_style.get(), f_symbol->get_symbol());
    call_changed();
}

void Tvx_bpnt_edit::on_clr_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_color(f_style.get(), f_color->get_color());
    call_changed();
}

void Tvx_bpnt_edit::on_size_changed(TObject * /*sender*/)
{
    vx_bpnt_style_set_size(f_style.get(), f_size->get_size());
    call_changed();
}
