#pragma once

#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/list_box.h"

/// A list box whose items have a check mark. The user's click on the mark, or Space, runs `OnClickCheck`;
/// `SetChecked` and `SetState` run nothing. Marks and enabled states go with their items.
class VX_API TCheckListBox : public TCustomListBox
{
public:
    explicit TCheckListBox(TComponent *owner);

    [[nodiscard]] bool GetChecked(int index) const { return GetState(index) == cbChecked; }
    void SetChecked(int index, bool checked) { SetState(index, checked ? cbChecked : cbUnchecked); }
    /// `cbUnchecked` for an item that is not there.
    [[nodiscard]] TCheckBoxState GetState(int index) const;
    void SetState(int index, TCheckBoxState state);
    [[nodiscard]] bool GetItemEnabled(int index) const;
    void SetItemEnabled(int index, bool enabled);
    void CheckAll(TCheckBoxState state);

    TNotifyEvent OnClickCheck;

protected:
    void CheckClicked(int index) override;
    [[nodiscard]] bool HasChecks() const override { return true; }
};
