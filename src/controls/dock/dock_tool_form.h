#pragma once

#include "controls/forms/form.h"
#include "controls/forms/misc.h"
#include "controls/forms/panels.h"

/// A tool window that stays above the others, with a panel at its bottom into which others dock. While
/// something is docked a splitter stands above the panel, which keeps its share of the height when the form
/// is resized.
class VX_API Tvx_dock_tool_form : public Tvx_form
{
public:
    explicit Tvx_dock_tool_form(TComponent *owner);
    ~Tvx_dock_tool_form() override;

    /// Shows the form; placed at its first showing as `Tvx_tool_form::show_pos` does.
    void show_pos(int x, int y);

    /// A dock site, of height 0 while nothing is docked.
    Tvx_panel *DockPanel;
    Tvx_splitter *DockSplitter;

private:
    [[nodiscard]] int room() const;
    void keep_share();
    void DockPanelDockOver(TObject *sender, TDragDockObject *source, int x, int y, TDragState state,
                           bool &accept);
    void DockPanelDockDrop(TObject *sender, TDragDockObject *source, int x, int y);
    void DockPanelUnDock(TObject *sender, TControl *client, TWinControl *new_target, bool &allow);
    void DockSplitterMove(TObject *sender);
    void FormResize(TObject *sender);

    int f_share = 0; ///< of the panel in the room, in parts of 65536
    bool f_placed = false;
};
