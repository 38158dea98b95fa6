#include "controls/dock/mdi_conjoin_dock_host.h"

#include "controls/dock/document_frame_priv.h"
#include "controls/dock/mdi_child_form.h"

#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/drag_object.h"

#include <vector>

namespace {
bool is_document(TControl const *control)
{
    return dynamic_cast<Tvx_mdi_child_form const *>(control) != nullptr;
}
} // namespace

Tvx_mdi_conjoin_dock_host::Tvx_mdi_conjoin_dock_host(TComponent *owner)
    : Tvx_form(owner ? owner : static_cast<TComponent *>(Application))
{
    SetDockSite(true);
    SetUseDockManager(true);
    SetFormStyle(fsMDIChild);
    SetVisible(false);
    OnGetSiteInfo = make_closure<&Tvx_mdi_conjoin_dock_host::FormGetSiteInfo>(this);
    OnDockOver = make_closure<&Tvx_mdi_conjoin_dock_host::FormDockOver>(this);
    OnDockDrop = make_closure<&Tvx_mdi_conjoin_dock_host::FormDockDrop>(this);
    OnUnDock = make_closure<&Tvx_mdi_conjoin_dock_host::FormUnDock>(this);
    OnCloseQuery = make_closure<&Tvx_mdi_conjoin_dock_host::FormCloseQuery>(this);
    OnClose = make_closure<&Tvx_mdi_conjoin_dock_host::FormClose>(this);
}

void Tvx_mdi_conjoin_dock_host::UpdateCaption(TControl *exclude)
{
    UnicodeString caption;
    for (int i = 0; i < GetDockClientCount(); ++i) {
        TControl *const client = GetDockClients(i);
        if (client == exclude || !client->GetVisible())
            continue;
        client->SetShowHint(true);
        caption = caption + (caption.IsEmpty() ? L"" : L", ") + client->GetCaption();
    }
    SetCaption(caption);
}

void Tvx_mdi_conjoin_dock_host::Activate()
{
    auto const life = Life();
    Tvx_form::Activate();
    if (life.expired())
        return;
    for (int i = 0; i < GetDockClientCount(); ++i) {
        auto *const client = dynamic_cast<Tvx_mdi_child_form *>(GetDockClients(i));
        if (client && client->ContainsControl(GetActiveControl()))
            return client->show_tool_panel();
    }
}

void Tvx_mdi_conjoin_dock_host::FormGetSiteInfo(TObject *, TControl *client, TRect &, bool &can_dock)
{
    can_dock = is_document(client);
}

void Tvx_mdi_conjoin_dock_host::FormDockOver(TObject *, TDragDockObject *source, int, int, TDragState,
                                             bool &accept)
{
    accept = is_document(source->GetControl());
}

void Tvx_mdi_conjoin_dock_host::FormDockDrop(TObject *, TDragDockObject *, int, int)
{
    UpdateCaption(nullptr);
    GetDockManager()->ResetBounds();
}

void Tvx_mdi_conjoin_dock_host::FormUnDock(TObject *, TControl *client, TWinControl *new_target, bool &)
{
    if (GetDockClientCount() == 2 && new_target != this)
        PostClose();
    UpdateCaption(client);
}

void Tvx_mdi_conjoin_dock_host::FormCloseQuery(TObject *, bool &can_close)
{
    for (int i = 0; i < GetDockClientCount() && can_close; ++i)
        if (auto *const client = dynamic_cast<TCustomForm *>(GetDockClients(i)))
            can_close = client->CloseQuery();
}

void Tvx_mdi_conjoin_dock_host::FormClose(TObject *, TCloseAction &action)
{
    // Leaving one by one would post another close for the last but one.
    OnUnDock = {};
    TPoint corner = GetClientOrigin();
    if (TCustomForm const *const frame = vx_document_frame()) {
        TPoint const origin = frame->GetMDIClientOrigin();
        corner = {origin.X + GetLeft(), origin.Y + GetTop()};
    }
    Hide();
    while (GetDockClientCount() > 0) {
        TControl *const client = GetDockClients(GetDockClientCount() - 1);
        client->ManualFloat(Bounds(corner.X, corner.Y, client->GetUndockWidth(), client->GetUndockHeight()));
    }
    action = caFree;
}
