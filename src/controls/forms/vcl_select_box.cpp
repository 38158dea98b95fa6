#include "controls/forms/vcl_select_box.h"

#include "platform/toolkit/core/new_on.h"

#include <algorithm>

Tvx_vcl_select_box::Tvx_vcl_select_box(TComponent *owner) : Tvx_vcl_combo_box(owner)
{
    SetStyle(csDropDownList);
}

void Tvx_vcl_select_box::clear()
{
    GetItems()->Clear();
    f_ids.clear();
}

void Tvx_vcl_select_box::add_item(UnicodeString const &text, unsigned id)
{
    GetItems()->Add(text);
    f_ids.push_back(id);
    if (f_ids.size() == 1)
        SetItemIndex(0);
}

bool Tvx_vcl_select_box::find_str(UnicodeString const &text, unsigned &id) const
{
    int const position = position_of(text);
    if (position < 0 || position >= static_cast<int>(f_ids.size()))
        return false;
    id = f_ids[static_cast<std::size_t>(position)];
    return true;
}

unsigned Tvx_vcl_select_box::get_active_idx() const
{
    int const position = GetItemIndex();
    return position < 0 || position >= static_cast<int>(f_ids.size())
               ? 0
               : f_ids[static_cast<std::size_t>(position)];
}

void Tvx_vcl_select_box::set_active_idx(unsigned id)
{
    auto const found = std::ranges::find(f_ids, id);
    SetItemIndex(found == f_ids.end() ? -1 : static_cast<int>(found - f_ids.begin()));
}

UnicodeString Tvx_vcl_select_box::get_active_caption() const
{
    return get_item_captions(GetItemIndex());
}

void Tvx_vcl_select_box::set_active_caption(UnicodeString const &text)
{
    SetItemIndex(position_of(text));
}

UnicodeString Tvx_vcl_select_box::get_item_captions(int position) const
{
    if (position < 0 || position >= GetItems()->GetCount())
        return {};
    return GetItems()->GetStrings(position);
}

void Tvx_vcl_select_box::set_item_captions(int position, UnicodeString const &text)
{
    if (position < 0 || position >= GetItems()->GetCount())
        return;
    int const selected = GetItemIndex();
    GetItems()->SetStrings(position, text);
    SetItemIndex(selected);
}

void Tvx_vcl_select_box::call_on_change()
{
    OnChange(this);
}

int Tvx_vcl_select_box::position_of(UnicodeString const &text) const
{
    for (int i = 0; i < GetItems()->GetCount(); ++i)
        if (GetItems()->GetStrings(i) == text)
            return i;
    return -1;
}

void Tvx_vcl_select_box_panel::create()
{
    Tvx_vcl_caption_panel::create();
    f_box = vx_new_on<Tvx_vcl_select_box>(get_data_panel(), this);
    f_box->SetAlign(alClient);
    set_focus_control(f_box);
    f_box->OnChange = make_closure<&Tvx_vcl_select_box_panel::on_box_change>(this);
}

void Tvx_vcl_select_box_panel::set_caption(UnicodeString const &caption)
{
    Tvx_vcl_caption_panel::set_caption(caption);
    f_box->SetAccessibleName(caption);
}
