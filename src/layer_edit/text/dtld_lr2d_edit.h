#pragma once

#include "data/editor_source/data_source.h"
#include "layer_edit/page_api/basic_lr2d_edit.h"
#include "styles/label/label_style_panel.h"

/// The page of a dynamic text layer: the editor of its text classes, with the fields of the layer that is
/// labelled.
class VX_API Tvx_dtld_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    explicit Tvx_dtld_lr2d_edit(TComponent *owner);
    ~Tvx_dtld_lr2d_edit() override;

    void create() override;
    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Ivx_layer *get_dtld_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_data_source *get_data_source() const { return f_data_source; }
    /// Null before `create`.
    [[nodiscard]] Tvx_label_style_panel *get_label_panel() const { return f_label_panel; }

private:
    Tvx_data_source *f_data_source; ///< owned
    Tvx_label_style_panel *f_label_panel = nullptr;
};
