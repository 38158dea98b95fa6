#pragma once

#include "controls/numeric/size_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "styles/simple/base_style_edit.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_base_style.h"

/// Edits a base line style: colour and width.
class VX_API Tvx_bpln_edit : public Tvx_base_style_edit
{
public:
    explicit Tvx_bpln_edit(TComponent *owner);

    /// The private style; it stays the editor's.
    [[nodiscard]] void *get_bpln_style() const { return f_style.get(); }
    void set_bpln_style(void *style) { vx_bpln_style_assign(f_style.get(), style); }
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_size_panel *get_width() const { return f_width; }

protected:
    void set_use_complex(bool use) override;
    bool edit_complex() override;

private:
    void on_clr_changed(TObject *sender);
    void on_width_changed(TObject *sender);

    vx::owned<void, &vx_bpln_style_destroy> f_style;
    Tvx_clr_vsb_panel *f_color;
    Tvx_size_panel *f_width;
};
