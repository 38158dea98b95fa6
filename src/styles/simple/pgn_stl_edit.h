#pragma once

#include "styles/simple/bpgn_edit.h"
#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "styles/simple/paged_style_edit.h"

/// Edits a polygon style: the fill, the outline, and the points at the vertices.
class VX_API Tvx_pgn_stl_edit : public Tvx_paged_style_edit
{
public:
    explicit Tvx_pgn_stl_edit(TComponent *owner);

    [[nodiscard]] void *get_pgn_style() const { return get_style(); }
    void set_pgn_style(void *style) { set_style(style); }

    [[nodiscard]] Tvx_check_box *get_bpgn_cb() const { return get_box(0); }
    [[nodiscard]] Tvx_check_box *get_bpln_cb() const { return get_box(1); }
    [[nodiscard]] Tvx_check_box *get_bpnt_cb() const { return get_box(2); }
    [[nodiscard]] Tvx_bpgn_edit *get_bpgn_edit() const { return f_bpgn_edit; }
    [[nodiscard]] Tvx_bpln_edit *get_bpln_edit() const { return f_bpln_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bpnt_edit() const { return f_bpnt_edit; }

private:
    Tvx_bpgn_edit *f_bpgn_edit;
    Tvx_bpln_edit *f_bpln_edit;
    Tvx_bpnt_edit *f_bpnt_edit;
};
