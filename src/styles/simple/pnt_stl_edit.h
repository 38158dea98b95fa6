#pragma once

#include "styles/simple/bpnt_edit.h"
#include "styles/simple/composed_style_edit.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_style.h"

/// Edits a point style.
class VX_API Tvx_pnt_stl_edit : public Tvx_composed_style_edit
{
public:
    explicit Tvx_pnt_stl_edit(TComponent *owner);

    /// The private style; it stays the editor's.
    [[nodiscard]] void *get_pnt_style() const { return f_style.get(); }
    void set_pnt_style(void *style) { vx_pnt_style_assign(f_style.get(), style); }
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_bpnt_edit *get_bpnt_edit() const { return f_bpnt_edit; }

protected:
    [[nodiscard]] void *style() const override { return f_style.get(); }

private:
    void on_bpnt_changed(TObject *sender);

    vx::owned<void, &vx_pnt_style_destroy> f_style;
    Tvx_bpnt_edit *f_bpnt_edit;
};
