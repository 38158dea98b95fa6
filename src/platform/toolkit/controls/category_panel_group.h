#pragma once

#include "platform/toolkit/controls/scroll_box.h"

#include <vector>

class TCategoryPanelGroup;

/// A panel with a header that opens and closes it, by a click or by Space. `OnExpand` and `OnCollapse` run at
/// the user's change alone.
class VX_API TCategoryPanel : public TWinControl
{
public:
    explicit TCategoryPanel(TComponent *owner);

    void SetText(UnicodeString const &text) override;
    [[nodiscard]] bool GetCollapsed() const { return f_collapsed; }
    void SetCollapsed(bool collapsed);
    /// 24.
    [[nodiscard]] static int GetHeaderHeight();

    TNotifyEvent OnExpand;
    TNotifyEvent OnCollapse;

protected:
    void KeyDown(Word &key, TShiftState shift) override;
    [[nodiscard]] bool ShowsChildren() const override;
    void AdjustClientRect(TRect &rect) override;
    bool CanResize(int &width, int &height) override;

private:
    class body;
    int f_expanded_height = 0;
    bool f_collapsed = false;
};

/// Category panels one below the other, scrolled when they do not fit; aligned left, 200 wide.
class VX_API TCategoryPanelGroup : public TScrollBox
{
public:
    explicit TCategoryPanelGroup(TComponent *owner);

    /// Makes a panel at the end; the group owns it.
    TCategoryPanel *CreatePanel(UnicodeString const &caption);
    [[nodiscard]] int GetPanelCount() const;
    [[nodiscard]] TCategoryPanel *GetPanels(int index) const;
    void CollapseAll();
    void ExpandAll();
};
