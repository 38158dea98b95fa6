#include "styles/libraries/lib_panel.h"

#include "captions/libraries.h"
#include "styles/libraries/lib_style_panel.h"
#include "styles/libraries/lib_tree_panel.h"
#include "styles/libraries/stl_lib_search_form.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/toolkit/core/application.h"

#include <memory>

namespace {
constexpr int c_tree_width = 400;
constexpr int c_search_height = 32;
constexpr int c_next_wider = 40;
} // namespace

Tvx_lib_panel::Tvx_lib_panel(TComponent *owner)
    : Tvx_panel(owner), f_left_panel(new Tvx_panel(this)), f_tree_panel(new Tvx_lib_tree_panel(this)),
      f_splitter(new Tvx_splitter(this)), f_right_panel(new Tvx_panel(this)),
      f_search_panel(new Tvx_panel(this)), f_search_btn(new Tvx_button(this)),
      f_next_btn(new Tvx_button(this)), f_style_panel(new Tvx_lib_style_panel(this))
{
    f_left_panel->SetParent(this);
    f_left_panel->SetWidth(c_tree_width);
    f_left_panel->SetAlign(alLeft);
    f_tree_panel->SetParent(f_left_panel);
    f_tree_panel->SetAlign(alClient);
    f_tree_panel->on_changed = make_closure<&Tvx_lib_panel::on_tree_changed>(this);
    f_splitter->SetParent(this);
    f_splitter->SetLeft(f_left_panel->GetWidth());
    f_splitter->SetAlign(alLeft);
    f_right_panel->SetParent(this);
    f_right_panel->SetAlign(alClient);
    f_search_panel->SetParent(f_right_panel);
    f_search_panel->SetHeight(c_search_height);
    f_search_panel->SetAlign(alTop);
    f_next_btn->SetWidth(f_search_btn->GetWidth() + c_next_wider);
    f_next_btn->SetVisible(false);
    // Of two that stand at the right, that which is further left comes first.
    for (Tvx_button *button : {f_search_btn, f_next_btn}) {
        button->SetParent(f_search_panel);
        button->SetAlignWithMargins(true);
        button->SetAlign(alRight);
    }
    f_search_btn->OnClick = make_closure<&Tvx_lib_panel::on_search_btn_click>(this);
    f_next_btn->OnClick = make_closure<&Tvx_lib_panel::on_next_btn_click>(this);
    f_style_panel->SetParent(f_right_panel);
    f_style_panel->SetAlign(alClient);
    f_style_panel->on_changed = make_closure<&Tvx_lib_panel::on_style_changed>(this);
}

void Tvx_lib_panel::load_res()
{
    f_search_btn->SetCaption(vx_res_get_wstr(c_lib_search));
    f_search_btn->SetAccessibleName(vx_res_get_wstr(c_lib_search_title));
    f_next_btn->SetCaption(vx_res_get_wstr(c_lib_search_next));
    f_splitter->SetAccessibleName(vx_res_get_wstr(c_lib_splitter));
    f_tree_panel->load_res();
    f_style_panel->load_res();
}

void Tvx_lib_panel::set_lib(void *lib)
{
    f_lib = lib;
    f_next_btn->SetVisible(false);
}

void Tvx_lib_panel::update_controls()
{
    f_tree_panel->set_lib(f_lib);
    f_style_panel->set_lib(f_lib);
    f_tree_panel->update_controls();
    f_style_panel->update_controls();
}

bool Tvx_lib_panel::get_index_ver(int &index, int &version) const
{
    return f_style_panel->get_index_ver(index, version);
}

void Tvx_lib_panel::set_index_ver(int index, int version)
{
    f_tree_panel->set_index_ver(index, version);
    f_style_panel->set_index_ver(index, version);
}

int Tvx_lib_panel::get_tree_width() const
{
    return f_left_panel->GetWidth();
}

void Tvx_lib_panel::set_tree_width(int width)
{
    f_left_panel->SetWidth(width);
}

void *Tvx_lib_panel::get_active_style() const
{
    return f_style_panel->get_active_style();
}

void Tvx_lib_panel::on_tree_changed(TObject * /*sender*/)
{
    int index = 0;
    int version = 0;
    if (!f_tree_panel->get_index_ver(index, version))
        return;
    f_style_panel->set_index_ver(index, version);
    if (!get_active_style()) // the style panel told of nothing
        on_changed(this);
}

void Tvx_lib_panel::on_style_changed(TObject * /*sender*/)
{
    int index = 0;
    int version = 0;
    int tree_index = 0;
    int tree_version = 0;
    // Where several items name the style, that which the user stands on stays.
    if (get_index_ver(index, version) && !(f_tree_panel->get_index_ver(tree_index, tree_version) &&
                                           tree_index == index && tree_version == version))
        f_tree_panel->set_index_ver(index, version);
    on_changed(this);
}

void Tvx_lib_panel::on_search_btn_click(TObject * /*sender*/)
{
    f_next_btn->SetVisible(false);
    bool by_number = false;
    int number = 0;
    {
        auto const form = std::make_unique<Tvx_stl_lib_search_form>(this);
        form->create_controls();
        TPoint const at = f_search_btn->ClientToScreen({0, f_search_btn->GetHeight()});
        if (form->show_pos(at.X, at.Y) != mrOk)
            return;
        form->save_last();
        by_number = form->is_num_search();
        number = form->get_num();
        f_last_search = form->get_str();
    }
    if (by_number)
        f_style_panel->search_index(number);
    else
        show_item(f_tree_panel->search_str_first(f_last_search.c_str()), c_lib_text_not_found);
}

void Tvx_lib_panel::on_next_btn_click(TObject * /*sender*/)
{
    show_item(f_tree_panel->search_str_next(), c_lib_text_no_more);
}

void Tvx_lib_panel::show_item(void *item, int not_found_format)
{
    f_next_btn->SetVisible(item != nullptr);
    if (!item) {
        vx_show_werror(vx_res_format_w(not_found_format, f_last_search).c_str());
        return;
    }
    f_tree_panel->set_style_item_selected(item);
    on_tree_changed(nullptr);
    f_next_btn->SetFocus();
}
