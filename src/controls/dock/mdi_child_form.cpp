#include "controls/dock/mdi_child_form.h"

#include "controls/dock/document_frame_priv.h"
#include "controls/dock/mdi_child_form_drag_object.h"
#include "controls/dock/mdi_conjoin_dock_host.h"

#include "platform/basic/vx_wstrings_obj.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
constexpr int c_bevel_width = 2;
constexpr int c_border_width = 2;
/// A zone takes a fifth of the form.
constexpr int c_zones = 5;
constexpr wchar_t const *c_main_tool_panel = L"MainToolPanel";
} // namespace

TCustomForm *vx_document_frame()
{
    TCustomForm *const main = Application->GetMainForm();
    if (main && main->GetFormStyle() == fsMDIForm)
        return main;
    for (int i = 0; i < Screen->GetFormCount(); ++i)
        if (Screen->GetForms(i)->GetFormStyle() == fsMDIForm)
            return Screen->GetForms(i);
    return nullptr;
}

Tvx_mdi_child_form::Tvx_mdi_child_form(TComponent *owner, bool plain)
    : Tvx_form(owner ? owner : static_cast<TComponent *>(Application))
{
    SetDockSite(true);
    SetDragKind(dkDock);
    SetDragMode(dmAutomatic);
    int const frame = c_bevel_width + c_border_width;
    GetPadding()->SetBounds(frame, frame, frame, frame);
    OnGetSiteInfo = make_closure<&Tvx_mdi_child_form::FormGetSiteInfo>(this);
    OnDockOver = make_closure<&Tvx_mdi_child_form::FormDockOver>(this);
    OnEndDock = make_closure<&Tvx_mdi_child_form::FormEndDock>(this);
    OnClose = make_closure<&Tvx_mdi_child_form::on_self_close>(this);
    if (!plain)
        SetFormStyle(fsMDIChild);
}

Tvx_mdi_child_form::~Tvx_mdi_child_form()
{
    f_closing = true;
    if (f_tool_panel)
        f_tool_panel->RemoveFreeNotification(this);
}

void Tvx_mdi_child_form::Show()
{
    if (auto *const host = dynamic_cast<Tvx_mdi_conjoin_dock_host *>(GetHostDockSite()))
        host->Show();
    Tvx_form::Show();
}

void Tvx_mdi_child_form::Paint()
{
    // The lowered frame.
    TRect edge = GetClientRect();
    TCanvas &canvas = *GetCanvas();
    for (int i = 0; i < c_bevel_width; ++i, edge.Inflate(-1, -1)) {
        canvas.GetPen()->SetColor(clBtnShadow);
        canvas.MoveTo(edge.Left, edge.Bottom - 1);
        canvas.LineTo(edge.Left, edge.Top);
        canvas.LineTo(edge.Right - 1, edge.Top);
        canvas.GetPen()->SetColor(clBtnHighlight);
        canvas.LineTo(edge.Right - 1, edge.Bottom - 1);
        canvas.LineTo(edge.Left, edge.Bottom - 1);
    }
}

// ---- files

void Tvx_mdi_child_form::parse_drop_files(bool on)
{
    SetAcceptFiles(on);
}

void Tvx_mdi_child_form::drop_files(Tvx_wstrings_obj const &)
{
}

void Tvx_mdi_child_form::DropFiles(std::vector<std::wstring> const &names)
{
    Tvx_wstrings_obj list;
    for (std::wstring const &name : names)
        list.add(name.c_str());
    drop_files(list);
}

// ---- the tool panel

void Tvx_mdi_child_form::set_tool_panel(TWinControl *panel)
{
    if (f_tool_panel && f_tool_panel != panel) {
        f_tool_panel->RemoveFreeNotification(this);
        f_tool_panel->SetVisible(false);
        f_tool_panel->SetParent(nullptr);
    }
    if (panel && panel != f_tool_panel)
        panel->FreeNotification(this);
    f_tool_panel = panel;
    if (!f_closing)
        show_tool_panel();
}

void Tvx_mdi_child_form::show_tool_panel()
{
    TCustomForm *const main = Application->GetMainForm();
    auto *const place = main ? dynamic_cast<TWinControl *>(main->FindComponent(c_main_tool_panel)) : nullptr;
    if (!place || !f_tool_panel)
        return;
    bool const auto_size = place->GetAutoSize();
    place->SetAutoSize(false);
    place->DisableAlign();
    f_tool_panel->SetParent(place);
    for (int i = 0; i < place->GetControlCount(); ++i)
        place->GetControls(i)->SetVisible(place->GetControls(i) == f_tool_panel);
    place->EnableAlign();
    place->SetAutoSize(auto_size);
}

void Tvx_mdi_child_form::Activate()
{
    auto const life = Life();
    Tvx_form::Activate();
    if (!life.expired())
        show_tool_panel();
}

/// A docked form is no window that is activated: the focus comes into it.
void Tvx_mdi_child_form::DoEnter()
{
    auto const life = Life();
    Tvx_form::DoEnter();
    if (!life.expired() && GetHostDockSite())
        show_tool_panel();
}

