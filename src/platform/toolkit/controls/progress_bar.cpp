#include "platform/toolkit/controls/progress_bar.h"

#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QProgressBar>

#include <algorithm>

TProgressBar::TProgressBar(TComponent *owner) : TWinControl(owner, vx_make_widget<QProgressBar>())
{
    SetBounds(0, 0, 150, 17);
    auto *bar = vx_qt_as<QProgressBar>(this);
    bar->setRange(0, 100);
    bar->setValue(0);
    bar->setTextVisible(false);
}

int TProgressBar::GetPosition() const
{
    return vx_qt_as<QProgressBar>(this)->value();
}

void TProgressBar::SetPosition(int position)
{
    vx_qt_as<QProgressBar>(this)->setValue(std::clamp(position, GetMin(), GetMax()));
}

int TProgressBar::GetMin() const
{
    return vx_qt_as<QProgressBar>(this)->minimum();
}

void TProgressBar::SetMin(int value)
{
    int const position = std::max(GetPosition(), value);
    vx_qt_as<QProgressBar>(this)->setMinimum(value);
    SetPosition(position);
}

int TProgressBar::GetMax() const
{
    return vx_qt_as<QProgressBar>(this)->maximum();
}

void TProgressBar::SetMax(int value)
{
    int const position = std::min(GetPosition(), value);
    vx_qt_as<QProgressBar>(this)->setMaximum(value);
    SetPosition(position);
}

void TProgressBar::StepIt()
{
    int const next = GetPosition() + f_step;
    SetPosition(next > GetMax() ? GetMin() + (next - GetMax()) : next);
}
