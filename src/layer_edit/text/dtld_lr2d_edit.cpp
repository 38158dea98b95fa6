#include "layer_edit/text/dtld_lr2d_edit.h"

#include "platform/layers/vx_tld_lr2d.h"

Tvx_dtld_lr2d_edit::Tvx_dtld_lr2d_edit(TComponent *owner)
    : Tvx_basic_lr2d_edit(owner), f_data_source(new Tvx_data_source)
{
}

Tvx_dtld_lr2d_edit::~Tvx_dtld_lr2d_edit()
{
    // The panel asks the source by its events, and ends after it.
    delete f_label_panel;
    delete f_data_source;
}

void Tvx_dtld_lr2d_edit::create()
{
    Tvx_basic_lr2d_edit::create();
    f_label_panel = new Tvx_label_style_panel(this);
    f_label_panel->SetAlign(alClient);
    f_label_panel->SetParent(this);
    f_label_panel->create();
    f_label_panel->set_on_data_open(f_data_source->on_data_open);
    f_label_panel->set_on_data_close(f_data_source->on_data_close);
    f_label_panel->set_on_data_get_np(f_data_source->on_data_get_np);
    f_label_panel->set_on_data_get_prop(f_data_source->on_data_get_prop);
    f_label_panel->set_on_data_get_capt_prop(f_data_source->on_data_get_capt_prop);
}

void Tvx_dtld_lr2d_edit::load_res()
{
    f_label_panel->load_res();
}

void Tvx_dtld_lr2d_edit::update_controls()
{
    Ivx_layer *const layer = get_dtld_lr2d();
    Ivx_layer *const parent = layer ? vx_dtld_lr2d_get_parent_lr2d_ptr(layer) : nullptr;
    if (!parent)
        f_data_source->set_data_ptr(nullptr);
    else if (f_data_source->initialize(vx_lr2d_get_lr_type(parent)))
        f_data_source->set_data_ptr(vx_lr2d_get_data_ptr(parent));
    f_label_panel->set_layer(layer);
    f_label_panel->update_controls();
}
