#include "platform/toolkit/core/graphic_control.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/canvas.h"

TGraphicControl::TGraphicControl(TComponent *owner)
    : TControl(owner, vx_make_widget<QWidget>()), f_canvas(std::make_unique<TCanvas>())
{
    ControlStyle <<= csOwnPaint;
    vx_qt_widget(this)->setFocusPolicy(Qt::NoFocus);
}

TGraphicControl::~TGraphicControl() = default;

void TGraphicControl::PaintWidget(vx_native_painter *painter)
{
    f_canvas->Attach(painter);
    Paint();
    f_canvas->Detach();
}
