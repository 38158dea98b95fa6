#include "styles/libraries/stl_lib_search_form.h"

#include "captions/libraries.h"
#include "controls/numeric/capt_edit_panel.h"
#include "controls/numeric/size_panel.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

#include <cmath>
#include <limits>

bool Tvx_stl_lib_search_form::c_last_is_idx = false;
int Tvx_stl_lib_search_form::c_last_idx = 0;
std::wstring Tvx_stl_lib_search_form::c_last_str;

namespace {
constexpr int c_form_width = 250;
constexpr int c_form_height = 110;
constexpr int c_edit_width = 50;
constexpr int c_capt_width = 60; // of the text: its edit has the rest

bool is_whole(double number)
{
    return number > static_cast<double>(std::numeric_limits<int>::min()) - 1 &&
           number < static_cast<double>(std::numeric_limits<int>::max()) + 1;
}
} // namespace

Tvx_stl_lib_search_form::Tvx_stl_lib_search_form(TComponent *owner) : Tvx_dlg_form(owner)
{
    SetBounds(0, 0, c_form_width, c_form_height);
}

void Tvx_stl_lib_search_form::create_controls()
{
    if (f_pages)
        return;
    f_pages = vx_new_on<Tvx_page_control>(get_content_panel(), this);
    f_pages->SetAlign(alClient);
    for (Tvx_tab_sheet **tab : {&f_idx_tab, &f_str_tab}) {
        *tab = new Tvx_tab_sheet(this);
        (*tab)->SetPageControl(f_pages);
    }
    f_idx_panel = new Tvx_size_panel(this);
    f_idx_panel->set_precision(0);
    f_idx_panel->set_edt_ctrl_width(c_edit_width);
    f_idx_panel->SetParent(f_idx_tab);
    f_str_panel = new Tvx_capt_edit_panel(this);
    f_str_panel->set_capt_width(c_capt_width);
    f_str_panel->SetParent(f_str_tab);
    for (TControl *panel : std::initializer_list<TControl *>{f_idx_panel, f_str_panel}) {
        panel->SetAlignWithMargins(true);
        panel->SetAlign(alTop);
    }
    load_last();
}

void Tvx_stl_lib_search_form::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_lib_search_title));
    if (!f_pages)
        return;
    f_idx_tab->SetCaption(vx_res_get_wstr(c_lib_by_number));
    f_str_tab->SetCaption(vx_res_get_wstr(c_lib_by_text));
    f_idx_panel->set_text(vx_res_get_wstr(c_lib_find));
    f_str_panel->set_capt(vx_res_get_wstr(c_lib_find));
}

bool Tvx_stl_lib_search_form::apply_click()
{
    if (is_num_search() && !is_whole(f_idx_panel->get_size())) {
        f_idx_panel->get_edit()->SetFocus();
        return false;
    }
    return Tvx_dlg_form::apply_click();
}

bool Tvx_stl_lib_search_form::is_num_search() const
{
    return f_pages && f_pages->GetActivePage() == f_idx_tab;
}

int Tvx_stl_lib_search_form::get_num() const
{
    double const number = f_idx_panel ? f_idx_panel->get_size() : 0;
    return is_whole(number) ? static_cast<int>(number) : 0;
}

std::wstring const &Tvx_stl_lib_search_form::get_str() const
{
    f_str = f_str_panel ? std::wstring(f_str_panel->get_text().c_str()) : std::wstring();
    return f_str;
}

void Tvx_stl_lib_search_form::save_last()
{
    c_last_is_idx = is_num_search();
    c_last_idx = get_num();
    c_last_str = get_str();
}

void Tvx_stl_lib_search_form::load_last()
{
    f_pages->SetActivePage(c_last_is_idx ? f_idx_tab : f_str_tab);
    f_idx_panel->set_size(c_last_idx);
    f_str_panel->set_text(c_last_str.c_str());
    SetActiveControl(c_last_is_idx ? f_idx_panel->get_edit() : f_str_panel->get_edit());
}
