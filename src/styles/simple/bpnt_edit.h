#pragma once

#include "controls/prop/chrmap_panel.h"
#include "controls/prop/figure_panel.h"
#include "styles/simple/base_style_edit.h"

/// Edits a base point style: a figure, or a character of a font, with colour and size.
class VX_API Tvx_bpnt_edit : public Tvx_base_style_edit
{
public:
    explicit Tvx_bpnt_edit(TComponent *owner);

    [[nodiscard]] void *get_bpnt_style() const { return get_style(); }
    void set_bpnt_style(void *style) { set_style(style); }
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_bool_panel *get_use_symbol() const { return f_use_symbol; }
    [[nodiscard]] Tvx_figure_panel *get_figure() const { return f_figure; }
    [[nodiscard]] Tvx_chrmap_panel *get_symbol() const { return f_symbol; }
    [[nodiscard]] Tvx_size_panel *get_size() const { return size_panel(); }

private:
    void on_use_symbol_changed(TObject *sender);
    void on_figure_changed(TObject *sender);
    void on_symb_changed(TObject *sender);

    Tvx_bool_panel *f_use_symbol;
    Tvx_figure_panel *f_figure;
    Tvx_chrmap_panel *f_symbol;
};
