#pragma once

#include "platform/toolkit/core/win_control.h"

enum TGaugeKind
{
    gkHorizontalBar,
    gkVerticalBar
};

/// A bar with its percentage written on it, 100 by 100.
class VX_API TGauge : public TWinControl
{
public:
    explicit TGauge(TComponent *owner);

    [[nodiscard]] int GetProgress() const;
    /// Held within the limits.
    void SetProgress(int progress);
    void AddProgress(int value) { SetProgress(GetProgress() + value); }
    [[nodiscard]] int GetMinValue() const;
    void SetMinValue(int value);
    [[nodiscard]] int GetMaxValue() const;
    void SetMaxValue(int value);
    [[nodiscard]] int GetPercentDone() const;
    [[nodiscard]] TGaugeKind GetKind() const;
    void SetKind(TGaugeKind kind);
    [[nodiscard]] bool GetShowText() const;
    void SetShowText(bool show);
    [[nodiscard]] TColor GetForeColor() const { return f_fore_color; }
    /// Of the bar.
    void SetForeColor(TColor color);

private:
    TColor f_fore_color = clDefault;
};
