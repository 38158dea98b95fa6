#include "raster_property/channels/channel_histogramm.h"

#include "captions/channels.h"
#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
/// A mark is taken nearer than 3 pixels.
constexpr int c_channel_grip = 2;
constexpr int c_box_height = 20;
} // namespace

bool Tvx_channel_histogramm::fs_log_height = false;

Tvx_channel_histogramm::Tvx_channel_histogramm(TComponent *owner) : Tvx_histogram_panel(owner, c_channel_grip)
{
}

void Tvx_channel_histogramm::create()
{
    Tvx_histogram_panel::create();
    f_log_box = vx_new_on<Tvx_check_box>(this, this);
    f_log_box->SetHeight(c_box_height);
    f_log_box->SetAlign(alBottom);
    f_log_box->OnClick = make_closure<&Tvx_channel_histogramm::on_log_box_click>(this);
    on_val1_changed = make_closure<&Tvx_channel_histogramm::on_mark1_moved>(this);
    on_val2_changed = make_closure<&Tvx_channel_histogramm::on_mark2_moved>(this);
    load_res();
}

void Tvx_channel_histogramm::load_res()
{
    Tvx_histogram_panel::load_res();
    if (f_log_box)
        f_log_box->SetCaption(vx_res_get_wstr(c_chn_log_height));
}

void Tvx_channel_histogramm::update_controls()
{
    if (f_log_box) {
        vx::event_off const quiet(f_log_box->OnClick);
        f_log_box->SetChecked(fs_log_height);
    }
    set_log_height(fs_log_height);
    Tvx_histogram_panel::update_controls();
}

void Tvx_channel_histogramm::set_track(Tvx_track_double *track1, Tvx_track_double *track2)
{
    f_track1 = track1;
    f_track2 = track2;
}

void Tvx_channel_histogramm::on_mark1_moved(TObject * /*sender*/, double value)
{
    if (!f_track1)
        return;
    f_track1->try_new_val(value);
    set_val1(f_track1->get_val());
}

void Tvx_channel_histogramm::on_mark2_moved(TObject * /*sender*/, double value)
{
    if (!f_track2)
        return;
    f_track2->try_new_val(value);
    set_val2(f_track2->get_val());
}

void Tvx_channel_histogramm::on_log_box_click(TObject * /*sender*/)
{
    fs_log_height = f_log_box->GetChecked();
    set_log_height(fs_log_height);
}
