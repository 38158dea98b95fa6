#include "controls/prop/histogram_panel.h"

#include "captions/prop.h"

#include "platform/basic/vx_histogram.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace {
constexpr int c_mark_width = 3;
constexpr int c_key_mark_size = 9; // of the square on the mark that the keys move
constexpr TColor c_bar_color = 0x00FF0000;
constexpr TColor c_mark_color = 0x000000FF;
constexpr double c_no_total = 1e-6;
constexpr double c_key_part = 0.01; // of the axis, for one press of an arrow key

/// As many digits as tell values apart that lie `step` from each other.
std::wstring number_text(double value, double step)
{
    if (!std::isfinite(value) || !(step > 0.0) || !std::isfinite(step))
        return UnicodeString(value).str();
    double const largest = std::max(std::abs(value), step);
    double const digits = std::ceil(std::log10(largest / step)) + 1;
    char text[40];
    auto const end =
        std::to_chars(text, text + sizeof text, std::abs(value) < step * 1e-6 ? 0.0 : value,
                      std::chars_format::general, static_cast<int>(std::clamp(digits, 1.0, 15.0)));
    return {text, end.ptr};
}
} // namespace

Tvx_histogram_panel::Tvx_histogram_panel(TComponent *owner, int grip) : Tvx_panel(owner), f_grip(grip)
{
}

void Tvx_histogram_panel::create()
{
    f_menu = new Tvx_popup_menu(this);
    TNotifyEvent const clicks[] = {make_closure<&Tvx_histogram_panel::on_menu1_click>(this),
                                   make_closure<&Tvx_histogram_panel::on_menu2_click>(this),
                                   make_closure<&Tvx_histogram_panel::on_menu3_click>(this)};
    for (TNotifyEvent const &click : clicks) {
        auto *item = new Tvx_menu_item(this);
        item->OnClick = click;
        f_menu->GetItems()->Add(item);
    }
    f_chart = vx_new_on<TChart>(this, this);
    f_chart->SetAlign(alClient);
    f_chart->SetSideMargins(true);
    f_chart->SetPopupMenu(f_menu);
    f_chart->SetShowHint(true);
    f_chart->GetLeftAxis()->SetLogarithmic(f_log_height);
    f_chart->OnAfterDraw = make_closure<&Tvx_histogram_panel::on_chart_after_draw>(this);
    f_chart->OnMouseDown = make_closure<&Tvx_histogram_panel::on_chart_mouse_down>(this);
    f_chart->OnMouseMove = make_closure<&Tvx_histogram_panel::on_chart_mouse_move>(this);
    f_chart->OnMouseUp = make_closure<&Tvx_histogram_panel::on_chart_mouse_up>(this);
    f_chart->OnKeyDown = make_closure<&Tvx_histogram_panel::on_chart_key_down>(this);
    f_series = f_chart->GetSeries();
    load_res();
}

void Tvx_histogram_panel::load_res()
{
    if (!f_chart)
        return;
    for (int i = 0; i < f_menu->GetItems()->GetCount(); ++i)
        f_menu->GetItems()->GetItems(i)->SetCaption(vx_res_get_wstr(c_caption_histogram_menu_1 + i));
    f_chart->SetAccessibleName(vx_res_get_wstr(c_caption_histogram));
}

void Tvx_histogram_panel::update_controls()
{
    if (!f_series)
        return;
    f_series->Clear();
    unsigned const size = vx_histogramm_get_size(f_histogramm);
    double total = 0.0;
    for (unsigned i = 0; i < size; ++i)
        total += vx_histogramm_get(f_histogramm, i);
    f_total = total;
    if (size > 0) {
        double const min0 = vx_histogramm_get_bnd_min(f_histogramm, 0);
        double const max0 = vx_histogramm_get_bnd_max(f_histogramm, 0);
        // One bin has no second one; it counts as a bin of the same width.
        double const max1 = size > 1 ? vx_histogramm_get_bnd_max(f_histogramm, 1) : max0 + (max0 - min0);
        f_series->AddXY(0.5 * (max0 + min0 + max0 - max1), 0.0, {}, c_bar_color);
    }
    for (unsigned i = 0; i < size; ++i) {
        double const middle =
            (vx_histogramm_get_bnd_min(f_histogramm, i) + vx_histogramm_get_bnd_max(f_histogramm, i)) * 0.5;
        double const count = vx_histogramm_get(f_histogramm, i);
        f_series->AddXY(middle, std::abs(total) > c_no_total ? count / total : count, {}, c_bar_color);
    }
    repaint();
}

