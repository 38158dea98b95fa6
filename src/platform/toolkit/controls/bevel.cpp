#include "platform/toolkit/controls/bevel.h"

#include "platform/toolkit/graphics/canvas.h"

TBevel::TBevel(TComponent *owner) : TGraphicControl(owner)
{
    SetBounds(0, 0, 50, 50);
}

void TBevel::SetShape(TBevelShape shape)
{
    f_shape = shape;
    Invalidate();
}

void TBevel::SetStyle(TBevelStyle style)
{
    f_style = style;
    Invalidate();
}

void TBevel::Paint()
{
    TCanvas *canvas = GetCanvas();
    int const width = GetWidth();
    int const height = GetHeight();
    TColor const first = f_style == bsLowered ? clBtnShadow : clBtnHighlight;
    TColor const second = f_style == bsLowered ? clBtnHighlight : clBtnShadow;
    TBrush *brush = canvas->GetBrush();
    auto const line = [&](int x, int y, int w, int h, TColor color) {
        brush->SetColor(color);
        canvas->FillRect(Bounds(x, y, w, h));
    };
    switch (f_shape) {
    case bsBox:
        DrawEdge(canvas, Rect(0, 0, width, height), f_style == bsLowered ? esSunken : esRaised);
        break;
    case bsFrame:
        DrawEdge(canvas, Rect(0, 0, width, height), f_style == bsLowered ? esEtched : esBump);
        break;
    case bsTopLine:
        line(0, 0, width, 1, first);
        line(0, 1, width, 1, second);
        break;
    case bsBottomLine:
        line(0, height - 2, width, 1, first);
        line(0, height - 1, width, 1, second);
        break;
    case bsLeftLine:
        line(0, 0, 1, height, first);
        line(1, 0, 1, height, second);
        break;
    case bsRightLine:
        line(width - 2, 0, 1, height, first);
        line(width - 1, 0, 1, height, second);
        break;
    case bsSpacer:
        break;
    }
}
