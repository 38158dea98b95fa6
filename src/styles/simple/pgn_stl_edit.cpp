#include "styles/simple/pgn_stl_edit.h"

#include "styles/libraries/vxk_lib_styles.h"
#include "styles/simple/simple_captions.h"

#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_style_keys.h"

Tvx_pgn_stl_edit::Tvx_pgn_stl_edit(TComponent *owner)
    : Tvx_paged_style_edit(owner, {c_pgn_style_ext, c_smp_pgn_files, &vx_xml_save_style_load_style_pgn_file,
                                   &vx_xml_save_style_save_style_pgn_file, &vxk_lib_styles_get_pgn}),
      f_style(vx_pgn_style_create()),
      f_bpgn_edit(add_page<Tvx_bpgn_edit>(L"bpgn_ts", c_smp_tab_fill,
                                          make_closure<&Tvx_pgn_stl_edit::on_bpgn_cb_click>(this))),
      f_bpln_edit(add_page<Tvx_bpln_edit>(L"bpln_ts", c_smp_tab_outline,
                                          make_closure<&Tvx_pgn_stl_edit::on_bpln_cb_click>(this))),
      f_bpnt_edit(add_page<Tvx_bpnt_edit>(L"bpnt_ts", c_smp_tab_vertices,
                                          make_closure<&Tvx_pgn_stl_edit::on_bpnt_cb_click>(this)))
{
    f_bpgn_edit->on_changed = make_closure<&Tvx_pgn_stl_edit::on_bpgn_changed>(this);
    f_bpln_edit->on_changed = make_closure<&Tvx_pgn_stl_edit::on_bpln_changed>(this);
    f_bpnt_edit->on_changed = make_closure<&Tvx_pgn_stl_edit::on_bpnt_changed>(this);
}

void Tvx_pgn_stl_edit::update_controls()
{
    void *const style = f_style.get();
    show_page(get_page(c_bpnt), vx_pgn_style_get_pnt_visible(style));
    show_page(get_page(c_bpln), vx_pgn_style_get_pln_visible(style));
    show_page(get_page(c_bpgn), vx_pgn_style_get_pgn_visible(style));
    f_bpgn_edit->set_bpgn_style(vx_pgn_style_get_bpgn_style_ptr(style));
    f_bpgn_edit->update_controls();
    f_bpln_edit->set_bpln_style(vx_pgn_style_get_bpln_style_ptr(style));
    f_bpln_edit->update_controls();
    f_bpnt_edit->set_bpnt_style(vx_pgn_style_get_bpnt_style_ptr(style));
    f_bpnt_edit->update_controls();
    get_lib_panel()->update_controls();
}

void Tvx_pgn_stl_edit::on_bpgn_cb_click(TObject * /*sender*/)
{
    vx_pgn_style_set_pgn_visible(f_style.get(), follow_box(get_page(c_bpgn)));
    call_changed();
}

void Tvx_pgn_stl_edit::on_bpln_cb_click(TObject * /*sender*/)
{
    vx_pgn_style_set_pln_visible(f_style.get(), follow_box(get_page(c_bpln)));
    call_changed();
}

void Tvx_pgn_stl_edit::on_bpnt_cb_click(TObject * /*sender*/)
{
    vx_pgn_style_set_pnt_visible(f_style.get(), follow_box(get_page(c_bpnt)));
    call_changed();
}

void Tvx_pgn_stl_edit::on_bpgn_changed(TObject * /*sender*/)
{
    vx_bpgn_style_assign(vx_pgn_style_get_bpgn_style_ptr(f_style.get()), f_bpgn_edit->get_bpgn_style());
    call_changed();
}

void Tvx_pgn_stl_edit::on_bpln_changed(TObject * /*sender*/)
{
    vx_bpln_style_assign(vx_pgn_style_get_bpln_style_ptr(f_style.get()), f_bpln_edit->get_bpln_style());
    call_changed();
}

void Tvx_pgn_stl_edit::on_bpnt_changed(TObject * /*sender*/)
{
    vx_bpnt_style_assign(vx_pgn_style_get_bpnt_style_ptr(f_style.get()), f_bpnt_edit->get_bpnt_style());
    call_changed();
}
