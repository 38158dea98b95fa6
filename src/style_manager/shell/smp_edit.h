#pragma once

#include "controls/forms/panels.h"
#include "style_manager/shell/style_avl_panel.h"
#include "style_manager/widgets/style_panel.h"

/// Edits the simple style of a style manager.
class VX_API Tvx_smp_edit : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void create();
    void load_res();
    /// Shows the styles of the manager. Fires nothing.
    void update_controls();

    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    /// Not owned; null for none.
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    void set_on_draw_style(Tvx_draw_style_event event) { f_style_panel->set_on_draw_style(event); }
    void set_on_edit_style(Tvx_edit_style_event event) { f_style_panel->set_on_edit_style(event); }
    void enable_selection_style(bool enabled) { f_style_panel->enable_selection_style(enabled); }
    [[nodiscard]] Tvx_style_panel *get_style_panel() const { return f_style_panel; }
    [[nodiscard]] Tvx_style_avl_panel *get_avl_panel() const { return f_avl_panel; }

    /// The user changed a style, or read a legend.
    TNotifyEvent on_changed;

private:
    void on_child_changed(TObject *sender);

    void *f_stl_mngr = nullptr;
    Tvx_style_panel *f_style_panel = nullptr;
    Tvx_style_avl_panel *f_avl_panel = nullptr;
};
