#include "platform/toolkit/bridge/detail/drag_session.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/control.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/drag_object.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/win_control.h"

#include <QtGui/QCursor>

#include <algorithm>
#include <utility>

namespace {
/// The control that is just handed to a site, which may hand it on to another one.
constinit TControl const *g_docking = nullptr;

class docking_scope
{
public:
    explicit docking_scope(TControl const *control) : f_before(std::exchange(g_docking, control)) {}
    docking_scope(docking_scope const &) = delete;
    docking_scope &operator=(docking_scope const &) = delete;
    ~docking_scope() { g_docking = f_before; }

private:
    TControl const *f_before;
};
} // namespace

// ---- dragging something from a control

void TControl::BeginDrag(bool immediate)
{
    if (immediate)
        vx_drag_session::begin(this);
    else
        vx_drag_session::prepare(this, QCursor::pos());
}

void TControl::EndDrag(bool drop)
{
    if (Dragging())
        vx_drag_session::end(drop);
}

bool TControl::Dragging() const
{
    return vx_drag_session::source() == this;
}

void TControl::DragDrop(TObject *source, int x, int y)
{
    vx_event_scope const scope;
    OnDragDrop(this, source, x, y);
}

void TControl::DragOver(TObject *source, int x, int y, TDragState state, bool &accept)
{
    accept = static_cast<bool>(OnDragOver);
    OnDragOver(this, source, x, y, state, accept);
}

void TControl::DoStartDrag()
{
    if (f_drag_kind == dkDock)
        OnStartDock(this);
    else
        OnStartDrag(this);
}

void TControl::DoEndDrag(TObject *target, int x, int y)
{
    OnEndDrag(this, target, x, y);
}

void TControl::drag_started()
{
    DoStartDrag();
}

void TControl::drag_over(TObject *source, int x, int y, TDragState state, bool &accept)
{
    DragOver(source, x, y, state, accept);
}

void TControl::drag_ended(TObject *target, int x, int y)
{
    DoEndDrag(target, x, y);
}

// ---- docking

bool TControl::ManualDock(TWinControl *site, TControl *drop_control, TAlign side)
{
    if (!site)
        return ManualFloat(f_float_rect.IsEmpty() ? GetBoundsRect() : f_float_rect);
    auto *const self = dynamic_cast<TWinControl *>(this);
    if (self && self->ContainsControl(site))
        return false;
    vx_event_scope const scope;
    if (f_host_dock_site && f_host_dock_site != site && !f_host_dock_site->DoUnDock(site, this))
        return false;
    if (!f_host_dock_site && g_docking != this) {
        // What comes loose again has its size of before, not the screen's.
        auto *const form = dynamic_cast<TCustomForm *>(this);
        if (form && form->GetWindowState() == wsMaximized)
            form->SetWindowState(wsNormal);
        f_undock_width = GetWidth();
        f_undock_height = GetHeight();
        f_float_rect = GetBoundsRect();
    } else if (f_host_dock_site && f_host_dock_site != site) {
        f_host_dock_site->undock(this);
    }
    TDragDockObject object(this);
    object.SetDropAlign(side);
    object.SetDropOnControl(drop_control);
    object.SetDockRect(GetBoundsRect());
    TRect rect = GetBoundsRect();
    DoDock(site, rect);
    TRect const client = site->GetClientRect();
    docking_scope const docking(this);
    site->DockDrop(&object, client.Width() / 2, client.Height() / 2);
    return true;
}

bool TControl::ManualFloat(TRect const &screen_rect)
{
    vx_event_scope const scope;
    if (f_host_dock_site) {
        if (!f_host_dock_site->DoUnDock(nullptr, this))
            return false;
        f_host_dock_site->undock(this);
    }
    TRect rect = screen_rect;
    DoDock(nullptr, rect);
    SetAlign(alNone);
    if (dynamic_cast<TCustomForm *>(this)) {
        SetParent(nullptr);
        SetBoundsRect(rect);
        return true;
    }
    // What is no form gets one to float in; it goes with the control.
    auto *const frame = new vx_float_form(this);
    frame->SetBoundsRect(rect);
    frame->SetCaption(GetCaption());
    SetParent(frame);
    SetAlign(alClient);
    frame->SetVisible(f_visible);
    return true;
}

bool TControl::GetFloating() const
{
    return !f_host_dock_site && (dynamic_cast<vx_float_form *>(f_parent) ||
                                 (!f_parent && dynamic_cast<TCustomForm const *>(this)));
}

void TControl::DoDock(TWinControl *, TRect &)
{
}

std::unique_ptr<TDragDockObject> TControl::CreateDragDockObject()
{
    return std::make_unique<TDragDockObject>(this);
}

void TControl::leave_dock_site(TWinControl *)
{
    f_host_dock_site->undock(this);
}

void TWinControl::DockDrop(TDragDockObject *source, int x, int y)
{
    TControl *const client = source->GetControl();
    client->SetParent(this);
    if (client->f_host_dock_site != this) {
        client->f_host_dock_site = this;
        f_dock_clients.push_back(client);
    }
    TAlign const side = source->GetDropAlign();
    if (f_use_dock_manager && f_dock_manager) {
        client->SetAlign(alNone);
        f_dock_manager->InsertControl(client, side, source->GetDropOnControl());
    } else {
        // Without a manager the client becomes a bar on its side of the site, no thicker than the site.
        TRect const room = GetClientRect();
        if (side == alTop || side == alBottom)
            client->SetHeight(std::min(client->GetHeight(), room.Height()));
        else if (side == alLeft || side == alRight)
            client->SetWidth(std::min(client->GetWidth(), room.Width()));
        client->SetAlign(side == alNone || side == alCustom ? alClient : side);
    }
    OnDockDrop(this, source, x, y);
}

void TWinControl::SetAcceptFiles(bool value)
{
    f_accept_files = value;
    vx_qt_widget(this)->setAcceptDrops(value);
}

void TWinControl::DropFiles(std::vector<std::wstring> const &)
{
}

void TWinControl::undock(TControl *control)
{
    if (f_dock_manager)
        f_dock_manager->RemoveControl(control);
    std::erase(f_dock_clients, control);
    control->f_host_dock_site = nullptr;
}

TControl *TWinControl::GetDockClients(int index) const
{
    if (index < 0 || index >= GetDockClientCount())
        return nullptr;
    return f_dock_clients[static_cast<std::size_t>(index)];
}

void TWinControl::SetUseDockManager(bool value)
{
    f_use_dock_manager = value;
    if (value && !f_dock_manager)
        f_dock_manager = std::make_unique<TDockManager>(this);
}

void TWinControl::GetSiteInfo(TControl *client, TRect &influence_rect, bool &can_dock)
{
    OnGetSiteInfo(this, client, influence_rect, can_dock);
}

void TWinControl::DockOver(TDragDockObject *source, int x, int y, TDragState state, bool &accept)
{
    OnDockOver(this, source, x, y, state, accept);
}

void TWinControl::dock_over(TDragDockObject *source, int x, int y, TDragState state, bool &accept)
{
    TRect influence = GetClientRect();
    if (GetDockClientCount() == 0)
        influence.Inflate(c_dock_reach, c_dock_reach);
    bool can_dock = true;
    GetSiteInfo(source->GetControl(), influence, can_dock);
    accept = can_dock && influence.Contains({x, y});
    if (accept)
        DockOver(source, x, y, state, accept);
}

bool TWinControl::DoUnDock(TWinControl *new_target, TControl *client)
{
    bool allow = true;
    OnUnDock(this, client, new_target, allow);
    return allow;
}