void Tvx_histogram_panel::repaint()
{
    if (f_chart)
        f_chart->Invalidate();
}

void Tvx_histogram_panel::repaint_mark(double value)
{
    if (!f_chart)
        return;
    int const x = f_chart->GetBottomAxis()->CalcPosValue(value);
    f_chart->InvalidateColumns(x - c_key_mark_size, x + c_key_mark_size + 1);
}

/// The rest of the chart stays as it is drawn.
void Tvx_histogram_panel::set_val(double &kept, double value)
{
    if (value == kept)
        return;
    repaint_mark(kept);
    kept = value;
    repaint_mark(kept);
}

void Tvx_histogram_panel::set_val1(double value)
{
    set_val(f_val1, value);
}

void Tvx_histogram_panel::set_val2(double value)
{
    set_val(f_val2, value);
}

void Tvx_histogram_panel::set_log_height(bool value)
{
    f_log_height = value;
    if (f_chart)
        f_chart->GetLeftAxis()->SetLogarithmic(value);
}

UnicodeString Tvx_histogram_panel::hint_at(double value) const
{
    unsigned size = 0;
    double low = 0.0;
    double high = 0.0;
    vx_histogramm_get_params(f_histogramm, &size, &low, &high);
    if (size == 0 || !(value >= low && value <= high))
        return {};
    bool const is_finite = std::isfinite(high - low); // the difference of two doubles need not be
    double const width = is_finite ? (high - low) / size : high / size - low / size;
    double const way = is_finite ? (value - low) / width : value / width - low / width;
    double const place = width > 0.0 ? std::floor(way) : 0.0;
    unsigned const bin = static_cast<unsigned>(std::clamp(place, 0.0, size - 1.0));
    double const share =
        std::abs(f_total) > c_no_total ? vx_histogramm_get(f_histogramm, bin) / f_total : 0.0;
    double const first = vx_histogramm_get_bnd_min(f_histogramm, bin);
    double const last = vx_histogramm_get_bnd_max(f_histogramm, bin);
    double const percent = share * 100.0;
    return vx_res_format_w(c_caption_histogram_hint,
                           {number_text(value, width), number_text(percent, std::abs(percent) * 0.005),
                            number_text(first, width), number_text(last, width)});
}

void Tvx_histogram_panel::show_hint(int x, int y)
{
    UnicodeString const hint = f_chart->GetChartRect().Contains({x, y})
                                   ? hint_at(f_chart->GetBottomAxis()->CalcPosPoint(x))
                                   : UnicodeString();
    if (hint == f_chart->GetHint())
        return;
    f_chart->SetHint(hint);
    Application->ActivateHint(f_chart->ClientToScreen({x, y}));
}

void Tvx_histogram_panel::on_chart_after_draw(TObject * /*sender*/)
{
    TChartAxis const &axis = *f_chart->GetBottomAxis();
    TRect const area = f_chart->GetChartRect();
    TCanvas *const canvas = f_chart->GetCanvas();
    canvas->GetPen()->SetColor(c_mark_color);
    canvas->GetPen()->SetWidth(c_mark_width);
    canvas->GetPen()->SetStyle(psSolid);
    auto const draw = [&](mark &line, double value) {
        line.shown = value >= axis.GetMinimum() && value <= axis.GetMaximum();
        if (!line.shown)
            return;
        line.x = axis.CalcPosValue(value);
        canvas->MoveTo(line.x, area.Top);
        canvas->LineTo(line.x, area.Bottom);
    };
    draw(f_mark1, f_val1);
    draw(f_mark2, f_val2);
    canvas->GetPen()->SetWidth(1);
    mark const &key_mark = f_key_mark == 1 ? f_mark1 : f_mark2;
    if (!key_mark.shown || !f_chart->Focused())
        return;
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(c_mark_color);
    int const left = key_mark.x - c_key_mark_size / 2;
    canvas->FillRect(Rect(left, area.Top, left + c_key_mark_size, area.Top + c_key_mark_size));
}

