#pragma once

#include "controls/forms/form.h"
#include "controls/forms/panels.h"

/// A tool window that stays above the others, with a panel at its bottom into which others dock.
class VX_API Tvx_dock_tool_form : public Tvx_form
{
public:
    explicit Tvx_dock_tool_form(TComponent *owner);

    /// Shows the form; placed at its first showing as `Tvx_tool_form::show_pos` does.
    void show_pos(int x, int y);

    /// A dock site, of height 0 while nothing is docked.
    Tvx_panel *DockPanel;

private:
    bool f_placed = false;
};

/// A document window inside the main form, into which others dock.
class VX_API Tvx_mdi_child_form : public Tvx_form
{
public:
    /// `owner` null: the application.
    explicit Tvx_mdi_child_form(TComponent *owner);
};

/// A document window that joins several others. It starts hidden.
class VX_API Tvx_mdi_conjoin_dock_host : public Tvx_form
{
public:
    explicit Tvx_mdi_conjoin_dock_host(TComponent *owner);
};
