#pragma once

#include "platform/toolkit/core/win_control.h"

#include <vector>

/// A bar at the bottom of its parent, 19 high: one text, or panels side by side.
class VX_API TStatusBar : public TWinControl
{
public:
    explicit TStatusBar(TComponent *owner);

    [[nodiscard]] bool GetSimplePanel() const { return f_simple_panel; }
    /// True: the simple text in place of the panels.
    void SetSimplePanel(bool simple);
    [[nodiscard]] UnicodeString const &GetSimpleText() const { return f_simple_text; }
    void SetSimpleText(UnicodeString const &text);
    /// Adds a panel at the right; width 0 takes the room that is left. Gives its number from 0.
    int AddPanel(int width, UnicodeString const &text = UnicodeString());
    [[nodiscard]] int GetPanelCount() const { return static_cast<int>(f_panels.size()); }
    /// Empty for a panel that is not there.
    [[nodiscard]] UnicodeString GetPanelText(int index) const;
    void SetPanelText(int index, UnicodeString const &text);
    void ClearPanels();

private:
    struct panel
    {
        int width;
        UnicodeString text;
    };
    void rebuild();

    std::vector<panel> f_panels;
    UnicodeString f_simple_text;
    bool f_simple_panel = false;
};
