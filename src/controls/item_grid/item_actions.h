#pragma once

#include "controls/forms/menus.h"
#include "controls/forms/misc.h"

#include <array>

class Tvx_item_grid;

/// A command of an item grid. The grid brings it up to date whenever it may have become possible or not.
class VX_API Tvx_item_grid_action : public Tvx_action
{
public:
    explicit Tvx_item_grid_action(TComponent *owner);
    ~Tvx_item_grid_action() override;

    [[nodiscard]] Tvx_item_grid *get_item_grid() const { return f_grid; }
    /// Null takes the action from its grid.
    void set_item_grid(Tvx_item_grid *grid);

protected:
    /// Whether the command can be given now.
    [[nodiscard]] virtual bool can_execute() const { return f_grid != nullptr; }
    /// Gives it; there is a grid.
    virtual void execute(Tvx_item_grid *grid) = 0;
    void Notification(TComponent *component, TOperation operation) override;

private:
    void on_self_update(TObject *sender);
    void on_self_execute(TObject *sender);

    Tvx_item_grid *f_grid = nullptr;
};

/// Inserts an item; as long as the grid can add one.
class VX_API Tvx_item_ins_action : public Tvx_item_grid_action
{
public:
    using Tvx_item_grid_action::Tvx_item_grid_action;

protected:
    [[nodiscard]] bool can_execute() const override;
    void execute(Tvx_item_grid *grid) override;
};

/// A command for marked items: there is one at least.
class VX_API Tvx_item_marked_action : public Tvx_item_grid_action
{
public:
    using Tvx_item_grid_action::Tvx_item_grid_action;

protected:
    [[nodiscard]] bool can_execute() const override;
};

class VX_API Tvx_item_del_action : public Tvx_item_marked_action
{
public:
    using Tvx_item_marked_action::Tvx_item_marked_action;

protected:
    void execute(Tvx_item_grid *grid) override;
};

class VX_API Tvx_item_sav_action : public Tvx_item_grid_action
{
public:
    using Tvx_item_grid_action::Tvx_item_grid_action;

protected:
    void execute(Tvx_item_grid *grid) override;
};

class VX_API Tvx_item_open_action : public Tvx_item_grid_action
{
public:
    using Tvx_item_grid_action::Tvx_item_grid_action;

protected:
    void execute(Tvx_item_grid *grid) override;
};

/// Always enabled; does nothing without a grid.
class VX_API Tvx_item_parm_action : public Tvx_item_grid_action
{
public:
    using Tvx_item_grid_action::Tvx_item_grid_action;

protected:
    [[nodiscard]] bool can_execute() const override { return true; }
    void execute(Tvx_item_grid *grid) override;
};

class VX_API Tvx_item_up_action : public Tvx_item_marked_action
{
public:
    using Tvx_item_marked_action::Tvx_item_marked_action;

protected:
    void execute(Tvx_item_grid *grid) override;
};

class VX_API Tvx_item_down_action : public Tvx_item_marked_action
{
public:
    using Tvx_item_marked_action::Tvx_item_marked_action;

protected:
    void execute(Tvx_item_grid *grid) override;
};

/// The seven commands with their pictures, for the grid that they are given. The list owns them.
class VX_API Tvx_item_grid_action_list : public Tvx_action_list
{
public:
    explicit Tvx_item_grid_action_list(TComponent *owner);

    /// Fills in the hints.
    void load_res();
    void set_item_grid(Tvx_item_grid *grid);

    [[nodiscard]] Tvx_item_ins_action *get_ins_action() const { return f_ins; }
    [[nodiscard]] Tvx_item_del_action *get_del_action() const { return f_del; }
    [[nodiscard]] Tvx_item_sav_action *get_sav_action() const { return f_sav; }
    [[nodiscard]] Tvx_item_open_action *get_open_action() const { return f_open; }
    [[nodiscard]] Tvx_item_parm_action *get_parm_action() const { return f_parm; }
    [[nodiscard]] Tvx_item_up_action *get_up_action() const { return f_up; }
    [[nodiscard]] Tvx_item_down_action *get_down_action() const { return f_down; }

private:
    Tvx_image_list *f_images;
    Tvx_item_ins_action *f_ins;
    Tvx_item_del_action *f_del;
    Tvx_item_sav_action *f_sav;
    Tvx_item_open_action *f_open;
    Tvx_item_parm_action *f_parm;
    Tvx_item_up_action *f_up;
    Tvx_item_down_action *f_down;
};
