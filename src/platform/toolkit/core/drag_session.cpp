#include "platform/toolkit/bridge/detail/drag_session.h"

#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/drag_object.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/win_control.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace {
/// Gives a drag up by Esc, whatever has the keys, and when the button was let go where nobody told of it: a
/// message had come up meanwhile.
class end_watch final : public QObject
{
public:
    end_watch() { QCoreApplication::instance()->installEventFilter(this); }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
};

struct session
{
    TControl *source = nullptr;
    TControl *target = nullptr;
    TControl *prepared = nullptr;
    QPoint start;
    QPoint last;
    QPoint pointer;                        ///< where the mouse was last, with or without a drag
    std::unique_ptr<TDragDockObject> dock; ///< of a control that is docked by the mouse
    std::unique_ptr<end_watch> watch;
    bool accepted = false;
    bool cursor_set = false;
    bool moved = false;
    bool held = false;     ///< the button was seen to be down
    bool given_up = false; ///< the drag is over, the button still down
};

session &current()
{
    static session one;
    return one;
}

/// Not every window system looks through a window that takes no mouse, as the frame of a drag is one.
QWidget *widget_below_frame(QPoint screen)
{
    QWindow const *const top = QGuiApplication::topLevelAt(screen);
    if (!top || !(top->flags() & Qt::WindowTransparentForInput))
        return QApplication::widgetAt(screen);
    QWindowList const windows = QGuiApplication::topLevelWindows();
    for (auto at = windows.rbegin(); at != windows.rend(); ++at) {
        if (!(*at)->isVisible() || ((*at)->flags() & Qt::WindowTransparentForInput) ||
            !(*at)->frameGeometry().contains(screen))
            continue;
        QWidget *const window = QWidget::find((*at)->winId());
        if (!window)
            continue;
        QWidget *const child = window->childAt(window->mapFromGlobal(screen));
        return child ? child : window;
    }
    return nullptr;
}

TControl *control_at(QPoint screen)
{
    QWidget const *const under = widget_below_frame(screen);
    return under ? vx_control_of(under) : nullptr;
}

bool end_watch::eventFilter(QObject *, QEvent *event)
{
    session const &s = current();
    if (!s.source)
        return false;
    if (event->type() == QEvent::MouseMove) {
        if (s.held && !(static_cast<QMouseEvent *>(event)->buttons() & Qt::LeftButton))
            vx_guarded([] { vx_drag_session::end(false); });
        return false;
    }
    bool const is_key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (!is_key || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress) {
        current().given_up = s.held;
        vx_guarded([] { vx_drag_session::end(false); });
    }
    return true;
}

/// The side of the area that the point is nearest to.
TAlign nearest_side(TRect const &area, TPoint const &at)
{
    std::array<std::pair<int, TAlign>, 4> const distances{{{at.X - area.Left, alLeft},
                                                           {at.Y - area.Top, alTop},
                                                           {area.Right - at.X, alRight},
                                                           {area.Bottom - at.Y, alBottom}}};
    return std::min_element(distances.begin(), distances.end(),
                            [](auto const &a, auto const &b) { return a.first < b.first; })
        ->second;
}

TRect half_of(TRect half, TAlign side)
{
    TPoint const middle = half.CenterPoint();
    if (side == alLeft)
        half.Right = middle.X;
    else if (side == alRight)
        half.Left = middle.X;
    else if (side == alTop)
        half.Bottom = middle.Y;
    else if (side == alBottom)
        half.Top = middle.Y;
    return half;
}

/// The client of a site that divides itself among them at a point of its client area; null if there is none.
TControl *client_at(TWinControl const &site, TPoint const &at)
{
    if (!site.GetUseDockManager())
        return nullptr;
    for (int i = 0; i < site.GetDockClientCount(); ++i) {
        TControl *const client = site.GetDockClients(i);
        if (client->GetVisible() && site.GetDockManager()->GetControlBounds(client).Contains(at))
            return client;
    }
    return nullptr;
}

/// Where a control stands on the screen, with the frame of its window.
TRect place_of(TControl *control)
{
    QWidget const *widget = vx_qt_widget(control);
    if (!widget)
        return control->GetBoundsRect();
    if (control->GetFloating() && widget->parentWidget())
        widget = widget->parentWidget(); // a document's
    QPoint const corner = widget->isWindow() ? widget->pos() : widget->mapToGlobal(QPoint(0, 0));
    return Bounds(corner.x(), corner.y(), widget->width(), widget->height());
}

/// Dropped where no site is, a window moves; one that fills the screen stays.
bool moves_along(TControl *control)
{
    auto const *const form = dynamic_cast<TCustomForm const *>(control);
    return form && form->GetFloating() && form->GetWindowState() == wsNormal;
}

