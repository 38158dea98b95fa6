#pragma once

#include "controls/forms/buttons.h"
#include "style_manager/api/data_events.h"

/// Opens the builder of value scales below itself. Enabled while there is a manager.
class VX_API Tvx_val_edit_btn : public Tvx_bitbtn
{
public:
    explicit Tvx_val_edit_btn(TComponent *owner);

    /// Not owned.
    void set_stl_mngr(void *mngr);
    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    void set_data_events(Tvx_data_events const &events) { f_data = events; }

    /// The builder changed the scale.
    TNotifyEvent on_changed;

private:
    void on_self_click(TObject *sender);

    void *f_stl_mngr = nullptr;
    Tvx_data_events f_data;
};
