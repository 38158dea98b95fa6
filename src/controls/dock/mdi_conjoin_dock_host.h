#pragma once

#include "controls/forms/form.h"

/// A document window that joins several others, which its dock manager lays out. It starts hidden, and ends
/// when the last but one leaves it.
class VX_API Tvx_mdi_conjoin_dock_host : public Tvx_form
{
public:
    /// `owner` null: the application.
    explicit Tvx_mdi_conjoin_dock_host(TComponent *owner);

    /// The captions of all that are docked and seen, but for `exclude`, which may be null.
    void UpdateCaption(TControl *exclude);

protected:
    void Activate() override;

private:
    void FormGetSiteInfo(TObject *sender, TControl *client, TRect &influence, bool &can_dock);
    void FormDockOver(TObject *sender, TDragDockObject *source, int x, int y, TDragState state, bool &accept);
    void FormDockDrop(TObject *sender, TDragDockObject *source, int x, int y);
    void FormUnDock(TObject *sender, TControl *client, TWinControl *new_target, bool &allow);
    void FormCloseQuery(TObject *sender, bool &can_close);
    void FormClose(TObject *sender, TCloseAction &action);
};