void Tvx_mdi_child_form::Notification(TComponent *component, TOperation operation)
{
    Tvx_form::Notification(component, operation);
    if (operation == opRemove && component == f_tool_panel)
        f_tool_panel = nullptr;
}

// ---- docking

std::unique_ptr<TDragDockObject> Tvx_mdi_child_form::CreateDragDockObject()
{
    return std::make_unique<Tvx_mdi_child_form_drag_object_ex>(this);
}

TAlign Tvx_mdi_child_form::ComputeDockingRect(TRect &rect, TPoint const &point)
{
    int const w = GetClientWidth(), h = GetClientHeight();
    int const left = w / c_zones, right = w / c_zones * (c_zones - 1);
    int const top = h / c_zones, bottom = h / c_zones * (c_zones - 1);
    struct
    {
        TRect zone, taken;
        TAlign align;
    } const zones[] = {
        {Rect(0, 0, left, h), Rect(0, 0, w / 2, h), alLeft},
        {Rect(left, 0, right, top), Rect(0, 0, w, h / 2), alTop},
        {Rect(right, 0, w, h), Rect(w / 2, 0, w, h), alRight},
        {Rect(left, bottom, right, h), Rect(0, h / 2, w, h), alBottom},
    };
    for (auto const &z : zones) {
        if (!z.zone.Contains(point))
            continue;
        TPoint const origin = GetClientOrigin();
        rect = z.taken;
        rect.Offset(origin.X, origin.Y);
        return z.align;
    }
    return alNone;
}

/// A docked form leaves what is dropped on it to the window that it is docked in.
void Tvx_mdi_child_form::FormGetSiteInfo(TObject *, TControl *, TRect &, bool &can_dock)
{
    can_dock = !GetHostDockSite();
}

void Tvx_mdi_child_form::FormDockOver(TObject *, TDragDockObject *source, int x, int y, TDragState,
                                      bool &accept)
{
    accept = !GetHostDockSite() && dynamic_cast<Tvx_mdi_child_form *>(source->GetControl());
    if (!accept)
        return;
    // In the middle there is no zone: the form goes to the nearest side, and that half is shown.
    TRect place = GetClientRect();
    TPoint const origin = GetClientOrigin(), middle = place.CenterPoint();
    switch (source->GetDropAlign()) {
    case alLeft:
        place.Right = middle.X;
        break;
    case alRight:
        place.Left = middle.X;
        break;
    case alTop:
        place.Bottom = middle.Y;
        break;
    default:
        place.Top = middle.Y;
        break;
    }
    place.Offset(origin.X, origin.Y);
    source->SetDropAlign(ComputeDockingRect(place, {x, y}));
    source->SetDockRect(place);
}

void Tvx_mdi_child_form::DockDrop(TDragDockObject *source, int x, int y)
{
    TAlign const side = source->GetDropAlign();
    auto *const client = dynamic_cast<Tvx_mdi_child_form *>(source->GetControl());
    if (side == alClient || !client)
        return Tvx_form::DockDrop(source, x, y);
    TWindowState const state = GetWindowState();
    SetWindowState(wsNormal);
    TRect const place = GetBoundsRect();
    auto *const host = new Tvx_mdi_conjoin_dock_host(GetOwner());
    host->SetBoundsRect(place);
    ManualDock(host, nullptr, alClient);
    client->ManualDock(host, nullptr, side);
    host->SetVisible(true);
    host->SetWindowState(state);
    host->GetDockManager()->ShareEvenly(client); // as the frame of the drag showed
}

void Tvx_mdi_child_form::FormEndDock(TObject *, TObject *target, int, int)
{
    SetDockSite(!target);
    // What was just in the user's hand stays the active one.
    TWinControl *const active = GetActiveControl();
    if (target && active && active->CanFocus())
        active->SetFocus();
}

void Tvx_mdi_child_form::DoDock(TWinControl *new_site, TRect &rect)
{
    if (new_site) {
        SetFormStyle(fsNormal);
    } else if (!f_closing) {
        // What was dropped somewhere takes others in again, however it came loose.
        SetDockSite(true);
        if (TCustomForm const *const form = vx_document_frame()) {
            TPoint const origin = form->GetMDIClientOrigin();
            rect.Offset(-origin.X, -origin.Y);
        }
        SetFormStyle(fsMDIChild);
    }
    Tvx_form::DoDock(new_site, rect);
}

void Tvx_mdi_child_form::on_self_close(TObject *, TCloseAction &action)
{
    f_closing = true;
    if (auto *const host = dynamic_cast<Tvx_mdi_conjoin_dock_host *>(GetHostDockSite()))
        host->UpdateCaption(this);
    if (GetHostDockSite()) {
        SetVisible(false);
        ManualFloat(Bounds(0, 0, GetUndockWidth(), GetUndockHeight()));
    }
    action = caFree;
}
