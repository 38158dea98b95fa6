#include "styles/complex/cpx_layers_grid.h"

#include "captions/complex.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/winapi/collation.h"

#include <algorithm>

namespace {
/// The layers that the editor knows, in the order of the add menu.
struct layer_kind
{
    char const *style; ///< which may hold it
    char const *key;
    int caption;
};
constexpr layer_kind c_layer_kinds[] = {
    {c_pnt_style, c_pnt_symb_style_lr, c_cpx_add_symb}, {c_pnt_style, c_pnt_figr_style_lr, c_cpx_add_figr},
    {c_pln_style, c_pln_line_style_lr, c_cpx_add_line}, {c_pln_style, c_pln_tplt_style_lr, c_cpx_add_tplt},
    {c_pgn_style, c_pgn_fill_style_lr, c_cpx_add_fill}, {c_pgn_style, c_pgn_htch_style_lr, c_cpx_add_htch},
    {c_pgn_style, c_pgn_spot_style_lr, c_cpx_add_spot},
};
} // namespace

Tvx_cpx_layers_grid::Tvx_cpx_layers_grid(TComponent *owner) : Tvx_cpx_items_grid(owner, c_cpx_layer_column)
{
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_symb_menu_click>(this));
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_figr_menu_click>(this));
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_line_menu_click>(this));
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_tplt_menu_click>(this));
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_fill_menu_click>(this));
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_htch_menu_click>(this));
    add_menu_item(make_closure<&Tvx_cpx_layers_grid::on_spot_menu_click>(this));
    add_menu_item({})->SetCaption(L"-");
    add_menu_item({});
}

void Tvx_cpx_layers_grid::load_res()
{
    Tvx_cpx_items_grid::load_res();
    auto *const items = get_add_menu()->GetItems();
    int place = 0;
    for (layer_kind const &kind : c_layer_kinds)
        items->GetItems(place++)->SetCaption(vx_res_get_wstr(kind.caption));
    items->GetItems(items->GetCount() - 1)->SetCaption(vx_res_get_wstr(c_cpx_add_no_layer));
}

void Tvx_cpx_layers_grid::prepare_add_menu()
{
    char const *const type = vx_cpx_style_get_type(f_style);
    int place = 0;
    for (layer_kind const &kind : c_layer_kinds)
        get_add_menu()->GetItems()->GetItems(place++)->SetVisible(lstrcmpiA(kind.style, type) == 0);
}

void *Tvx_cpx_layers_grid::layers() const
{
    return vx_cpx_style_get_style_lrs_ptr(f_style);
}

void *Tvx_cpx_layers_grid::get_active_lr() const
{
    return holds(get_active()) ? vx_style_lrs_get_lr_ptr(layers(), static_cast<unsigned>(get_active()))
                               : nullptr;
}

int Tvx_cpx_layers_grid::item_count() const
{
    return static_cast<int>(vx_style_lrs_get_size(layers()));
}

char const *Tvx_cpx_layers_grid::item_text(int row)
{
    if (!holds(row))
        return "";
    char const *const key =
        vx_style_lr_get_type(vx_style_lrs_get_lr_ptr(layers(), static_cast<unsigned>(row)));
    for (layer_kind const &kind : c_layer_kinds)
        if (lstrcmpiA(kind.key, key) == 0)
            return vx_res_get_str(kind.caption);
    return key;
}

void Tvx_cpx_layers_grid::list_changed()
{
    update_controls();
    call_changed();
}

void Tvx_cpx_layers_grid::add_layer(char const *key)
{
    vx_style_lrs_add_lr(layers(), key);
    list_changed();
}

void Tvx_cpx_layers_grid::on_symb_menu_click(TObject * /*sender*/)
{
    add_layer(c_pnt_symb_style_lr);
}

void Tvx_cpx_layers_grid::on_figr_menu_click(TObject * /*sender*/)
{
    add_layer(c_pnt_figr_style_lr);
}

void Tvx_cpx_layers_grid::on_line_menu_click(TObject * /*sender*/)
{
    add_layer(c_pln_line_style_lr);
}

void Tvx_cpx_layers_grid::on_tplt_menu_click(TObject * /*sender*/)
{
    add_layer(c_pln_tplt_style_lr);
}

void Tvx_cpx_layers_grid::on_fill_menu_click(TObject * /*sender*/)
{
    add_layer(c_pgn_fill_style_lr);
}

void Tvx_cpx_layers_grid::on_htch_menu_click(TObject * /*sender*/)
{
    add_layer(c_pgn_htch_style_lr);
}

void Tvx_cpx_layers_grid::on_spot_menu_click(TObject * /*sender*/)
{
    add_layer(c_pgn_spot_style_lr);
}

void Tvx_cpx_layers_grid::delete_item()
{
    int const row = get_item_grid()->GetRow() - get_item_grid()->GetFixedRows();
    if (!holds(row))
        return;
    vx_style_lrs_del_lr(layers(), static_cast<unsigned>(row));
    // The grid's current row goes up when the last one is deleted, and the active one with it.
    put_active(std::min(get_active(), std::max(item_count() - 1, 0)));
    list_changed();
}

void Tvx_cpx_layers_grid::move_item(int from, int to)
{
    if (!holds(from) || !holds(to))
        return;
    vx_style_lrs_move_lr(layers(), static_cast<unsigned>(from), static_cast<unsigned>(to));
    // The layer that is being edited stays the active one.
    int const active = get_active();
    if (active == from)
        put_active(to);
    else if (from < active && active <= to)
        put_active(active - 1);
    else if (to <= active && active < from)
        put_active(active + 1);
    list_changed();
}

/// A move, and then another active row.
void Tvx_cpx_layers_grid::move_to(int from, int to)
{
    if (!holds(from) || !holds(to))
        return;
    vx_style_lrs_move_lr(layers(), static_cast<unsigned>(from), static_cast<unsigned>(to));
    list_changed();
    put_active(to);
    list_changed();
}

void Tvx_cpx_layers_grid::move_up()
{
    int const row = get_item_grid()->GetRow() - get_item_grid()->GetFixedRows();
    move_to(row, row - 1);
}

void Tvx_cpx_layers_grid::move_down()
{
    int const row = get_item_grid()->GetRow() - get_item_grid()->GetFixedRows();
    move_to(row, row + 1);
}
