#include "styles/complex/cpx_pln_edits.h"

#include "captions/complex.h"
#include "captions/units.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_cpx_style.h"

namespace {
constexpr int c_decimals = 2;
} // namespace

Tvx_cpx_pln_line_edit::Tvx_cpx_pln_line_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner),
      f_color(add_color(this, &vx_pln_line_lr_get_color, &vx_pln_line_lr_set_color, c_cpx_line_color)),
      f_width(add_size(this, {&vx_pln_line_lr_get_width, &vx_pln_line_lr_set_width, c_cpx_line_width,
                              c_decimals, c_unit_mm})),
      f_delta(add_size(this, {&vx_pln_line_lr_get_delta, &vx_pln_line_lr_set_delta, c_cpx_line_delta,
                              c_decimals, c_unit_mm}))
{
}

Tvx_cpx_pln_tplt_edit::Tvx_cpx_pln_tplt_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner), f_pages(new Tvx_page_control(this)), f_values_sheet(new Tvx_tab_sheet(this)),
      f_template_sheet(new Tvx_tab_sheet(this)), f_template(new Tvx_pln_template_panel(this))
{
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    auto const add = [this](double (*get)(void const *), void (*set)(void *, double), int caption) {
        return add_size(f_values_sheet, {get, set, caption, c_decimals, c_unit_mm});
    };
    f_color =
        add_color(f_values_sheet, &vx_pln_tplt_lr_get_color, &vx_pln_tplt_lr_set_color, c_cpx_tplt_color);
    f_width = add(&vx_pln_tplt_lr_get_width, &vx_pln_tplt_lr_set_width, c_cpx_tplt_width);
    f_dash = add(&vx_pln_tplt_lr_get_dash, &vx_pln_tplt_lr_set_dash, c_cpx_tplt_dash);
    f_gap = add(&vx_pln_tplt_lr_get_gap, &vx_pln_tplt_lr_set_gap, c_cpx_tplt_gap);
    f_shift = add(&vx_pln_tplt_lr_get_shift, &vx_pln_tplt_lr_set_shift, c_cpx_tplt_shift);
    f_delta = add(&vx_pln_tplt_lr_get_delta, &vx_pln_tplt_lr_set_delta, c_cpx_tplt_delta);
    f_point_style = add_style(f_values_sheet, &vx_pln_tplt_lr_get_cpx_pnt_style_ptr, c_cpx_tplt_style);
    f_template->SetParent(f_template_sheet);
    f_template->SetAlign(alClient);
    f_template->on_changed = make_closure<&Tvx_cpx_pln_tplt_edit::on_template_changed>(this);
}

void Tvx_cpx_pln_tplt_edit::CreateWnd()
{
    Tvx_cpx_basic_edit::CreateWnd();
    f_values_sheet->SetPageControl(f_pages);
    f_template_sheet->SetPageControl(f_pages);
}

void Tvx_cpx_pln_tplt_edit::load_res()
{
    Tvx_cpx_basic_edit::load_res();
    f_values_sheet->SetCaption(vx_res_get_wstr(c_cpx_tplt_page));
    f_template_sheet->SetCaption(vx_res_get_wstr(c_cpx_tplt_elems_page));
    f_template->load_res();
}

void Tvx_cpx_pln_tplt_edit::update_controls()
{
    Tvx_cpx_basic_edit::update_controls();
    char const *const text = vx_pln_tplt_lr_get_template(get_style_lr());
    f_template->set_template_str(text ? text : "");
}

void Tvx_cpx_pln_tplt_edit::on_template_changed(TObject * /*sender*/)
{
    if (!get_style_lr())
        return;
    vx_pln_tplt_lr_set_template(get_style_lr(), f_template->get_template_str().c_str());
    call_changed();
}
