#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/grids/custom_grid_priv.h"

#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace {
constexpr int c_scroll_interval = 60; ///< milliseconds between steps while the mouse is held outside
}

/// The bars are children of the grid's widget and end with it, so they are only watched here.
struct TCustomGrid::native::parts
{
    QPointer<QScrollBar> horz;
    QPointer<QScrollBar> vert;
    QTimer timer;
};

TCustomGrid::native::native(TCustomGrid *grid) : p(std::make_unique<parts>())
{
    auto *widget = vx_qt_widget(grid);
    auto const make = [&](Qt::Orientation orientation, auto moved) {
        auto *bar = new QScrollBar(orientation, widget);
        bar->setCursor(Qt::ArrowCursor);
        bar->hide();
        // The link takes the mouse of all that lies in a control that draws itself; a bar needs it for
        // itself.
        bar->removeEventFilter(grid->Link());
        QObject::connect(bar, &QScrollBar::valueChanged, &p->timer, moved);
        return bar;
    };
    p->horz = make(Qt::Horizontal, [grid](int value) {
        if (!grid->f_updating_bars)
            vx_guarded([&] { grid->SetLeftCol(value); });
    });
    p->vert = make(Qt::Vertical, [grid](int value) {
        if (!grid->f_updating_bars)
            vx_guarded([&] { grid->SetTopRow(value); });
    });
    p->timer.setInterval(c_scroll_interval);
    QObject::connect(&p->timer, &QTimer::timeout, &p->timer,
                     [grid] { vx_guarded([grid] { grid->timed_scroll(); }); });
}

TCustomGrid::native::~native() = default;

/// The room that a bar takes across.
static int extent_of(QScrollBar const *bar)
{
    return bar->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, bar);
}

int TCustomGrid::native::bar_width() const
{
    return p->vert && !p->vert->isHidden() ? extent_of(p->vert) : 0;
}

int TCustomGrid::native::bar_height() const
{
    return p->horz && !p->horz->isHidden() ? extent_of(p->horz) : 0;
}

void TCustomGrid::native::set_timer(bool on)
{
    if (on)
        p->timer.start();
    else
        p->timer.stop();
}

TRect TCustomGrid::GetClientRect() const
{
    TRect rect = TCustomControl::GetClientRect();
    rect.Right = std::max(rect.Right - f_native->bar_width(), 0);
    rect.Bottom = std::max(rect.Bottom - f_native->bar_height(), 0);
    return rect;
}

/// Shows the bars that are needed and gives them their range. A bar takes room from the other direction, so
/// it may make the other one needed.
void TCustomGrid::update_scroll_bars()
{
    QScrollBar *const horz_bar = f_native->p->horz;
    QScrollBar *const vert_bar = f_native->p->vert;
    if (!horz_bar || !vert_bar || f_updating_bars || !HandleAllocated())
        return;
    TRect const old = GetClientRect();
    TRect client;
    {
        vx::flag_scope const updating(f_updating_bars);
        TRect const whole = TCustomControl::GetClientRect();
        bool const may_horz = f_scroll_bars == ssHorizontal || f_scroll_bars == ssBoth;
        bool const may_vert = f_scroll_bars == ssVertical || f_scroll_bars == ssBoth;
        auto const too_long = [](vx_grid_axis const &axis, int room) {
            return room > 0 && axis.position(axis.count()) - axis.line() > room;
        };
        bool need_horz = may_horz && too_long(f_cols, whole.Width());
        bool const need_vert =
            may_vert && too_long(f_rows, whole.Height() - (need_horz ? extent_of(horz_bar) : 0));
        need_horz = may_horz && too_long(f_cols, whole.Width() - (need_vert ? extent_of(vert_bar) : 0));
        horz_bar->setVisible(need_horz);
        vert_bar->setVisible(need_vert);

        client = GetClientRect();
        int const width = extent_of(vert_bar);
        int const height = extent_of(horz_bar);
        horz_bar->setGeometry(0, client.Bottom, client.Right, height);
        vert_bar->setGeometry(client.Right, 0, width, client.Bottom);
        TGridCoord const last = max_top_left();
        f_top_left = {std::clamp(f_top_left.X, f_fixed_cols, std::max(last.X, f_fixed_cols)),
                      std::clamp(f_top_left.Y, f_fixed_rows, std::max(last.Y, f_fixed_rows))};
        horz_bar->setTracking(f_options.Contains(goThumbTracking));
        horz_bar->setRange(f_fixed_cols, last.X);
        horz_bar->setPageStep(std::max(GetVisibleColCount(), 1));
        horz_bar->setValue(f_top_left.X);
        vert_bar->setTracking(f_options.Contains(goThumbTracking));
        vert_bar->setRange(f_fixed_rows, last.Y);
        vert_bar->setPageStep(std::max(GetVisibleRowCount(), 1));
        vert_bar->setValue(f_top_left.Y);
    }

    // A bar that came or went makes another client area, to which derived classes fit their columns; what
    // they do may move the bars again, but is not asked for a second time.
    if (client == old || f_sizing)
        return;
    {
        vx::flag_scope const sizing(f_sizing);
        WMSize();
    }
    Invalidate();
}

void TCustomGrid::Resize()
{
    // The bars first: the client area that columns are fitted to lies beside them.
    {
        vx::flag_scope const sizing(f_sizing);
        update_scroll_bars();
        WMSize();
    }
    auto const life = Life();
    layout_changed();
    if (!life.expired())
        TCustomControl::Resize();
}

void TCustomGrid::CreateWnd()
{
    TCustomControl::CreateWnd();
    layout_changed();
    if (f_options.Contains(goAlwaysShowEditor))
        ShowEditor();
}

void TCustomGrid::invalidate_rect(TRect const &rect)
{
    if (auto *widget = vx_qt_widget(this))
        widget->update(vx_qt_rect(rect));
}

void TCustomGrid::set_drag_cursor(int x, int y)
{
    int track = -1;
    drag const kind = f_drag == drag::none ? sizing_at(x, y, track) : f_drag;
    auto *widget = vx_qt_widget(this);
    if (!widget)
        return;
    Qt::CursorShape const shape = kind == drag::col_sizing ? Qt::SplitHCursor : Qt::SplitVCursor;
    bool const sizing = kind == drag::col_sizing || kind == drag::row_sizing;
    if (sizing && (!f_sizing_cursor || widget->cursor().shape() != shape))
        widget->setCursor(shape);
    else if (!sizing && f_sizing_cursor)
        SetCursor(GetCursor());
    f_sizing_cursor = sizing;
}

void TCustomGrid::timed_scroll()
{
    if (f_drag == drag::none || !(QGuiApplication::mouseButtons() & Qt::LeftButton)) {
        f_native->set_timer(false);
        return;
    }
    scroll_towards(f_drag_point);
}
