#include "platform/toolkit/controls/radio_button.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QRadioButton>

TRadioButton::TRadioButton(TComponent *owner) : TWinControl(owner, vx_make_widget<QRadioButton>())
{
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 113, 17);
    vx_connect(this, vx_qt_as<QRadioButton>(this), &QRadioButton::toggled, [this](bool checked) {
        if (checked)
            Click();
    });
}

bool TRadioButton::TakesTab() const
{
    if (!TWinControl::TakesTab() || GetChecked() || !GetParent())
        return TWinControl::TakesTab();
    TRadioButton const *first = nullptr;
    for (int i = 0; i < GetParent()->GetControlCount(); ++i) {
        auto const *other = dynamic_cast<TRadioButton const *>(GetParent()->GetControls(i));
        if (!other || !other->CanFocus())
            continue;
        if (other->GetChecked())
            return false;
        if (!first)
            first = other;
    }
    return first == this;
}

void TRadioButton::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<QRadioButton>(this)->setText(vx_qt_string(text));
}

bool TRadioButton::GetChecked() const
{
    return vx_qt_as<QRadioButton>(this)->isChecked();
}

void TRadioButton::SetChecked(bool checked)
{
    auto *button = vx_qt_as<QRadioButton>(this);
    // Left in its group the checked button would refuse to be unchecked.
    if (!checked)
        button->setAutoExclusive(false);
    button->setChecked(checked);
    button->setAutoExclusive(true);
}
