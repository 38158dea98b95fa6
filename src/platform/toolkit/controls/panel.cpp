#include "platform/toolkit/controls/panel.h"

#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>

namespace {
constexpr int c_width = 185;
constexpr int c_height = 41;

/// A frame in two colours round the rectangle, which shrinks by its width.
void draw_frame(TCanvas &canvas, TRect &rect, TColor top_left, TColor bottom_right, int width)
{
    canvas.GetPen()->SetWidth(1);
    for (; width > 0 && !rect.IsEmpty(); --width) {
        canvas.GetPen()->SetColor(top_left);
        canvas.MoveTo(rect.Left, rect.Bottom - 1);
        canvas.LineTo(rect.Left, rect.Top);
        canvas.LineTo(rect.Right, rect.Top);
        canvas.GetPen()->SetColor(bottom_right);
        canvas.MoveTo(rect.Right - 1, rect.Top);
        canvas.LineTo(rect.Right - 1, rect.Bottom - 1);
        canvas.LineTo(rect.Left - 1, rect.Bottom - 1);
        rect.Inflate(-1, -1);
    }
}

void draw_bevel(TCanvas &canvas, TRect &rect, TPanelBevel bevel, int width)
{
    if (bevel == bvLowered)
        draw_frame(canvas, rect, clBtnShadow, clBtnHighlight, width);
    else if (bevel == bvRaised)
        draw_frame(canvas, rect, clBtnHighlight, clBtnShadow, width);
    else if (bevel == bvSpace)
        rect.Inflate(-width, -width);
}
} // namespace

TCustomPanel::TCustomPanel(TComponent *owner) : TCustomPanel(owner, bvRaised, c_width, c_height)
{
}

TCustomPanel::TCustomPanel(TComponent *owner, TPanelBevel outer, int width, int height)
    : TCustomControl(owner), f_bevel_outer(outer)
{
    SetBounds(0, 0, width, height);
}

void TCustomPanel::SetText(UnicodeString const &text)
{
    TCustomControl::SetText(text);
    Invalidate();
}

void TCustomPanel::SetAlignment(TAlignment value)
{
    f_alignment = value;
    Invalidate();
}

void TCustomPanel::SetVerticalAlignment(TVerticalAlignment value)
{
    f_vertical_alignment = value;
    Invalidate();
}

void TCustomPanel::SetBevelInner(TPanelBevel value)
{
    f_bevel_inner = value;
    Realign();
    Invalidate();
}

void TCustomPanel::SetBevelOuter(TPanelBevel value)
{
    f_bevel_outer = value;
    Realign();
    Invalidate();
}

void TCustomPanel::SetBevelWidth(TBevelWidth value)
{
    f_bevel_width = std::max(value, 1);
    Realign();
    Invalidate();
}

void TCustomPanel::SetBorderWidth(int value)
{
    f_border_width = std::max(value, 0);
    Realign();
    Invalidate();
}

void TCustomPanel::SetShowCaption(bool value)
{
    f_show_caption = value;
    Invalidate();
}

void TCustomPanel::AdjustClientRect(TRect &rect)
{
    TCustomControl::AdjustClientRect(rect);
    int const frame = f_border_width + (f_bevel_inner != bvNone ? f_bevel_width : 0) +
                      (f_bevel_outer != bvNone ? f_bevel_width : 0);
    rect.Inflate(-frame, -frame);
}

void TCustomPanel::Paint()
{
    TCanvas &canvas = *GetCanvas();
    TRect rect = GetClientRect();
    draw_bevel(canvas, rect, f_bevel_outer, f_bevel_width);
    rect.Inflate(-f_border_width, -f_border_width);
    draw_bevel(canvas, rect, f_bevel_inner, f_bevel_width);
    if (!f_show_caption || GetText().IsEmpty() || rect.IsEmpty())
        return;
    TTextFormat format{tfSingleLine};
    format <<= f_alignment == taCenter ? tfCenter : f_alignment == taRightJustify ? tfRight : tfLeft;
    format <<= f_vertical_alignment == taVerticalCenter ? tfVerticalCenter
               : f_vertical_alignment == taAlignTop     ? tfTop
                                                        : tfBottom;
    canvas.SetFont(GetFont());
    canvas.GetBrush()->SetStyle(bsClear);
    if (!GetEnabled())
        canvas.GetFont()->SetColor(clGrayText);
    canvas.TextRect(rect, GetText(), format);
}
