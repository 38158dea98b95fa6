#include "styles/complex/cpx_items_grid.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/screen.h"

Tvx_cpx_items_grid::Tvx_cpx_items_grid(TComponent *owner, int column_caption)
    : Tvx_item_panel_adv(owner), f_add_menu(new Tvx_popup_menu(this)), f_column_caption(column_caption)
{
    auto *const grid = get_item_grid();
    grid->get_fixed_cols()->set_count(1);
    auto *const number = grid->get_fixed_cols()->get_col(0);
    number->set_col_type(c_item_col_row);
    number->set_width_type(c_item_width_fixed);
    number->set_width(1.0);
    number->set_capt_type(c_item_capt_text);
    number->set_caption("#");
    grid->get_columns()->set_count(1);
    auto *const text = grid->get_columns()->get_col(0);
    text->set_col_type(c_item_col_str);
    text->set_width_type(c_item_width_share);
    text->set_width(1.0);
    text->set_capt_type(c_item_capt_text);
    text->set_caption("Type");
    text->set_enabled(false); // chosen from the menu, not typed
    text->on_get_str = make_closure<&Tvx_cpx_items_grid::on_get_str>(this);
    grid->on_add_item = make_closure<&Tvx_cpx_items_grid::on_add_item>(this);
    grid->on_del_item = make_closure<&Tvx_cpx_items_grid::on_del_item>(this);
    grid->on_get_active = make_closure<&Tvx_cpx_items_grid::on_get_active>(this);
    grid->on_set_active = make_closure<&Tvx_cpx_items_grid::on_set_active>(this);
    grid->on_get_sel = make_closure<&Tvx_cpx_items_grid::on_get_sel>(this);
    grid->on_move_item = make_closure<&Tvx_cpx_items_grid::on_move_item>(this);
    grid->on_up_item = make_closure<&Tvx_cpx_items_grid::on_up_item>(this);
    grid->on_down_item = make_closure<&Tvx_cpx_items_grid::on_down_item>(this);
    grid->OnClick = make_closure<&Tvx_cpx_items_grid::on_grid_click>(this);
}

void Tvx_cpx_items_grid::load_res()
{
    Tvx_item_panel_adv::load_res();
    get_item_grid()->get_columns()->get_col(0)->set_caption(vx_res_get_str(f_column_caption));
    get_item_grid()->SetAccessibleName(vx_res_get_wstr(f_column_caption));
}

void Tvx_cpx_items_grid::update_controls()
{
    get_item_grid()->set_item_count(item_count());
    Tvx_item_panel_adv::update_controls();
}

Tvx_menu_item *Tvx_cpx_items_grid::add_menu_item(TNotifyEvent on_click)
{
    auto *const item = new Tvx_menu_item(f_add_menu);
    item->OnClick = on_click;
    f_add_menu->GetItems()->Add(item);
    return item;
}

char const *Tvx_cpx_items_grid::on_get_str(Tvx_item_column * /*sender*/, int row)
{
    return item_text(row);
}

void Tvx_cpx_items_grid::on_add_item(TObject * /*sender*/)
{
    prepare_add_menu();
    TPoint const at = Screen->GetCursorPos();
    f_add_menu->Popup(at.X, at.Y);
}

void Tvx_cpx_items_grid::on_del_item(TObject * /*sender*/)
{
    delete_item();
}

int Tvx_cpx_items_grid::on_get_active(TObject * /*sender*/)
{
    return f_active;
}

void Tvx_cpx_items_grid::on_set_active(TObject * /*sender*/, int row)
{
    f_active = row;
    active_changed();
}

bool Tvx_cpx_items_grid::on_get_sel(TObject * /*sender*/, int row)
{
    return row == f_active;
}

void Tvx_cpx_items_grid::on_move_item(TObject * /*sender*/, int from, int to)
{
    move_item(from, to);
}

void Tvx_cpx_items_grid::on_up_item(TObject * /*sender*/)
{
    move_up();
}

void Tvx_cpx_items_grid::on_down_item(TObject * /*sender*/)
{
    move_down();
}

/// A deleted last item leaves no active one; the grid, whose current row is the one above then, takes a click
/// on that for no change.
void Tvx_cpx_items_grid::on_grid_click(TObject * /*sender*/)
{
    auto *const grid = get_item_grid();
    int const row = grid->GetRow() - grid->GetFixedRows();
    if (row >= 0 && row < item_count() && (f_active < 0 || f_active >= item_count()))
        grid->set_active(row);
}
