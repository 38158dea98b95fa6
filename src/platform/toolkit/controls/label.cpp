#include "platform/toolkit/controls/label.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/win_control.h"

#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>
#include <QtCore/QStringLiteral>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>

namespace {
QString label_without_accelerator(QString const &text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size())
            break;
        result += text[i];
    }
    return result;
}

struct sized_text
{
    QFont font;
    QSize size;
};

/// The size of a label's one line. Forms show the same few texts again and again, and Qt sets each of them
/// to know how long it is.
QSize line_size(QLabel const &label)
{
    // A style sheet of the host has frames and margins of its own.
    if (qstrcmp(label.style()->metaObject()->className(), "QStyleSheetStyle") == 0)
        return label.sizeHint();
    constexpr int c_texts = 1000;
    static QCache<std::pair<QString, bool>, sized_text> texts(c_texts);
    // Fonts that the program adds may answer to the names of others.
    static bool const is_told =
        (QObject::connect(qApp, &QGuiApplication::fontDatabaseChanged, [] { texts.clear(); }),
         qAddPostRoutine([] { texts.clear(); }), true);
    static_cast<void>(is_told);
    std::pair const text(label.text(), label.buddy() != nullptr);
    if (sized_text const *const known = texts.object(text); known && known->font == label.font())
        return known->size;
    QSize const size = label.sizeHint();
    texts.insert(text, new sized_text{label.font(), size});
    return size;
}
} // namespace

TCustomLabel::TCustomLabel(TComponent *owner) : TControl(owner, vx_make_widget<QLabel>())
{
    auto *label = vx_qt_as<QLabel>(this);
    label->setTextFormat(Qt::PlainText);
    label->setMargin(0);
    label->setIndent(0);
    SetBounds(0, 0, 65, 17);
    apply();
    SetAutoSize(true);
}

TCustomLabel::~TCustomLabel() = default;

void TCustomLabel::SetText(UnicodeString const &text)
{
    TControl::SetText(text);
    if (f_focus_control)
        f_focus_control->set_label_name(text);
    apply();
}

void TCustomLabel::apply()
{
    auto *label = vx_qt_as<QLabel>(this);
    if (!label)
        return;
    // Qt marks accelerators only where there is something to go to.
    QString text = vx_qt_string(GetText());
    if (!f_show_accel_char && f_focus_control)
        text.replace(u'&', QStringLiteral("&&"));
    else if (f_show_accel_char && !f_focus_control)
        text = label_without_accelerator(text);
    QWidget *const buddy = f_focus_control ? vx_qt_widget(f_focus_control) : nullptr;
    if (label->buddy() != buddy)
        label->setBuddy(buddy);
    if (label->text() != text)
        label->setText(text);
    if (label->wordWrap() != f_word_wrap)
        label->setWordWrap(f_word_wrap);
    Qt::Alignment alignment = f_alignment == taCenter         ? Qt::AlignHCenter
                              : f_alignment == taRightJustify ? Qt::AlignRight
                                                              : Qt::AlignLeft;
    alignment |= f_layout == tlCenter   ? Qt::AlignVCenter
                 : f_layout == tlBottom ? Qt::AlignBottom
                                        : Qt::AlignTop;
    if (label->alignment() != alignment)
        label->setAlignment(alignment);
    if (label->autoFillBackground() == f_transparent)
        label->setAutoFillBackground(!f_transparent);
    if (GetAutoSize())
        AdjustSize();
}

bool TCustomLabel::CanAutoSize(int &width, int &height)
{
    auto const *label = vx_qt_as<QLabel>(this);
    if (!label)
        return false;
    if (f_word_wrap) {
        height = label->heightForWidth(width);
        return true;
    }
    QSize const size = line_size(*label);
    width = size.width();
    height = size.height();
    return true;
}

void TCustomLabel::Click()
{
    if (f_focus_control && f_focus_control->CanFocus())
        f_focus_control->SetFocus();
    TControl::Click();
}

void TCustomLabel::SetAlignment(TAlignment alignment)
{
    f_alignment = alignment;
    apply();
}

void TCustomLabel::SetLayout(TTextLayout layout)
{
    f_layout = layout;
    apply();
}

void TCustomLabel::SetWordWrap(bool wrap)
{
    f_word_wrap = wrap;
    apply();
}

void TCustomLabel::SetShowAccelChar(bool value)
{
    f_show_accel_char = value;
    apply();
}

void TCustomLabel::SetTransparent(bool value)
{
    f_transparent = value;
    apply();
}

void TCustomLabel::SetFocusControl(TWinControl *control)
{
    if (f_focus_control) {
        f_focus_control->RemoveFreeNotification(this);
        f_focus_control->set_label_name({});
    }
    f_focus_control = control;
    if (control) {
        control->FreeNotification(this);
        control->set_label_name(GetText());
    }
    apply();
}

void TCustomLabel::Notification(TComponent *component, TOperation operation)
{
    TControl::Notification(component, operation);
    if (operation == opRemove && component == f_focus_control) {
        f_focus_control = nullptr;
        apply();
    }
}
