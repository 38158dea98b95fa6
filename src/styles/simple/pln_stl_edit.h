#pragma once

#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "styles/simple/paged_style_edit.h"

/// Edits a polyline style: the line, and the points at its vertices, its end and its beginning.
class VX_API Tvx_pln_stl_edit : public Tvx_paged_style_edit
{
public:
    explicit Tvx_pln_stl_edit(TComponent *owner);

    [[nodiscard]] void *get_pln_style() const { return get_style(); }
    void set_pln_style(void *style) { set_style(style); }

    [[nodiscard]] Tvx_check_box *get_bpln_cb() const { return get_box(0); }
    [[nodiscard]] Tvx_check_box *get_bpnt_cb() const { return get_box(1); }
    [[nodiscard]] Tvx_check_box *get_bend_cb() const { return get_box(2); }
    [[nodiscard]] Tvx_check_box *get_bbeg_cb() const { return get_box(3); }
    [[nodiscard]] Tvx_bpln_edit *get_bpln_edit() const { return f_bpln_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bpnt_edit() const { return f_bpnt_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bend_edit() const { return f_bend_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bbeg_edit() const { return f_bbeg_edit; }

private:
    Tvx_bpln_edit *f_bpln_edit;
    Tvx_bpnt_edit *f_bpnt_edit;
    Tvx_bpnt_edit *f_bend_edit;
    Tvx_bpnt_edit *f_bbeg_edit;
};
