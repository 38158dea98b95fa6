#pragma once

#include "platform/toolkit/core/win_control.h"

/// A frame with a caption round other controls, 185 by 105.
class VX_API TCustomGroupBox : public TWinControl
{
public:
    explicit TCustomGroupBox(TComponent *owner);

    void SetText(UnicodeString const &text) override;

protected:
    void AdjustClientRect(TRect &rect) override;
    void FontChanged() override;
};

class VX_API TGroupBox : public TCustomGroupBox
{
public:
    using TCustomGroupBox::TCustomGroupBox;
};
