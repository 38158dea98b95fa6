#include "platform/toolkit/controls/chart.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtWidgets/QWidget>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

namespace {
constexpr int c_far = 10000;          // pixels: as far outside as a position is told
constexpr int c_edge = 8;             // free room round the chart
constexpr int c_tick = 4;             // length of a mark at an axis
constexpr int c_gap = 3;              // between a mark and its number
constexpr int c_tick_distance_x = 48; // between two numbers, at least
constexpr int c_tick_distance_y = 28;
constexpr int c_min_zoom = 4; // a smaller rectangle is a click
constexpr double c_bar_part = 0.7;
constexpr int c_narrow_bar = 5; // pixels from bar to bar; nearer ones touch
constexpr TColor c_grid_color = RGB(0xE4, 0xE4, 0xE4);
constexpr TColor c_axis_color = RGB(0x80, 0x80, 0x80);

/// A step of 1, 2 or 5 times a power of ten, at least `least`.
double round_step(double least)
{
    if (!(least > 0.0) || !std::isfinite(least))
        return 1.0;
    double const power = std::pow(10.0, std::floor(std::log10(least)));
    for (double const factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1.0 - 1e-9))
            return factor * power;
    return 10.0 * power;
}

UnicodeString number_text(double value, double step)
{
    // What is nothing beside the step is a rounding error of the multiplication.
    if (std::abs(value) < step * 1e-6)
        value = 0.0;
    char text[40];
    auto const end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6);
    return UnicodeString(std::string_view(text, static_cast<std::size_t>(end.ptr - text)));
}

/// The same for an axis of factors: powers of ten, and twice and five times them where there is room.
template <class F>
void for_each_power(double low, double high, int pixels, int distance, F visit)
{
    double const decades = std::log10(high / low);
    if (!(decades > 0.0) || !std::isfinite(decades))
        return;
    double const room = pixels / decades;
    bool const is_wide = room > 3.5 * distance;
    int const stride = std::max(1, static_cast<int>(std::ceil(distance / room)));
    int const last = static_cast<int>(std::floor(std::log10(high) + 1e-9));
    for (int power = static_cast<int>(std::floor(std::log10(low))); power <= last; ++power) {
        if (power % stride != 0)
            continue;
        for (double const factor : {1.0, 2.0, 5.0}) {
            double const value = factor * std::pow(10.0, power);
            if (value >= low && value <= high * (1 + 1e-9) && (is_wide || factor == 1.0))
                visit(value, value);
        }
    }
}

/// Calls `visit` with the round values of an axis.
template <class F>
void for_each_tick(TChartAxis const &axis, int pixels, int distance, F visit)
{
    double const low = axis.GetMinimum();
    double const high = axis.GetMaximum();
    if (axis.GetLogarithmic())
        return for_each_power(low, high, pixels, distance, visit);
    double const step = round_step((high - low) * distance / std::max(pixels, distance));
    double const first = std::ceil(low / step - 1e-9);
    int const count = static_cast<int>(std::min(std::floor(high / step + 1e-9) - first, 1000.0));
    for (int i = 0; i <= count; ++i)
        visit((first + i) * step, step);
}

bool is_span(double minimum, double maximum)
{
    return std::isfinite(minimum) && std::isfinite(maximum) && std::isfinite(maximum - minimum) &&
           minimum < maximum;
}
} // namespace

double TChartAxis::GetMinimum() const
{
    f_chart->settle();
    return f_minimum;
}

double TChartAxis::GetMaximum() const
{
    f_chart->settle();
    return f_maximum;
}

void TChartAxis::SetMinMax(double minimum, double maximum)
{
    if (!is_span(minimum, maximum) || (f_logarithmic && !(minimum > 0.0)))
        return;
    f_chart->settle();
    f_minimum = minimum;
    f_maximum = maximum;
    f_chart->f_zoomed = true;
    f_chart->f_settled = false;
    f_chart->Invalidate();
}

void TChartAxis::SetLogarithmic(bool value)
{
    if (value == f_logarithmic || f_horizontal)
        return;
    f_logarithmic = value;
    f_chart->series_changed();
}

double TChartAxis::scaled(double value) const
{
    return f_logarithmic ? std::log(value) : value;
}

