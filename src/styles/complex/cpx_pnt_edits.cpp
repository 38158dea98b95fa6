#include "styles/complex/cpx_pnt_edits.h"

#include "captions/complex.h"
#include "captions/units.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_cpx_style.h"

#include <initializer_list>

namespace {
vx::owned<void, &vx_int_set_destroy> make_set(std::initializer_list<int> values)
{
    vx::owned<void, &vx_int_set_destroy> set(vx_int_set_create());
    for (int const value : values)
        vx_int_set_add(set.get(), value);
    return set;
}
} // namespace

Tvx_cpx_pnt_symb_edit::Tvx_cpx_pnt_symb_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner), f_symbol(new Tvx_chrmap_panel(this))
{
    place_row(this, f_symbol);
    f_symbol->on_changed = make_closure<&Tvx_cpx_pnt_symb_edit::on_symbol_changed>(this);
    f_color = add_color(this, &vx_pnt_symb_lr_get_color, &vx_pnt_symb_lr_set_color, c_cpx_pnt_color);
    f_size =
        add_size(this, {&vx_pnt_symb_lr_get_size, &vx_pnt_symb_lr_set_size, c_cpx_pnt_size, 2, c_unit_mm});
    f_dx = add_size(
        this, {&vx_pnt_symb_lr_get_dx, &vx_pnt_symb_lr_set_dx, c_cpx_pnt_dx, c_free_decimals, c_unit_mm});
    f_dy = add_size(
        this, {&vx_pnt_symb_lr_get_dy, &vx_pnt_symb_lr_set_dy, c_cpx_pnt_dy, c_free_decimals, c_unit_mm});
    f_angle = add_size(this, {&vx_pnt_symb_lr_get_angle, &vx_pnt_symb_lr_set_angle, c_cpx_pnt_angle,
                              c_free_decimals, c_unit_degrees});
}

void Tvx_cpx_pnt_symb_edit::load_res()
{
    Tvx_cpx_basic_edit::load_res();
    f_symbol->load_res();
    f_symbol->set_caption(vx_res_get_wstr(c_cpx_symbol));
}

void Tvx_cpx_pnt_symb_edit::update_controls()
{
    Tvx_cpx_basic_edit::update_controls();
    f_symbol->set_font(vx_pnt_symb_lr_get_fnt_type_ptr(get_style_lr()));
    f_symbol->set_symbol(vx_pnt_symb_lr_get_symbol(get_style_lr()));
}

void Tvx_cpx_pnt_symb_edit::on_symbol_changed(TObject * /*sender*/)
{
    if (!get_style_lr())
        return;
    vx_fnt_type_assign(vx_pnt_symb_lr_get_fnt_type_ptr(get_style_lr()), f_symbol->get_font());
    vx_pnt_symb_lr_set_symbol(get_style_lr(), f_symbol->get_symbol());
    call_changed();
}

Tvx_cpx_pnt_figr_edit::Tvx_cpx_pnt_figr_edit(TComponent *owner)
    : Tvx_cpx_basic_edit(owner), f_without_angle(make_set({0, 1})),
      f_without_line_width(make_set({0, 2, 4, 7, 9, 11, 13, 15, 17, 19, 21, 23})),
      f_figure(new Tvx_lr_figure_panel(this))
{
    place_row(this, f_figure);
    f_figure->on_change = make_closure<&Tvx_cpx_pnt_figr_edit::on_figure_changed>(this);
    f_color = add_color(this, &vx_pnt_figr_lr_get_color, &vx_pnt_figr_lr_set_color, c_cpx_pnt_color);
    f_size_x = add_size(
        this, {&vx_pnt_figr_lr_get_size_x, &vx_pnt_figr_lr_set_size_x, c_cpx_pnt_size, 2, c_unit_mm, L" X"});
    f_size_y = add_size(
        this, {&vx_pnt_figr_lr_get_size_y, &vx_pnt_figr_lr_set_size_y, c_cpx_pnt_size, 2, c_unit_mm, L" Y"});
    f_dx = add_size(this, {&vx_pnt_figr_lr_get_dx, &vx_pnt_figr_lr_set_dx, c_cpx_pnt_dx, 2, c_unit_mm});
    f_dy = add_size(this, {&vx_pnt_figr_lr_get_dy, &vx_pnt_figr_lr_set_dy, c_cpx_pnt_dy, 2, c_unit_mm});
    f_angle = add_size(
        this, {&vx_pnt_figr_lr_get_angle, &vx_pnt_figr_lr_set_angle, c_cpx_pnt_angle, 1, c_unit_degrees});
    f_line_width = add_size(this, {&vx_pnt_figr_lr_get_line_width, &vx_pnt_figr_lr_set_line_width,
                                   c_cpx_line_width, 2, c_unit_mm});
}

void Tvx_cpx_pnt_figr_edit::load_res()
{
    Tvx_cpx_basic_edit::load_res();
    f_figure->load_res();
    f_figure->set_caption(vx_res_get_wstr(c_cpx_symbol));
}

void Tvx_cpx_pnt_figr_edit::update_controls()
{
    Tvx_cpx_basic_edit::update_controls();
    int const figure = vx_pnt_figr_lr_get_lr_figure(get_style_lr());
    f_figure->set_lr_figure(figure);
    put_below(f_angle, f_dy, !vx_int_set_find(f_without_angle.get(), figure));
    put_below(f_line_width, f_angle, !vx_int_set_find(f_without_line_width.get(), figure));
}

void Tvx_cpx_pnt_figr_edit::on_figure_changed(TObject * /*sender*/)
{
    if (!get_style_lr())
        return;
    vx_pnt_figr_lr_set_lr_figure(get_style_lr(), f_figure->get_lr_figure());
    update_controls();
    call_changed();
}
