#pragma once

#include "styles/complex/cpx_draws.h"
#include "styles/complex/cpx_layers_edit.h"

/// The upper half of the editor: the sample of the style and the list of its layers.
class VX_API Tvx_cpx_layers_panel : public Tvx_cpx_panel
{
public:
    explicit Tvx_cpx_layers_panel(TComponent *owner);

    void load_res() override;
    void update_controls() override;
    /// The style stays its owner's.
    void set_style(void *style);
    [[nodiscard]] void *get_active_lr() const { return f_edit->get_grid()->get_active_lr(); }
    [[nodiscard]] Tvx_cpx_layers_draw *get_draw() const { return f_draw; }
    [[nodiscard]] Tvx_cpx_layers_edit *get_edit() const { return f_edit; }

    TNotifyEvent on_changed;

private:
    void on_edit_changed(TObject *sender);

    Tvx_cpx_layers_draw *f_draw;
    Tvx_cpx_layers_edit *f_edit;
};
