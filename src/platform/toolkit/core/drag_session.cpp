#include "platform/toolkit/bridge/detail/drag_session.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/drag_object.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/win_control.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>

namespace {
struct session
{
    TControl *source = nullptr;
    TControl *target = nullptr;
    TControl *prepared = nullptr;
    QPoint start;
    QPoint last;
    QPoint pointer; ///< where the mouse was last, with or without a drag
    bool accepted = false;
    bool cursor_set = false;
    bool moved = false;
};

session &current()
{
    static session one;
    return one;
}

TControl *control_at(QPoint screen)
{
    QWidget const *const under = QApplication::widgetAt(screen);
    return under ? vx_control_of(under) : nullptr;
}

/// The nearest dock site at or above the control that is not part of what is dragged.
TWinControl *site_at(QPoint screen, TControl const *source)
{
    auto const *const dragged = dynamic_cast<TWinControl const *>(source);
    for (TControl *control = control_at(screen); control; control = control->GetParent()) {
        auto *const site = dynamic_cast<TWinControl *>(control);
        if (site && site->GetDockSite() && !(dragged && dragged->ContainsControl(site)))
            return site;
    }
    return nullptr;
}

/// The side of the site that the point is nearest to.
TAlign nearest_side(TWinControl const &site, TPoint const &at)
{
    TRect const r = site.GetClientRect();
    std::array<std::pair<int, TAlign>, 4> const distances{
        {{at.X, alLeft}, {at.Y, alTop}, {r.Width() - at.X, alRight}, {r.Height() - at.Y, alBottom}}};
    return std::min_element(distances.begin(), distances.end(),
                            [](auto const &a, auto const &b) { return a.first < b.first; })
        ->second;
}

void show_cursor(bool accepted)
{
    session &s = current();
    if (!s.cursor_set)
        QGuiApplication::setOverrideCursor(vx_qt_cursor(crNoDrop));
    s.cursor_set = true;
    QGuiApplication::changeOverrideCursor(vx_qt_cursor(accepted ? crDrag : crNoDrop));
}
} // namespace

TControl *vx_drag_session::source()
{
    return current().source;
}

void vx_drag_session::prepare(TControl *source, QPoint screen)
{
    current().prepared = source;
    current().start = screen;
}

void vx_drag_session::begin(TControl *source)
{
    session &s = current();
    QPoint const at = s.pointer;
    s = {};
    s.source = source;
    s.pointer = s.start = s.last = at;
    source->drag_started();
}

bool vx_drag_session::move(QMouseEvent const &event)
{
    session &s = current();
    QPoint const at = event.globalPosition().toPoint();
    s.pointer = at;
    if (s.prepared) {
        if (!(event.buttons() & Qt::LeftButton)) {
            s.prepared = nullptr;
        } else if ((at - s.start).manhattanLength() >= QApplication::startDragDistance()) {
            begin(s.prepared);
        }
    }
    if (!s.source)
        return false;
    s.moved = true;
    s.last = at;
    if (s.source->GetDragKind() == dkDock) {
        TWinControl *const site = site_at(at, s.source);
        s.accepted = true;
        if (site) {
            TDragDockObject object(s.source);
            TPoint const point = site->ScreenToClient(vx_point(at));
            site->dock_over(&object, point.X, point.Y, dsDragMove, s.accepted);
        }
        if (s.source)
            show_cursor(s.accepted);
        return true;
    }
    TControl *const under = control_at(at);
    if (s.target && s.target != under) {
        TPoint const point = s.target->ScreenToClient(vx_point(at));
        bool ignored = false;
        s.target->drag_over(s.source, point.X, point.Y, dsDragLeave, ignored);
    }
    TDragState const state = under == s.target ? dsDragMove : dsDragEnter;
    s.target = under;
    s.accepted = false;
    if (under && s.source) {
        TPoint const point = under->ScreenToClient(vx_point(at));
        under->drag_over(s.source, point.X, point.Y, state, s.accepted);
    }
    if (s.source)
        show_cursor(s.accepted);
    return true;
}

bool vx_drag_session::button(QMouseEvent const &event)
{
    session &s = current();
    if (event.type() != QEvent::MouseButtonRelease)
        return s.source != nullptr;
    s.prepared = nullptr;
    if (!s.source || event.button() != Qt::LeftButton)
        return s.source != nullptr;
    s.last = event.globalPosition().toPoint();
    end(true);
    return true;
}

void vx_drag_session::end(bool drop)
{
    session const ended = current();
    current() = {};
    if (ended.cursor_set)
        QGuiApplication::restoreOverrideCursor();
    if (!ended.source)
        return;
    if (ended.source->GetDragKind() == dkDock) {
        TWinControl *const site = drop ? site_at(ended.last, ended.source) : nullptr;
        if (site && ended.accepted && site != ended.source->GetHostDockSite()) {
            TPoint const point = site->ScreenToClient(vx_point(ended.last));
            ended.source->ManualDock(site, nullptr, nearest_side(*site, point));
        } else if (drop && !site && ended.source->GetHostDockSite()) {
            ended.source->ManualFloat(Bounds(ended.last.x(), ended.last.y(), ended.source->GetUndockWidth(),
                                             ended.source->GetUndockHeight()));
        } else if (drop && !site && ended.moved && dynamic_cast<TCustomForm *>(ended.source) &&
                   ended.source->GetFloating()) {
            QPoint const by = ended.last - ended.start;
            TRect const at = ended.source->GetBoundsRect();
            ended.source->SetBounds(at.Left + by.x(), at.Top + by.y(), at.Width(), at.Height());
        }
        ended.source->OnEndDock(ended.source, site, ended.last.x(), ended.last.y());
        return;
    }
    TControl *const target = drop && ended.accepted ? ended.target : nullptr;
    TPoint point = vx_point(ended.last);
    if (target) {
        point = target->ScreenToClient(point);
        target->DragDrop(ended.source, point.X, point.Y);
    }
    ended.source->drag_ended(target, point.X, point.Y);
}

void vx_drag_session::forget(TControl const *control)
{
    session &s = current();
    if (s.prepared == control)
        s.prepared = nullptr;
    if (s.target == control)
        s.target = nullptr;
    if (s.source == control) {
        if (s.cursor_set)
            QGuiApplication::restoreOverrideCursor();
        s = {};
    }
}
