#include "platform/toolkit/core/custom_control.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/canvas.h"

TCustomControl::TCustomControl(TComponent *owner) : TCustomControl(owner, vx_make_widget<QWidget>())
{
}

TCustomControl::TCustomControl(TComponent *owner, vx_native_widget *widget) : TWinControl(owner, widget)
{
    ControlStyle <<= csOwnPaint;
    ControlStyle <<= csAcceptsControls;
}

TCustomControl::~TCustomControl() = default;

void TCustomControl::PaintWidget(vx_native_painter *painter)
{
    GetCanvas()->Attach(painter);
    Paint();
    OnPaint(this);
    f_canvas->Detach();
}

TCanvas *TCustomControl::GetCanvas() const
{
    if (!f_canvas)
        f_canvas = std::make_unique<TCanvas>();
    return f_canvas.get();
}
