#include "platform/toolkit/controls/track_bar.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStyleOptionSlider>

#include <algorithm>

namespace {
constexpr int c_band = 3; ///< thickness of a marked range
} // namespace

/// The slider of the style, over which a range can be marked.
class TTrackBar::slider final : public QSlider
{
public:
    explicit slider(QWidget *parent) : QSlider(Qt::Horizontal, parent) {}

    int from = 0;
    int to = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QSlider::paintEvent(event);
        if (from >= to)
            return;
        QStyleOptionSlider option;
        initStyleOption(&option);
        QPainter painter(this);
        painter.fillRect(band(option), palette().highlight());
        option.subControls = QStyle::SC_SliderHandle;
        style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, this);
    }

private:
    /// Where the middle of the thumb stands on the bar at a position.
    [[nodiscard]] int place(QStyleOptionSlider option, int position) const
    {
        option.sliderPosition = position;
        QPoint const middle =
            style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this).center();
        return orientation() == Qt::Horizontal ? middle.x() : middle.y();
    }
    [[nodiscard]] QRect band(QStyleOptionSlider const &option) const
    {
        auto const [low, high] = std::minmax({place(option, std::clamp(from, minimum(), maximum())),
                                              place(option, std::clamp(to, minimum(), maximum()))});
        QPoint const middle =
            style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this).center();
        return orientation() == Qt::Horizontal ? QRect(low, middle.y() - c_band / 2, high - low + 1, c_band)
                                               : QRect(middle.x() - c_band / 2, low, c_band, high - low + 1);
    }
};

/// The style of the program with a thumb of another length.
class TTrackBar::thumb_style final : public QProxyStyle
{
public:
    thumb_style(QObject *owner, int length) : QProxyStyle(QApplication::style()->name()), f_length(length)
    {
        setParent(owner);
    }
    [[nodiscard]] int pixelMetric(PixelMetric metric, QStyleOption const *option,
                                  QWidget const *widget) const override
    {
        if (metric == PM_SliderThickness || metric == PM_SliderControlThickness)
            return f_length;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

private:
    int f_length;
};

TTrackBar::TTrackBar(TComponent *owner) : TWinControl(owner, vx_make_widget<slider>())
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

int TTrackBar::GetThumbLength() const
{
    auto const *bar = vx_qt_as<QSlider>(this);
    return bar->style()->pixelMetric(QStyle::PM_SliderThickness, nullptr, bar);
}

void TTrackBar::SetThumbLength(int length)
{
    length = std::max(length, 1);
    if (length == GetThumbLength())
        return;
    auto *bar = vx_qt_as<QSlider>(this);
    auto const *former = dynamic_cast<thumb_style *>(bar->style());
    bar->setStyle(new thumb_style(bar, length));
    delete former;
}

void TTrackBar::SetSelStart(int position)
{
    f_sel_start = position;
    apply_selection();
}

void TTrackBar::SetSelEnd(int position)
{
    f_sel_end = position;
    apply_selection();
}

void TTrackBar::SetShowSelRange(bool show)
{
    f_show_sel_range = show;
    apply_selection();
}

void TTrackBar::apply_selection()
{
    auto *bar = vx_qt_as<slider>(this);
    bar->from = f_sel_start;
    bar->to = f_show_sel_range ? f_sel_end : f_sel_start;
    bar->update();
}
