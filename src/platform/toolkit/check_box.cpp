#include "platform/toolkit/check_box.h"

#include "platform/toolkit/qt_bridge.h"

#include <QCheckBox>

namespace {
Qt::CheckState to_qt(TCheckBoxState state)
{
    return state == cbChecked ? Qt::Checked : state == cbGrayed ? Qt::PartiallyChecked : Qt::Unchecked;
}

/// A person's click leaves the grey state out unless it is allowed, also while the box shows it.
class check_widget final : public QCheckBox
{
public:
    bool allow_grayed = false;

protected:
    void nextCheckState() override
    {
        if (allow_grayed)
            QCheckBox::nextCheckState();
        else
            setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
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
    f_following_action = true;
    SetChecked(action.GetChecked());
    f_following_action = false;
}
