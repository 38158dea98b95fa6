#include "style_manager/rotation/rotate_form.h"

#include "captions/attr_dialogs.h"
#include "captions/style_manager.h"

#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_style_keys.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {
constexpr int c_width = 400;
constexpr int c_height = 200;
constexpr int c_two_checks_height = 250;
constexpr int c_check_height = 20;
constexpr int c_radio_height = 70;
constexpr int c_caption_width = 100;

/// The zero position behind each item; the items stand in two columns, of the two axes.
constexpr std::array c_starts{0, 2, 1, 3};

int item_of_start(int start)
{
    auto const found = std::ranges::find(c_starts, start);
    return found == c_starts.end() ? 0 : static_cast<int>(found - c_starts.begin());
}

int start_of_item(int item)
{
    return item < 0 ? 0 : c_starts.at(static_cast<std::size_t>(item));
}

std::string_view type_of(void const *mngr)
{
    char const *const type = vx_stl_mngr_get_style_type(mngr);
    return type ? type : "";
}

/// The texts of a caption, a line each, as the items of a group, which keeps its choice.
void set_items(Tvx_radio_group *group, int caption)
{
    int const chosen = group->GetItemIndex();
    group->GetItems()->Clear();
    for (auto &item : vx::strutil::split_any(std::wstring(vx_res_get_wstr(caption)), L"\n"))
        group->GetItems()->Add(std::move(item));
    group->SetItemIndex(chosen);
}
} // namespace

Tvx_rotate_form::Tvx_rotate_form(TComponent *owner) : Tvx_dlg_form(owner)
{
    SetWidth(c_width);
    SetHeight(c_height);
}

bool Tvx_rotate_form::dialog(int x, int y, void *mngr, Tvx_data_open_event on_data_open,
                             Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                             Tvx_data_get_no_event on_data_get_no, Tvx_data_get_prop_event on_data_get_prop,
                             Tvx_data_get_capt_prop_event on_data_get_capt_prop,
                             Tvx_data_get_stat_event on_data_get_stat, Tvx_data_get_str_event on_data_get_str,
                             Tvx_data_get_val_event on_data_get_val)
{
    Tvx_rotate_form form(nullptr);
    form.create_controls();
    form.init_params(mngr, on_data_open, on_data_close, on_data_get_np, on_data_get_no, on_data_get_prop,
                     on_data_get_capt_prop, on_data_get_stat, on_data_get_str, on_data_get_val);
    return form.show_pos(x, y) == mrOk;
}

Tvx_check_box *Tvx_rotate_form::add_check()
{
    auto *const check = new Tvx_check_box(this);
    check->SetParent(get_content_panel());
    check->SetHeight(c_check_height);
    check->SetTop(get_content_panel()->GetControlCount() * c_check_height);
    check->SetAlign(alTop);
    check->SetAlignment(taLeftJustify);
    check->OnClick = make_closure<&Tvx_rotate_form::on_check_click>(this);
    return check;
}

void Tvx_rotate_form::create_controls()
{
    f_rotate_check = add_check();
    f_spot_check = add_check();
    f_hatch_check = add_check();
    f_prop_edit = new Tvx_prop_edit(this);
    f_prop_edit->SetParent(get_content_panel());
    f_prop_edit->create();
    f_prop_edit->set_only_numeric(true);
    f_prop_edit->set_capt_width(c_caption_width);
    f_prop_edit->SetTop(c_height);
    f_prop_edit->SetAlign(alTop);
    f_radio_panel = new Tvx_panel(this);
    f_radio_panel->SetParent(get_content_panel());
    f_radio_panel->SetHeight(c_radio_height);
    f_radio_panel->SetTop(2 * c_height);
    f_radio_panel->SetAlign(alTop);
    f_start_group = new Tvx_radio_group(this);
    f_start_group->SetParent(f_radio_panel);
    f_start_group->SetColumns(2);
    f_start_group->SetAlign(alLeft);
    f_dir_group = new Tvx_radio_group(this);
    f_dir_group->SetParent(f_radio_panel);
    f_dir_group->SetAlign(alClient);
    f_radio_panel->OnResize = make_closure<&Tvx_rotate_form::on_radio_panel_resize>(this);
    on_radio_panel_resize(nullptr);
    set_items(f_start_group, c_rot_zero_places);
    set_items(f_dir_group, c_rot_directions);
}

