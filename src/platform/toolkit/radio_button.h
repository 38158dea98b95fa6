#pragma once

#include "platform/toolkit/win_control.h"

/// One of several choices, 113 by 17: of the radio buttons of one parent one at most is checked. `OnClick`
/// runs when a button becomes checked, by the user or by `SetChecked`; not when it is unchecked.
class VX_API TRadioButton : public TWinControl
{
public:
    explicit TRadioButton(TComponent *owner);

    void SetText(UnicodeString const &text) override;
    [[nodiscard]] bool GetChecked() const;
    void SetChecked(bool checked);
};
