#include "platform/toolkit/controls/radio_group.h"

#include "platform/toolkit/controls/radio_button.h"

#include <algorithm>

namespace {
constexpr int c_max_columns = 16;
constexpr int c_inset = 8;
} // namespace

TCustomRadioGroup::TCustomRadioGroup(TComponent *owner)
    : TCustomGroupBox(owner), f_items(std::make_unique<TStringList>())
{
    f_items->OnChange = make_closure<&TCustomRadioGroup::on_items_change>(this);
}

TCustomRadioGroup::~TCustomRadioGroup()
{
    f_items->OnChange = nullptr;
}

void TCustomRadioGroup::on_items_change(TObject *)
{
    int const count = f_items->GetCount();
    DisableAlign();
    while (static_cast<int>(f_buttons.size()) > count) {
        TRadioButton *last = f_buttons.back();
        f_buttons.pop_back();
        delete last;
    }
    while (static_cast<int>(f_buttons.size()) < count) {
        auto *button = new TRadioButton(nullptr);
        button->OnClick = make_closure<&TCustomRadioGroup::on_button_click>(this);
        f_buttons.push_back(button);
        button->SetParent(this);
    }
    for (int i = 0; i < count; ++i)
        f_buttons[static_cast<std::size_t>(i)]->SetCaption(f_items->GetStrings(i));
    if (f_item_index >= count)
        f_item_index = -1;
    Realign();
    EnableAlign();
}

void TCustomRadioGroup::on_button_click(TObject *sender)
{
    auto const at = std::find(f_buttons.begin(), f_buttons.end(), static_cast<TRadioButton *>(sender));
    f_item_index = static_cast<int>(at - f_buttons.begin());
    Click();
}

void TCustomRadioGroup::SetItemIndex(int index)
{
    index = std::clamp(index, -1, static_cast<int>(f_buttons.size()) - 1);
    if (index == f_item_index)
        return;
    if (index >= 0) {
        f_buttons[static_cast<std::size_t>(index)]->SetChecked(true);
        return;
    }
    f_buttons[static_cast<std::size_t>(f_item_index)]->SetChecked(false);
    f_item_index = -1;
}

void TCustomRadioGroup::SetColumns(int columns)
{
    f_columns = std::clamp(columns, 1, c_max_columns);
    Realign();
}

TRadioButton *TCustomRadioGroup::GetButtons(int index) const
{
    bool const inside = index >= 0 && index < static_cast<int>(f_buttons.size());
    return inside ? f_buttons[static_cast<std::size_t>(index)] : nullptr;
}

bool TCustomRadioGroup::CanFocus() const
{
    return !f_buttons.empty() && TCustomGroupBox::CanFocus();
}

void TCustomRadioGroup::SetFocus()
{
    if (CanFocus())
        f_buttons[static_cast<std::size_t>(std::max(f_item_index, 0))]->SetFocus();
}

void TCustomRadioGroup::SetEnabled(bool enabled)
{
    TCustomGroupBox::SetEnabled(enabled);
    for (TRadioButton *button : f_buttons)
        button->SetEnabled(enabled);
}

void TCustomRadioGroup::AlignControls(TControl *, TRect &rect)
{
    AdjustClientRect(rect);
    int const count = static_cast<int>(f_buttons.size());
    if (count == 0)
        return;
    int const rows = (count + f_columns - 1) / f_columns;
    int const width = std::max((rect.Width() - 2 * c_inset) / f_columns, 0);
    int const height = std::max(rect.Height() / rows, 0);
    for (int i = 0; i < count; ++i) {
        TControl *button = f_buttons[static_cast<std::size_t>(i)];
        button->SetBounds(rect.Left + c_inset + i / rows * width, rect.Top + i % rows * height, width,
                          height);
    }
}
