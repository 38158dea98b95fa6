#pragma once

#include "platform/toolkit/core/custom_control.h"

#include <vector>

class TChart;

/// An axis of a chart: an interval of values along one side of the chart's area.
class VX_API TChartAxis
{
public:
    /// The interval that is seen; after a zoom a part of the whole.
    [[nodiscard]] double GetMinimum() const;
    [[nodiscard]] double GetMaximum() const;
    /// Shows this interval until the chart is zoomed back or its series change. An empty or reversed interval
    /// and numbers that are not finite are ignored.
    void SetMinMax(double minimum, double maximum);
    /// Pixel of the chart's client area for a value: its column on the bottom axis, its row on the left one.
    /// Values outside the interval have a pixel outside the chart's area, within ten thousand pixels.
    [[nodiscard]] int CalcPosValue(double value) const;
    /// The value at a pixel: the reverse of `CalcPosValue`.
    [[nodiscard]] double CalcPosPoint(int pixel) const;
    [[nodiscard]] bool GetLogarithmic() const { return f_logarithmic; }
    /// Equal distances for equal factors, not at first; for the left axis only. Fitted to the series it
    /// begins at half of the least value above 0; what is not above 0 lies before its beginning.
    void SetLogarithmic(bool value);

private:
    friend class TChart;
    TChartAxis(TChart *chart, bool horizontal) : f_chart(chart), f_horizontal(horizontal) {}
    /// The value as the axis measures it out.
    [[nodiscard]] double scaled(double value) const;

    TChart *f_chart;
    bool f_horizontal;
    bool f_logarithmic = false;
    double f_minimum = 0.0;
    double f_maximum = 1.0;
};

/// Bars that stand on zero, each at its x value. All bars have one width: 7 tenths of the usual distance (the
/// median) between two of them, or all of it where that is a few pixels.
class VX_API TBarSeries
{
public:
    struct bar
    {
        double x;
        double y;
        UnicodeString label;
        TColor color;
    };

    [[nodiscard]] int GetCount() const { return static_cast<int>(f_bars.size()); }
    /// From 0.
    [[nodiscard]] bar const &GetBar(int index) const { return f_bars.at(static_cast<std::size_t>(index)); }
    void Clear();
    /// Adds a bar and gives its place. The label is shown below the bar where labels are given; values that
    /// are not finite are left out, with -1.
    int AddXY(double x, double y, UnicodeString const &label, TColor color);

private:
    friend class TChart;
    explicit TBarSeries(TChart *chart) : f_chart(chart) {}

    TChart *f_chart;
    std::vector<bar> f_bars;
};

/// A chart of bars over a bottom and beside a left axis, both with scales in round numbers.
///
/// The axes follow the series: the bottom one holds all x values, with half a bar more at each side while
/// `SideMargins` is on, the left one runs from 0 to the highest bar. A drag of the left button to the right
/// and down zooms in on the rectangle, one to the left zooms back. The chart takes the focus and reports
/// keys.
class VX_API TChart : public TCustomControl
{
public:
    explicit TChart(TComponent *owner);
    ~TChart() override;

    [[nodiscard]] TChartAxis *GetBottomAxis() { return &f_bottom_axis; }
    [[nodiscard]] TChartAxis *GetLeftAxis() { return &f_left_axis; }
    /// The series belongs to the chart.
    [[nodiscard]] TBarSeries *GetSeries() { return &f_series; }
    /// The area between the axes, in the client area.
    [[nodiscard]] TRect GetChartRect();
    [[nodiscard]] bool GetAllowZoom() const { return f_allow_zoom; }
    /// Whether the mouse zooms; it does at first. False gives up a zoom that is being drawn.
    void SetAllowZoom(bool value);
    [[nodiscard]] bool GetZoomed() const { return f_zoomed; }
    /// Shows all of the series again.
    void UndoZoom();
    [[nodiscard]] bool GetSideMargins() const { return f_side_margins; }
    void SetSideMargins(bool value);
    /// Has the pixels of these columns drawn anew, over the whole height.
    void InvalidateColumns(int left, int right);

    /// Between bars and frame, for what is drawn over the bars; the canvas is clipped to the chart's area.
    TNotifyEvent OnAfterDraw;
    /// The interval of the axes was changed by the mouse.
    TNotifyEvent OnZoom;
    TNotifyEvent OnUndoZoom;

protected:
    void Paint() override;
    void Resize() override;
    void FontChanged() override;
    void CreateWnd() override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void DoEnter() override;
    void DoExit() override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;

private:
    friend class TChartAxis;
    friend class TBarSeries;

    void series_changed();
    void settle();
    void fit_axes();
    void place_area();
    [[nodiscard]] bool has_labels() const;
    void paint_bars();
    void paint_left_scale();
    void paint_bottom_scale();
    void end_zoom(int x, int y);

    TBarSeries f_series{this};
    TChartAxis f_bottom_axis{this, true};
    TChartAxis f_left_axis{this, false};
    TRect f_chart_rect;
    TRect f_zoom_rect;        ///< from the press to the pointer
    double f_bar_width = 1.0; ///< in values of the bottom axis
    bool f_settled = false;   ///< axes and area follow the series and the size
    bool f_fitted = false;    ///< the axes follow the series
    bool f_zooming = false;
    bool f_zoomed = false;
    bool f_allow_zoom = true;
    bool f_side_margins = true;
};
