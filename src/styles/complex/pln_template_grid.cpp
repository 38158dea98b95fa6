#include "styles/complex/pln_template_grid.h"

#include "captions/complex.h"

#include "platform/basic/vx_res.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace {
/// In the order of the menu.
constexpr std::string_view c_elements = "0132456";
constexpr int c_element_captions[] = {c_cpx_elem_gap,    c_cpx_elem_dash,   c_cpx_elem_dash90,
                                      c_cpx_elem_point,  c_cpx_elem_symbol, c_cpx_elem_dash45,
                                      c_cpx_elem_dash135};
} // namespace

Tvx_pln_template_grid::Tvx_pln_template_grid(TComponent *owner)
    : Tvx_cpx_items_grid(owner, c_cpx_element_column)
{
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_gap_menu_click>(this));
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_dash_menu_click>(this));
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_dash90_menu_click>(this));
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_point_menu_click>(this));
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_symbol_menu_click>(this));
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_dash45_menu_click>(this));
    add_menu_item(make_closure<&Tvx_pln_template_grid::on_dash135_menu_click>(this));
    add_menu_item({})->SetCaption(L"-");
    add_menu_item({});
}

void Tvx_pln_template_grid::load_res()
{
    Tvx_cpx_items_grid::load_res();
    auto *const items = get_add_menu()->GetItems();
    for (int i = 0; i < static_cast<int>(std::size(c_element_captions)); ++i)
        items->GetItems(i)->SetCaption(vx_res_get_wstr(c_element_captions[i]));
    items->GetItems(items->GetCount() - 1)->SetCaption(vx_res_get_wstr(c_cpx_add_no_elem));
}

void Tvx_pln_template_grid::set_template_str(std::string const &text)
{
    f_template = text;
    update_controls();
}

char Tvx_pln_template_grid::get_active_elem() const
{
    return holds(get_active()) ? f_template[static_cast<std::size_t>(get_active())] : '\0';
}

char const *Tvx_pln_template_grid::item_text(int row)
{
    if (!holds(row))
        return "";
    char const elem = f_template[static_cast<std::size_t>(row)];
    if (auto const at = c_elements.find(elem); at != std::string_view::npos)
        return vx_res_get_str(c_element_captions[at]);
    f_text.assign(1, elem);
    return f_text.c_str();
}

void Tvx_pln_template_grid::list_changed()
{
    update_controls();
    call_changed();
}

void Tvx_pln_template_grid::add_elem(char elem)
{
    f_template += elem;
    list_changed();
}

void Tvx_pln_template_grid::delete_item()
{
    if (!holds(get_active()))
        return;
    f_template.erase(static_cast<std::size_t>(get_active()), 1);
    list_changed();
}

void Tvx_pln_template_grid::swap(int a, int b)
{
    std::swap(f_template[static_cast<std::size_t>(a)], f_template[static_cast<std::size_t>(b)]);
}

void Tvx_pln_template_grid::move_item(int from, int to)
{
    if (!holds(from) || !holds(to))
        return;
    swap(from, to);
    if (get_active() == from)
        put_active(to);
    else if (get_active() == to)
        put_active(from);
    list_changed();
}

void Tvx_pln_template_grid::move_up()
{
    int const row = get_active();
    if (!holds(row) || row == 0)
        return;
    swap(row, row - 1);
    put_active(row - 1);
    list_changed();
}

void Tvx_pln_template_grid::move_down()
{
    int const row = get_active();
    if (!holds(row) || !holds(row + 1))
        return;
    swap(row, row + 1);
    put_active(row + 1);
    list_changed();
}
