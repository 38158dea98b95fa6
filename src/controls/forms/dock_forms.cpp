#include "controls/forms/dock_forms.h"

#include "controls/forms/form_position_priv.h"

#include "platform/toolkit/core/application.h"

namespace {
TComponent *owner_or_application(TComponent *owner)
{
    return owner ? owner : static_cast<TApplication *>(Application);
}
} // namespace

Tvx_dock_tool_form::Tvx_dock_tool_form(TComponent *owner) : Tvx_form(owner), DockPanel(new Tvx_panel(this))
{
    SetBorderStyle(bsSizeToolWin);
    SetFormStyle(fsStayOnTop);
    DockPanel->SetParent(this);
    DockPanel->SetHeight(0);
    DockPanel->SetAlign(alBottom);
    DockPanel->SetAutoSize(true);
    DockPanel->SetDockSite(true);
}

void Tvx_dock_tool_form::show_pos(int x, int y)
{
    vx::detail::form_show_placed_once(*this, f_placed, x, y);
}

Tvx_mdi_child_form::Tvx_mdi_child_form(TComponent *owner) : Tvx_form(owner_or_application(owner))
{
    SetDockSite(true);
    SetFormStyle(fsMDIChild);
}

Tvx_mdi_conjoin_dock_host::Tvx_mdi_conjoin_dock_host(TComponent *owner)
    : Tvx_form(owner_or_application(owner))
{
    SetDockSite(true);
    SetUseDockManager(true);
    SetFormStyle(fsMDIChild);
    SetVisible(false);
}
