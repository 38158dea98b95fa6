#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/dlg_form.h"
#include "controls/forms/panels.h"
#include "controls/prop/prop_edit.h"
#include "style_manager/api/data_events.h"

/// The dialog of a manager's rotation: whether symbols, spots and hatches turn, by which numeric property,
/// where an angle of 0 points and in which direction larger ones turn. Nothing reaches the manager before
/// Apply.
class VX_API Tvx_rotate_form : public Tvx_dlg_form
{
public:
    explicit Tvx_rotate_form(TComponent *owner);

    /// Runs the dialog at a point of the screen, as `Tvx_dlg_form::show_pos`; true after Apply. The events
    /// give the properties that are offered; a manager of points offers its symbols, one of areas spots and
    /// hatches.
    static bool dialog(int x, int y, void *mngr, Tvx_data_open_event on_data_open,
                       Tvx_data_close_event on_data_close, Tvx_data_get_np_event on_data_get_np,
                       Tvx_data_get_no_event on_data_get_no, Tvx_data_get_prop_event on_data_get_prop,
                       Tvx_data_get_capt_prop_event on_data_get_capt_prop,
                       Tvx_data_get_stat_event on_data_get_stat, Tvx_data_get_str_event on_data_get_str,
                       Tvx_data_get_val_event on_data_get_val);

    /// Shows the settings of the manager, which is not owned. Needs `create_controls`.
    void init_params(void *mngr, Tvx_data_open_event on_data_open, Tvx_data_close_event on_data_close,
                     Tvx_data_get_np_event on_data_get_np, Tvx_data_get_no_event on_data_get_no,
                     Tvx_data_get_prop_event on_data_get_prop,
                     Tvx_data_get_capt_prop_event on_data_get_capt_prop,
                     Tvx_data_get_stat_event on_data_get_stat, Tvx_data_get_str_event on_data_get_str,
                     Tvx_data_get_val_event on_data_get_val);
    void create_controls() override;
    void load_res() override;
    /// Writes all of it to the manager.
    bool apply_click() override;
    /// Property, zero position and direction can be chosen while something turns.
    void enable_disable();

    [[nodiscard]] Tvx_check_box *get_rotate_check() const { return f_rotate_check; }
    [[nodiscard]] Tvx_check_box *get_spot_check() const { return f_spot_check; }
    [[nodiscard]] Tvx_check_box *get_hatch_check() const { return f_hatch_check; }
    [[nodiscard]] Tvx_prop_edit *get_prop_edit() const { return f_prop_edit; }
    [[nodiscard]] Tvx_radio_group *get_start_group() const { return f_start_group; }
    [[nodiscard]] Tvx_radio_group *get_dir_group() const { return f_dir_group; }

private:
    Tvx_check_box *add_check();
    void on_check_click(TObject *sender);
    void on_radio_panel_resize(TObject *sender);

    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
    Tvx_check_box *f_rotate_check = nullptr;
    Tvx_check_box *f_spot_check = nullptr;
    Tvx_check_box *f_hatch_check = nullptr;
    Tvx_prop_edit *f_prop_edit = nullptr;
    Tvx_panel *f_radio_panel = nullptr;
    Tvx_radio_group *f_start_group = nullptr;
    Tvx_radio_group *f_dir_group = nullptr;
};
