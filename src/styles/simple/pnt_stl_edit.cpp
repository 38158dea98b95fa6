#include "styles/simple/pnt_stl_edit.h"

#include "captions/simple.h"
#include "styles/libraries/vxk_lib_styles.h"

#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/toolkit/core/new_on.h"

Tvx_pnt_stl_edit::Tvx_pnt_stl_edit(TComponent *owner)
    : Tvx_composed_style_edit(owner, {{&vx_pnt_style_create, &vx_pnt_style_destroy, &vx_pnt_style_assign},
                                      c_pnt_style_ext,
                                      c_smp_pnt_files,
                                      &vx_xml_save_style_load_style_pnt_file,
                                      &vx_xml_save_style_save_style_pnt_file,
                                      &vxk_lib_styles_get_pnt}),
      f_bpnt_edit(vx_new_for<Tvx_bpnt_edit>(this, this))
{
    f_bpnt_edit->SetParent(this);
    f_bpnt_edit->SetAlign(alClient);
    f_bpnt_edit->SetTabOrder(0);
    f_bpnt_edit->on_changed = make_closure<&Tvx_pnt_stl_edit::on_bpnt_changed>(this);
}

void Tvx_pnt_stl_edit::update_controls()
{
    f_bpnt_edit->set_bpnt_style(vx_pnt_style_get_bpnt_style_ptr(get_style()));
    f_bpnt_edit->update_controls();
    get_lib_panel()->update_controls();
}

void Tvx_pnt_stl_edit::load_res()
{
    Tvx_composed_style_edit::load_res();
    f_bpnt_edit->load_res();
}

void Tvx_pnt_stl_edit::on_bpnt_changed(TObject * /*sender*/)
{
    f_bpnt_edit->give_style_to(vx_pnt_style_get_bpnt_style_ptr(get_style()));
    call_changed();
}
