#include "styles/complex/cpx_pgn_edits.h"

#include "captions/complex.h"
#include "captions/units.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_cpx_style.h"

namespace {
constexpr int c_decimals = 2;
constexpr int c_angle_decimals = 1;
constexpr int c_spot_type_height = 24;
constexpr int c_side_margin = 6;
} // namespace

Tvx_cpx_pgn_fill_edit::Tvx_cpx_pgn_fill_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner),
      f_color(add_color(this, &vx_pgn_fill_lr_get_color, &vx_pgn_fill_lr_set_color, c_cpx_fill_color))
{
}

Tvx_cpx_pgn_htch_edit::Tvx_cpx_pgn_htch_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner), f_delta(add_size(this, {&vx_pgn_htch_lr_get_delta, &vx_pgn_htch_lr_set_delta,
                                                         c_cpx_htch_delta, c_decimals, c_unit_mm})),
      f_angle(add_size(this, {&vx_pgn_htch_lr_get_angle, &vx_pgn_htch_lr_set_angle, c_cpx_htch_angle,
                              c_angle_decimals, c_unit_degrees})),
      f_shift(add_size(this, {&vx_pgn_htch_lr_get_shift, &vx_pgn_htch_lr_set_shift, c_cpx_htch_shift,
                              c_decimals, c_unit_mm})),
      f_line_style(add_style(this, &vx_pgn_htch_lr_get_cpx_pln_style_ptr, c_cpx_htch_style))
{
}

Tvx_cpx_pgn_spot_edit::Tvx_cpx_pgn_spot_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner), f_spot_type(new Tvx_spot_type_panel(this)),
      f_pages(new Tvx_page_control(this)), f_values_sheet(new Tvx_tab_sheet(this)),
      f_random_sheet(new Tvx_tab_sheet(this))
{
    f_spot_type->SetParent(this);
    f_spot_type->SetHeight(c_spot_type_height);
    f_spot_type->SetAlignWithMargins(true);
    f_spot_type->GetMargins()->SetBounds(c_side_margin, 2, c_side_margin, 2);
    f_spot_type->SetAlign(alTop);
    f_spot_type->on_changed = make_closure<&Tvx_cpx_pgn_spot_edit::on_spot_type_changed>(this);
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    auto const add = [this](double (*get)(void const *), void (*set)(void *, double), int caption) {
        return add_size(f_values_sheet, {get, set, caption, c_decimals, c_unit_mm});
    };
    f_dx = add(&vx_pgn_spot_lr_get_dx, &vx_pgn_spot_lr_set_dx, c_cpx_spot_dx);
    f_dy = add(&vx_pgn_spot_lr_get_dy, &vx_pgn_spot_lr_set_dy, c_cpx_spot_dy);
    f_x0 = add(&vx_pgn_spot_lr_get_x0, &vx_pgn_spot_lr_set_x0, c_cpx_spot_x0);
    f_y0 = add(&vx_pgn_spot_lr_get_y0, &vx_pgn_spot_lr_set_y0, c_cpx_spot_y0);
    f_use_cpx_pnt = add_flag(f_values_sheet, &vx_pgn_spot_lr_get_use_cpx_pnt, &vx_pgn_spot_lr_set_use_cpx_pnt,
                             c_cpx_use_cpx_pnt);
    f_point_clr = add_color(f_values_sheet, &vx_pgn_spot_lr_get_point_clr, &vx_pgn_spot_lr_set_point_clr,
                            c_cpx_point_color);
    f_point_size = add(&vx_pgn_spot_lr_get_point_size, &vx_pgn_spot_lr_set_point_size, c_cpx_point_size);
    f_point_style = add_style(f_values_sheet, &vx_pgn_spot_lr_get_cpx_pnt_style_ptr, c_cpx_spot_style);
    f_random_x =
        add_flag(f_random_sheet, &vx_pgn_spot_lr_get_random_x, &vx_pgn_spot_lr_set_random_x, c_cpx_random_x);
    f_random_y =
        add_flag(f_random_sheet, &vx_pgn_spot_lr_get_random_y, &vx_pgn_spot_lr_set_random_y, c_cpx_random_y);
    f_random_angle = add_flag(f_random_sheet, &vx_pgn_spot_lr_get_random_angle,
                              &vx_pgn_spot_lr_set_random_angle, c_cpx_random_angle);
}

void Tvx_cpx_pgn_spot_edit::CreateWnd()
{
    Tvx_cpx_basic_edit::CreateWnd();
    f_values_sheet->SetPageControl(f_pages);
    f_random_sheet->SetPageControl(f_pages);
    f_created = true;
    load_res();
    update_controls();
}

void Tvx_cpx_pgn_spot_edit::load_res()
{
    Tvx_cpx_basic_edit::load_res();
    f_spot_type->load_res();
    if (!f_created)
        return;
    f_values_sheet->SetCaption(vx_res_get_wstr(c_cpx_spot_page));
    f_random_sheet->SetCaption(vx_res_get_wstr(c_cpx_random_page));
}

void Tvx_cpx_pgn_spot_edit::update_controls()
{
    Tvx_cpx_basic_edit::update_controls();
    f_spot_type->set_spot_type(
        vx_pgn_spot_lr_get_spot_type(get_style_lr()) == c_spot_staggered ? c_spot_staggered : c_spot_rows);
    enable_disable();
}

/// What the points are drawn with.
void Tvx_cpx_pgn_spot_edit::enable_disable()
{
    bool const complex = vx_pgn_spot_lr_get_use_cpx_pnt(get_style_lr());
    f_values_sheet->DisableAlign();
    put_below(f_point_clr, f_use_cpx_pnt, !complex);
    put_below(f_point_size, f_point_clr, !complex);
    put_below(f_point_style, f_use_cpx_pnt, complex);
    f_values_sheet->EnableAlign();
}

void Tvx_cpx_pgn_spot_edit::flag_changed(Tvx_check_box *box)
{
    if (box == f_use_cpx_pnt)
        enable_disable();
}

void Tvx_cpx_pgn_spot_edit::on_spot_type_changed(TObject * /*sender*/)
{
    if (!get_style_lr())
        return;
    vx_pgn_spot_lr_set_spot_type(get_style_lr(), f_spot_type->get_spot_type());
    call_changed();
}
