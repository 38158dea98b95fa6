#include "platform/toolkit/controls/gauge.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtCore/QLocale>
#include <QtCore/QStringLiteral>
#include <QtWidgets/QProgressBar>

#include <algorithm>

TGauge::TGauge(TComponent *owner) : TWinControl(owner, vx_make_widget<QProgressBar>())
{
    SetBounds(0, 0, 100, 100);
    auto *bar = vx_qt_as<QProgressBar>(this);
    bar->setRange(0, 100);
    bar->setValue(0);
    bar->setAlignment(Qt::AlignCenter);
    // The percentage, in digits of no language.
    bar->setFormat(QStringLiteral("%p%"));
    bar->setLocale(QLocale::c());
}

int TGauge::GetProgress() const
{
    return vx_qt_as<QProgressBar>(this)->value();
}

void TGauge::SetProgress(int progress)
{
    vx_qt_as<QProgressBar>(this)->setValue(std::clamp(progress, GetMinValue(), GetMaxValue()));
}

int TGauge::GetMinValue() const
{
    return vx_qt_as<QProgressBar>(this)->minimum();
}

void TGauge::SetMinValue(int value)
{
    int const progress = std::max(GetProgress(), value);
    vx_qt_as<QProgressBar>(this)->setMinimum(value);
    SetProgress(progress);
}

int TGauge::GetMaxValue() const
{
    return vx_qt_as<QProgressBar>(this)->maximum();
}

void TGauge::SetMaxValue(int value)
{
    int const progress = std::min(GetProgress(), value);
    vx_qt_as<QProgressBar>(this)->setMaximum(value);
    SetProgress(progress);
}

int TGauge::GetPercentDone() const
{
    long long const range = static_cast<long long>(GetMaxValue()) - GetMinValue();
    long long const done = static_cast<long long>(GetProgress()) - GetMinValue();
    return range > 0 ? static_cast<int>(done * 100 / range) : 0;
}

TGaugeKind TGauge::GetKind() const
{
    return vx_qt_as<QProgressBar>(this)->orientation() == Qt::Horizontal ? gkHorizontalBar : gkVerticalBar;
}

void TGauge::SetKind(TGaugeKind kind)
{
    vx_qt_as<QProgressBar>(this)->setOrientation(kind == gkHorizontalBar ? Qt::Horizontal : Qt::Vertical);
}

bool TGauge::GetShowText() const
{
    return vx_qt_as<QProgressBar>(this)->isTextVisible();
}

void TGauge::SetShowText(bool show)
{
    vx_qt_as<QProgressBar>(this)->setTextVisible(show);
}

void TGauge::SetForeColor(TColor color)
{
    f_fore_color = color;
    QWidget *widget = vx_qt_widget(this);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Highlight, vx_qt_color(color == clDefault ? clHighlight : color));
    widget->setPalette(palette);
}
