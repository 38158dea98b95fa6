#pragma once

#include "platform/toolkit/core/control.h"

/// A line of text, or several. Sized by its text until `AutoSize` is switched off. The character after '&' is
/// the accelerator of `FocusControl`.
class VX_API TCustomLabel : public TControl
{
public:
    explicit TCustomLabel(TComponent *owner);
    ~TCustomLabel() override;

    void SetText(UnicodeString const &text) override;
    [[nodiscard]] TAlignment GetAlignment() const { return f_alignment; }
    void SetAlignment(TAlignment alignment);
    [[nodiscard]] TTextLayout GetLayout() const { return f_layout; }
    void SetLayout(TTextLayout layout);
    [[nodiscard]] bool GetWordWrap() const { return f_word_wrap; }
    void SetWordWrap(bool wrap);
    /// False: '&' is an ordinary character.
    [[nodiscard]] bool GetShowAccelChar() const { return f_show_accel_char; }
    void SetShowAccelChar(bool value);
    /// False: the ground is filled with `Color`.
    [[nodiscard]] bool GetTransparent() const { return f_transparent; }
    void SetTransparent(bool value);
    /// Gets the focus by the accelerator and by a click, and the label's text as its name if it has none.
    [[nodiscard]] TWinControl *GetFocusControl() const { return f_focus_control; }
    void SetFocusControl(TWinControl *control);

protected:
    bool CanAutoSize(int &width, int &height) override;
    void Click() override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    void apply();

    TWinControl *f_focus_control = nullptr;
    TAlignment f_alignment = taLeftJustify;
    TTextLayout f_layout = tlTop;
    bool f_word_wrap = false;
    bool f_show_accel_char = true;
    bool f_transparent = true;
};

class VX_API TLabel : public TCustomLabel
{
public:
    using TCustomLabel::TCustomLabel;
};
