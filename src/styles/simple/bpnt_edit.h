#pragma once

#include "controls/numeric/size_panel.h"
#include "controls/prop/chrmap_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "controls/prop/figure_panel.h"
#include "styles/simple/base_style_edit.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_base_style.h"

/// Edits a base point style: a figure, or a character of a font, with colour and size.
class VX_API Tvx_bpnt_edit : public Tvx_base_style_edit
{
public:
    explicit Tvx_bpnt_edit(TComponent *owner);

    /// The private style; it stays the editor's.
    [[nodiscard]] void *get_bpnt_style() const { return f_style.get(); }
    void set_bpnt_style(void *style) { vx_bpnt_style_assign(f_style.get(), style); }
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_bool_panel *get_use_symbol() const { return f_use_symbol; }
    [[nodiscard]] Tvx_figure_panel *get_figure() const { return f_figure; }
    [[nodiscard]] Tvx_chrmap_panel *get_symbol() const { return f_symbol; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_size_panel *get_size() const { return f_size; }

protected:
    void set_use_complex(bool use) override;
    bool edit_complex() override;

private:
    void on_use_symbol_changed(TObject *sender);
    void on_figure_changed(TObject *sender);
    void on_symb_changed(TObject *sender);
    void on_clr_changed(TObject *sender);
    void on_size_changed(TObject *sender);

    vx::owned<void, &vx_bpnt_style_destroy> f_style;
    Tvx_bool_panel *f_use_symbol;
    Tvx_figure_panel *f_figure;
    Tvx_chrmap_panel *f_symbol;
    Tvx_clr_vsb_panel *f_color;
    Tvx_size_panel *f_size;
};
