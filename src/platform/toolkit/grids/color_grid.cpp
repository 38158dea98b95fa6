#include "platform/toolkit/grids/color_grid.h"

#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <array>

namespace {
constexpr int c_side = 4;
constexpr int c_default_side = 100;
constexpr int c_inset = 2;

constexpr std::array<TColor, TColorGrid::c_color_count> c_colors{
    clBlack, clMaroon, clGreen, clOlive,  clNavy, clPurple,  clTeal, clSilver,
    clGray,  clRed,    clLime,  clYellow, clBlue, clFuchsia, clAqua, clWhite};

/// Black or white, whichever stands out from the colour.
TColor contrast(TColor color)
{
    int const light = 3 * (color & 255) + 6 * (color >> 8 & 255) + (color >> 16 & 255);
    return light > 1275 ? clBlack : clWhite;
}
} // namespace

TColorGrid::TColorGrid(TComponent *owner) : TCustomControl(owner)
{
    SetBounds(0, 0, c_default_side, c_default_side);
    SetTabStop(true);
}

TColor TColorGrid::IndexToColor(int index)
{
    return index >= 0 && index < c_color_count ? c_colors[static_cast<std::size_t>(index)] : clNone;
}

int TColorGrid::ColorToIndex(TColor color)
{
    auto const at = std::find(c_colors.begin(), c_colors.end(), ColorToRGB(color));
    return at == c_colors.end() ? -1 : static_cast<int>(at - c_colors.begin());
}

void TColorGrid::SetForegroundIndex(int index)
{
    f_foreground = std::clamp(index, -1, c_color_count - 1);
    f_selection = std::max(f_foreground, 0);
    Invalidate();
}

void TColorGrid::SetBackgroundIndex(int index)
{
    f_background = std::clamp(index, -1, c_color_count - 1);
    Invalidate();
}

void TColorGrid::choose(int &which, int index)
{
    if (index < 0)
        return;
    f_selection = index;
    Invalidate();
    if (which == index)
        return;
    which = index;
    OnChange(this);
}

TRect TColorGrid::cell_rect(int index) const
{
    int const col = index % c_side;
    int const row = index / c_side;
    return Rect(GetClientWidth() * col / c_side, GetClientHeight() * row / c_side,
                GetClientWidth() * (col + 1) / c_side, GetClientHeight() * (row + 1) / c_side);
}

int TColorGrid::cell_at(int x, int y) const
{
    for (int index = 0; index < c_color_count; ++index) {
        if (cell_rect(index).Contains({x, y}))
            return index;
    }
    return -1;
}

void TColorGrid::Paint()
{
    TCanvas *canvas = GetCanvas();
    for (int index = 0; index < c_color_count; ++index) {
        TRect rect = cell_rect(index);
        rect.Inflate(-c_inset, -c_inset);
        TColor const color = IndexToColor(index);
        canvas->GetBrush()->SetColor(color);
        canvas->FillRect(rect);
        DrawEdge(canvas, rect, esSunken);
        UnicodeString const mark = index == f_foreground && index == f_background ? L"FB"
                                   : index == f_foreground                        ? L"F"
                                   : index == f_background                        ? L"B"
                                                                                  : L"";
        if (!mark.IsEmpty()) {
            TSize const size = canvas->TextExtent(mark);
            TPoint const middle = rect.CenterPoint();
            canvas->GetFont()->SetColor(contrast(color));
            canvas->GetBrush()->SetStyle(bsClear);
            canvas->TextOut(middle.X - size.cx / 2, middle.Y - size.cy / 2, mark);
            canvas->GetBrush()->SetStyle(bsSolid);
        }
        if (index == f_selection && Focused())
            canvas->DrawFocusRect(cell_rect(index));
    }
}

void TColorGrid::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    auto const life = Life();
    SetFocus();
    if (!life.expired() && button == mbLeft)
        choose(f_foreground, cell_at(x, y));
    else if (!life.expired() && button == mbRight)
        choose(f_background, cell_at(x, y));
    if (!life.expired())
        TCustomControl::MouseDown(button, shift, x, y);
}

bool TColorGrid::WantsKey(Word key, TShiftState shift) const
{
    return key == VK_RETURN || TCustomControl::WantsKey(key, shift);
}

void TColorGrid::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    TCustomControl::KeyDown(key, shift);
    if (life.expired())
        return;
    int selection = f_selection;
    switch (key) {
    case VK_LEFT:
        --selection;
        break;
    case VK_RIGHT:
        ++selection;
        break;
    case VK_UP:
        selection -= c_side;
        break;
    case VK_DOWN:
        selection += c_side;
        break;
    case VK_RETURN:
        choose(f_foreground, f_selection);
        break;
    case VK_SPACE:
        choose(f_background, f_selection);
        break;
    default:
        return;
    }
    key = 0;
    if (life.expired())
        return;
    if (selection >= 0 && selection < c_color_count)
        f_selection = selection;
    Invalidate();
}

void TColorGrid::DoEnter()
{
    auto const life = Life();
    TCustomControl::DoEnter();
    if (life.expired())
        return;
    Invalidate();
}

void TColorGrid::DoExit()
{
    auto const life = Life();
    TCustomControl::DoExit();
    if (life.expired())
        return;
    Invalidate();
}
