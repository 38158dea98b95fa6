#include "platform/toolkit/graphics/paint_to.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>

void vx_paint_to(TWinControl *control, TCanvas *canvas, int x, int y)
{
    QPainter *const painter = canvas ? vx_qt_painter(canvas->NativePainter()) : nullptr;
    QWidget *const widget = vx_qt_widget(control);
    if (!painter || !widget)
        return;
    // By way of a picture: on a painter that paints a window a hidden widget shows nothing.
    qreal const ratio = painter->device()->devicePixelRatioF();
    QPixmap picture(widget->size() * ratio);
    if (picture.isNull())
        return;
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    widget->render(&picture, {}, {}, QWidget::DrawChildren);
    painter->drawPixmap(x, y, picture);
}
