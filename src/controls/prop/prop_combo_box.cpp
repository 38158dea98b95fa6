#include "controls/prop/prop_combo_box.h"

#include "platform/base/flag_scope.h"
#include "platform/base/text_codec.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>
#include <utility>

struct Tvx_prop_combo_box::row_list
{
    std::vector<UnicodeString> captions;
    std::vector<std::wstring> names;
    std::vector<int> real_index;
};

Tvx_prop_combo_box::Tvx_prop_combo_box(TComponent *owner) : Tvx_combo_box(owner)
{
    SetStyle(csDropDownList);
}

bool Tvx_prop_combo_box::can_read() const
{
    return on_data_open && on_data_close && on_data_get_np && (on_data_get_prop || on_data_get_wprop);
}

void Tvx_prop_combo_box::update_controls()
{
    // A source that handles messages while it reads may come here again.
    if (f_reading)
        return;
    vx::flag_scope const reading(f_reading);

    f_names.clear();
    f_real_index.clear();
    GetItems()->Clear();
    if (!can_read())
        return;
    row_list rows;
    if (on_data_open(this)) {
        try {
            read_rows(rows);
        } catch (...) {
            on_data_close(this);
            throw;
        }
        on_data_close(this);
    }
    SetItemTexts(rows.captions);
    f_names = std::move(rows.names);
    f_real_index = std::move(rows.real_index);
    int row = find_row(f_active_name);
    if (row < 0 && f_forbid_empty && !f_names.empty()) {
        row = 0;
        f_active_name = f_names.front();
    }
    SetItemIndex(row);
}

void Tvx_prop_combo_box::read_rows(row_list &rows)
{
    unsigned const count = on_data_get_np(this);
    for (unsigned i = 0; i < count; ++i) {
        bool shown = false;
        bool numeric = false;
        UnicodeString name;
        bool named = false;
        if (on_data_get_prop) {
            char const *const text = on_data_get_prop(this, i, shown, numeric);
            named = text != nullptr;
            name = text;
        }
        if (on_data_get_wprop) {
            wchar_t const *const text = on_data_get_wprop(this, i, shown, numeric);
            named = text != nullptr;
            name = text;
        }
        if (!named || !shown || (f_only_numeric && !numeric))
            continue;
        UnicodeString caption = name;
        if (on_data_get_capt_prop) {
            if (char const *const text = on_data_get_capt_prop(this, i))
                caption = text;
        } else if (on_data_get_capt_wprop) {
            if (wchar_t const *const text = on_data_get_capt_wprop(this, i))
                caption = text;
        }
        rows.captions.push_back(std::move(caption));
        rows.names.push_back(std::move(name.str()));
        rows.real_index.push_back(static_cast<int>(i));
    }
}

int Tvx_prop_combo_box::find_row(std::wstring const &name) const
{
    auto found = std::ranges::find(f_names, name);
    if (found == f_names.end())
        found =
            std::ranges::find_if(f_names, [&](auto const &own) { return vx_compare_text(own, name) == 0; });
    return found == f_names.end() ? -1 : static_cast<int>(found - f_names.begin());
}

void Tvx_prop_combo_box::DropDown()
{
    update_controls();
    Tvx_combo_box::DropDown();
}

void Tvx_prop_combo_box::Change()
{
    f_former_name = f_active_name;
    if (int const row = GetItemIndex(); row >= 0)
        f_active_name = get_row_name(row);
    Tvx_combo_box::Change();
    on_changed(this);
}

void Tvx_prop_combo_box::Reselect()
{
    Tvx_combo_box::Reselect();
    on_reselected(this);
}

std::string Tvx_prop_combo_box::get_prop_name() const
{
    return vx::text::to_bytes(f_active_name);
}

void Tvx_prop_combo_box::set_prop_name(wchar_t const *name)
{
    f_active_name = name ? name : L"";
    SetItemIndex(find_row(f_active_name));
}

void Tvx_prop_combo_box::set_prop_name(char const *name)
{
    set_prop_name(UnicodeString(name).c_str());
}

void Tvx_prop_combo_box::set_prop_index(int row)
{
    f_active_name = get_row_name(row);
    SetItemIndex(row);
}

int Tvx_prop_combo_box::get_real_index() const
{
    int const row = GetItemIndex();
    return row >= 0 && row < get_prop_count() ? f_real_index[static_cast<std::size_t>(row)] : -1;
}

void Tvx_prop_combo_box::set_real_index(int real_index)
{
    auto const found = std::ranges::find(f_real_index, real_index);
    set_prop_index(found == f_real_index.end() ? -1 : static_cast<int>(found - f_real_index.begin()));
}

std::wstring Tvx_prop_combo_box::get_row_name(int row) const
{
    return row >= 0 && row < get_prop_count() ? f_names[static_cast<std::size_t>(row)] : std::wstring();
}