void Tvx_rotate_form::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_adv_title));
    f_rotate_check->SetCaption(
        vx_res_get_wstr(type_of(f_stl_mngr) == c_pln_style ? c_adv_line_symbols : c_adv_symbols));
    f_spot_check->SetCaption(vx_res_get_wstr(c_adv_spots));
    f_hatch_check->SetCaption(vx_res_get_wstr(c_adv_hatches));
    f_prop_edit->set_caption(vx_res_get_wstr(c_rot_property));
    f_start_group->SetCaption(vx_res_get_wstr(c_adv_zero));
    f_dir_group->SetCaption(vx_res_get_wstr(c_adv_direction));
    set_items(f_start_group, c_rot_zero_places);
    set_items(f_dir_group, c_rot_directions);
}

void Tvx_rotate_form::init_params(void *mngr, Tvx_data_open_event on_data_open,
                                  Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                                  Tvx_data_get_no_event on_data_get_no,
                                  Tvx_data_get_prop_event on_data_get_prop,
                                  Tvx_data_get_capt_prop_event on_data_get_capt_prop,
                                  Tvx_data_get_stat_event on_data_get_stat,
                                  Tvx_data_get_str_event on_data_get_str,
                                  Tvx_data_get_val_event on_data_get_val)
{
    f_stl_mngr = mngr;
    f_data = {on_data_open,          on_data_close,    on_data_get_np,  on_data_get_no,  on_data_get_prop,
              on_data_get_capt_prop, on_data_get_stat, on_data_get_str, on_data_get_val, {}};
    f_prop_edit->set_on_data_open(f_data.open);
    f_prop_edit->set_on_data_close(f_data.close);
    f_prop_edit->set_on_data_get_np(f_data.get_np);
    f_prop_edit->set_on_data_get_prop(f_data.get_prop);
    f_prop_edit->set_on_data_get_capt_prop(f_data.get_capt_prop);
    f_rotate_check->SetChecked(vx_stl_mngr_get_rotate_flag(mngr));
    f_spot_check->SetChecked(vx_stl_mngr_get_rotate_spot_flag(mngr));
    f_hatch_check->SetChecked(vx_stl_mngr_get_rotate_hatch_flag(mngr));
    std::wstring name;
    vx_stl_mngr_get_rotate_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
    f_prop_edit->set_prop_name(name.c_str());
    f_prop_edit->update_controls();
    if (auto const type = type_of(mngr); type == c_pnt_style) {
        f_spot_check->SetVisible(false);
        f_hatch_check->SetVisible(false);
        SetHeight(c_height);
    } else if (type == c_pgn_style) {
        f_rotate_check->SetVisible(false);
        f_spot_check->SetVisible(true);
        f_hatch_check->SetVisible(true);
        SetHeight(c_two_checks_height);
    }
    f_start_group->SetItemIndex(item_of_start(vx_stl_mngr_get_rotate_start(mngr)));
    f_dir_group->SetItemIndex(vx_stl_mngr_get_rotate_dir(mngr) == 0 ? 0 : 1);
    enable_disable();
}

void Tvx_rotate_form::enable_disable()
{
    bool const on = f_rotate_check->GetChecked() || f_spot_check->GetChecked() || f_hatch_check->GetChecked();
    f_prop_edit->set_enabled(on);
    f_start_group->SetEnabled(on);
    f_dir_group->SetEnabled(on);
}

bool Tvx_rotate_form::apply_click()
{
    vx_stl_mngr_set_rotate_flag(f_stl_mngr, f_rotate_check->GetChecked());
    vx_stl_mngr_set_rotate_spot_flag(f_stl_mngr, f_spot_check->GetChecked());
    vx_stl_mngr_set_rotate_hatch_flag(f_stl_mngr, f_hatch_check->GetChecked());
    vx_stl_mngr_set_rotate_prop_name(f_stl_mngr, f_prop_edit->get_prop_name().c_str());
    vx_stl_mngr_set_rotate_start(f_stl_mngr, start_of_item(f_start_group->GetItemIndex()));
    vx_stl_mngr_set_rotate_dir(f_stl_mngr, f_dir_group->GetItemIndex() == 1 ? 1 : 0);
    return Tvx_dlg_form::apply_click();
}

void Tvx_rotate_form::on_check_click(TObject * /*sender*/)
{
    enable_disable();
}

void Tvx_rotate_form::on_radio_panel_resize(TObject * /*sender*/)
{
    f_start_group->SetWidth(f_radio_panel->GetClientWidth() / 2);
}
