#include "controls/prop/prop_combo_box.h"

#include "platform/base/text_codec.h"
#include "platform/toolkit/strings.h"

#include <algorithm>
#include <utility>

namespace {
/// Runs a function at the end of a block, whichever way that is left.
template <class F>
class at_exit
{
public:
    explicit at_exit(F run) : f_run(std::move(run)) {}
    at_exit(at_exit const &) = delete;
    at_exit &operator=(at_exit const &) = delete;
    ~at_exit() { f_run(); }

private:
    F f_run;
};
} // namespace

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
    f_reading = true;
    at_exit const reading_ends([this] { f_reading = false; });

    std::vector<UnicodeString> captions;
    f_names.clear();
    f_real_index.clear();
    GetItems()->Clear();
    if (!can_read())
        return;
    if (on_data_open(this)) {
        at_exit const close([this] { on_data_close(this); });
        read_rows(captions);
    }
    SetItemTexts(captions);
    int row = find_row(f_active_name);
    if (row < 0 && f_forbid_empty && !f_names.empty()) {
        row = 0;
        f_active_name = f_names.front();
    }
    SetItemIndex(row);
}

void Tvx_prop_combo_box::read_rows(std::vector<UnicodeString> &captions)
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
        if (on_data_get_capt_prop)
            captions.emplace_back(on_data_get_capt_prop(this, i));
        else if (on_data_get_capt_wprop)
            captions.emplace_back(on_data_get_capt_wprop(this, i));
        else
            captions.push_back(name);
        f_names.push_back(std::move(name.str()));
        f_real_index.push_back(static_cast<int>(i));
    }
}

int Tvx_prop_combo_box::find_row(std::wstring const &name) const
{
    auto const found = std::ranges::find(f_names, name);
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
