#pragma once

#include "styles/complex/cpx_layer_panel.h"
#include "styles/complex/cpx_layers_panel.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_cpx_style.h"

/// Edits a complex style of any kind, on a copy of its own: the layers above, the active one below.
class VX_API Tvx_cpx_style_panel : public Tvx_cpx_panel
{
public:
    explicit Tvx_cpx_style_panel(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    // Each copies the style and makes the copy the one that is edited; `update_controls` shows it.
    void set_cpx_pnt_style(void const *style);
    void set_cpx_pln_style(void const *style);
    void set_cpx_pgn_style(void const *style);
    // Each copies the edited style of the kind to the given one.
    void get_cpx_pnt_style(void *style) const;
    void get_cpx_pln_style(void *style) const;
    void get_cpx_pgn_style(void *style) const;

    /// The copy that is edited; null before the first was set.
    [[nodiscard]] void *get_style() const { return f_style; }
    [[nodiscard]] Tvx_cpx_layers_panel *get_layers_panel() const { return f_layers_panel; }
    [[nodiscard]] Tvx_cpx_layer_panel *get_layer_panel() const { return f_layer_panel; }

protected:
    void Resize() override;

private:
    void on_cpx_layers_changed(TObject *sender);
    void on_cpx_layer_changed(TObject *sender);

    vx::owned<void, &vx_cpx_pnt_style_destroy> f_own_pnt;
    vx::owned<void, &vx_cpx_pln_style_destroy> f_own_pln;
    vx::owned<void, &vx_cpx_pgn_style_destroy> f_own_pgn;
    void *f_style = nullptr; ///< one of the three
    Tvx_cpx_layers_panel *f_layers_panel = nullptr;
    Tvx_cpx_layer_panel *f_layer_panel = nullptr;
};
