#pragma once

#include "controls/forms/pages.h"
#include "styles/complex/cpx_basic_edit.h"
#include "styles/complex/spot_type_panel.h"

/// Edits a layer that is a solid fill.
class VX_API Tvx_cpx_pgn_fill_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pgn_fill_edit(TComponent *owner);

    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }

private:
    Tvx_clr_vsb_panel *f_color;
};

/// Edits a layer that is a hatch.
class VX_API Tvx_cpx_pgn_htch_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pgn_htch_edit(TComponent *owner);

    [[nodiscard]] Tvx_size_panel *get_delta() const { return f_delta; }
    [[nodiscard]] Tvx_size_panel *get_angle() const { return f_angle; }
    [[nodiscard]] Tvx_size_panel *get_shift() const { return f_shift; }
    [[nodiscard]] Tvx_cpx_style_btn_panel *get_line_style() const { return f_line_style; }

private:
    Tvx_size_panel *f_delta;
    Tvx_size_panel *f_angle;
    Tvx_size_panel *f_shift;
    Tvx_cpx_style_btn_panel *f_line_style;
};

/// Edits a layer of scattered points. Colour and size are those of a plain point; a complex one has its style
/// in their place.
class VX_API Tvx_cpx_pgn_spot_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pgn_spot_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Tvx_spot_type_panel *get_spot_type() const { return f_spot_type; }
    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    [[nodiscard]] Tvx_size_panel *get_dx() const { return f_dx; }
    [[nodiscard]] Tvx_size_panel *get_dy() const { return f_dy; }
    [[nodiscard]] Tvx_size_panel *get_x0() const { return f_x0; }
    [[nodiscard]] Tvx_size_panel *get_y0() const { return f_y0; }
    [[nodiscard]] Tvx_check_box *get_use_cpx_pnt() const { return f_use_cpx_pnt; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_point_clr() const { return f_point_clr; }
    [[nodiscard]] Tvx_size_panel *get_point_size() const { return f_point_size; }
    [[nodiscard]] Tvx_cpx_style_btn_panel *get_point_style() const { return f_point_style; }
    [[nodiscard]] Tvx_check_box *get_random_x() const { return f_random_x; }
    [[nodiscard]] Tvx_check_box *get_random_y() const { return f_random_y; }
    [[nodiscard]] Tvx_check_box *get_random_angle() const { return f_random_angle; }

protected:
    void CreateWnd() override;
    void flag_changed(Tvx_check_box *box) override;

private:
    void on_spot_type_changed(TObject *sender);
    void enable_disable();

    Tvx_spot_type_panel *f_spot_type;
    Tvx_page_control *f_pages;
    Tvx_tab_sheet *f_values_sheet;
    Tvx_tab_sheet *f_random_sheet;
    Tvx_size_panel *f_dx;
    Tvx_size_panel *f_dy;
    Tvx_size_panel *f_x0;
    Tvx_size_panel *f_y0;
    Tvx_check_box *f_use_cpx_pnt;
    Tvx_clr_vsb_panel *f_point_clr;
    Tvx_size_panel *f_point_size;
    Tvx_cpx_style_btn_panel *f_point_style;
    Tvx_check_box *f_random_x;
    Tvx_check_box *f_random_y;
    Tvx_check_box *f_random_angle;
    bool f_created = false; ///< the sheets stand on the page control
};
