#include "style_manager/lists/stl_mngr_list_edit.h"

#include "captions/style_manager.h"
#include "controls/forms/event_off.h"
#include "controls/prop/image_convert.h"
#include "styles/simple/style_dialog.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_table.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/image_list.h"

namespace {
constexpr int c_check_height = 20;
constexpr int c_caption_width = 80;
constexpr int c_picture_add = 141;
constexpr int c_picture_delete = 142;
constexpr int c_picture_setting = 146;

using owned_table = vx::owned<Ivx_table_files, &vx_table_files_close>;
} // namespace

Tvx_stl_mngr_list_edit::Tvx_stl_mngr_list_edit(TComponent *owner, bool show_check)
    : Tvx_panel(owner), f_show_check(show_check)
{
}

void Tvx_stl_mngr_list_edit::create()
{
    if (f_show_check) {
        auto *const panel = vx_new_on<Tvx_panel>(this, this);
        panel->SetHeight(c_check_height);
        panel->SetAlign(alTop);
        f_check_box = vx_new_on<Tvx_check_box>(panel, this);
        f_check_box->SetBounds(2, 2, panel->GetWidth() - 4, c_check_height - 4);
        f_check_box->SetAnchors({akLeft, akTop, akRight});
        f_check_box->OnClick = make_closure<&Tvx_stl_mngr_list_edit::on_check_click>(this);
        SetHeight(GetHeight() + c_check_height);
    }
    f_combo_panel = vx_new_on<Tvx_combo_box_panel>(this, this);
    f_combo_panel->SetAlign(alClient);
    f_combo_panel->set_caption_width(c_caption_width);
    get_combo_box()->SetStyle(csDropDownList);
    get_combo_box()->OnChange = make_closure<&Tvx_stl_mngr_list_edit::on_active_changed>(this);

    auto *const images = new TImageList(this);
    f_tool_bar = vx_new_on<TToolBar>(this, this);
    f_tool_bar->SetImages(images);
    f_tool_bar->SetAlign(alRight);
    f_tool_bar->SetShowHint(true);
    auto const add = [&](int picture) {
        auto *const button = vx_new_on<Tvx_tool_btn>(f_tool_bar, this);
        button->SetImageIndex(vx_image_list_get_res(images, picture));
        button->SetShowHint(true);
        return button;
    };
    f_add_btn = add(c_picture_add);
    f_add_btn->OnClick = make_closure<&Tvx_stl_mngr_list_edit::on_add_click>(this);
    f_del_btn = add(c_picture_delete);
    f_del_btn->OnClick = make_closure<&Tvx_stl_mngr_list_edit::on_del_click>(this);
    f_setting_btn = add(c_picture_setting);
    f_setting_btn->OnClick = make_closure<&Tvx_stl_mngr_list_edit::on_setting_click>(this);
    f_tool_bar->SetWidth(3 * f_tool_bar->GetButtonWidth());
}

void Tvx_stl_mngr_list_edit::load_res()
{
    f_combo_panel->set_caption(vx_res_get_wstr(c_stl_list));
    if (f_check_box)
        f_check_box->SetCaption(vx_res_get_wstr(c_stl_list_drawn));
    auto const name = [](Tvx_tool_btn *button, int caption) {
        button->SetHint(vx_res_get_wstr(caption));
        button->SetAccessibleName(button->GetHint());
    };
    name(f_add_btn, c_stl_list_add);
    name(f_del_btn, c_stl_list_delete);
    name(f_setting_btn, c_stl_list_setting);
}

/// Rows of the box and places in the list count from opposite ends where lists are shown inverted.
unsigned Tvx_stl_mngr_list_edit::list_index(unsigned row) const
{
    unsigned const count = vx_stl_mngr_list_get_count(f_list);
    return vx_options_get_invert_layers() && row < count ? count - 1 - row : row;
}

unsigned Tvx_stl_mngr_list_edit::get_active_index() const
{
    return list_index(static_cast<unsigned>(get_combo_box()->GetItemIndex()));
}