int TChartAxis::CalcPosValue(double value) const
{
    f_chart->settle();
    TRect const &area = f_chart->f_chart_rect;
    int const room = (f_horizontal ? area.Width() : area.Height()) - 1;
    double const low = scaled(f_minimum);
    double const part = (scaled(value) - low) / (scaled(f_maximum) - low);
    double const pixels = std::isnan(part) ? -c_far : std::clamp<double>(part * room, -c_far, c_far);
    int const offset = static_cast<int>(std::lround(pixels));
    return f_horizontal ? area.Left + offset : area.Bottom - 1 - offset;
}

double TChartAxis::CalcPosPoint(int pixel) const
{
    f_chart->settle();
    TRect const &area = f_chart->f_chart_rect;
    int const room = std::max((f_horizontal ? area.Width() : area.Height()) - 1, 1);
    int const offset = f_horizontal ? pixel - area.Left : area.Bottom - 1 - pixel;
    double const low = scaled(f_minimum);
    double const value = low + (scaled(f_maximum) - low) * offset / room;
    return f_logarithmic ? std::exp(value) : value;
}

void TBarSeries::Clear()
{
    f_bars.clear();
    f_chart->series_changed();
}

int TBarSeries::AddXY(double x, double y, UnicodeString const &label, TColor color)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return -1;
    f_bars.push_back({x, y, label, color});
    f_chart->series_changed();
    return GetCount() - 1;
}

TChart::TChart(TComponent *owner) : TCustomControl(owner)
{
    SetTabStop(true);
    SetBounds(0, 0, 400, 250);
}

TChart::~TChart() = default;

void TChart::SetAllowZoom(bool value)
{
    f_allow_zoom = value;
    if (!value && f_zooming) {
        f_zooming = false;
        Invalidate();
    }
}

void TChart::SetSideMargins(bool value)
{
    f_side_margins = value;
    series_changed();
}

void TChart::InvalidateColumns(int left, int right)
{
    vx_qt_widget(this)->update(left, 0, right - left, GetClientHeight());
}

TRect TChart::GetChartRect()
{
    settle();
    return f_chart_rect;
}

void TChart::UndoZoom()
{
    if (f_zoomed)
        series_changed();
}

void TChart::series_changed()
{
    f_zoomed = f_fitted = f_settled = false;
    Invalidate();
}

void TChart::settle()
{
    if (f_settled)
        return;
    // Numbers at the axes are measured while the area is placed.
    f_settled = true;
    if (!f_fitted)
        fit_axes();
    place_area();
}

void TChart::fit_axes()
{
    f_fitted = true;
    std::vector<double> places;
    double high = 0.0;
    double low = 0.0;
    for (TBarSeries::bar const &bar : f_series.f_bars) {
        places.push_back(bar.x);
        high = std::max(high, bar.y);
        low = std::min(low, bar.y);
    }
    std::ranges::sort(places);
    // The usual distance: one bar that stands closer does not make all of them thin.
    std::vector<double> distances;
    for (std::size_t i = 1; i < places.size(); ++i)
        if (places[i] > places[i - 1])
            distances.push_back(places[i] - places[i - 1]);
    double distance = 1.0;
    if (!distances.empty()) {
        auto const middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
        std::ranges::nth_element(distances, middle);
        distance = *middle;
    }
    f_bar_width = distance * c_bar_part;
    double const margin =
        f_side_margins || places.empty() || places.front() == places.back() ? distance / 2 : 0;
    double const first = places.empty() ? 0.0 : places.front() - margin;
    double const last = places.empty() ? 1.0 : places.back() + margin;
    bool const whole = is_span(first, last);
    f_bottom_axis.f_minimum = whole ? first : 0.0;
    f_bottom_axis.f_maximum = whole ? last : 1.0;
    if (f_left_axis.f_logarithmic) {
        low = high;
        for (TBarSeries::bar const &bar : f_series.f_bars)
            if (bar.y > 0.0)
                low = std::min(low, bar.y);
        low /= 2;
        if (!(low > 0.0)) { // nothing has a height
            low = 0.1;
            high = 1.0;
        }
    }
    bool const risen = is_span(low, high);
    f_left_axis.f_minimum = risen ? low : 0.0;
    f_left_axis.f_maximum = risen ? high : 1.0;
}

