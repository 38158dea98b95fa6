#pragma once

#include "styles/complex/cpx_draws.h"
#include "styles/complex/cpx_layer_edit.h"

/// The lower half of the editor: the sample of the active layer and its values.
class VX_API Tvx_cpx_layer_panel : public Tvx_cpx_panel
{
public:
    explicit Tvx_cpx_layer_panel(TComponent *owner);

    void load_res() override;
    void update_controls() override;
    /// The layer stays its owner's; null for none.
    void set_style_lr(void *layer);
    [[nodiscard]] void *get_style_lr() const { return f_style_lr; }
    [[nodiscard]] Tvx_cpx_layer_draw *get_draw() const { return f_draw; }
    [[nodiscard]] Tvx_cpx_layer_edit *get_edit() const { return f_edit; }

    TNotifyEvent on_changed;

private:
    void on_edit_changed(TObject *sender);

    void *f_style_lr = nullptr;
    Tvx_cpx_layer_draw *f_draw;
    Tvx_cpx_layer_edit *f_edit;
};
