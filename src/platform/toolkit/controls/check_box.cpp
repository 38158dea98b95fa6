#include "platform/toolkit/controls/check_box.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtGui/QPaintEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionFocusRect>
#include <QtWidgets/QStylePainter>

namespace {
Qt::CheckState to_qt(TCheckBoxState state)
{
    return state == cbChecked ? Qt::Checked : state == cbGrayed ? Qt::PartiallyChecked : Qt::Unchecked;
}

/// A person's click leaves the grey state out unless it is allowed, also while the box shows it. With the
/// text left of the box, text and box stand at the two edges of the control, so that boxes below one another
/// are in line and so are their texts.
class check_widget : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

    bool allow_grayed = false;

protected:
    void nextCheckState() override
    {
        if (allow_grayed)
            QCheckBox::nextCheckState();
        else
            setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
    bool hitButton(QPoint const &point) const override
    {
        return layoutDirection() == Qt::RightToLeft ? rect().contains(point) : QCheckBox::hitButton(point);
    }
    void paintEvent(QPaintEvent *event) override
    {
        if (layoutDirection() == Qt::LeftToRight)
            return QCheckBox::paintEvent(event);
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        QRect const text_area = rect().adjusted(
            0, 0, -style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this).width(), 0);
        QStyleOptionButton box = option;
        box.rect = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
        painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, box);
        int const alignment = Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextShowMnemonic;
        painter.drawItemText(text_area, alignment, palette(), isEnabled(), text(), QPalette::WindowText);
        if (!option.state.testFlag(QStyle::State_HasFocus))
            return;
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = style()->itemTextRect(fontMetrics(), text_area, alignment, isEnabled(), text());
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
};
} // namespace

TCustomCheckBox::TCustomCheckBox(TComponent *owner) : TWinControl(owner, vx_make_widget<check_widget>())
{
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 97, 17);
    vx_connect(this, vx_qt_as<QCheckBox>(this), &QCheckBox::stateChanged, [this](int) {
        if (!f_following_action)
            Click();
    });
}

void TCustomCheckBox::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<QCheckBox>(this)->setText(vx_qt_string(text));
}

void TCustomCheckBox::SetChecked(bool checked)
{
    SetState(checked ? cbChecked : cbUnchecked);
}

TCheckBoxState TCustomCheckBox::GetState() const
{
    switch (vx_qt_as<QCheckBox>(this)->checkState()) {
    case Qt::Checked:
        return cbChecked;
    case Qt::PartiallyChecked:
        return cbGrayed;
    default:
        return cbUnchecked;
    }
}

void TCustomCheckBox::SetState(TCheckBoxState state)
{
    auto *box = vx_qt_as<QCheckBox>(this);
    box->setTristate(state == cbGrayed || f_allow_grayed);
    box->setCheckState(to_qt(state));
}

void TCustomCheckBox::SetAllowGrayed(bool value)
{
    f_allow_grayed = value;
    auto *box = vx_qt_as<check_widget>(this);
    box->allow_grayed = value;
    box->setTristate(value || box->checkState() == Qt::PartiallyChecked);
}

TAlignment TCustomCheckBox::GetAlignment() const
{
    return vx_qt_widget(this)->layoutDirection() == Qt::RightToLeft ? taLeftJustify : taRightJustify;
}

void TCustomCheckBox::SetAlignment(TAlignment alignment)
{
    vx_qt_widget(this)->setLayoutDirection(alignment == taLeftJustify ? Qt::RightToLeft : Qt::LeftToRight);
}

void TCustomCheckBox::ActionChanged(TCustomAction const &action)
{
    // The action has run or will run by itself: following it is no click.
    vx::flag_scope const following(f_following_action);
    SetChecked(action.GetChecked());
}
