#pragma once

#include "platform/toolkit/controls/edit.h"

/// An edit for a whole number with two small buttons, 121 by 24. Up and down keys and the wheel move the
/// number by `Increment`. With `MinValue` equal to `MaxValue` there are no limits; a number beyond them that
/// was typed becomes the nearest limit when the edit is left. `OnChange` runs after every change of the text,
/// by the user, by `SetValue` or by `SetText`.
class VX_API TSpinEdit : public TCustomEdit
{
public:
    explicit TSpinEdit(TComponent *owner);

    /// The number of the text; `MinValue` while the text is no number.
    [[nodiscard]] int GetValue() const;
    /// Held within the limits.
    void SetValue(int value);
    [[nodiscard]] int GetMinValue() const { return f_min; }
    void SetMinValue(int value);
    [[nodiscard]] int GetMaxValue() const { return f_max; }
    void SetMaxValue(int value);
    [[nodiscard]] int GetIncrement() const;
    void SetIncrement(int value);

private:
    void apply_limits();

    int f_min = 0;
    int f_max = 0;
};
