#include "mngr_list_dlg.h"

#include "captions/scene.h"
#include "controls/forms/event_off.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>

namespace {
constexpr int c_width = 360;
constexpr int c_height = 320;
constexpr int c_margin = 6;
constexpr int c_row_height = 24;

void set_margins(TControl *control)
{
    control->SetAlignWithMargins(true);
    control->GetMargins()->SetBounds(c_margin, c_margin, c_margin, 0);
}

std::wstring name_of(void *mngr)
{
    std::wstring name;
    vx_stl_mngr_get_name_w(mngr, Tvx_std_wstring_adapter(name));
    return name;
}
} // namespace

Tvx_mngr_list_dlg::Tvx_mngr_list_dlg(void const *list)
    : Tvx_dlg_form(nullptr), f_list(vx_stl_mngr_list_clone(list)), f_rows(new Tvx_list_box(this)),
      f_buttons(new Tvx_order_buttons(this)), f_name(new Tvx_string_panel(this)),
      f_active(new Tvx_check_box(this)), f_inverted(vx_options_get_invert_layers())
{
    SetBounds(GetLeft(), GetTop(), c_width, c_height);
    GetConstraints()->SetMinWidth(c_width);
    GetConstraints()->SetMinHeight(c_height);
    TWinControl *content = get_content_panel();
    int const bottom = content->GetClientHeight();
    f_rows->SetParent(content);
    set_margins(f_rows);
    f_rows->SetAlign(alClient);
    f_rows->OnClick = make_closure<&Tvx_mngr_list_dlg::on_rows_click>(this);
    f_buttons->SetParent(content);
    set_margins(f_buttons);
    f_buttons->SetAlign(alRight);
    f_buttons->on_add = make_closure<&Tvx_mngr_list_dlg::on_add_click>(this);
    f_buttons->on_delete = make_closure<&Tvx_mngr_list_dlg::on_delete_click>(this);
    f_buttons->on_move = make_closure<&Tvx_mngr_list_dlg::on_move_click>(this);
    f_name->SetParent(content);
    f_name->SetBounds(0, bottom - 2 * c_row_height, content->GetClientWidth(), c_row_height);
    set_margins(f_name);
    f_name->SetAlign(alBottom);
    f_name->on_changed = make_closure<&Tvx_mngr_list_dlg::on_name_changed>(this);
    f_active->SetParent(content);
    f_active->SetBounds(0, bottom - c_row_height, content->GetClientWidth(), c_row_height);
    set_margins(f_active);
    f_active->SetAlign(alBottom);
    f_active->OnClick = make_closure<&Tvx_mngr_list_dlg::on_active_click>(this);
    f_rows->SetTabOrder(0);
    f_name->SetTabOrder(1);
    f_active->SetTabOrder(2);
}

void Tvx_mngr_list_dlg::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_scn_dlg_managers));
    f_buttons->load_res();
    f_rows->SetAccessibleName(vx_res_get_wstr(c_scn_managers));
    f_name->set_caption(vx_res_get_wstr(c_scn_name));
    f_active->SetCaption(vx_res_get_wstr(c_scn_active));
    show_rows(static_cast<int>(vx_stl_mngr_list_get_active_idx(f_list.get())));
}

int Tvx_mngr_list_dlg::count() const
{
    return static_cast<int>(vx_stl_mngr_list_get_count(f_list.get()));
}

int Tvx_mngr_list_dlg::index_of_row(int row) const
{
    return row >= 0 && f_inverted ? count() - 1 - row : row;
}

UnicodeString Tvx_mngr_list_dlg::row_text(int index) const
{
    std::wstring text = name_of(vx_stl_mngr_list_get_mngr(f_list.get(), static_cast<unsigned>(index)));
    if (text.empty())
        text = std::to_wstring(index + 1);
    bool const active = vx_stl_mngr_list_get_active_idx(f_list.get()) == static_cast<unsigned>(index);
    return active ? vx_res_format_w(c_scn_active_item, text) : text;
}

void Tvx_mngr_list_dlg::show_rows(int current)
{
    TStrings *items = f_rows->GetItems();
    items->BeginUpdate();
    items->Clear();
    for (int row = 0; row < count(); ++row)
        items->Add(row_text(index_of_row(row)));
    items->EndUpdate();
    f_rows->SetItemIndex(index_of_row(current));
    show_current();
}

void Tvx_mngr_list_dlg::show_current()
{
    int const index = current();
    auto const number = static_cast<unsigned>(index);
    f_buttons->enable(f_rows->GetItemIndex(), count(),
                      index >= 0 && vx_stl_mngr_list_can_erase(f_list.get(), number));
    f_name->set_string(index >= 0 ? name_of(vx_stl_mngr_list_get_mngr(f_list.get(), number)).c_str() : L"");
    bool const active = index >= 0 && vx_stl_mngr_list_get_active_idx(f_list.get()) == number;
    vx::event_off const quiet(f_active->OnClick);
    f_active->SetChecked(active);
    // One is always active: another one has to be made so.
    f_active->SetEnabled(index >= 0 && !active);
}

void Tvx_mngr_list_dlg::on_rows_click(TObject * /*sender*/)
{
    show_current();
}

void Tvx_mngr_list_dlg::on_name_changed(TObject * /*sender*/)
{
    int const index = current();
    if (index < 0)
        return;
    vx_stl_mngr_set_name_w(vx_stl_mngr_list_get_mngr(f_list.get(), static_cast<unsigned>(index)),
                           f_name->get_wstring().c_str());
    int const row = f_rows->GetItemIndex();
    f_rows->GetItems()->SetStrings(row, row_text(index));
    f_rows->SetItemIndex(row);
}

void Tvx_mngr_list_dlg::on_active_click(TObject * /*sender*/)
{
    int const index = current();
    if (index < 0)
        return;
    vx_stl_mngr_list_set_active_by_idx(f_list.get(), static_cast<unsigned>(index));
    show_rows(index);
    f_rows->SetFocus();
}

void Tvx_mngr_list_dlg::on_add_click(TObject * /*sender*/)
{
    if (vx_stl_mngr_list_add(f_list.get()))
        show_rows(count() - 1);
}

void Tvx_mngr_list_dlg::on_delete_click(TObject * /*sender*/)
{
    int const row = f_rows->GetItemIndex();
    vx_stl_mngr_list_erase_by_idx(f_list.get(), static_cast<unsigned>(current()));
    show_rows(index_of_row(std::min(row, count() - 1)));
}

void Tvx_mngr_list_dlg::on_move_click(TObject * /*sender*/, int by)
{
    int const from = current();
    int const to = index_of_row(f_rows->GetItemIndex() + by);
    void *const list = f_list.get();
    void *const a = vx_stl_mngr_list_get_mngr(list, static_cast<unsigned>(from));
    void *const b = vx_stl_mngr_list_get_mngr(list, static_cast<unsigned>(to));
    vx::owned<void, &vx_stl_mngr_destroy> const kept(vx_stl_mngr_clone(a));
    vx_stl_mngr_assign(a, b);
    vx_stl_mngr_assign(b, kept.get());
    // The active one is the manager, not its place.
    int const active = static_cast<int>(vx_stl_mngr_list_get_active_idx(list));
    if (active == from || active == to)
        vx_stl_mngr_list_set_active_by_idx(list, static_cast<unsigned>(active == from ? to : from));
    show_rows(to);
}