bool TChart::has_labels() const
{
    return std::ranges::any_of(f_series.f_bars, [](auto const &bar) { return !bar.label.IsEmpty(); });
}

void TChart::place_area()
{
    TCanvas const *const canvas = GetCanvas();
    int const line = canvas->TextHeight(L"0");
    TRect area = GetClientRect();
    area.Inflate(-c_edge, -c_edge);
    area.Bottom -= line + c_tick + c_gap;
    int widest = 0;
    for_each_tick(f_left_axis, area.Height(), c_tick_distance_y, [&](double value, double step) {
        widest = std::max(widest, canvas->TextWidth(number_text(value, step)));
    });
    area.Left += widest + c_tick + c_gap;
    area.Right = std::max(area.Right, area.Left + 2);
    area.Bottom = std::max(area.Bottom, area.Top + 2);
    f_chart_rect = area;
}

void TChart::Resize()
{
    auto const life = Life();
    TCustomControl::Resize();
    if (life.expired())
        return;
    f_settled = false;
    Invalidate();
}

void TChart::FontChanged()
{
    TCustomControl::FontChanged();
    f_settled = false;
}

void TChart::CreateWnd()
{
    TCustomControl::CreateWnd();
    f_settled = false;
}

void TChart::Paint()
{
    settle();
    TCanvas *const canvas = GetCanvas();
    canvas->SetFont(GetFont());
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(clWindow);
    canvas->FillRect(f_chart_rect);
    canvas->GetPen()->SetWidth(1);
    canvas->GetPen()->SetStyle(psSolid);
    paint_left_scale();
    paint_bottom_scale();
    canvas->SaveState();
    canvas->IntersectClipRect(f_chart_rect);
    paint_bars();
    OnAfterDraw(this);
    canvas->RestoreState();
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(c_axis_color);
    TRect frame = f_chart_rect;
    frame.Inflate(1, 1);
    canvas->FrameRect(frame);
    if (f_zooming) {
        TRect rect = f_zoom_rect;
        if (rect.Left > rect.Right)
            std::swap(rect.Left, rect.Right);
        if (rect.Top > rect.Bottom)
            std::swap(rect.Top, rect.Bottom);
        canvas->GetBrush()->SetColor(clHighlight);
        canvas->FrameRect(rect);
    }
    if (Focused())
        canvas->DrawFocusRect(GetClientRect());
}

void TChart::paint_bars()
{
    TCanvas *const canvas = GetCanvas();
    int const zero = f_left_axis.CalcPosValue(0.0);
    // Gaps of a pixel between narrow bars would make a pattern of their own.
    double const distance = f_bar_width / c_bar_part;
    double const in_view = (f_bottom_axis.f_maximum - f_bottom_axis.f_minimum) / distance;
    double const width = f_chart_rect.Width() < c_narrow_bar * in_view ? distance : f_bar_width;
    TRect const wanted = canvas->GetClipRect();
    for (TBarSeries::bar const &bar : f_series.f_bars) {
        int const left = f_bottom_axis.CalcPosValue(bar.x - width / 2);
        int const right = f_bottom_axis.CalcPosValue(bar.x + width / 2);
        if (right < wanted.Left || left >= wanted.Right)
            continue;
        int const top = f_left_axis.CalcPosValue(bar.y);
        canvas->GetBrush()->SetColor(bar.color);
        // The lower edge lies on the axis; a bar is never thinner than a pixel.
        canvas->FillRect(Rect(left, std::min(top, zero), std::max(right, left + 1), std::max(top, zero)));
    }
}

void TChart::paint_left_scale()
{
    TCanvas *const canvas = GetCanvas();
    TRect const wanted = canvas->GetClipRect();
    for_each_tick(f_left_axis, f_chart_rect.Height(), c_tick_distance_y, [&](double value, double step) {
        int const y = f_left_axis.CalcPosValue(value);
        canvas->GetPen()->SetColor(c_grid_color);
        canvas->MoveTo(f_chart_rect.Left, y);
        canvas->LineTo(f_chart_rect.Right, y);
        canvas->GetPen()->SetColor(c_axis_color);
        canvas->MoveTo(f_chart_rect.Left - c_tick, y);
        canvas->LineTo(f_chart_rect.Left, y);
        if (wanted.Left >= f_chart_rect.Left)
            return;
        UnicodeString const text = number_text(value, step);
        TSize const size = canvas->TextExtent(text);
        canvas->GetBrush()->SetStyle(bsClear);
        canvas->TextOut(f_chart_rect.Left - c_tick - c_gap - size.cx, y - size.cy / 2, text);
    });
    canvas->GetBrush()->SetStyle(bsSolid);
}

