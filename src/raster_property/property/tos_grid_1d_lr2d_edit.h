#pragma once

#include "controls/forms/pages.h"
#include "controls/prop/prop_edit.h"
#include "raster_property/property/tos_lr2d_edit.h"
#include "style_manager/rotation/grid1d_clr_mngr_edit.h"

/// The page of a curve: the property of its height, and its line.
class VX_API Tvx_tos_grid_1d_lr2d_edit : public Tvx_tos_lr2d_edit
{
public:
    using Tvx_tos_lr2d_edit::Tvx_tos_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Ivx_layer *get_tos_grid_1d_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    [[nodiscard]] Tvx_prop_edit *get_hprop_edit() const { return f_hprop_edit; }
    [[nodiscard]] Tvx_grid1d_clr_mngr_edit *get_mngr_edit() const { return f_mngr_edit; }
    void on_hprop_edit_changed(TObject *sender);

private:
    Tvx_panel *add_tab();
    void on_mngr_edit_changed(TObject *sender);

    Tvx_page_control *f_pages = nullptr;
    Tvx_prop_edit *f_hprop_edit = nullptr;
    Tvx_grid1d_clr_mngr_edit *f_mngr_edit = nullptr;
};
