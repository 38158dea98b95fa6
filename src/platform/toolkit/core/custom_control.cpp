#include "platform/toolkit/core/custom_control.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/canvas.h"

TCustomControl::TCustomControl(TComponent *owner) : TCustomControl(owner, vx_make_widget<QWidget>())
{
}

TCustomControl::TCustomControl(TComponent *owner, vx_native_widget *widget)
    : TWinControl(owner, widget), f_canvas(std::make_unique<TCanvas>())
{
    ControlStyle <<= csOwnPaint;
    ControlStyle <<= csAcceptsControls;
}

TCustomControl::~TCustomControl() = default;

void TCustomControl::PaintWidget(vx_native_painter *painter)
{
    f_canvas->Attach(painter);
    Paint();
    OnPaint(this);
    f_canvas->Detach();
}
