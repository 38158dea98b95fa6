#pragma once

#include "platform/toolkit/controls/edit.h"

class TStrings;

/// An edit of many lines; `Lines` is its text by lines.
class VX_API TCustomMemo : public TCustomEdit
{
public:
    ~TCustomMemo() override;

    [[nodiscard]] TStrings *GetLines() const { return f_lines.get(); }
    void SetLines(TStrings const *lines);
    [[nodiscard]] bool GetWordWrap() const;
    void SetWordWrap(bool wrap);
    [[nodiscard]] TScrollStyle GetScrollBars() const { return f_scroll_bars; }
    /// A bar that is asked for shows when it is needed; the others never.
    void SetScrollBars(TScrollStyle style);
    /// False: Enter goes to the form's default button.
    [[nodiscard]] bool GetWantReturns() const { return f_want_returns; }
    void SetWantReturns(bool want) { f_want_returns = want; }
    /// True: Tab types a tab character.
    [[nodiscard]] bool GetWantTabs() const { return f_want_tabs; }
    void SetWantTabs(bool want);
    /// Line and column of the caret, from 0.
    [[nodiscard]] TPoint GetCaretPos() const;

protected:
    TCustomMemo(TComponent *owner, std::unique_ptr<vx_edit_port> port);
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;
    void KeyPress(wchar_t &key) override;

private:
    class lines;
    std::unique_ptr<TStrings> f_lines;
    TScrollStyle f_scroll_bars = ssNone;
    bool f_want_returns = true;
    bool f_want_tabs = false;
};

/// 185 by 89.
class VX_API TMemo : public TCustomMemo
{
public:
    explicit TMemo(TComponent *owner);
};