void TChart::paint_bottom_scale()
{
    TCanvas *const canvas = GetCanvas();
    canvas->GetBrush()->SetStyle(bsClear);
    TRect const wanted = canvas->GetClipRect();
    int free_from = 0; // numbers do not run into each other
    auto const put = [&](double value, UnicodeString const &text) {
        int const x = f_bottom_axis.CalcPosValue(value);
        if (x < f_chart_rect.Left || x >= f_chart_rect.Right)
            return;
        canvas->GetPen()->SetColor(c_axis_color);
        canvas->MoveTo(x, f_chart_rect.Bottom);
        canvas->LineTo(x, f_chart_rect.Bottom + c_tick);
        int const width = canvas->TextWidth(text);
        int const left = std::clamp(x - width / 2, 0, std::max(GetClientWidth() - width, 0));
        if (left < free_from)
            return;
        if (left < wanted.Right && left + width > wanted.Left)
            canvas->TextOut(left, f_chart_rect.Bottom + c_tick + c_gap, text);
        free_from = left + width + c_gap;
    };
    if (has_labels())
        for (TBarSeries::bar const &bar : f_series.f_bars)
            put(bar.x, bar.label);
    else
        for_each_tick(f_bottom_axis, f_chart_rect.Width(), c_tick_distance_x,
                      [&](double value, double step) { put(value, number_text(value, step)); });
    canvas->GetBrush()->SetStyle(bsSolid);
}

void TChart::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    SetFocus();
    // The handler says whether this press may zoom.
    TCustomControl::MouseDown(button, shift, x, y);
    if (button != mbLeft || !f_allow_zoom || !GetChartRect().Contains({x, y}))
        return;
    f_zooming = true;
    f_zoom_rect = Rect(x, y, x, y);
}

void TChart::MouseMove(TShiftState shift, int x, int y)
{
    auto const life = Life();
    TCustomControl::MouseMove(shift, x, y);
    if (life.expired())
        return;
    if (!f_zooming)
        return;
    f_zoom_rect.Right = std::clamp(x, f_chart_rect.Left, f_chart_rect.Right);
    f_zoom_rect.Bottom = std::clamp(y, f_chart_rect.Top, f_chart_rect.Bottom);
    Invalidate();
}

void TChart::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    auto const life = Life();
    TCustomControl::MouseUp(button, shift, x, y);
    if (life.expired())
        return;
    if (button == mbLeft && f_zooming)
        end_zoom(x, y);
}

void TChart::end_zoom(int x, int y)
{
    f_zooming = false;
    Invalidate();
    TRect const rect = f_zoom_rect;
    if (std::abs(x - rect.Left) < c_min_zoom || std::abs(y - rect.Top) < c_min_zoom)
        return;
    if (x < rect.Left) {
        UndoZoom();
        OnUndoZoom(this);
        return;
    }
    double const left = f_bottom_axis.CalcPosPoint(rect.Left);
    double const right = f_bottom_axis.CalcPosPoint(rect.Right);
    double const top = f_left_axis.CalcPosPoint(std::min(rect.Top, rect.Bottom));
    double const bottom = f_left_axis.CalcPosPoint(std::max(rect.Top, rect.Bottom));
    f_bottom_axis.SetMinMax(left, right);
    f_left_axis.SetMinMax(bottom, top);
    OnZoom(this);
}

void TChart::DoEnter()
{
    auto const life = Life();
    TCustomControl::DoEnter();
    if (life.expired())
        return;
    Invalidate();
}

void TChart::DoExit()
{
    auto const life = Life();
    TCustomControl::DoExit();
    if (life.expired())
        return;
    Invalidate();
}

bool TChart::WantsKey(Word key, TShiftState shift) const
{
    return key == VK_LEFT || key == VK_RIGHT || key == VK_UP || key == VK_DOWN ||
           TCustomControl::WantsKey(key, shift);
}
