#include "platform/dialogs/detail/color_field.h"

#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace vx::dialogs {
namespace {
constexpr int c_steps = 100; ///< key steps from edge to edge

// The check pattern: side of its cells and its two greys.
constexpr int c_check = 6;
constexpr int c_light = 255;
constexpr int c_dark = 192;

int to_byte(double value)
{
    // Halves go up although the calculation before may have missed them by a hair.
    constexpr double hair = 1e-9;
    return static_cast<int>(std::floor(std::clamp(value, 0.0, 1.0) * 255.0 + 0.5 + hair));
}

/// One channel of a pure hue, 0 to 1; `shift` turns the circle: 0 for red, 1/3 for green, 2/3 for blue.
double pure(double h, double shift)
{
    double const x = h - shift;
    double const turn = x - std::floor(x);
    return std::clamp(std::abs(turn * 6.0 - 3.0) - 1.0, 0.0, 1.0);
}

TColor plain(Tvx_color color)
{
    return RGB(color.r, color.g, color.b);
}

TColor over_ground(Tvx_color color, int ground)
{
    auto const mix = [&](int part) { return (part * color.a + ground * (255 - color.a) + 127) / 255; };
    return RGB(mix(color.r), mix(color.g), mix(color.b));
}

bool is_arrow(Word key)
{
    return key == VK_LEFT || key == VK_RIGHT || key == VK_UP || key == VK_DOWN;
}

double share(int position, int size)
{
    return size > 1 ? std::clamp(static_cast<double>(position) / (size - 1), 0.0, 1.0) : 0.0;
}

int pixel_of(double value, int size)
{
    return static_cast<int>(std::lround(value * (size - 1)));
}

double stepped(double value, int steps)
{
    return std::clamp(value + static_cast<double>(steps) / c_steps, 0.0, 1.0);
}
} // namespace

Tvx_color to_color(hsv const &value)
{
    auto const channel = [&value](double shift) {
        return to_byte(value.v * (1.0 - value.s + value.s * pure(value.h, shift)));
    };
    return vx_clr_init_rgb(channel(0.0), channel(1.0 / 3.0), channel(2.0 / 3.0));
}

hsv to_hsv(Tvx_color color, hsv const &former)
{
    int const high = std::max({color.r, color.g, color.b});
    int const low = std::min({color.r, color.g, color.b});
    hsv made{former.h, former.s, high / 255.0};
    if (high == 0)
        return made;
    double const range = high - low;
    made.s = range / high;
    if (high == low)
        return made;
    double sixth = 0.0;
    if (high == color.r)
        sixth = (color.g - color.b) / range;
    else if (high == color.g)
        sixth = 2.0 + (color.b - color.r) / range;
    else
        sixth = 4.0 + (color.r - color.g) / range;
    double const h = sixth / 6.0;
    made.h = h < 0.0 ? h + 1.0 : h;
    return made;
}

void fill_checked(TCanvas *canvas, TRect const &rect, Tvx_color color)
{
    canvas->GetBrush()->SetColor(over_ground(color, c_light));
    canvas->FillRect(rect);
    if (color.a == 255)
        return;
    canvas->GetBrush()->SetColor(over_ground(color, c_dark));
    for (int y = rect.Top, row = 0; y < rect.Bottom; y += c_check, ++row)
        for (int x = rect.Left + row % 2 * c_check; x < rect.Right; x += 2 * c_check)
            canvas->FillRect(
                Rect(x, y, std::min(x + c_check, rect.Right), std::min(y + c_check, rect.Bottom)));
}

// ---- areas in general

pick_area::pick_area(TComponent *owner) : TCustomControl(owner)
{
    ControlStyle.Include(csCaptureMouse);
    SetTabStop(true);
}

void pick_area::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TCustomControl::MouseDown(button, shift, x, y);
    if (button != mbLeft)
        return;
    SetFocus();
    f_picking = true;
    pick_at(x, y);
}

void pick_area::MouseMove(TShiftState shift, int x, int y)
{
    TCustomControl::MouseMove(shift, x, y);
    if (f_picking)
        pick_at(x, y);
}

void pick_area::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    f_picking = f_picking && button != mbLeft;
    TCustomControl::MouseUp(button, shift, x, y);
}

