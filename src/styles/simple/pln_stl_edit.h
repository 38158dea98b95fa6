#pragma once

#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "styles/simple/paged_style_edit.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_style.h"

/// Edits a polyline style: the line, and the points at its vertices, its end and its beginning.
class VX_API Tvx_pln_stl_edit : public Tvx_paged_style_edit
{
public:
    explicit Tvx_pln_stl_edit(TComponent *owner);

    /// The private style; it stays the editor's.
    [[nodiscard]] void *get_pln_style() const { return f_style.get(); }
    void set_pln_style(void *style) { vx_pln_style_assign(f_style.get(), style); }
    void update_controls() override;

    [[nodiscard]] Tvx_check_box *get_bpln_cb() const { return get_page(c_bpln).box; }
    [[nodiscard]] Tvx_check_box *get_bpnt_cb() const { return get_page(c_bpnt).box; }
    [[nodiscard]] Tvx_check_box *get_bend_cb() const { return get_page(c_bend).box; }
    [[nodiscard]] Tvx_check_box *get_bbeg_cb() const { return get_page(c_bbeg).box; }
    [[nodiscard]] Tvx_bpln_edit *get_bpln_edit() const { return f_bpln_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bpnt_edit() const { return f_bpnt_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bend_edit() const { return f_bend_edit; }
    [[nodiscard]] Tvx_bpnt_edit *get_bbeg_edit() const { return f_bbeg_edit; }

protected:
    [[nodiscard]] void *style() const override { return f_style.get(); }

private:
    enum : std::size_t
    {
        c_bpln,
        c_bpnt,
        c_bend,
        c_bbeg
    };

    void on_bpln_cb_click(TObject *sender);
    void on_bpnt_cb_click(TObject *sender);
    void on_bend_cb_click(TObject *sender);
    void on_bbeg_cb_click(TObject *sender);
    void on_bpln_changed(TObject *sender);
    void on_bpnt_changed(TObject *sender);
    void on_bend_changed(TObject *sender);
    void on_bbeg_changed(TObject *sender);

    vx::owned<void, &vx_pln_style_destroy> f_style;
    Tvx_bpln_edit *f_bpln_edit;
    Tvx_bpnt_edit *f_bpnt_edit;
    Tvx_bpnt_edit *f_bend_edit;
    Tvx_bpnt_edit *f_bbeg_edit;
};
