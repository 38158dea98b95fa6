#pragma once

#include "controls/forms/dlg_form.h"
#include "styles/complex/cpx_style_panel.h"

/// The dialog of a complex style. It works on a copy: whoever runs it takes that over after `mrOk`.
class VX_API Tvx_cpx_styles_form : public Tvx_dlg_form
{
public:
    explicit Tvx_cpx_styles_form(TComponent *owner);

    void load_res() override;

    // As those of the panel.
    void set_cpx_pnt_style(void const *style) { f_panel->set_cpx_pnt_style(style); }
    void set_cpx_pln_style(void const *style) { f_panel->set_cpx_pln_style(style); }
    void set_cpx_pgn_style(void const *style) { f_panel->set_cpx_pgn_style(style); }
    void get_cpx_pnt_style(void *style) const { f_panel->get_cpx_pnt_style(style); }
    void get_cpx_pln_style(void *style) const { f_panel->get_cpx_pln_style(style); }
    void get_cpx_pgn_style(void *style) const { f_panel->get_cpx_pgn_style(style); }
    /// Runs the dialog on the style that was set last; true if the user accepted.
    [[nodiscard]] bool edit_cpx_style();

    [[nodiscard]] Tvx_cpx_style_panel *get_panel() const { return f_panel; }

private:
    Tvx_cpx_style_panel *f_panel;
};
