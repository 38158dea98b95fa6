#pragma once

#include "styles/simple/bpnt_edit.h"
#include "styles/simple/composed_style_edit.h"

/// Edits a point style.
class VX_API Tvx_pnt_stl_edit : public Tvx_composed_style_edit
{
public:
    explicit Tvx_pnt_stl_edit(TComponent *owner);

    [[nodiscard]] void *get_pnt_style() const { return get_style(); }
    void set_pnt_style(void *style) { set_style(style); }
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_bpnt_edit *get_bpnt_edit() const { return f_bpnt_edit; }

private:
    void on_bpnt_changed(TObject *sender);

    Tvx_bpnt_edit *f_bpnt_edit;
};
