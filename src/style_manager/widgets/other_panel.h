#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/panels.h"
#include "controls/prop/bool_panel.h"
#include "style_manager/widgets/style_btn.h"

/// The row of a scale that stands for everything that its entries do not hold; 22 high.
class VX_API Tvx_other_panel : public Tvx_panel
{
public:
    explicit Tvx_other_panel(TComponent *owner);

    void create();
    void load_res();
    /// Shows parameters and caption. Fires nothing.
    void update_controls();

    /// Never null.
    [[nodiscard]] wchar_t const *get_caption() const { return f_caption.c_str(); }
    void set_caption(wchar_t const *caption) { f_caption = caption ? caption : L""; }
    /// The scale parameters of the row, not owned; null for none.
    [[nodiscard]] void *get_scl_prm() const { return f_scl_prm; }
    void set_scl_prm(void *scale_prm) { f_scl_prm = scale_prm; }
    void set_on_draw_style(Tvx_draw_style_event event);
    void set_on_edit_style(Tvx_edit_style_event event);
    void enable_selection_style(bool enabled);
    [[nodiscard]] Tvx_bool_panel *get_use_panel() const { return f_use_panel; }
    [[nodiscard]] Tvx_edit *get_cpt_edit() const { return f_cpt_edit; }
    [[nodiscard]] Tvx_style_btn *get_style_btn() const { return f_style_btn; }
    [[nodiscard]] Tvx_style_btn *get_sel_style_btn() const { return f_sel_style_btn; }

    /// The user changed the flag, the caption or a style. The owner writes the caption to the scale.
    TNotifyEvent on_changed;

private:
    void update_height();
    void on_use_panel_changed(TObject *sender);
    void on_cpt_edit_changed(TObject *sender);
    void on_style_btn_changed(TObject *sender);

    Tvx_bool_panel *f_use_panel = nullptr;
    Tvx_panel *f_edit_panel = nullptr;
    Tvx_edit *f_cpt_edit = nullptr;
    Tvx_style_btn *f_style_btn = nullptr;
    Tvx_style_btn *f_sel_style_btn = nullptr;
    std::wstring f_caption;
    void *f_scl_prm = nullptr;
};
