#include "style_manager/scales/visible_menu.h"

#include "captions/scale_menus.h"
#include "style_manager/scales/detail/scale_rows.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"

namespace {
enum : TTag
{
    c_show = 1,
    c_hide,
    c_invert,
};
constexpr int c_first_command = 2; ///< behind the check and the separator

void work_scale_prm(void *prm, TTag tag)
{
    vx_scale_prm_set_visible(prm, tag == c_show || (tag == c_invert && !vx_scale_prm_get_visible(prm)));
}
} // namespace

Tvx_visible_menu::Tvx_visible_menu(TComponent *owner) : Tvx_scale_menu(owner)
{
    f_only_selected_item = add_item(nullptr, L"Only selected", 0,
                                    make_closure<&Tvx_visible_menu::on_item_only_selected_click>(this));
    f_only_selected_item->SetAutoCheck(true);
    add_separator(nullptr);
    for (TTag const tag : {c_show, c_hide, c_invert})
        add_item(nullptr, {}, tag, make_closure<&Tvx_visible_menu::on_item_click>(this));
}

void Tvx_visible_menu::load_res()
{
    f_only_selected_item->SetCaption(vx_res_get_wstr(c_menu_only_marked));
    int item = c_first_command;
    for (int const caption : {c_menu_show, c_menu_hide, c_menu_invert_visibility})
        GetItems()->GetItems(item++)->SetCaption(vx_res_get_wstr(caption));
}

void Tvx_visible_menu::update_controls()
{
    f_only_selected_item->SetChecked(f_only_selected);
}

void Tvx_visible_menu::set_stl_mngr(void *mngr)
{
    if (mngr != get_stl_mngr())
        f_only_selected_touched = false;
    Tvx_scale_menu::set_stl_mngr(mngr);
    if (f_only_selected_touched)
        return;
    Tvx_scale_rows const rows(mngr);
    // Of rules all are meant until the user says otherwise.
    f_only_selected = rows.has_marked() && vx_stl_mngr_get_mode(mngr) != c_style_mode_rule;
}

void Tvx_visible_menu::on_item_only_selected_click(TObject * /*sender*/)
{
    f_only_selected = !f_only_selected;
    f_only_selected_touched = true;
    update_controls();
}

void Tvx_visible_menu::on_item_click(TObject *sender)
{
    Tvx_scale_rows const rows(get_stl_mngr());
    if (!rows.has_scale())
        return;
    TTag const tag = static_cast<TMenuItem *>(sender)->GetTag();
    for (unsigned const row : rows.select(f_only_selected))
        work_scale_prm(rows.get_scale_prm_ptr(row), tag);
    call_changed();
}
