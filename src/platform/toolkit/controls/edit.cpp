#include "platform/toolkit/controls/edit.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/controls/detail/edit_port.h"

#include <QtCore/QChar>

#include <utility>

namespace {
/// Characters below this are keys such as Backspace and Enter.
constexpr wchar_t c_first_character = 32;
} // namespace

TCustomEdit::TCustomEdit(TComponent *owner, std::unique_ptr<vx_edit_port> port)
    : TWinControl(owner, port->widget()), f_port(std::move(port))
{
    SetTabStop(true);
    ControlStyle.Exclude(csSetCaption);
    f_port->connect(this, closure<void()>::bind<&TCustomEdit::text_changed>(this));
}

TCustomEdit::~TCustomEdit() = default;

void TCustomEdit::text_changed()
{
    f_modified = !f_setting;
    Change();
}

void TCustomEdit::Change()
{
    OnChange(this);
}

UnicodeString TCustomEdit::GetText() const
{
    return f_port->text();
}

void TCustomEdit::SetText(UnicodeString const &text)
{
    f_modified = false;
    if (f_port->text() == text)
        return;
    auto const life = Life();
    bool const outer = std::exchange(f_setting, true);
    f_port->set_text(text);
    if (!life.expired())
        f_setting = outer;
}

int TCustomEdit::GetSelStart() const
{
    return f_port->sel_start();
}

void TCustomEdit::SetSelStart(int position)
{
    f_port->select(position, 0);
}

int TCustomEdit::GetSelLength() const
{
    return f_port->sel_length();
}

void TCustomEdit::SetSelLength(int length)
{
    f_port->select(GetSelStart(), length);
}

UnicodeString TCustomEdit::GetSelText() const
{
    return f_port->sel_text();
}

void TCustomEdit::SetSelText(UnicodeString const &text)
{
    f_port->replace_selection(text);
}

void TCustomEdit::SelectAll()
{
    f_port->select(0, GetText().Length());
}

void TCustomEdit::CopyToClipboard()
{
    f_port->copy();
}

void TCustomEdit::CutToClipboard()
{
    f_port->cut();
}

void TCustomEdit::PasteFromClipboard()
{
    f_port->paste();
}

void TCustomEdit::Undo()
{
    f_port->undo();
}

bool TCustomEdit::GetCanUndo() const
{
    return f_port->can_undo();
}

void TCustomEdit::SetMaxLength(int length)
{
    f_max_length = length;
    f_port->set_max_length(length);
}

bool TCustomEdit::GetReadOnly() const
{
    return f_port->read_only();
}

void TCustomEdit::SetReadOnly(bool read_only)
{
    f_port->set_read_only(read_only);
}

void TCustomEdit::SetPasswordChar(wchar_t character)
{
    f_password_char = character;
    f_port->set_password(character != 0, character);
}

void TCustomEdit::SetCharCase(TEditCharCase char_case)
{
    f_char_case = char_case;
    QString const text = vx_qt_string(GetText());
    if (char_case == ecUpperCase)
        SetText(vx_unicode_string(text.toUpper()));
    else if (char_case == ecLowerCase)
        SetText(vx_unicode_string(text.toLower()));
}

void TCustomEdit::SetAlignment(TAlignment alignment)
{
    f_alignment = alignment;
    f_port->set_alignment(alignment);
}

void TCustomEdit::SetBorderStyle(TBorderStyle style)
{
    f_border_style = style == bsNone ? bsNone : bsSingle;
    f_port->set_frame(f_border_style == bsSingle);
}

UnicodeString TCustomEdit::GetTextHint() const
{
    return f_port->hint();
}

void TCustomEdit::SetTextHint(UnicodeString const &text)
{
    f_port->set_hint(text);
}

void TCustomEdit::KeyPress(wchar_t &key)
{
    auto const life = Life();
    TWinControl::KeyPress(key);
    if (life.expired() || key < c_first_character)
        return;
    if (f_numbers_only && (key < L'0' || key > L'9')) {
        key = 0;
        return;
    }
    if (f_char_case == ecUpperCase)
        key = static_cast<wchar_t>(QChar::toUpper(static_cast<char32_t>(key)));
    else if (f_char_case == ecLowerCase)
        key = static_cast<wchar_t>(QChar::toLower(static_cast<char32_t>(key)));
}

void TCustomEdit::DoEnter()
{
    if (f_auto_select && !(GetKeyState(VK_LBUTTON) < 0))
        SelectAll();
    TWinControl::DoEnter();
}

TEdit::TEdit(TComponent *owner) : TCustomEdit(owner, vx_make_line_port())
{
    SetBounds(0, 0, 121, 23);
}