void pick_area::KeyDown(Word &key, TShiftState shift)
{
    TCustomControl::KeyDown(key, shift);
    if (!is_arrow(key))
        return;
    int const size = shift.Contains(ssCtrl) ? c_steps / 10 : 1;
    step(key == VK_RIGHT  ? size
         : key == VK_LEFT ? -size
                          : 0,
         key == VK_DOWN ? size
         : key == VK_UP ? -size
                        : 0);
    key = 0;
}

bool pick_area::WantsKey(Word key, TShiftState shift) const
{
    return is_arrow(key) || TCustomControl::WantsKey(key, shift);
}

void pick_area::DoEnter()
{
    Invalidate();
    TCustomControl::DoEnter();
}

void pick_area::DoExit()
{
    Invalidate();
    TCustomControl::DoExit();
}

void pick_area::paint_frame()
{
    GetCanvas()->GetBrush()->SetColor(Focused() ? clHighlight : clBtnShadow);
    GetCanvas()->FrameRect(GetClientRect());
}

// ---- square

void color_square::set_value(hsv const &value)
{
    f_value = value;
    Invalidate();
}

void color_square::render()
{
    int const width = GetClientWidth();
    int const height = GetClientHeight();
    if (f_rendered_hue == f_value.h && f_bitmap.GetWidth() == width && f_bitmap.GetHeight() == height)
        return;
    f_bitmap.SetPixelFormat(pf32bit);
    f_bitmap.SetSize(width, height);
    // A row runs from grey to the pure hue, both darkened by the row's value.
    std::array<double, 3> const hue{pure(f_value.h, 2.0 / 3.0), pure(f_value.h, 1.0 / 3.0),
                                    pure(f_value.h, 0.0)};
    for (int y = 0; y < height; ++y) {
        auto *pixel = static_cast<std::uint8_t *>(f_bitmap.ScanLine(y));
        double const v = 255.0 * (1.0 - share(y, height));
        for (int x = 0; x < width; ++x, pixel += 4) {
            double const s = share(x, width);
            for (std::size_t channel = 0; channel < hue.size(); ++channel)
                pixel[channel] = static_cast<std::uint8_t>(v * (1.0 - s + s * hue[channel]) + 0.5);
            pixel[3] = 255;
        }
    }
    f_rendered_hue = f_value.h;
}

void color_square::Paint()
{
    render();
    auto *canvas = GetCanvas();
    canvas->Draw(0, 0, &f_bitmap);
    int const x = pixel_of(f_value.s, GetClientWidth());
    int const y = pixel_of(1.0 - f_value.v, GetClientHeight());
    constexpr int radius = 5;
    canvas->SetSmooth(true);
    canvas->GetBrush()->SetStyle(bsClear);
    for (auto const &[color, size] : {std::pair(clBlack, radius), std::pair(clWhite, radius - 1)}) {
        canvas->GetPen()->SetColor(color);
        canvas->Ellipse(x - size, y - size, x + size + 1, y + size + 1);
    }
    canvas->SetSmooth(false);
    canvas->GetBrush()->SetStyle(bsSolid);
    paint_frame();
}

void color_square::pick_at(int x, int y)
{
    f_value.s = share(x, GetClientWidth());
    f_value.v = 1.0 - share(y, GetClientHeight());
    Invalidate();
    on_pick(this);
}

void color_square::step(int x, int y)
{
    f_value.s = stepped(f_value.s, x);
    f_value.v = stepped(f_value.v, -y);
    Invalidate();
    on_pick(this);
}

// ---- strip

void color_strip::set_value(double value, Tvx_color color)
{
    f_value = value;
    f_color = color;
    Invalidate();
}

