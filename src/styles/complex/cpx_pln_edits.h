#pragma once

#include "controls/forms/pages.h"
#include "styles/complex/cpx_basic_edit.h"
#include "styles/complex/pln_template_panel.h"

/// Edits a layer that is a plain stroke.
class VX_API Tvx_cpx_pln_line_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pln_line_edit(TComponent *owner);

    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_size_panel *get_width() const { return f_width; }
    [[nodiscard]] Tvx_size_panel *get_delta() const { return f_delta; }

private:
    Tvx_clr_vsb_panel *f_color;
    Tvx_size_panel *f_width;
    Tvx_size_panel *f_delta;
};

/// Edits a layer that is a stroke by a template: its values on one page, the template on the other.
class VX_API Tvx_cpx_pln_tplt_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pln_tplt_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_size_panel *get_width() const { return f_width; }
    [[nodiscard]] Tvx_size_panel *get_dash() const { return f_dash; }
    [[nodiscard]] Tvx_size_panel *get_gap() const { return f_gap; }
    [[nodiscard]] Tvx_size_panel *get_shift() const { return f_shift; }
    [[nodiscard]] Tvx_size_panel *get_delta() const { return f_delta; }
    [[nodiscard]] Tvx_cpx_style_btn_panel *get_point_style() const { return f_point_style; }
    [[nodiscard]] Tvx_pln_template_panel *get_template() const { return f_template; }

protected:
    void CreateWnd() override;

private:
    void on_template_changed(TObject *sender);

    Tvx_page_control *f_pages;
    Tvx_tab_sheet *f_values_sheet;
    Tvx_tab_sheet *f_template_sheet;
    Tvx_clr_vsb_panel *f_color;
    Tvx_size_panel *f_width;
    Tvx_size_panel *f_dash;
    Tvx_size_panel *f_gap;
    Tvx_size_panel *f_shift;
    Tvx_size_panel *f_delta;
    Tvx_cpx_style_btn_panel *f_point_style;
    Tvx_pln_template_panel *f_template;
};
