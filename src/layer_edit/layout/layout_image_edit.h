#pragma once

#include "controls/prop/file_panel.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"

/// Edits which picture file an image shows. What the user does goes into the layer at once.
class VX_API Tvx_layout_image_edit : public Tvx_basic_lr2d_edit
{
public:
    explicit Tvx_layout_image_edit(TComponent *owner);

    void load_res() override;
    /// Nothing without a layer: the controls keep what they show.
    void update_controls() override;

    [[nodiscard]] Tvx_file_panel *get_file() const { return f_file; }

    void on_image_file_changed(TObject *sender);

protected:
    Tvx_file_panel *f_file;
};
