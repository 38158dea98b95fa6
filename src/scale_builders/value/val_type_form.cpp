#include "scale_builders/value/val_type_form.h"

#include "captions/builders.h"
#include "scale_builders/value/val_panel.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_width = 800;
constexpr int c_height = 350;
} // namespace

Tvx_vcl_val_type_form::Tvx_vcl_val_type_form(TComponent *owner)
    : Tvx_vcl_builder_form(owner, c_width, c_height)
{
}

void Tvx_vcl_val_type_form::create()
{
    Tvx_vcl_builder_form::create();
    f_val_panel = new Tvx_vcl_val_panel(this);
    f_val_panel->SetParent(get_client_panel());
    f_val_panel->create();
    f_val_panel->SetAlign(alClient);
}

void Tvx_vcl_val_type_form::load_rc()
{
    Tvx_vcl_builder_form::load_rc();
    SetCaption(vx_res_get_wstr(c_bld_values));
    f_val_panel->load_rc();
}

bool Tvx_vcl_val_type_form::dialog(int x, int y, void *stl_mngr, Tvx_data_events const &data)
{
    return run(x, y, stl_mngr, data);
}

bool Tvx_vcl_val_type_form::prepare(void *stl_mngr, Tvx_data_events const &data)
{
    f_val_panel->set_params(stl_mngr, data);
    return f_val_panel->prepare();
}

bool Tvx_vcl_val_type_form::apply()
{
    return f_val_panel->apply();
}
