#pragma once

#include "platform/toolkit/core/win_control.h"

/// One of several choices, 113 by 17: of the radio buttons of one parent one at most is checked. `OnClick`
/// runs when a button becomes checked, by the user or by `SetChecked`; not when it is unchecked. Tab stops
/// once at the buttons of one parent, at the checked one or else at the first; the arrow keys go on from
/// there.
class VX_API TRadioButton : public TWinControl
{
public:
    explicit TRadioButton(TComponent *owner);

    void SetText(UnicodeString const &text) override;
    [[nodiscard]] bool GetChecked() const;
    void SetChecked(bool checked);

protected:
    [[nodiscard]] bool TakesTab() const override;
};
