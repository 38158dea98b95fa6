#include "platform/toolkit/controls/spin_edit.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/detail/edit_port.h"

#include <QtCore/QLocale>
#include <QtWidgets/QSpinBox>

#include <algorithm>
#include <charconv>
#include <limits>

TSpinEdit::TSpinEdit(TComponent *owner) : TCustomEdit(owner, vx_make_spin_port())
{
    SetBounds(0, 0, 121, 24);
    auto *box = vx_qt_as<QSpinBox>(this);
    box->setLocale(QLocale::c());
    box->setGroupSeparatorShown(false);
    box->setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    apply_limits();
}

void TSpinEdit::apply_limits()
{
    bool const limited = f_min != f_max;
    vx_qt_as<QSpinBox>(this)->setRange(limited ? std::min(f_min, f_max) : std::numeric_limits<int>::min(),
                                       limited ? std::max(f_min, f_max) : std::numeric_limits<int>::max());
}

int TSpinEdit::GetValue() const
{
    std::string const text = GetText().to_utf8();
    int value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : f_min;
}

void TSpinEdit::SetValue(int value)
{
    if (f_min != f_max)
        value = std::clamp(value, std::min(f_min, f_max), std::max(f_min, f_max));
    SetText(UnicodeString(value));
}

void TSpinEdit::SetMinValue(int value)
{
    f_min = value;
    apply_limits();
}

void TSpinEdit::SetMaxValue(int value)
{
    f_max = value;
    apply_limits();
}

int TSpinEdit::GetIncrement() const
{
    return vx_qt_as<QSpinBox>(this)->singleStep();
}

void TSpinEdit::SetIncrement(int value)
{
    vx_qt_as<QSpinBox>(this)->setSingleStep(value);
}
