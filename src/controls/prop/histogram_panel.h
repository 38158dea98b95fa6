#pragma once

#include "controls/forms/menus.h"
#include "controls/forms/panels.h"

#include "platform/toolkit/controls/chart.h"

struct Tvx_histogramm_data;

/// A bar chart of a histogram with two marks that the user drags; `create` makes the children, once.
///
/// The marks stand at two values of the bottom axis; one outside of it is not drawn and cannot be taken. By
/// keyboard Left and Right move a mark by a hundredth of the axis, with Ctrl by a pixel, Up and Down change
/// between the marks, and the menu key opens the menu. While the chart has the focus the mark that the keys
/// move carries a square. A hint tells the value under the pointer and the share of its bin.
class VX_API Tvx_histogram_panel : public Tvx_panel
{
public:
    using Tvx_value_event = closure<void(TObject *sender, double value)>;

    explicit Tvx_histogram_panel(TComponent *owner) : Tvx_histogram_panel(owner, c_grip) {}

    /// Makes the children.
    virtual void create();
    virtual void load_res();
    /// Shows the histogram's bins: each as its share of the whole, or by its count if the whole is 0.
    void update_controls();

    [[nodiscard]] Tvx_histogramm_data const *get_histogramm() const { return f_histogramm; }
    /// The histogram stays the caller's; it is read at `update_controls`. Null shows nothing.
    void set_histogramm(Tvx_histogramm_data const *histogramm) { f_histogramm = histogramm; }
    [[nodiscard]] double get_val1() const { return f_val1; }
    /// Moves the mark; fires nothing.
    void set_val1(double value);
    [[nodiscard]] double get_val2() const { return f_val2; }
    void set_val2(double value);
    [[nodiscard]] bool get_log_height() const { return f_log_height; }
    /// Whether the heights of the bars are seen by their factors, so that rare values show beside frequent
    /// ones; not at first.
    void set_log_height(bool value);

    /// Null before `create`.
    [[nodiscard]] TChart *get_chart() const { return f_chart; }
    [[nodiscard]] Tvx_popup_menu *get_menu() const { return f_menu; }

    /// The user moved a mark to `value`, which the mark has taken already; the handler may set another one.
    Tvx_value_event on_val1_changed;
    Tvx_value_event on_val2_changed;
    /// The three lines of the menu.
    TNotifyEvent on_menu1;
    TNotifyEvent on_menu2;
    TNotifyEvent on_menu3;

protected:
    static constexpr int c_grip = 3;
    /// `grip`: pixels on either side of a mark where it can be taken.
    Tvx_histogram_panel(TComponent *owner, int grip);

    void repaint();

private:
    struct mark
    {
        bool shown = false;
        int x = 0; ///< pixel column of the chart while shown
    };

    void on_chart_after_draw(TObject *sender);
    void on_chart_mouse_down(TObject *sender, TMouseButton button, TShiftState shift, int x, int y);
    void on_chart_mouse_move(TObject *sender, TShiftState shift, int x, int y);
    void on_chart_mouse_up(TObject *sender, TMouseButton button, TShiftState shift, int x, int y);
    void on_chart_key_down(TObject *sender, Word &key, TShiftState shift);
    void on_menu1_click(TObject *sender);
    void on_menu2_click(TObject *sender);
    void on_menu3_click(TObject *sender);
    /// 1 or 2 for the mark at a pixel column, 0 for none; where both are, the first.
    [[nodiscard]] int mark_at(int x) const;
    void move_mark(int number, double value);
    void set_val(double &kept, double value);
    /// Has the columns of a mark drawn anew.
    void repaint_mark(double value);
    void show_hint(int x, int y);
    [[nodiscard]] UnicodeString hint_at(double value) const;

    Tvx_histogramm_data const *f_histogramm = nullptr;
    TChart *f_chart = nullptr;
    TBarSeries *f_series = nullptr;
    Tvx_popup_menu *f_menu = nullptr;
    mark f_mark1;
    mark f_mark2;
    int f_grip;
    bool f_log_height = false;
    double f_total = 0.0; ///< of all bins shown
    double f_val1 = 0.0;
    double f_val2 = 0.0;
    int f_drag = 0;     ///< 0 none, 1 or 2: the mark being dragged
    int f_key_mark = 1; ///< the mark that the keys move
};
