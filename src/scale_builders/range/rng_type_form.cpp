#include "scale_builders/range/rng_type_form.h"

#include "captions/builders.h"
#include "scale_builders/range/rng_panel.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_width = 600;
constexpr int c_height = 350;
} // namespace

Tvx_vcl_rng_type_form::Tvx_vcl_rng_type_form(TComponent *owner)
    : Tvx_vcl_builder_form(owner, c_width, c_height)
{
}

void Tvx_vcl_rng_type_form::create()
{
    Tvx_vcl_builder_form::create();
    f_rng_panel = new Tvx_vcl_rng_panel(this);
    f_rng_panel->SetParent(get_client_panel());
    f_rng_panel->create();
    f_rng_panel->SetAlign(alClient);
}

void Tvx_vcl_rng_type_form::load_rc()
{
    Tvx_vcl_builder_form::load_rc();
    SetCaption(vx_res_get_wstr(c_bld_ranges));
    f_rng_panel->load_rc();
}

bool Tvx_vcl_rng_type_form::dialog(int x, int y, void *stl_mngr, Tvx_data_events const &data)
{
    return run(x, y, stl_mngr, data);
}

bool Tvx_vcl_rng_type_form::prepare(void *stl_mngr, Tvx_data_events const &data)
{
    f_rng_panel->set_params(stl_mngr, data);
    return f_rng_panel->prepare();
}

bool Tvx_vcl_rng_type_form::apply()
{
    return f_rng_panel->apply();
}
