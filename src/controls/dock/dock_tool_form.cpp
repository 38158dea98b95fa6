#include "controls/dock/dock_tool_form.h"

#include "controls/forms/detail/form_position.h"

#include "platform/toolkit/core/drag_object.h"

#include <algorithm>

namespace {
constexpr int c_share_bits = 16;
} // namespace

Tvx_dock_tool_form::Tvx_dock_tool_form(TComponent *owner)
    : Tvx_form(owner), DockPanel(new Tvx_panel(this)), DockSplitter(new Tvx_splitter(this))
{
    SetBorderStyle(bsSizeToolWin);
    SetFormStyle(fsStayOnTop);
    DockPanel->SetParent(this);
    DockPanel->SetHeight(0);
    DockPanel->SetAlign(alBottom);
    DockPanel->SetAutoSize(true);
    DockPanel->SetDockSite(true);
    DockPanel->SetUseDockManager(true);
    DockSplitter->SetVisible(false);
    DockSplitter->SetParent(this);
    DockSplitter->SetAlign(alBottom);
    DockPanel->OnDockOver = make_closure<&Tvx_dock_tool_form::DockPanelDockOver>(this);
    DockPanel->OnDockDrop = make_closure<&Tvx_dock_tool_form::DockPanelDockDrop>(this);
    DockPanel->OnUnDock = make_closure<&Tvx_dock_tool_form::DockPanelUnDock>(this);
    DockSplitter->OnMoved = make_closure<&Tvx_dock_tool_form::DockSplitterMove>(this);
    OnResize = make_closure<&Tvx_dock_tool_form::FormResize>(this);
}

Tvx_dock_tool_form::~Tvx_dock_tool_form()
{
    if (GetHostDockSite()) {
        TPoint const corner = GetClientOrigin();
        ManualFloat(Bounds(corner.X, corner.Y, GetUndockWidth(), GetUndockHeight()));
    }
}

void Tvx_dock_tool_form::show_pos(int x, int y)
{
    vx::detail::form_show_placed_once(*this, f_placed, x, y);
}

int Tvx_dock_tool_form::room() const
{
    return GetClientHeight() - DockSplitter->GetHeight();
}

void Tvx_dock_tool_form::keep_share()
{
    int const rest = room();
    f_share = rest > 0 ? ((DockPanel->GetHeight() << c_share_bits) + (rest >> 1)) / rest : 0;
}

void Tvx_dock_tool_form::DockPanelDockOver(TObject *, TDragDockObject *source, int, int, TDragState, bool &)
{
    if (DockPanel->GetDockClientCount() > 0)
        return;
    double const own = GetHeight(), dragged = source->GetControl()->GetHeight();
    TRect place = source->GetDockRect();
    place.Top -= static_cast<int>((own * dragged) / (own + dragged + 1));
    source->SetDockRect(place);
}

void Tvx_dock_tool_form::DockPanelDockDrop(TObject *, TDragDockObject *source, int, int)
{
    if (DockPanel->GetDockClientCount() != 1)
        return;
    DockPanel->SetAutoSize(false);
    double const own = GetHeight(), dragged = source->GetControl()->GetUndockHeight();
    DockPanel->SetHeight(std::max(static_cast<int>((own * dragged) / (own + dragged + 1)), 1));
    DockSplitter->SetVisible(true);
    DockSplitter->SetTop(DockPanel->GetTop() - DockSplitter->GetHeight());
    keep_share();
}

void Tvx_dock_tool_form::DockPanelUnDock(TObject *, TControl *, TWinControl *new_target, bool &allow)
{
    if (!allow || new_target == DockPanel || DockPanel->GetDockClientCount() != 1)
        return;
    DockSplitter->SetVisible(false);
    DockPanel->SetHeight(0);
    DockPanel->SetAutoSize(true);
}

void Tvx_dock_tool_form::DockSplitterMove(TObject *)
{
    keep_share();
}

void Tvx_dock_tool_form::FormResize(TObject *)
{
    if (DockPanel->GetDockClientCount() == 0)
        return;
    bool const auto_size = DockPanel->GetAutoSize();
    DockPanel->SetAutoSize(false);
    auto const height = static_cast<long long>(std::max(room(), 0)) * f_share >> c_share_bits;
    DockPanel->SetHeight(std::max(static_cast<int>(height), 1));
    DockPanel->SetAutoSize(auto_size);
}
