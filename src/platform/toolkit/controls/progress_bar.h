#pragma once

#include "platform/toolkit/core/win_control.h"

/// Shows how far something is, 0 to 100 unless set otherwise; 150 by 17.
class VX_API TProgressBar : public TWinControl
{
public:
    explicit TProgressBar(TComponent *owner);

    [[nodiscard]] int GetPosition() const;
    /// Held within the limits.
    void SetPosition(int position);
    [[nodiscard]] int GetMin() const;
    void SetMin(int value);
    [[nodiscard]] int GetMax() const;
    void SetMax(int value);
    [[nodiscard]] int GetStep() const { return f_step; }
    void SetStep(int step) { f_step = step; }
    /// Goes on by the step; beyond the end it starts anew.
    void StepIt();
    void StepBy(int delta) { SetPosition(GetPosition() + delta); }

private:
    int f_step = 10;
};
