#pragma once

#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/win_control.h"

enum TCheckBoxState
{
    cbUnchecked,
    cbChecked,
    cbGrayed
};

/// A box to tick, 97 by 17. `OnClick` runs after every change of the state, by the user or by `SetChecked`
/// and `SetState`.
class VX_API TCustomCheckBox : public TWinControl, public vx_action_client
{
public:
    explicit TCustomCheckBox(TComponent *owner);

    void SetText(UnicodeString const &text) override;
    [[nodiscard]] bool GetChecked() const { return GetState() == cbChecked; }
    void SetChecked(bool checked);
    [[nodiscard]] TCheckBoxState GetState() const;
    void SetState(TCheckBoxState state);
    /// True: the user's clicks go through the grey state too.
    [[nodiscard]] bool GetAllowGrayed() const { return f_allow_grayed; }
    void SetAllowGrayed(bool value);
    [[nodiscard]] TAlignment GetAlignment() const;
    /// `taRightJustify`, the default: the text right of the box; `taLeftJustify`: left of it.
    void SetAlignment(TAlignment alignment);
    void ActionChanged(TCustomAction const &action) override;

private:
    bool f_allow_grayed = false;
    bool f_following_action = false;
};

class VX_API TCheckBox : public TCustomCheckBox
{
public:
    using TCustomCheckBox::TCustomCheckBox;
};
