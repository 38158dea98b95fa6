#pragma once

#include "controls/numeric/size_panel.h"
#include "controls/prop/entities_prop_edit.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

/// Edits which scene of the project a scene frame shows, and at what scale. The frame holds its scene by
/// name, as its file name. What the user does goes into the layer at once.
class VX_API Tvx_layout_scene_edit : public Tvx_basic_lr2d_edit
{
public:
    explicit Tvx_layout_scene_edit(TComponent *owner);

    void load_res() override;
    /// Nothing without a layer: the controls keep what they show.
    void update_controls() override;

    [[nodiscard]] Tvx_entities_prop_edit *get_scene_prop() const { return f_scene_prop; }
    [[nodiscard]] Tvx_size_panel *get_scale_x() const { return f_scale_x; }
    /// For both axes at once where the scene is isotropic, or there is none: it is disabled then.
    [[nodiscard]] Tvx_size_panel *get_scale_y() const { return f_scale_y; }

    void on_scn_prop_changed(TObject *sender);
    void on_scn_scale_changed(TObject *sender);

protected:
    Tvx_entities_prop_edit *f_scene_prop;
    Tvx_size_panel *f_scale_x;
    Tvx_size_panel *f_scale_y;

private:
    Tvx_size_panel *add_scale();
    void take_scenes();
    bool on_scenes_open(TObject *sender);
    void on_scale_apply(TObject *sender);
    void show_scale();
};
