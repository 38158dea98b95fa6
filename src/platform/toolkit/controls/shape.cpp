#include "platform/toolkit/controls/shape.h"

#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>

TShape::TShape(TComponent *owner)
    : TGraphicControl(owner), f_pen(std::make_unique<TPen>()), f_brush(std::make_unique<TBrush>())
{
    SetBounds(0, 0, 65, 65);
    f_pen->OnChange = make_closure<&TShape::on_style_change>(this);
    f_brush->OnChange = make_closure<&TShape::on_style_change>(this);
}

TShape::~TShape() = default;

void TShape::on_style_change(TObject *)
{
    Invalidate();
}

void TShape::SetShape(TShapeType shape)
{
    f_shape = shape;
    Invalidate();
}

void TShape::SetPen(TPen const *pen)
{
    f_pen->Assign(pen);
}

void TShape::SetBrush(TBrush const *brush)
{
    f_brush->Assign(brush);
}

void TShape::Paint()
{
    TCanvas *canvas = GetCanvas();
    canvas->SetPen(f_pen.get());
    canvas->SetBrush(f_brush.get());
    canvas->SetSmooth(true);
    int x = 0;
    int y = 0;
    int width = GetWidth();
    int height = GetHeight();
    if (f_shape == stSquare || f_shape == stRoundSquare || f_shape == stCircle) {
        int const side = std::min(width, height);
        x = (width - side) / 2;
        y = (height - side) / 2;
        width = height = side;
    }
    // Half of a thick line would fall outside.
    int const inset = f_pen->GetStyle() == psClear ? 0 : f_pen->GetWidth() / 2;
    TRect box = Bounds(x, y, width, height);
    box.Inflate(-inset, -inset);
    int const corner = std::min(width, height) / 4;
    switch (f_shape) {
    case stRectangle:
    case stSquare:
        canvas->Rectangle(box);
        break;
    case stRoundRect:
    case stRoundSquare:
        canvas->RoundRect(box.Left, box.Top, box.Right, box.Bottom, corner, corner);
        break;
    case stEllipse:
    case stCircle:
        canvas->Ellipse(box);
        break;
    }
}
