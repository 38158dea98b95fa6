#pragma once

#include "platform/toolkit/core/custom_control.h"

/// A plain area for other controls, with bevels and a caption in its middle. 185 by 41 with a raised outer
/// bevel.
class VX_API TCustomPanel : public TCustomControl
{
public:
    explicit TCustomPanel(TComponent *owner);

    [[nodiscard]] TAlignment GetAlignment() const { return f_alignment; }
    void SetAlignment(TAlignment value);
    [[nodiscard]] TVerticalAlignment GetVerticalAlignment() const { return f_vertical_alignment; }
    void SetVerticalAlignment(TVerticalAlignment value);
    [[nodiscard]] TPanelBevel GetBevelInner() const { return f_bevel_inner; }
    void SetBevelInner(TPanelBevel value);
    [[nodiscard]] TPanelBevel GetBevelOuter() const { return f_bevel_outer; }
    void SetBevelOuter(TPanelBevel value);
    [[nodiscard]] TBevelWidth GetBevelWidth() const { return f_bevel_width; }
    void SetBevelWidth(TBevelWidth value);
    [[nodiscard]] int GetBorderWidth() const { return f_border_width; }
    void SetBorderWidth(int value);
    [[nodiscard]] bool GetShowCaption() const { return f_show_caption; }
    void SetShowCaption(bool value);
    void SetText(UnicodeString const &text) override;

protected:
    TCustomPanel(TComponent *owner, TPanelBevel outer, int width, int height);

    void Paint() override;
    void AdjustClientRect(TRect &rect) override;

private:
    TAlignment f_alignment = taCenter;
    TVerticalAlignment f_vertical_alignment = taVerticalCenter;
    TPanelBevel f_bevel_inner = bvNone;
    TPanelBevel f_bevel_outer = bvRaised;
    TBevelWidth f_bevel_width = 1;
    int f_border_width = 0;
    bool f_show_caption = true;
};

class VX_API TPanel : public TCustomPanel
{
public:
    using TCustomPanel::TCustomPanel;
};
