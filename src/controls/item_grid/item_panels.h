#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"
#include "controls/item_grid/item_actions.h"
#include "controls/item_grid/item_grid.h"

#include <vector>

/// A row of square buttons for commands of an item grid, 20 high, with the list of all seven commands.
class VX_API Tvx_basic_item_tool_panel : public Tvx_panel
{
public:
    /// Fills in hints and names.
    virtual void load_res();
    void set_item_grid(Tvx_item_grid *grid) { f_actions->set_item_grid(grid); }
    [[nodiscard]] Tvx_item_grid_action_list *get_actions() const { return f_actions; }
    /// The button of a command; null if the panel has none.
    [[nodiscard]] Tvx_bitbtn *get_button(TBasicAction const *action) const;

protected:
    explicit Tvx_basic_item_tool_panel(TComponent *owner);

    /// At the right of what stands there.
    void add_button(Tvx_item_grid_action *action);
    void add_gap();

private:
    struct entry
    {
        Tvx_bitbtn *button;
        Tvx_item_grid_action *action;
    };
    void place(TControl *control, int width);

    Tvx_item_grid_action_list *f_actions;
    std::vector<entry> f_buttons;
    int f_left = 0;
};

/// Insert, delete.
class VX_API Tvx_item_tool_panel : public Tvx_basic_item_tool_panel
{
public:
    explicit Tvx_item_tool_panel(TComponent *owner);
};

/// Save, open; insert, delete.
class VX_API Tvx_scn_tool_panel : public Tvx_basic_item_tool_panel
{
public:
    explicit Tvx_scn_tool_panel(TComponent *owner);
};

/// Insert, delete, up, down.
class VX_API Tvx_tool_panel_adv : public Tvx_basic_item_tool_panel
{
public:
    explicit Tvx_tool_panel_adv(TComponent *owner);
};

/// An item grid below the commands for it.
template <class Tool_panel>
class Tvx_basic_item_panel : public Tvx_panel
{
public:
    explicit Tvx_basic_item_panel(TComponent *owner)
        : Tvx_panel(owner), f_tool_panel(new Tool_panel(this)), f_grid(new Tvx_item_grid(this))
    {
        f_tool_panel->SetParent(this);
        f_tool_panel->SetAlign(alTop);
        f_grid->SetParent(this);
        f_grid->SetAlign(alClient);
        f_tool_panel->set_item_grid(f_grid);
    }

    /// Fills in hints and names.
    virtual void load_res() { f_tool_panel->load_res(); }
    virtual void update_controls() { f_grid->update_controls(); }
    [[nodiscard]] Tool_panel *get_tool_panel() const { return f_tool_panel; }
    [[nodiscard]] Tvx_item_grid *get_item_grid() const { return f_grid; }

private:
    Tool_panel *f_tool_panel;
    Tvx_item_grid *f_grid;
};

class VX_API Tvx_item_panel : public Tvx_basic_item_panel<Tvx_item_tool_panel>
{
public:
    using Tvx_basic_item_panel::Tvx_basic_item_panel;

    void set_item_tool_panel_visible(bool visible) { get_tool_panel()->SetVisible(visible); }
};

class VX_API Tvx_scn_panel : public Tvx_basic_item_panel<Tvx_scn_tool_panel>
{
public:
    using Tvx_basic_item_panel::Tvx_basic_item_panel;
};

class VX_API Tvx_item_panel_adv : public Tvx_basic_item_panel<Tvx_tool_panel_adv>
{
public:
    using Tvx_basic_item_panel::Tvx_basic_item_panel;
};
