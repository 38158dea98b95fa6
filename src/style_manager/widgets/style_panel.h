#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/panels.h"
#include "style_manager/widgets/style_btn.h"

/// A label and the buttons of the two styles of style parameters at its right; 26 high.
class VX_API Tvx_style_panel : public Tvx_basic_pnl
{
public:
    explicit Tvx_style_panel(TComponent *owner);

    void create();
    void load_res();
    /// Paints both examples anew.
    void update_controls();

    void set_caption(UnicodeString const &caption);
    void set_stl_prm(void *stl_prm);
    void set_on_draw_style(Tvx_draw_style_event event);
    void set_on_edit_style(Tvx_edit_style_event event);
    /// Shows the button of the style of selected objects, at the right of the other.
    void enable_selection_style(bool enabled);
    [[nodiscard]] Tvx_style_btn *get_btn() const { return f_btn; }
    [[nodiscard]] Tvx_style_btn *get_btn_s() const { return f_btn_s; }

private:
    void on_btn_changed(TObject *sender);
    void on_btn_s_changed(TObject *sender);

    Tvx_label *f_label = nullptr;
    Tvx_style_btn *f_btn = nullptr;
    Tvx_style_btn *f_btn_s = nullptr;
};
