#include "platform/toolkit/controls/detail/edit_port.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/detail/line_limit.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtCore/QStringLiteral>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextOption>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

#include <algorithm>

namespace {
Qt::Alignment to_alignment(TAlignment alignment)
{
    switch (alignment) {
    case taRightJustify:
        return Qt::AlignRight;
    case taCenter:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignLeft;
    }
}

/// Shows the characters hidden by one that the program chose.
class password_line : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    void set_password_character(wchar_t character)
    {
        setStyleSheet(character == 0 ? QString()
                                     : QStringLiteral("QLineEdit { lineedit-password-character: %1 }")
                                           .arg(static_cast<int>(character)));
    }
};

class line_port : public vx_edit_port
{
public:
    line_port() : line_port(nullptr) {}

    vx_native_widget *widget() const override { return vx_native(static_cast<QWidget *>(f_edit)); }
    void connect(TControl *control, closure<void()> changed) override
    {
        vx_connect(control, f_edit, &QLineEdit::textChanged, [changed](QString const &) { changed(); });
    }
    UnicodeString text() const override { return vx_unicode_string(f_edit->text()); }
    void set_text(UnicodeString const &text) override
    {
        // A handler may free the control, and this with it; the line lives to the end of the event.
        QPointer<vx_line_limit> const limit(f_limit);
        if (limit)
            limit->set_open(true);
        f_edit->setText(vx_qt_string(text));
        if (limit)
            limit->set_open(false);
    }
    int sel_start() const override
    {
        return vx_place(f_edit->text(),
                        f_edit->hasSelectedText() ? f_edit->selectionStart() : f_edit->cursorPosition());
    }
    int sel_length() const override
    {
        QString const text = f_edit->selectedText();
        return vx_place(text, text.size());
    }
    void select(int start, int length) override { vx_select_in_line(f_edit, start, length); }
    UnicodeString sel_text() const override { return vx_unicode_string(f_edit->selectedText()); }
    void replace_selection(UnicodeString const &text) override { f_edit->insert(vx_qt_string(text)); }
    void copy() override { f_edit->copy(); }
    void cut() override { f_edit->cut(); }
    void paste() override { f_edit->paste(); }
    void undo() override { f_edit->undo(); }
    bool can_undo() const override { return f_edit->isUndoAvailable(); }
    bool read_only() const override { return f_edit->isReadOnly(); }
    void set_read_only(bool value) override { f_edit->setReadOnly(value); }
    void set_max_length(int length) override
    {
        if (f_limit)
            f_limit->set(length);
        else // digits are one unit each
            f_edit->setMaxLength(length > 0 ? length : c_no_limit);
    }
    void set_password(bool hidden, wchar_t character) override
    {
        f_edit->setEchoMode(hidden ? QLineEdit::Password : QLineEdit::Normal);
        if (auto *line = dynamic_cast<password_line *>(f_edit))
            line->set_password_character(hidden ? character : 0);
    }
    void set_alignment(TAlignment alignment) override
    {
        f_edit->setAlignment(to_alignment(alignment) | Qt::AlignVCenter);
    }
    void set_frame(bool frame) override { f_edit->setFrame(frame); }
    UnicodeString hint() const override { return vx_unicode_string(f_edit->placeholderText()); }
    void set_hint(UnicodeString const &text) override { f_edit->setPlaceholderText(vx_qt_string(text)); }

protected:
    static constexpr int c_no_limit = 0x7FFF;

    explicit line_port(QLineEdit *edit)
    {
        f_edit = edit ? edit : vx_born<password_line>();
        if (!edit)
            f_limit = new vx_line_limit(f_edit);
    }

    QLineEdit *f_edit;

private:
    vx_line_limit *f_limit = nullptr; ///< belongs to the line; a spin box has a check of its own
};

/// A spin box whose line the program reaches.
class spin_box final : public QSpinBox
{
public:
    using QSpinBox::lineEdit;
};

spin_box *make_spin_box()
{
    vx_qt_ensure_application();
    return new spin_box;
}

class spin_port final : public line_port
{
public:
    spin_port() : spin_port(make_spin_box()) {}