int Tvx_histogram_panel::mark_at(int x) const
{
    if (f_mark1.shown && std::abs(x - f_mark1.x) <= f_grip)
        return 1;
    return f_mark2.shown && std::abs(x - f_mark2.x) <= f_grip ? 2 : 0;
}

void Tvx_histogram_panel::on_chart_mouse_down(TObject * /*sender*/, TMouseButton button,
                                              TShiftState /*shift*/, int x, int /*y*/)
{
    if (button != mbLeft)
        return;
    f_drag = mark_at(x);
    if (f_drag != 0)
        f_key_mark = f_drag;
    f_chart->SetHint({});
    Application->CancelHint();
    f_chart->SetAllowZoom(f_drag == 0);
}

void Tvx_histogram_panel::on_chart_mouse_move(TObject * /*sender*/, TShiftState shift, int x, int y)
{
    // The release may have gone elsewhere, to a menu or a message.
    if (!shift.Contains(ssLeft))
        f_drag = 0;
    if (f_drag == 0) {
        f_chart->SetCursor(mark_at(x) != 0 ? crSizeWE : crDefault);
        if (!shift.Contains(ssLeft))
            show_hint(x, y);
        return;
    }
    // A mark that left the axis could not be taken again.
    TRect const area = f_chart->GetChartRect();
    int const column = std::clamp(x, area.Left, std::max(area.Left, area.Right - 1));
    move_mark(f_drag, f_chart->GetBottomAxis()->CalcPosPoint(column));
}

void Tvx_histogram_panel::on_chart_mouse_up(TObject * /*sender*/, TMouseButton button, TShiftState /*shift*/,
                                            int /*x*/, int /*y*/)
{
    if (button != mbLeft)
        return;
    f_drag = 0;
    repaint();
}

void Tvx_histogram_panel::on_chart_key_down(TObject * /*sender*/, Word &key, TShiftState shift)
{
    if (key == VK_UP || key == VK_DOWN) {
        f_key_mark = key == VK_UP ? 1 : 2;
        repaint();
        key = 0;
        return;
    }
    if (key != VK_LEFT && key != VK_RIGHT)
        return;
    TChartAxis const &axis = *f_chart->GetBottomAxis();
    double const span = axis.GetMaximum() - axis.GetMinimum();
    double const step =
        shift.Contains(ssCtrl) ? span / std::max(f_chart->GetChartRect().Width() - 1, 1) : span * c_key_part;
    double const value = f_key_mark == 1 ? f_val1 : f_val2;
    double const moved =
        std::clamp(key == VK_LEFT ? value - step : value + step, axis.GetMinimum(), axis.GetMaximum());
    key = 0;
    if (moved != value && !std::isnan(moved))
        move_mark(f_key_mark, moved);
}

void Tvx_histogram_panel::move_mark(int number, double value)
{
    if (number == 1) {
        set_val1(value);
        on_val1_changed(this, value);
    } else {
        set_val2(value);
        on_val2_changed(this, value);
    }
}

void Tvx_histogram_panel::on_menu1_click(TObject * /*sender*/)
{
    on_menu1(this);
    repaint();
}

void Tvx_histogram_panel::on_menu2_click(TObject * /*sender*/)
{
    on_menu2(this);
    repaint();
}

void Tvx_histogram_panel::on_menu3_click(TObject * /*sender*/)
{
    on_menu3(this);
    repaint();
}
