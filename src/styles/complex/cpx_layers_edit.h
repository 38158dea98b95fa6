#pragma once

#include "styles/complex/cpx_framed_panel.h"
#include "styles/complex/cpx_layers_grid.h"

/// The list of layers in its frame.
class VX_API Tvx_cpx_layers_edit : public Tvx_cpx_framed_panel
{
public:
    explicit Tvx_cpx_layers_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override { f_grid->update_controls(); }
    void set_style(void *style) { f_grid->set_style(style); }
    [[nodiscard]] Tvx_cpx_layers_grid *get_grid() const { return f_grid; }

    /// The user changed the list, or made another layer the active one.
    TNotifyEvent on_changed;

private:
    void on_grid_changed(TObject *sender);

    Tvx_cpx_layers_grid *f_grid;
};
