#pragma once

#include "controls/forms/panels.h"
#include "controls/prop/prop_edit.h"

#include <string>

/// The two properties that place points. The pull events go to both lists.
class VX_API Tvx_tos_prp_crd_panel : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    void create();
    void load_res();
    /// Shows the two names. Fires nothing.
    void update_controls();
    void call_changed() { on_changed(this); }

    [[nodiscard]] Tvx_data_open_event get_on_data_open() const { return f_edit_x->get_on_data_open(); }
    void set_on_data_open(Tvx_data_open_event event);
    [[nodiscard]] Tvx_data_close_event get_on_data_close() const { return f_edit_x->get_on_data_close(); }
    void set_on_data_close(Tvx_data_close_event event);
    [[nodiscard]] Tvx_data_get_np_event get_on_data_get_np() const { return f_edit_x->get_on_data_get_np(); }
    void set_on_data_get_np(Tvx_data_get_np_event event);
    [[nodiscard]] Tvx_data_get_prop_event get_on_data_get_prop() const
    {
        return f_edit_x->get_on_data_get_prop();
    }
    void set_on_data_get_prop(Tvx_data_get_prop_event event);
    [[nodiscard]] Tvx_data_get_capt_prop_event get_on_data_get_capt_prop() const
    {
        return f_edit_x->get_on_data_get_capt_prop();
    }
    void set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event);

    [[nodiscard]] Tvx_prop_edit *get_edit_x() const { return f_edit_x; }
    [[nodiscard]] Tvx_prop_edit *get_edit_y() const { return f_edit_y; }

    std::wstring prop_name_x;
    std::wstring prop_name_y;
    /// The user chose one of the properties, whose name is stored by then.
    TNotifyEvent on_changed;

private:
    Tvx_prop_edit *add_edit(TNotifyEvent changed);
    void on_edit_x_changed(TObject *sender);
    void on_edit_y_changed(TObject *sender);

    Tvx_prop_edit *f_edit_x = nullptr;
    Tvx_prop_edit *f_edit_y = nullptr;
};
