#include "raster_property/property/tos_prp_crd_panel.h"

#include "captions/property_layers.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_caption_width = 100;
}

Tvx_prop_edit *Tvx_tos_prp_crd_panel::add_edit(TNotifyEvent changed)
{
    auto *const edit = vx_new_on<Tvx_prop_edit>(this, this);
    edit->create();
    edit->SetTop(GetControlCount() * edit->GetHeight());
    edit->SetAlign(alTop);
    edit->on_changed = changed;
    return edit;
}

void Tvx_tos_prp_crd_panel::create()
{
    f_edit_x = add_edit(make_closure<&Tvx_tos_prp_crd_panel::on_edit_x_changed>(this));
    f_edit_y = add_edit(make_closure<&Tvx_tos_prp_crd_panel::on_edit_y_changed>(this));
    SetHeight(f_edit_x->GetHeight() + f_edit_y->GetHeight());
}

void Tvx_tos_prp_crd_panel::load_res()
{
    f_edit_x->set_caption(vx_res_get_wstr(c_tos_x));
    f_edit_y->set_caption(vx_res_get_wstr(c_tos_y));
    f_edit_x->set_capt_width(c_caption_width);
    f_edit_y->set_capt_width(c_caption_width);
}

void Tvx_tos_prp_crd_panel::update_controls()
{
    f_edit_x->set_prop_name(prop_name_x.c_str());
    f_edit_x->update_controls();
    f_edit_y->set_prop_name(prop_name_y.c_str());
    f_edit_y->update_controls();
}

void Tvx_tos_prp_crd_panel::on_edit_x_changed(TObject * /*sender*/)
{
    prop_name_x = f_edit_x->get_wprop_name();
    call_changed();
}

void Tvx_tos_prp_crd_panel::on_edit_y_changed(TObject * /*sender*/)
{
    prop_name_y = f_edit_y->get_wprop_name();
    call_changed();
}

void Tvx_tos_prp_crd_panel::set_on_data_open(Tvx_data_open_event event)
{
    f_edit_x->set_on_data_open(event);
    f_edit_y->set_on_data_open(event);
}

void Tvx_tos_prp_crd_panel::set_on_data_close(Tvx_data_close_event event)
{
    f_edit_x->set_on_data_close(event);
    f_edit_y->set_on_data_close(event);
}

void Tvx_tos_prp_crd_panel::set_on_data_get_np(Tvx_data_get_np_event event)
{
    f_edit_x->set_on_data_get_np(event);
    f_edit_y->set_on_data_get_np(event);
}

void Tvx_tos_prp_crd_panel::set_on_data_get_prop(Tvx_data_get_prop_event event)
{
    f_edit_x->set_on_data_get_prop(event);
    f_edit_y->set_on_data_get_prop(event);
}

void Tvx_tos_prp_crd_panel::set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event)
{
    f_edit_x->set_on_data_get_capt_prop(event);
    f_edit_y->set_on_data_get_capt_prop(event);
}