void color_strip::Paint()
{
    auto *canvas = GetCanvas();
    int const width = GetClientWidth();
    int const height = GetClientHeight();
    for (int y = 0; y < height; ++y) {
        double const value = 1.0 - share(y, height);
        if (!f_opacity) {
            canvas->GetBrush()->SetColor(plain(to_color({value, 1.0, 1.0})));
            canvas->FillRect(Rect(0, y, width, y + 1));
            continue;
        }
        // The check pattern, row by row under its own opacity.
        Tvx_color color = f_color;
        color.a = static_cast<std::uint8_t>(to_byte(value));
        for (int x = 0; x < width; x += c_check) {
            bool const dark = (x / c_check + y / c_check) % 2;
            canvas->GetBrush()->SetColor(over_ground(color, dark ? c_dark : c_light));
            canvas->FillRect(Rect(x, y, std::min(x + c_check, width), y + 1));
        }
    }
    int const y = pixel_of(1.0 - f_value, height);
    canvas->GetBrush()->SetColor(clBlack);
    canvas->FrameRect(Rect(0, y - 2, width, y + 3));
    canvas->GetBrush()->SetColor(clWhite);
    canvas->FrameRect(Rect(1, y - 1, width - 1, y + 2));
    paint_frame();
}

void color_strip::pick_at(int, int y)
{
    f_value = 1.0 - share(y, GetClientHeight());
    Invalidate();
    on_pick(this);
}

void color_strip::step(int x, int y)
{
    f_value = stepped(f_value, x - y);
    Invalidate();
    on_pick(this);
}

// ---- swatches

std::vector<Tvx_color> color_swatches::fs_recent;

color_swatches::color_swatches(TComponent *owner) : pick_area(owner)
{
    for (int i = 0; i < c_columns; ++i)
        f_colors.push_back(vx_clr_init_grey(i * 255 / (c_columns - 1)));
    for (auto const &[s, v] : {std::pair(1.0, 1.0), std::pair(0.35, 1.0), std::pair(1.0, 0.5)})
        for (int i = 0; i < c_columns; ++i)
            f_colors.push_back(to_color({static_cast<double>(i) / c_columns, s, v}));
    f_colors.insert(f_colors.end(), fs_recent.begin(), fs_recent.end());
}

void color_swatches::remember(Tvx_color color)
{
    std::erase(fs_recent, color);
    fs_recent.insert(fs_recent.begin(), color);
    if (fs_recent.size() > c_columns)
        fs_recent.pop_back();
}

TRect color_swatches::cell(int index) const
{
    int const column = index % c_columns;
    int const row = index / c_columns;
    int const width = GetClientWidth();
    int const height = GetClientHeight();
    return Rect(column * width / c_columns, row * height / c_rows, (column + 1) * width / c_columns,
                (row + 1) * height / c_rows);
}

void color_swatches::Paint()
{
    auto *canvas = GetCanvas();
    for (int i = 0; i < c_columns * c_rows; ++i) {
        TRect rect = cell(i);
        rect.Inflate(-1, -1);
        if (static_cast<std::size_t>(i) < f_colors.size())
            fill_checked(canvas, rect, f_colors[static_cast<std::size_t>(i)]);
        canvas->GetBrush()->SetColor(clBtnShadow);
        canvas->FrameRect(rect);
        if (i == f_current && Focused()) {
            canvas->GetBrush()->SetColor(clHighlight);
            canvas->FrameRect(cell(i));
            canvas->FrameRect(rect);
        }
    }
}

void color_swatches::choose(int index)
{
    f_current = index;
    Invalidate();
    if (static_cast<std::size_t>(index) >= f_colors.size())
        return;
    f_color = f_colors[static_cast<std::size_t>(index)];
    on_pick(this);
}

void color_swatches::pick_at(int x, int y)
{
    if (!GetClientRect().Contains({x, y}))
        return;
    choose(std::min(y * c_rows / GetClientHeight(), c_rows - 1) * c_columns +
           std::min(x * c_columns / GetClientWidth(), c_columns - 1));
}

void color_swatches::step(int x, int y)
{
    // One cell at a time, however large the step.
    int const column = f_current % c_columns + (x > 0) - (x < 0);
    int const row = f_current / c_columns + (y > 0) - (y < 0);
    f_current = std::clamp(row, 0, c_rows - 1) * c_columns + std::clamp(column, 0, c_columns - 1);
    Invalidate();
}

void color_swatches::KeyDown(Word &key, TShiftState shift)
{
    pick_area::KeyDown(key, shift);
    if (key != VK_SPACE)
        return;
    choose(f_current);
    key = 0;
}

bool color_swatches::WantsKey(Word key, TShiftState shift) const
{
    return key == VK_SPACE || pick_area::WantsKey(key, shift);
}
} // namespace vx::dialogs
