#include "scale_builders/value/val_rescale_panel.h"

#include "scale_builders/value/val_legend_panels.h"
#include "scale_builders/value/val_param_panels.h"
#include "scale_builders/value/val_params.h"

namespace {
constexpr int c_type_height = 58;

template <class Panel>
void add(TWinControl *parent, Panel *&panel)
{
    panel = new Panel(parent);
    panel->SetParent(parent);
    panel->create();
    panel->SetAlign(alClient);
    panel->SetVisible(false);
}
} // namespace

void Tvx_vcl_val_rescale_panel::create()
{
    Tvx_vcl_panel::create();
    f_type_panel = new Tvx_vcl_val_type_select_panel(this);
    f_type_panel->SetParent(this);
    f_type_panel->create();
    f_type_panel->SetHeight(c_type_height);
    f_type_panel->SetAlign(alTop);
    f_type_panel->set_on_change(make_closure<&Tvx_vcl_val_rescale_panel::on_type_select_panel_changed>(this));
    add(this, f_rebuild);
    add(this, f_legend);
    add(this, f_modify);
    f_rebuild->SetVisible(true);
}

void Tvx_vcl_val_rescale_panel::load_rc()
{
    f_type_panel->load_rc();
    f_rebuild->load_rc();
    f_legend->load_rc();
    f_modify->load_rc();
}

void Tvx_vcl_val_rescale_panel::set_params(void *stl_mngr, Tvx_data_events const &data)
{
    f_rebuild->set_params(stl_mngr, data);
    f_legend->set_params();
    f_modify->set_params(stl_mngr, data);
}

bool Tvx_vcl_val_rescale_panel::fill_params(Tvx_val_params *params) const
{
    params->set_mode(f_type_panel->get_val_type());
    return f_rebuild->fill_params(params->get_rebuild_params_ptr()) &&
           f_legend->fill_params(params->get_rebuild_with_legend_params_ptr()) &&
           f_modify->fill_params(params->get_modify_params_ptr());
}

void Tvx_vcl_val_rescale_panel::on_type_select_panel_changed(TObject * /*sender*/)
{
    int const mode = f_type_panel->get_val_type();
    for (auto *const panel : {static_cast<TControl *>(f_rebuild), static_cast<TControl *>(f_legend),
                              static_cast<TControl *>(f_modify)})
        panel->SetVisible(false);
    f_rebuild->SetVisible(mode == c_val_builder_rebuild);
    f_legend->SetVisible(mode == c_val_builder_rebuild_with_legend);
    f_modify->SetVisible(mode == c_val_builder_modify);
}
