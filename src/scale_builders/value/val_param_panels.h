#pragma once

#include "controls/forms/buttons.h"
#include "style_manager/api/data_events.h"
#include "style_manager/widgets/prp_scale.h"

class Tvx_val_params_modify;
class Tvx_val_params_rebuild;

/// Panels for the parameters of the modes that need the data alone. All operations need `create`; setters
/// fire nothing. `set_params` begins with the field of the manager's value scale; `fill_params` writes what
/// was chosen into the record, and is always true.

class VX_API Tvx_vcl_val_rebuild_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_params(void *stl_mngr, Tvx_data_events const &data);
    bool fill_params(Tvx_val_params_rebuild *params) const;

    [[nodiscard]] Tvx_prp_scale *get_prp_scale() const { return f_prp_scale; }

private:
    TWinControl *f_group = nullptr;
    Tvx_prp_scale *f_prp_scale = nullptr;
};

class VX_API Tvx_vcl_val_modify_params_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    void set_params(void *stl_mngr, Tvx_data_events const &data);
    bool fill_params(Tvx_val_params_modify *params) const;

    [[nodiscard]] Tvx_vcl_check_box *get_add_box() const { return f_add_box; }
    [[nodiscard]] Tvx_vcl_check_box *get_del_box() const { return f_del_box; }
    [[nodiscard]] Tvx_vcl_check_box *get_capt_box() const { return f_capt_box; }
    /// Enabled while captions are read.
    [[nodiscard]] Tvx_prp_scale *get_prp_scale() const { return f_prp_scale; }

private:
    void on_capt_box_click(TObject *sender);

    TWinControl *f_group = nullptr;
    Tvx_vcl_check_box *f_add_box = nullptr;
    Tvx_vcl_check_box *f_del_box = nullptr;
    Tvx_vcl_check_box *f_capt_box = nullptr;
    Tvx_prp_scale *f_prp_scale = nullptr;
};
