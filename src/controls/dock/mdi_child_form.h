#pragma once

#include "controls/forms/form.h"

class Tvx_wstrings_obj;

/// A document window inside the main form. Dropped on a fifth at an edge of another one, the two stand side
/// by side in a window that joins them (`Tvx_mdi_conjoin_dock_host`).
class VX_API Tvx_mdi_child_form : public Tvx_form
{
public:
    /// `owner` null: the application. `plain` true leaves the style a normal form's, until the form has
    /// been docked and floats again.
    explicit Tvx_mdi_child_form(TComponent *owner, bool plain = false);
    ~Tvx_mdi_child_form() override;

    /// Of a form that is docked in a joint window, shows that first.
    void Show();
    /// Whether files can be dropped on the form; `drop_files` gets them.
    void parse_drop_files(bool on);
    /// Whole paths. Does nothing unless overridden.
    virtual void drop_files(Tvx_wstrings_obj const &names);

    [[nodiscard]] TWinControl *get_tool_panel() const { return f_tool_panel; }
    /// What the main form shows in its `MainToolPanel` while this one is active; not owned. A former panel is
    /// taken off.
    void set_tool_panel(TWinControl *panel);
    /// Shows it, and hides what else stands in `MainToolPanel`.
    void show_tool_panel();

    /// The zone at a point of the client area and the rectangle on the screen that a form dropped there
    /// takes: left, top, right, bottom are tried in this order. `alNone` leaves the rectangle alone.
    TAlign ComputeDockingRect(TRect &rect, TPoint const &point);

protected:
    void Activate() override;
    void DoEnter() override;
    void Paint() override;
    void DoDock(TWinControl *new_site, TRect &rect) override;
    void DockDrop(TDragDockObject *source, int x, int y) override;
    void DropFiles(std::vector<std::wstring> const &names) override;
    [[nodiscard]] std::unique_ptr<TDragDockObject> CreateDragDockObject() override;
    void Notification(TComponent *component, TOperation operation) override;

private:
    void FormGetSiteInfo(TObject *sender, TControl *client, TRect &influence, bool &can_dock);
    void FormDockOver(TObject *sender, TDragDockObject *source, int x, int y, TDragState state, bool &accept);
    void FormEndDock(TObject *sender, TObject *target, int x, int y);
    void on_self_close(TObject *sender, TCloseAction &action);

    TWinControl *f_tool_panel = nullptr;
    bool f_closing = false;
};
