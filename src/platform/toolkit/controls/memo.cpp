#include "platform/toolkit/controls/memo.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/detail/edit_port.h"
#include "platform/toolkit/core/strings.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTextEdit>

#include <stdexcept>

namespace {
constexpr wchar_t c_first_character = 32;

QTextDocument *document_of(QWidget *widget)
{
    if (auto *plain = qobject_cast<QPlainTextEdit *>(widget))
        return plain->document();
    return qobject_cast<QTextEdit *>(widget)->document();
}

QTextCursor cursor_of(QWidget *widget)
{
    if (auto *plain = qobject_cast<QPlainTextEdit *>(widget))
        return plain->textCursor();
    return qobject_cast<QTextEdit *>(widget)->textCursor();
}
} // namespace

/// The text by its lines. The last line counts only if it is not empty: a text ended by a line feed has as
/// many lines as line feeds.
class TCustomMemo::lines final : public TStrings
{
public:
    explicit lines(TCustomMemo *memo) : f_memo(memo) {}

    int GetCount() const override
    {
        QTextDocument const *document = native();
        int const blocks = document->blockCount();
        return document->lastBlock().length() <= 1 ? blocks - 1 : blocks;
    }
    UnicodeString GetStrings(int index) const override { return vx_unicode_string(block(index).text()); }
    void SetStrings(int index, UnicodeString const &text) override
    {
        QTextCursor cursor(block(index));
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.insertText(vx_qt_string(text));
    }
    TObject *GetObjects(int) const override { return nullptr; }
    // A line of text carries no object.
    void SetObjects(int, TObject *) override {}
    void InsertObject(int index, UnicodeString const &text, TObject *) override
    {
        if (index < 0 || index > GetCount())
            throw std::out_of_range("line");
        QTextCursor cursor(native());
        if (index == native()->blockCount()) {
            cursor.movePosition(QTextCursor::End);
            cursor.insertText(u'\n' + vx_qt_string(text));
            return;
        }
        cursor.setPosition(native()->findBlockByNumber(index).position());
        // Only the empty last line is no line yet.
        bool const last = index == GetCount();
        cursor.insertText(last ? vx_qt_string(text) : vx_qt_string(text) + u'\n');
    }
    void Delete(int index) override
    {
        QTextCursor cursor(block(index));
        bool const last = !block(index).next().isValid();
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        if (!last)
            cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        if (last)
            cursor.deletePreviousChar();
    }
    void Clear() override { f_memo->SetText(UnicodeString()); }
    UnicodeString GetText() const override { return f_memo->GetText(); }
    void SetText(UnicodeString const &text) override { f_memo->SetText(text); }

private:
    QTextDocument *native() const { return document_of(vx_qt_widget(f_memo)); }
    QTextBlock block(int index) const
    {
        if (index < 0 || index >= GetCount())
            throw std::out_of_range("line");
        return native()->findBlockByNumber(index);
    }

    TCustomMemo *f_memo;
};

TCustomMemo::TCustomMemo(TComponent *owner, std::unique_ptr<vx_edit_port> port)
    : TCustomEdit(owner, std::move(port)), f_lines(std::make_unique<lines>(this))
{
    SetAutoSelect(false);
    SetScrollBars(ssNone);
}

TCustomMemo::~TCustomMemo() = default;

void TCustomMemo::SetLines(TStrings const *lines)
{
    f_lines->Assign(lines);
}

bool TCustomMemo::GetWordWrap() const
{
    QWidget *widget = vx_qt_widget(this);
    if (auto *plain = qobject_cast<QPlainTextEdit *>(widget))
        return plain->lineWrapMode() != QPlainTextEdit::NoWrap;
    return qobject_cast<QTextEdit *>(widget)->lineWrapMode() != QTextEdit::NoWrap;
}

void TCustomMemo::SetWordWrap(bool wrap)
{
    QWidget *widget = vx_qt_widget(this);
    if (auto *plain = qobject_cast<QPlainTextEdit *>(widget))
        plain->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    else
        qobject_cast<QTextEdit *>(widget)->setLineWrapMode(wrap ? QTextEdit::WidgetWidth : QTextEdit::NoWrap);
}

void TCustomMemo::SetScrollBars(TScrollStyle style)
{
    f_scroll_bars = style;
    auto *area = vx_qt_as<QAbstractScrollArea>(this);
    auto const policy = [](bool shown) { return shown ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff; };
    area->setVerticalScrollBarPolicy(policy(style == ssVertical || style == ssBoth));
    area->setHorizontalScrollBarPolicy(policy(style == ssHorizontal || style == ssBoth));
}

void TCustomMemo::SetWantTabs(bool want)
{
    f_want_tabs = want;
    QWidget *widget = vx_qt_widget(this);
    if (auto *plain = qobject_cast<QPlainTextEdit *>(widget))
        plain->setTabChangesFocus(!want);
    else
        qobject_cast<QTextEdit *>(widget)->setTabChangesFocus(!want);
}

TPoint TCustomMemo::GetCaretPos() const
{
    QTextCursor const cursor = cursor_of(vx_qt_widget(this));
    return {cursor.positionInBlock(), cursor.blockNumber()};
}

bool TCustomMemo::WantsKey(Word key, TShiftState shift) const
{
    bool const ctrl = shift.Contains(ssCtrl);
    return (key == VK_RETURN && (f_want_returns || ctrl)) || (key == VK_TAB && f_want_tabs && !ctrl) ||
           TCustomEdit::WantsKey(key, shift);
}

void TCustomMemo::KeyPress(wchar_t &key)
{
    auto const life = Life();
    TCustomEdit::KeyPress(key);
    if (life.expired())
        return;
    bool const types = key >= c_first_character || key == L'\r';
    if (types && GetMaxLength() > 0 && GetSelLength() == 0 && GetText().Length() >= GetMaxLength())
        key = 0;
}

TMemo::TMemo(TComponent *owner) : TCustomMemo(owner, vx_make_plain_text_port())
{
    SetBounds(0, 0, 185, 89);
}
