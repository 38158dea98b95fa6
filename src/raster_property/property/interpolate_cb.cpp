#include "raster_property/property/interpolate_cb.h"

#include "captions/property_layers.h"
#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 24;
constexpr int c_edge = 2;
constexpr int c_check_height = 20;
} // namespace

void Tvx_interpolate_cb::create()
{
    SetHeight(c_height);
    f_check_box = vx_new_on<Tvx_check_box>(this, this);
    f_check_box->SetCaption(L"Interpolate");
    f_check_box->SetBounds(c_edge, c_edge, GetClientWidth() - 2 * c_edge, c_check_height);
    f_check_box->OnClick = make_closure<&Tvx_interpolate_cb::on_check_box_click>(this);
}

void Tvx_interpolate_cb::load_res()
{
    f_check_box->SetCaption(vx_res_get_wstr(c_tos_interpolate));
}

void Tvx_interpolate_cb::AdjustClientRect(TRect &rect)
{
    Tvx_panel::AdjustClientRect(rect);
    if (f_check_box)
        f_check_box->SetBounds(c_edge, c_edge, GetClientWidth() - 2 * c_edge, c_check_height);
}

void Tvx_interpolate_cb::update_controls()
{
    vx::event_off const quiet(f_check_box->OnClick);
    f_check_box->SetChecked(vx_tos_grid_lr2d_get_interpolate(f_tos_grid_lr2d));
}

void Tvx_interpolate_cb::on_check_box_click(TObject * /*sender*/)
{
    if (!f_tos_grid_lr2d)
        return;
    vx_tos_grid_lr2d_set_interpolate(f_tos_grid_lr2d, f_check_box->GetChecked());
    call_changed();
}
