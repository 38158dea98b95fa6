#include "platform/toolkit/controls/label.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/win_control.h"

#include <QtCore/QStringLiteral>
#include <QtWidgets/QLabel>

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
    label->setText(text);
    if (label->wordWrap() != f_word_wrap)
        label->setWordWrap(f_word_wrap);
    Qt::Alignment alignment = f_alignment == taCenter         ? Qt::AlignHCenter
                              : f_alignment == taRightJustify ? Qt::AlignRight
                                                              : Qt::AlignLeft;
    alignment |= f_layout == tlCenter   ? Qt::AlignVCenter
                 : f_layout == tlBottom ? Qt::AlignBottom
                                        : Qt::AlignTop;
    label->setAlignment(alignment);
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
    QSize const size = label->sizeHint();
    width = size.width();
    height = size.height();
    return true;
}

void TCustomLabel::FontChanged()
{
    TControl::FontChanged();
    if (GetAutoSize())
        AdjustSize();
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
