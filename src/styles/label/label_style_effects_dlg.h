#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/dlg_form.h"
#include "controls/numeric/size_panel.h"
#include "controls/prop/clr_vsb_panel.h"

struct Ivx_layer;

/// Background, outline and shadow of the current text class of a dynamic text layer. The class is written by
/// `return_controls` alone.
class VX_API Tvx_label_style_effects_dlg : public Tvx_dlg_form
{
public:
    explicit Tvx_label_style_effects_dlg(TComponent *owner);

    void create_controls() override;
    void load_res() override;
    /// Not owned; null for none.
    void set_layer(Ivx_layer *layer) { f_layer = layer; }
    [[nodiscard]] Ivx_layer *get_layer() const { return f_layer; }
    /// Shows the class; nothing without a layer.
    void update_controls();
    /// Writes what is shown into the class, whether it is switched on or not. A number that was emptied
    /// stays.
    void return_controls();

    // Null before `create_controls`.
    [[nodiscard]] Tvx_check_box *get_back_check() const { return f_back_check; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_back_clr() const { return f_back_clr; }
    [[nodiscard]] Tvx_check_box *get_outline_check() const { return f_outline_check; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_outline_clr() const { return f_outline_clr; }
    [[nodiscard]] Tvx_size_panel *get_outline_width() const { return f_outline_width; }
    [[nodiscard]] Tvx_check_box *get_shadow_check() const { return f_shadow_check; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_shadow_clr() const { return f_shadow_clr; }
    [[nodiscard]] Tvx_size_panel *get_shadow_width() const { return f_shadow_width; }
    /// How far the shadow lies to the right, and up.
    [[nodiscard]] Tvx_size_panel *get_shadow_a() const { return f_shadow_a; }
    [[nodiscard]] Tvx_size_panel *get_shadow_b() const { return f_shadow_b; }

private:
    void show_enabled();
    void on_back_changed(TObject *sender);
    void on_outline_changed(TObject *sender);
    void on_shadow_changed(TObject *sender);

    Ivx_layer *f_layer = nullptr;
    Tvx_check_box *f_back_check = nullptr;
    Tvx_clr_vsb_panel *f_back_clr = nullptr;
    Tvx_check_box *f_outline_check = nullptr;
    Tvx_children_enabled_panel *f_outline_panel = nullptr;
    Tvx_clr_vsb_panel *f_outline_clr = nullptr;
    Tvx_size_panel *f_outline_width = nullptr;
    Tvx_check_box *f_shadow_check = nullptr;
    Tvx_children_enabled_panel *f_shadow_panel = nullptr;
    Tvx_clr_vsb_panel *f_shadow_clr = nullptr;
    Tvx_size_panel *f_shadow_width = nullptr;
    Tvx_size_panel *f_shadow_a = nullptr;
    Tvx_size_panel *f_shadow_b = nullptr;
};
