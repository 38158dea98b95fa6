#pragma once

#include "platform/toolkit/core/win_control.h"

#include <memory>

class vx_edit_port;

enum TEditCharCase
{
    ecNormal,
    ecUpperCase,
    ecLowerCase
};

/// Base of the edits. `OnChange` runs after every change of the text, by the user or by `SetText`; the same
/// text again is no change. Positions count characters from 0.
class VX_API TCustomEdit : public TWinControl
{
public:
    ~TCustomEdit() override;

    [[nodiscard]] UnicodeString GetText() const override;
    void SetText(UnicodeString const &text) override;
    void Clear() { SetText(UnicodeString()); }

    [[nodiscard]] int GetSelStart() const;
    /// Puts the caret there, with nothing selected.
    void SetSelStart(int position);
    [[nodiscard]] int GetSelLength() const;
    /// Selects so many characters after the start of the selection.
    void SetSelLength(int length);
    [[nodiscard]] UnicodeString GetSelText() const;
    /// Puts the text in place of the selection.
    void SetSelText(UnicodeString const &text);
    void SelectAll();
    void ClearSelection() { SetSelText(UnicodeString()); }
    void CopyToClipboard();
    void CutToClipboard();
    void PasteFromClipboard();
    void Undo();
    [[nodiscard]] bool GetCanUndo() const;

    /// The user cannot type more characters than this; 0 is no limit. `SetText` is not limited.
    [[nodiscard]] int GetMaxLength() const { return f_max_length; }
    void SetMaxLength(int length);
    [[nodiscard]] bool GetReadOnly() const;
    void SetReadOnly(bool read_only);
    /// True once the user has changed the text; `SetText` makes it false.
    [[nodiscard]] bool GetModified() const { return f_modified; }
    void SetModified(bool modified) { f_modified = modified; }
    /// Shown in place of the characters; 0 shows them.
    [[nodiscard]] wchar_t GetPasswordChar() const { return f_password_char; }
    void SetPasswordChar(wchar_t character);
    /// What is typed is turned to this case.
    [[nodiscard]] TEditCharCase GetCharCase() const { return f_char_case; }
    void SetCharCase(TEditCharCase char_case);
    /// The user can type digits only.
    [[nodiscard]] bool GetNumbersOnly() const { return f_numbers_only; }
    void SetNumbersOnly(bool value) { f_numbers_only = value; }
    [[nodiscard]] TAlignment GetAlignment() const { return f_alignment; }
    void SetAlignment(TAlignment alignment);
    [[nodiscard]] TBorderStyle GetBorderStyle() const { return f_border_style; }
    /// `bsNone` or `bsSingle`.
    void SetBorderStyle(TBorderStyle style);
    /// Grey text that is shown while the edit is empty.
    [[nodiscard]] UnicodeString GetTextHint() const;
    void SetTextHint(UnicodeString const &text);
    /// The whole text is selected when the edit gets the focus by key or by `SetFocus`.
    [[nodiscard]] bool GetAutoSelect() const { return f_auto_select; }
    void SetAutoSelect(bool value) { f_auto_select = value; }

    TNotifyEvent OnChange;

protected:
    TCustomEdit(TComponent *owner, std::unique_ptr<vx_edit_port> port);

    virtual void Change();
    void KeyPress(wchar_t &key) override;
    void DoEnter() override;
    [[nodiscard]] vx_edit_port &Port() const { return *f_port; }

private:
    void text_changed();

    std::unique_ptr<vx_edit_port> f_port;
    int f_max_length = 0;
    wchar_t f_password_char = 0;
    TEditCharCase f_char_case = ecNormal;
    TAlignment f_alignment = taLeftJustify;
    TBorderStyle f_border_style = bsSingle;
    bool f_numbers_only = false;
    bool f_modified = false;
    bool f_auto_select = true;
    bool f_setting = false;
};

/// An edit of one line, 121 by 23.
class VX_API TEdit : public TCustomEdit
{
public:
    explicit TEdit(TComponent *owner);
};
