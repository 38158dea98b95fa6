#pragma once

#include "styles/complex/cpx_panel.h"
#include "styles/complex/pln_template_grid.h"

/// The list of the elements of a line template.
class VX_API Tvx_pln_template_panel : public Tvx_cpx_panel
{
public:
    explicit Tvx_pln_template_panel(TComponent *owner);

    void load_res() override { f_grid->load_res(); }
    void update_controls() override { f_grid->update_controls(); }

    [[nodiscard]] std::string const &get_template_str() const { return f_grid->get_template_str(); }
    /// Fires nothing.
    void set_template_str(std::string const &text) { f_grid->set_template_str(text); }
    [[nodiscard]] Tvx_pln_template_grid *get_grid() const { return f_grid; }

    TNotifyEvent on_changed;

private:
    void on_grid_changed(TObject *sender);

    Tvx_pln_template_grid *f_grid;
};
