#pragma once

#include "controls/prop/chrmap_panel.h"
#include "controls/prop/figure_panel.h"
#include "styles/complex/cpx_basic_edit.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_ints.h"

/// Edits a layer that is a font symbol.
class VX_API Tvx_cpx_pnt_symb_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pnt_symb_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Tvx_chrmap_panel *get_symbol() const { return f_symbol; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_size_panel *get_size() const { return f_size; }
    [[nodiscard]] Tvx_size_panel *get_dx() const { return f_dx; }
    [[nodiscard]] Tvx_size_panel *get_dy() const { return f_dy; }
    [[nodiscard]] Tvx_size_panel *get_angle() const { return f_angle; }

private:
    void on_symbol_changed(TObject *sender);

    Tvx_chrmap_panel *f_symbol;
    Tvx_clr_vsb_panel *f_color;
    Tvx_size_panel *f_size;
    Tvx_size_panel *f_dx;
    Tvx_size_panel *f_dy;
    Tvx_size_panel *f_angle;
};

/// Edits a layer that is a figure. The round ones have no angle, the filled ones no line width.
class VX_API Tvx_cpx_pnt_figr_edit : public Tvx_cpx_basic_edit
{
public:
    explicit Tvx_cpx_pnt_figr_edit(TComponent *owner);

    void load_res() override;
    void update_controls() override;

    [[nodiscard]] Tvx_lr_figure_panel *get_figure() const { return f_figure; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_size_panel *get_size_x() const { return f_size_x; }
    [[nodiscard]] Tvx_size_panel *get_size_y() const { return f_size_y; }
    [[nodiscard]] Tvx_size_panel *get_dx() const { return f_dx; }
    [[nodiscard]] Tvx_size_panel *get_dy() const { return f_dy; }
    [[nodiscard]] Tvx_size_panel *get_angle() const { return f_angle; }
    [[nodiscard]] Tvx_size_panel *get_line_width() const { return f_line_width; }

private:
    void on_figure_changed(TObject *sender);

    vx::owned<void, &vx_int_set_destroy> f_without_angle;
    vx::owned<void, &vx_int_set_destroy> f_without_line_width;
    Tvx_lr_figure_panel *f_figure;
    Tvx_clr_vsb_panel *f_color;
    Tvx_size_panel *f_size_x;
    Tvx_size_panel *f_size_y;
    Tvx_size_panel *f_dx;
    Tvx_size_panel *f_dy;
    Tvx_size_panel *f_angle;
    Tvx_size_panel *f_line_width;
};
