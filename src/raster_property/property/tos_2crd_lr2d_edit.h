#pragma once

#include "raster_property/property/tos_lr2d_edit.h"
#include "raster_property/property/tos_prp_crd_panel.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

/// The pages of points placed by two properties: the editor of their manager, and the panel of the two
/// properties, which stands on the property tab.
class VX_API Tvx_tos_2crd_lr2d_edit : public Tvx_tos_lr2d_edit
{
public:
    using Tvx_tos_lr2d_edit::Tvx_tos_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;
    void end_edit(bool taken) override;
    [[nodiscard]] TWinControl *get_coordinate_panel() override { return f_xycrd_panel; }

    [[nodiscard]] Ivx_layer *get_tos_2crd_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_tos_prp_crd_panel *get_xycrd_panel() const { return f_xycrd_panel; }
    [[nodiscard]] Tvx_pnt_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_xycrd_changed(TObject *sender);

private:
    Tvx_tos_prp_crd_panel *f_xycrd_panel = nullptr;
    Tvx_pnt_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};
