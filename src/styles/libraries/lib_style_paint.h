#pragma once

#include "controls/forms/panels.h"

/// The sample of one style, over the whole control. The style is the caller's and must outlive the control or
/// be taken out of it. A sample is made when the control is painted, so a hidden one costs nothing.
class VX_API Tvx_lib_style_paint : public TCustomControl
{
public:
    explicit Tvx_lib_style_paint(TComponent *owner);

    /// A composed style of the kind that the name says; takes the place of the others.
    void set_pnt_style(void *style);
    void set_pln_style(void *style);
    void set_pgn_style(void *style);
    /// An empty area.
    void set_none();

    [[nodiscard]] void *get_pnt_style() const { return f_pnt_style; }
    [[nodiscard]] void *get_pln_style() const { return f_pln_style; }
    [[nodiscard]] void *get_pgn_style() const { return f_pgn_style; }

protected:
    void Paint() override;

private:
    void set_styles(void *pnt_style, void *pln_style, void *pgn_style);

    void *f_pnt_style = nullptr; // at most one of the three is set
    void *f_pln_style = nullptr;
    void *f_pgn_style = nullptr;
};

/// The sample of a style of a library, in a frame.
class VX_API Tvx_lib_style_draw : public Tvx_panel
{
public:
    explicit Tvx_lib_style_draw(TComponent *owner);

    /// An indexed style or null; shown by `update_controls`.
    void set_idx_style(void *idx_style) { f_idx_style = idx_style; }
    [[nodiscard]] void *get_idx_style() const { return f_idx_style; }
    void update_controls();

    [[nodiscard]] Tvx_lib_style_paint *get_paint() const { return f_paint; }

private:
    void *f_idx_style = nullptr;
    Tvx_panel *f_frame;
    Tvx_lib_style_paint *f_paint;
};