void Tvx_stl_mngr_list_edit::update_controls()
{
    auto *const lines = get_combo_box()->GetItems();
    lines->Clear();
    SetVisible(f_list != nullptr);
    if (!f_list)
        return;
    unsigned const count = vx_stl_mngr_list_get_count(f_list);
    for (unsigned row = 0; row < count; ++row) {
        unsigned const index = list_index(row);
        std::wstring name;
        Tvx_std_wstring_adapter adapter(name);
        vx_stl_mngr_get_name_w(vx_stl_mngr_list_get_mngr(f_list, index), adapter);
        lines->Add(name.empty() ? std::to_wstring(index + 1) : name);
    }
    unsigned const active = vx_stl_mngr_list_get_active_idx(f_list);
    get_combo_box()->SetItemIndex(static_cast<int>(list_index(active)));
    bool const visible = vx_stl_mngr_list_get_visible(f_list);
    if (f_check_box) {
        vx::event_off const quiet(f_check_box->OnClick);
        f_check_box->SetChecked(visible);
    }
    f_combo_panel->SetEnabled(visible);
    get_combo_box()->SetEnabled(visible);
    f_add_btn->SetEnabled(visible);
    f_setting_btn->SetEnabled(visible);
    f_del_btn->SetEnabled(visible && vx_stl_mngr_list_can_erase(f_list, active));
}

void Tvx_stl_mngr_list_edit::on_check_click(TObject * /*sender*/)
{
    vx_stl_mngr_list_set_visible(f_list, f_check_box->GetChecked());
    call_changed();
}

void Tvx_stl_mngr_list_edit::on_active_changed(TObject * /*sender*/)
{
    if (get_combo_box()->GetItemIndex() < 0)
        return;
    unsigned const index = get_active_index();
    if (index == vx_stl_mngr_list_get_active_idx(f_list))
        return;
    vx_stl_mngr_list_set_active_by_idx(f_list, index);
    call_changed();
}

void Tvx_stl_mngr_list_edit::on_del_click(TObject * /*sender*/)
{
    vx_stl_mngr_list_erase_by_idx(f_list, get_active_index());
    call_changed();
}

void Tvx_stl_mngr_list_edit::on_add_click(TObject * /*sender*/)
{
    if (auto *const mngr = vx_stl_mngr_list_add(f_list))
        vx_stl_mngr_list_set_active_by_mngr(f_list, mngr);
    call_changed();
}

void Tvx_stl_mngr_list_edit::on_setting_click(TObject * /*sender*/)
{
    // A list of no kind has nothing to set.
}

void Tvx_style_stl_mngr_list_edit::on_setting_click(TObject * /*sender*/)
{
    if (vx_stl_mngr_list_setting_dialog(0, 0, get_stl_mngr_list()))
        call_changed();
}

void Tvx_txt_stl_mngr_list_edit::load_res()
{
    Tvx_stl_mngr_list_edit::load_res();
    if (get_check_box())
        get_check_box()->SetCaption(vx_res_get_wstr(c_stl_list_labels));
}

void Tvx_txt_stl_mngr_list_edit::on_add_click(TObject * /*sender*/)
{
    if (auto *const mngr = vx_stl_mngr_list_add(get_stl_mngr_list())) {
        init_default_txt_style(mngr);
        vx_stl_mngr_list_set_active_by_mngr(get_stl_mngr_list(), mngr);
    }
    call_changed();
}

void Tvx_txt_stl_mngr_list_edit::on_setting_click(TObject * /*sender*/)
{
    if (auto *const mngr = vx_stl_mngr_list_get_active_mngr(get_stl_mngr_list()))
        vx_txt_common_style_dialog(0, 0, mngr);
}

void Tvx_txt_stl_mngr_list_edit::init_default_txt_style(void *mngr)
{
    auto *const data = get_lr2d() ? vx_lr2d_get_data_ptr(get_lr2d()) : nullptr;
    owned_table const table(data ? vx_table_files_open(data, 1) : nullptr);
    if (!table || vx_table_files_get_columns_count(table.get()) < 1)
        return;
    std::wstring name;
    Tvx_std_wstring_adapter adapter(name);
    vx_table_files_get_column_name_w(table.get(), 0, adapter);
    vx_txt_stl_mngr_init(mngr, name.c_str());
}
