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
#include <memory>
#include <utility>

namespace {
struct session
{
    TControl *source = nullptr;
    TControl *target = nullptr;
    TControl *prepared = nullptr;
    QPoint start;
    QPoint last;
    QPoint pointer;                        ///< where the mouse was last, with or without a drag
    std::unique_ptr<TDragDockObject> dock; ///< of a control that is docked by the mouse
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

/// On the screen; the whole of a site in which nothing is.
TRect half_of(TWinControl const &site, TAlign side)
{
    TRect half = site.GetClientRect();
    TPoint const middle = half.CenterPoint();
    if (site.GetDockClientCount() == 0)
        side = alClient;
    if (side == alLeft)
        half.Right = middle.X;
    else if (side == alRight)
        half.Left = middle.X;
    else if (side == alTop)
        half.Bottom = middle.Y;
    else if (side == alBottom)
        half.Top = middle.Y;
    TPoint const origin = site.GetClientOrigin();
    half.Offset(origin.X, origin.Y);
    return half;
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

/// A site in which nothing is may have no area to hit: there is some room around it.
TWinControl *vx_drag_session::empty_site_in(TWinControl const &parent, TControl *source, QPoint screen)
{
    for (int i = 0; i < parent.GetControlCount(); ++i) {
        auto *const site = dynamic_cast<TWinControl *>(parent.GetControls(i));
        if (!site || !site->GetDockSite() || !site->GetShowing() || site->GetDockClientCount() > 0)
            continue;
        TRect room = site->GetClientRect();
        room.Inflate(TWinControl::c_dock_reach, TWinControl::c_dock_reach);
        if (takes(*site, source) && room.Contains(site->ScreenToClient(vx_point(screen))))
            return site;
    }
    return nullptr;
}

/// Whether the site would have it at all; where it lies counts later.
bool vx_drag_session::takes(TWinControl &site, TControl *source)
{
    TRect influence = site.GetClientRect();
    bool can_dock = true;
    site.GetSiteInfo(source, influence, can_dock);
    return can_dock;
}

TWinControl *vx_drag_session::site_at(QPoint screen, TControl *source)
{
    auto const *const dragged = dynamic_cast<TWinControl const *>(source);
    for (TControl *control = control_at(screen); control; control = control->GetParent()) {
        auto *const parent = dynamic_cast<TWinControl *>(control);
        if (!parent || (dragged && dragged->ContainsControl(parent)))
            continue;
        if (TWinControl *const site = empty_site_in(*parent, source, screen))
            return site;
        if (parent->GetDockSite() && takes(*parent, source))
            return parent;
    }
    return nullptr;
}

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
    if (source->GetDragKind() == dkDock)
        s.dock = source->CreateDragDockObject();
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
        s.dock->SetDropAlign(alNone);
        if (site) {
            TPoint const point = site->ScreenToClient(vx_point(at));
            TAlign const side = nearest_side(*site, point);
            s.dock->SetDropAlign(side);
            s.dock->SetDockRect(half_of(*site, side));
            site->dock_over(s.dock.get(), point.X, point.Y, dsDragMove, s.accepted);
        } else {
            bool const docked = s.source->GetHostDockSite();
            s.dock->SetDockRect(Bounds(at.x(), at.y(),
                                       docked ? s.source->GetUndockWidth() : s.source->GetWidth(),
                                       docked ? s.source->GetUndockHeight() : s.source->GetHeight()));
        }
        if (!s.source)
            return true;
        show_cursor(s.accepted);
        if (s.accepted)
            s.dock->DrawDragDockImage();
        else
            s.dock->EraseDragDockImage();
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
    session const ended = std::exchange(current(), {});
    if (ended.cursor_set)
        QGuiApplication::restoreOverrideCursor();
    if (!ended.source)
        return;
    if (ended.source->GetDragKind() == dkDock) {
        ended.dock->EraseDragDockImage();
        TWinControl *const site = drop ? site_at(ended.last, ended.source) : nullptr;
        if (site && ended.accepted && site != ended.source->GetHostDockSite()) {
            TAlign const side = ended.dock->GetDropAlign();
            ended.source->ManualDock(
                site, nullptr,
                side != alNone ? side : nearest_side(*site, site->ScreenToClient(vx_point(ended.last))));
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
        if (s.dock)
            s.dock->EraseDragDockImage();
        s = {};
    }
}
