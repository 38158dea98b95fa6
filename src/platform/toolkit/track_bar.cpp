#include "platform/toolkit/track_bar.h"

#include "platform/toolkit/qt_bridge.h"

#include <QSlider>

TTrackBar::TTrackBar(TComponent *owner) : TWinControl(owner, vx_make_widget<QSlider>(Qt::Horizontal))
{
    SetTabStop(true);
    SetBounds(0, 0, 150, 45);
    auto *slider = vx_qt_as<QSlider>(this);
    slider->setRange(0, 10);
    slider->setPageStep(2);
    slider->setTickInterval(1);
    apply_ticks();
    vx_connect(this, slider, &QSlider::valueChanged, [this](int) { Changed(); });
}

void TTrackBar::Changed()
{
    OnChange(this);
}

int TTrackBar::GetPosition() const
{
    return vx_qt_as<QSlider>(this)->value();
}

void TTrackBar::SetPosition(int position)
{
    vx_qt_as<QSlider>(this)->setValue(position);
}

int TTrackBar::GetMin() const
{
    return vx_qt_as<QSlider>(this)->minimum();
}

void TTrackBar::SetMin(int value)
{
    vx_qt_as<QSlider>(this)->setMinimum(value);
}

int TTrackBar::GetMax() const
{
    return vx_qt_as<QSlider>(this)->maximum();
}

void TTrackBar::SetMax(int value)
{
    vx_qt_as<QSlider>(this)->setMaximum(value);
}

int TTrackBar::GetLineSize() const
{
    return vx_qt_as<QSlider>(this)->singleStep();
}

void TTrackBar::SetLineSize(int size)
{
    vx_qt_as<QSlider>(this)->setSingleStep(size);
}

int TTrackBar::GetPageSize() const
{
    return vx_qt_as<QSlider>(this)->pageStep();
}

void TTrackBar::SetPageSize(int size)
{
    vx_qt_as<QSlider>(this)->setPageStep(size);
}

int TTrackBar::GetFrequency() const
{
    return vx_qt_as<QSlider>(this)->tickInterval();
}

void TTrackBar::SetFrequency(int frequency)
{
    vx_qt_as<QSlider>(this)->setTickInterval(frequency);
}

TTrackBarOrientation TTrackBar::GetOrientation() const
{
    return vx_qt_as<QSlider>(this)->orientation() == Qt::Horizontal ? trHorizontal : trVertical;
}

void TTrackBar::SetOrientation(TTrackBarOrientation orientation)
{
    if (orientation == GetOrientation())
        return;
    auto *slider = vx_qt_as<QSlider>(this);
    slider->setOrientation(orientation == trHorizontal ? Qt::Horizontal : Qt::Vertical);
    slider->setInvertedAppearance(orientation == trVertical);
    slider->setInvertedControls(orientation == trVertical);
    SetBounds(GetLeft(), GetTop(), GetHeight(), GetWidth());
}

void TTrackBar::SetTickMarks(TTickMark marks)
{
    f_tick_marks = marks;
    apply_ticks();
}

void TTrackBar::SetTickStyle(TTickStyle style)
{
    f_tick_style = style;
    apply_ticks();
}

void TTrackBar::apply_ticks()
{
    QSlider::TickPosition position = QSlider::NoTicks;
    if (f_tick_style == tsAuto)
        position = f_tick_marks == tmBoth      ? QSlider::TicksBothSides
                   : f_tick_marks == tmTopLeft ? QSlider::TicksAbove
                                               : QSlider::TicksBelow;
    vx_qt_as<QSlider>(this)->setTickPosition(position);
}
