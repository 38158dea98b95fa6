#include "styles/simple/pln_stl_edit.h"

#include "styles/libraries/vxk_lib_styles.h"
#include "styles/simple/simple_captions.h"

#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_style_keys.h"

Tvx_pln_stl_edit::Tvx_pln_stl_edit(TComponent *owner)
    : Tvx_paged_style_edit(owner, {c_pln_style_ext, c_smp_pln_files, &vx_xml_save_style_load_style_pln_file,
                                   &vx_xml_save_style_save_style_pln_file, &vxk_lib_styles_get_pln}),
      f_style(vx_pln_style_create()),
      f_bpln_edit(add_page<Tvx_bpln_edit>(L"bpln_ts", c_smp_tab_line,
                                          make_closure<&Tvx_pln_stl_edit::on_bpln_cb_click>(this))),
      f_bpnt_edit(add_page<Tvx_bpnt_edit>(L"bpnt_ts", c_smp_tab_vertices,
                                          make_closure<&Tvx_pln_stl_edit::on_bpnt_cb_click>(this))),
      f_bend_edit(add_page<Tvx_bpnt_edit>(L"bend_ts", c_smp_tab_end,
                                          make_closure<&Tvx_pln_stl_edit::on_bend_cb_click>(this))),
      f_bbeg_edit(add_page<Tvx_bpnt_edit>(L"bbeg_ts", c_smp_tab_begin,
                                          make_closure<&Tvx_pln_stl_edit::on_bbeg_cb_click>(this)))
{
    f_bpln_edit->on_changed = make_closure<&Tvx_pln_stl_edit::on_bpln_changed>(this);
    f_bpnt_edit->on_changed = make_closure<&Tvx_pln_stl_edit::on_bpnt_changed>(this);
    f_bend_edit->on_changed = make_closure<&Tvx_pln_stl_edit::on_bend_changed>(this);
    f_bbeg_edit->on_changed = make_closure<&Tvx_pln_stl_edit::on_bbeg_changed>(this);
}

void Tvx_pln_stl_edit::update_controls()
{
    void *const style = f_style.get();
    show_page(get_page(c_bpnt), vx_pln_style_get_pnt_visible(style));
    show_page(get_page(c_bend), vx_pln_style_get_end_visible(style));
    show_page(get_page(c_bbeg), vx_pln_style_get_beg_visible(style));
    show_page(get_page(c_bpln), vx_pln_style_get_pln_visible(style));
    f_bpln_edit->set_bpln_style(vx_pln_style_get_bpln_style_ptr(style));
    f_bpln_edit->update_controls();
    f_bpnt_edit->set_bpnt_style(vx_pln_style_get_bpnt_style_ptr(style));
    f_bpnt_edit->update_controls();
    f_bend_edit->set_bpnt_style(vx_pln_style_get_bend_style_ptr(style));
    f_bend_edit->update_controls();
    f_bbeg_edit->set_bpnt_style(vx_pln_style_get_bbeg_style_ptr(style));
    f_bbeg_edit->update_controls();
    get_lib_panel()->update_controls();
}

void Tvx_pln_stl_edit::on_bpln_cb_click(TObject * /*sender*/)
{
    vx_pln_style_set_pln_visible(f_style.get(), follow_box(get_page(c_bpln)));
    call_changed();
}

void Tvx_pln_stl_edit::on_bpnt_cb_click(TObject * /*sender*/)
{
    vx_pln_style_set_pnt_visible(f_style.get(), follow_box(get_page(c_bpnt)));
    call_changed();
}

void Tvx_pln_stl_edit::on_bend_cb_click(TObject * /*sender*/)
{
    vx_pln_style_set_end_visible(f_style.get(), follow_box(get_page(c_bend)));
    call_changed();
}

void Tvx_pln_stl_edit::on_bbeg_cb_click(TObject * /*sender*/)
{
    vx_pln_style_set_beg_visible(f_style.get(), follow_box(get_page(c_bbeg)));
    call_changed();
}

void Tvx_pln_stl_edit::on_bpln_changed(TObject * /*sender*/)
{
    vx_bpln_style_assign(vx_pln_style_get_bpln_style_ptr(f_style.get()), f_bpln_edit->get_bpln_style());
    call_changed();
}

void Tvx_pln_stl_edit::on_bpnt_changed(TObject * /*sender*/)
{
    vx_bpnt_style_assign(vx_pln_style_get_bpnt_style_ptr(f_style.get()), f_bpnt_edit->get_bpnt_style());
    call_changed();
}

void Tvx_pln_stl_edit::on_bend_changed(TObject * /*sender*/)
{
    vx_bpnt_style_assign(vx_pln_style_get_bend_style_ptr(f_style.get()), f_bend_edit->get_bpnt_style());
    call_changed();
}

void Tvx_pln_stl_edit::on_bbeg_changed(TObject * /*sender*/)
{
    vx_bpnt_style_assign(vx_pln_style_get_bbeg_style_ptr(f_style.get()), f_bbeg_edit->get_bpnt_style());
    call_changed();
}
