#pragma once

#include "styles/simple/bpgn_edit.h"
#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "styles/simple/paged_style_edit.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_style.h"

/// Edits a polygon style: the fill, the outline, and the points at the vertices.
class VX_API Tvx_pgn_stl_edit : public Tvx_paged_style_edit
{
public:
    explicit Tvx_pgn_stl_edit(TComponent *owner);

    /// The private style; it stays the editor's.
    [[nodiscard]] void *get_pgn_style() const { return f_style.get(); }
    void set_pgn_style(void *style) { vx_pgn_style_assign(f_style.get(), style); }
    void update_controls() override;

    [[nodiscard]] Tvx_check_box *get_bpgn_cb() const { return get_page(c_bpgn).box; }
    [[nodiscard]] Tvx_check_box *get_bpln_cb() const { return get_page(c_bpln).box; }
    [[nodiscard]] Tvx_check_box *get_bpnt_cb() const { return get_page(c_bpnt).box; }
    [[nodiscard]] Tvx_bpgn_edit *get_bpgn_edit() const { return f_bpgn_edit; }
    [[nodiscard]] Tvx_bpln_edit *get_bpln_edit() const { return f_bpln_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bpnt_edit() const { return f_bpnt_edit; }

protected:
    [[nodiscard]] void *style() const override { return f_style.get(); }

private:
    enum : std::size_t
    {
        c_bpgn,
        c_bpln,
        c_bpnt
    };

    void on_bpgn_cb_click(TObject *sender);
    void on_bpln_cb_click(TObject *sender);
    void on_bpnt_cb_click(TObject *sender);
    void on_bpgn_changed(TObject *sender);
    void on_bpln_changed(TObject *sender);
    void on_bpnt_changed(TObject *sender);

    vx::owned<void, &vx_pgn_style_destroy> f_style;
    Tvx_bpgn_edit *f_bpgn_edit;
    Tvx_bpln_edit *f_bpln_edit;
    Tvx_bpnt_edit *f_bpnt_edit;
};
