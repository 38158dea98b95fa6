#pragma once

#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/graphics/font.h"

class TCustomRichEdit;

/// The looks of the selected text, or of what is typed next where nothing is selected.
class VX_API TTextAttributes : public TPersistent
{
public:
    explicit TTextAttributes(TCustomRichEdit *edit) : f_edit(edit) {}

    /// From a font.
    void Assign(TPersistent const *source) override;
    [[nodiscard]] TColor GetColor() const;
    void SetColor(TColor color);
    [[nodiscard]] TFontStyles GetStyle() const;
    void SetStyle(TFontStyles style);
    [[nodiscard]] UnicodeString GetName() const;
    void SetName(UnicodeString const &name);
    [[nodiscard]] int GetSize() const;
    void SetSize(int points);

private:
    TCustomRichEdit *f_edit;
};

/// A memo whose text has fonts and colours.
class VX_API TCustomRichEdit : public TCustomMemo
{
public:
    ~TCustomRichEdit() override;

    [[nodiscard]] TTextAttributes *GetSelAttributes() { return &f_sel_attributes; }
    void SetSelAttributes(TTextAttributes const *attributes);
    /// The text with its looks, as HTML.
    [[nodiscard]] UnicodeString GetHtml() const;
    void SetHtml(UnicodeString const &html);

protected:
    explicit TCustomRichEdit(TComponent *owner);

private:
    TTextAttributes f_sel_attributes;
};

/// 185 by 89.
class VX_API TRichEdit : public TCustomRichEdit
{
public:
    explicit TRichEdit(TComponent *owner);
};
