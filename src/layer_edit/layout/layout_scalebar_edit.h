#pragma once

#include "controls/prop/entities_prop_edit.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

struct Ivx_scn_2d;

/// Edits to which scene frame of the active layout an element belongs: a scale bar, or another one that holds
/// the frame by name, as its file name. What the user does goes into the layer at once.
class VX_API Tvx_layout_scalebar_edit : public Tvx_basic_lr2d_edit
{
public:
    explicit Tvx_layout_scalebar_edit(TComponent *owner);

    void load_res() override;
    /// Nothing without a layer: the controls keep what they show.
    void update_controls() override;

    [[nodiscard]] Tvx_entities_prop_edit *get_scene_prop() const { return f_scene_prop; }
    /// Whose frames are offered: the layout that was active when the element was last shown, where the user
    /// may have turned to another one meanwhile; the active one where that has gone. Null when there is none.
    [[nodiscard]] Ivx_scn_2d *get_layout() const;

    void on_scn_prop_changed(TObject *sender);

protected:
    Tvx_entities_prop_edit *f_scene_prop;

private:
    void take_frames();
    bool on_frames_open(TObject *sender);

    Ivx_scn_2d const *f_layout = nullptr; ///< may have ended
};