/// Tells the drag's object where the control would go in the site: to the side that the mouse is nearest to,
/// of the client below the mouse where the site divides itself, all over a site in which nothing is. Where
/// it would stay as it is, the side is `alNone` and the rectangle its own.
void aim(TWinControl &site, TDragDockObject &object, TPoint const &at)
{
    TControl *const beside = client_at(site, at);
    bool const is_in = object.GetControl()->GetHostDockSite() == &site;
    object.SetDropOnControl(beside);
    if (is_in && (!beside || beside == object.GetControl())) {
        object.SetDropAlign(alNone);
        object.SetDockRect(place_of(object.GetControl()));
        return;
    }
    TRect const area = beside ? site.GetDockManager()->GetControlBounds(beside) : site.GetClientRect();
    TAlign const side = nearest_side(area, at);
    TRect place = site.GetDockClientCount() == 0 ? area : half_of(area, side);
    TPoint const origin = site.GetClientOrigin();
    place.Offset(origin.X, origin.Y);
    object.SetDropAlign(side);
    object.SetDockRect(place);
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
    QPoint const start = s.prepared == source ? s.start : at;
    s = {};
    s.source = source;
    s.pointer = s.last = at;
    s.start = start;
    s.watch = std::make_unique<end_watch>();
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
    s.held = s.held || (event.buttons() & Qt::LeftButton);
    s.last = at;
    if (s.source->GetDragKind() == dkDock)
        move_docking();
    else
        move_content();
    return true;
}

void vx_drag_session::again()
{
    session const &s = current();
    if (s.source && s.moved && s.source->GetDragKind() != dkDock)
        move_content();
}

void vx_drag_session::move_docking()
{
    session &s = current();
    QPoint const at = s.last;
    TWinControl *const site = site_at(at, s.source);
    s.accepted = true;
    s.dock->SetDropAlign(alNone);
    s.dock->SetDropOnControl(nullptr);
    if (site) {
        TPoint const point = site->ScreenToClient(vx_point(at));
        aim(*site, *s.dock, point);
        site->dock_over(s.dock.get(), point.X, point.Y, dsDragMove, s.accepted);
    } else if (s.source->GetHostDockSite()) {
        s.dock->SetDockRect(Bounds(at.x(), at.y(), s.source->GetUndockWidth(), s.source->GetUndockHeight()));
    } else {
        TRect place = place_of(s.source);
        if (moves_along(s.source))
            place.Offset(at.x() - s.start.x(), at.y() - s.start.y());
        s.dock->SetDockRect(place);
    }
    if (!s.source)
        return;
    show_cursor(s.accepted);
    if (s.accepted)
        s.dock->DrawDragDockImage();
    else
        s.dock->EraseDragDockImage();
}

void vx_drag_session::move_content()
{
    session &s = current();
    TControl *const under = control_at(s.last);
    if (s.target && s.target != under) {
        TPoint const point = s.target->ScreenToClient(vx_point(s.last));
        bool ignored = false;
        s.target->drag_over(s.source, point.X, point.Y, dsDragLeave, ignored);
    }
    TDragState const state = under == s.target ? dsDragMove : dsDragEnter;
    s.target = under;
    s.accepted = false;
    if (under && s.source) {
        TPoint const point = under->ScreenToClient(vx_point(s.last));
        under->drag_over(s.source, point.X, point.Y, state, s.accepted);
    }
    if (s.source)
        show_cursor(s.accepted);
}

bool vx_drag_session::button(QMouseEvent const &event)
{
    session &s = current();
    bool const left = event.button() == Qt::LeftButton;
    // The release of a drag that was given up is the drag's.
    bool const given_up = left && std::exchange(s.given_up, false);
    if (event.type() != QEvent::MouseButtonRelease)
        return s.source != nullptr;
    s.prepared = nullptr;
    if (given_up)
        return true;
    if (!s.source || !left)
        return s.source != nullptr;
    s.last = event.globalPosition().toPoint();
    end(true);
    return true;
}

void vx_drag_session::end(bool drop)
{
    session const ended = std::exchange(current(), {});
    current().given_up = ended.given_up;
    if (ended.cursor_set)
        QGuiApplication::restoreOverrideCursor();
    if (!ended.source)
        return;
    if (ended.source->GetDragKind() == dkDock) {
        ended.dock->EraseDragDockImage();
        TWinControl *const site = drop ? site_at(ended.last, ended.source) : nullptr;
        TWinControl *target = site && ended.accepted ? site : nullptr;
        TAlign side = ended.dock->GetDropAlign();
        bool const stays = target && target == ended.source->GetHostDockSite() && side == alNone;
        if (target && !stays) {
            if (side == alNone)
                side = nearest_side(target->GetClientRect(), target->ScreenToClient(vx_point(ended.last)));
            TControl *const beside = ended.dock->GetDropOnControl();
            if (!ended.source->ManualDock(target, beside, side))
                target = nullptr;
            else if (beside)
                target->GetDockManager()->ShareEvenly(ended.source); // as the frame showed
        } else if (drop && !site && ended.source->GetHostDockSite()) {
            ended.source->ManualFloat(Bounds(ended.last.x(), ended.last.y(), ended.source->GetUndockWidth(),
                                             ended.source->GetUndockHeight()));
        } else if (drop && !site && ended.moved && moves_along(ended.source)) {
            QPoint const by = ended.last - ended.start;
            TRect const at = ended.source->GetBoundsRect();
            ended.source->SetBounds(at.Left + by.x(), at.Top + by.y(), at.Width(), at.Height());
        }
        ended.source->OnEndDock(ended.source, target, ended.last.x(), ended.last.y());
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