    vx_native_widget *widget() const override { return vx_native(static_cast<QWidget *>(f_box)); }
    void connect(TControl *control, closure<void()> changed) override
    {
        // What is typed is told by the line, a step by the box alone; some changes by both.
        auto const tell = [this, changed](QString const &text) {
            if (f_told == text)
                return;
            f_told = text;
            changed();
        };
        f_told = f_edit->text();
        vx_connect(control, f_edit, &QLineEdit::textChanged, tell);
        vx_connect(control, f_box, &QSpinBox::textChanged, tell);
    }
    void set_read_only(bool value) override { f_box->setReadOnly(value); }
    void set_alignment(TAlignment alignment) override { f_box->setAlignment(to_alignment(alignment)); }
    void set_frame(bool frame) override { f_box->setFrame(frame); }

private:
    explicit spin_port(spin_box *box) : line_port(box->lineEdit()), f_box(box) {}

    QSpinBox *f_box;
    QString f_told;
};

/// Plain and rich text offer the same operations without a common class.
template <class Edit>
class text_port final : public vx_edit_port
{
public:
    text_port()
    {
        vx_qt_ensure_application();
        f_edit = new Edit;
        f_edit->setTabChangesFocus(true);
    }

    vx_native_widget *widget() const override { return vx_native(static_cast<QWidget *>(f_edit)); }
    void connect(TControl *control, closure<void()> changed) override
    {
        vx_connect(control, f_edit, &Edit::textChanged, [changed] { changed(); });
    }
    UnicodeString text() const override { return vx_unicode_string(f_edit->toPlainText()); }
    void set_text(UnicodeString const &text) override { f_edit->setPlainText(vx_qt_string(text)); }
    int sel_start() const override
    {
        return vx_place(f_edit->toPlainText(), f_edit->textCursor().selectionStart());
    }
    int sel_length() const override
    {
        QString const text = f_edit->toPlainText();
        QTextCursor const cursor = f_edit->textCursor();
        return vx_place(text, cursor.selectionEnd()) - vx_place(text, cursor.selectionStart());
    }
    void select(int start, int length) override
    {
        QString const text = f_edit->toPlainText();
        int const end = vx_place(text, text.size());
        start = std::clamp(start, 0, end);
        QTextCursor cursor = f_edit->textCursor();
        cursor.setPosition(vx_qt_place(text, start));
        cursor.setPosition(vx_qt_place(text, start + std::clamp(length, 0, end - start)),
                           QTextCursor::KeepAnchor);
        f_edit->setTextCursor(cursor);
    }
    UnicodeString sel_text() const override
    {
        // Lines of a selection are parted by a sign of their own.
        return vx_unicode_string(
            f_edit->textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    }
    void replace_selection(UnicodeString const &text) override
    {
        f_edit->textCursor().insertText(vx_qt_string(text));
    }
    void copy() override { f_edit->copy(); }
    void cut() override { f_edit->cut(); }
    void paste() override { f_edit->paste(); }
    void undo() override { f_edit->undo(); }
    bool can_undo() const override { return f_edit->document()->isUndoAvailable(); }
    bool read_only() const override { return f_edit->isReadOnly(); }
    void set_read_only(bool value) override { f_edit->setReadOnly(value); }
    // The edit itself holds the limit, at the key.
    void set_max_length(int) override {}
    // A text of many lines is never hidden.
    void set_password(bool, wchar_t) override {}
    void set_alignment(TAlignment alignment) override
    {
        QTextOption option = f_edit->document()->defaultTextOption();
        option.setAlignment(to_alignment(alignment));
        f_edit->document()->setDefaultTextOption(option);
    }
    void set_frame(bool frame) override
    {
        f_edit->setFrameShape(frame ? QFrame::StyledPanel : QFrame::NoFrame);
    }
    UnicodeString hint() const override { return vx_unicode_string(f_edit->placeholderText()); }
    void set_hint(UnicodeString const &text) override { f_edit->setPlaceholderText(vx_qt_string(text)); }

private:
    Edit *f_edit;
};
} // namespace

void vx_select_in_line(QLineEdit *line, int start, int length)
{
    QString const text = line->text();
    int const from = vx_qt_place(text, std::max(start, 0));
    int const to = from + vx_qt_place(QStringView(text).mid(from), std::max(length, 0));
    line->setSelection(from, to - from);
}

std::unique_ptr<vx_edit_port> vx_make_line_port()
{
    return std::make_unique<line_port>();
}

std::unique_ptr<vx_edit_port> vx_make_spin_port()
{
    return std::make_unique<spin_port>();
}

std::unique_ptr<vx_edit_port> vx_make_plain_text_port()
{
    return std::make_unique<text_port<QPlainTextEdit>>();
}

std::unique_ptr<vx_edit_port> vx_make_rich_text_port()
{
    return std::make_unique<text_port<QTextEdit>>();
}
