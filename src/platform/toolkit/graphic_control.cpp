#include "platform/toolkit/graphic_control.h"

#include "platform/toolkit/canvas.h"
#include "platform/toolkit/qt_bridge.h"

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
