#include "style_manager/scales/select_menu.h"

#include "captions/scale_menus.h"
#include "style_manager/scales/detail/scale_rows.h"

#include "platform/basic/vx_res.h"

namespace {
enum : TTag
{
    c_select_all = 1,
    c_deselect_all,
    c_invert_selection,
};
} // namespace

void Tvx_select_menu::create()
{
    auto const click = make_closure<&Tvx_select_menu::on_item_click>(this);
    add_item(nullptr, L"Select all", c_select_all, click);
    add_item(nullptr, L"Deselect all", c_deselect_all, click);
    add_item(nullptr, L"Invert selection", c_invert_selection, click);
}

void Tvx_select_menu::load_res()
{
    int item = 0;
    for (int const caption : {c_menu_mark_all, c_menu_unmark_all, c_menu_invert_marks})
        GetItems()->GetItems(item++)->SetCaption(vx_res_get_wstr(caption));
}

void Tvx_select_menu::on_item_click(TObject *sender)
{
    Tvx_scale_rows rows(get_stl_mngr());
    if (!rows.has_scale())
        return;
    TTag const tag = static_cast<TMenuItem *>(sender)->GetTag();
    for (unsigned row = 0, size = rows.get_size(); row < size; ++row)
        rows.set_marked(row, tag == c_select_all || (tag == c_invert_selection && !rows.get_marked(row)));
    call_changed();
}
