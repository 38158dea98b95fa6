#pragma once

#include "platform/toolkit/controls/group_box.h"
#include "platform/toolkit/core/strings.h"

#include <memory>
#include <vector>

class TRadioButton;

/// A framed group of radio buttons, one for each of `Items`, in columns from the left. `OnClick` runs when
/// another button becomes the chosen one, by the user or by `SetItemIndex`; not for -1, no choice.
class VX_API TCustomRadioGroup : public TCustomGroupBox
{
public:
    explicit TCustomRadioGroup(TComponent *owner);
    ~TCustomRadioGroup() override;

    /// A choice beyond the last item becomes -1 when items go.
    [[nodiscard]] TStrings *GetItems() const { return f_items.get(); }
    void SetItems(TStrings const *items) { f_items->Assign(items); }
    [[nodiscard]] int GetItemIndex() const { return f_item_index; }
    /// Below -1 counts as -1, beyond the last item as the last.
    void SetItemIndex(int index);
    [[nodiscard]] int GetColumns() const { return f_columns; }
    /// 1 to 16.
    void SetColumns(int columns);
    /// The button of an item; null outside.
    [[nodiscard]] TRadioButton *GetButtons(int index) const;
    [[nodiscard]] bool CanFocus() const override;
    void SetFocus() override;
    void SetEnabled(bool enabled) override;

protected:
    void AlignControls(TControl *control, TRect &rect) override;

private:
    void on_items_change(TObject *sender);
    void on_button_click(TObject *sender);

    std::unique_ptr<TStringList> f_items;
    std::vector<TRadioButton *> f_buttons;
    int f_item_index = -1;
    int f_columns = 1;
};

class VX_API TRadioGroup : public TCustomRadioGroup
{
public:
    using TCustomRadioGroup::TCustomRadioGroup;
};
