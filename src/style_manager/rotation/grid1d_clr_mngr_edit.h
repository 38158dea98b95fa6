#pragma once

#include "controls/forms/panels.h"
#include "style_manager/shell/smp_edit.h"

/// Edits the manager of a curve, style type "grid1d_clr_style": one line style, and no scales. Whoever makes
/// it calls `create` and `load_res`.
class VX_API Tvx_grid1d_clr_mngr_edit : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void create();
    void load_res();
    /// Shows the styles of the manager, or nothing without one. Fires nothing.
    void update_controls();
    void call_changed() { on_changed(this); }

    [[nodiscard]] void *get_grid1d_clr_mngr() const { return f_mngr; }
    /// Not owned; null for none.
    void set_grid1d_clr_mngr(void *mngr) { f_mngr = mngr; }
    /// These two replace the editor's own ways.
    void set_on_draw_style(Tvx_draw_style_event event);
    void set_on_edit_style(Tvx_edit_style_event event);
    [[nodiscard]] Tvx_smp_edit *get_smp_edit() const { return f_smp_edit; }

    /// The user changed a style.
    TNotifyEvent on_changed;

    /// Draws an example of a line style, which is made visible; nothing where there is no such style.
    void on_self_draw_style(TObject *sender, TBitmap *bitmap, void *stl_prm, bool sel);
    bool on_self_edit_style(TObject *sender, int x, int y, void *stl_prm, bool sel);

private:
    void on_smp_edit_changed(TObject *sender);

    void *f_mngr = nullptr;
    Tvx_smp_edit *f_smp_edit = nullptr;
};
