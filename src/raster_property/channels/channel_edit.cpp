#include "raster_property/channels/channel_edit.h"

#include "captions/channels.h"
#include "raster_property/channels/data_reading_priv.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>

namespace {
constexpr double c_low = 0.0;
constexpr double c_high = 255.0;
constexpr unsigned c_empty_bins = 100;
} // namespace

Tvx_channel_edit::Tvx_channel_edit(TComponent *owner)
    : Tvx_panel(owner), f_combo(new Tvx_channel_combo_box(this)), f_chart(new Tvx_channel_histogramm(this)),
      f_track_min(new Tvx_track_double(this)), f_track_max(new Tvx_track_double(this))
{
}

void Tvx_channel_edit::create()
{
    DisableAlign();
    f_combo->SetParent(this);
    f_combo->create();
    f_combo->SetAlign(alTop);
    f_combo->on_changed = make_closure<&Tvx_channel_edit::on_prop_cb_changed>(this);
    f_chart->SetParent(this);
    f_chart->create();
    f_chart->SetAlign(alClient);
    f_chart->set_histogramm(f_histogramm.get());
    f_chart->set_track(f_track_min, f_track_max);
    f_chart->on_menu1 = make_closure<&Tvx_channel_edit::choice_default_hg>(this);
    f_chart->on_menu2 = make_closure<&Tvx_channel_edit::choice_new_hg>(this);
    f_chart->on_menu3 = make_closure<&Tvx_channel_edit::choice_upd_hg>(this);
    for (auto *const track : {f_track_min, f_track_max}) {
        track->SetParent(this);
        track->create();
        track->SetTop(GetClientHeight()); // below what stands at the bottom already
        track->SetAlign(alBottom);
        track->on_val_changed = make_closure<&Tvx_channel_edit::on_track_double_changed>(this);
    }
    EnableAlign();
    channel_events_changed();
}

void Tvx_channel_edit::load_res()
{
    if (get_channel_caption().IsEmpty())
        set_channel_caption(vx_res_get_wstr(c_chn_property));
    f_combo->load_res();
    f_chart->load_res();
    f_track_min->set_caption(vx_res_get_wstr(c_chn_min));
    f_track_max->set_caption(vx_res_get_wstr(c_chn_max));
}

void Tvx_channel_edit::channel_events_changed()
{
    Tvx_channel_events const &events = get_channel_events();
    f_combo->on_data_open = events.open;
    f_combo->on_data_close = events.close;
    f_combo->on_data_get_np = events.get_np;
    f_combo->on_data_get_wprop = events.get_wprop;
    f_combo->on_data_get_capt_wprop = events.get_capt_wprop;
}

void Tvx_channel_edit::set_channel(Tvx_color_channel *channel)
{
    f_channel = channel;
    if (channel) {
        vx_clr_channel_get_prop_name_w(channel, Tvx_std_wstring_adapter(f_combo->prop_name));
        f_track_min->set_val(vx_clr_channel_get_min(channel));
        f_track_max->set_val(vx_clr_channel_get_max(channel));
        f_default_hg = vx_clr_channel_get_histogramm_default(channel);
        f_hist_max = vx_clr_channel_get_histogramm_max(channel);
        f_hist_min = vx_clr_channel_get_histogramm_min(channel);
    } else {
        f_combo->prop_name.clear();
        f_track_min->set_val(c_low);
        f_track_max->set_val(c_high);
    }
    update_histogram();
}

void Tvx_channel_edit::update_controls()
{
    f_combo->update_controls();
    f_chart->update_controls();
    f_track_min->update_controls();
    f_track_max->update_controls();
}

/// The histogram of the range in force from the owner; false when there is none.
bool Tvx_channel_edit::pull_histogram()
{
    unsigned prop = 0;
    if (!f_channel || !find_prop(f_combo->prop_name.c_str(), prop))
        return false;
    vx_wait_cursor const wait;
    Tvx_channel_events const &events = get_channel_events();
    double min = 0.0;
    double max = 0.0;
    double average = 0.0;
    double stddev = 0.0;
    bool ok = false;
    (void)events.get_channel_stat(this, prop, f_channel, min, max, average, stddev, ok);
    if (!ok)
        return false;
    if (f_hist_min > f_hist_max) {
        std::swap(f_hist_min, f_hist_max);
        // The owner goes by what the channel says.
        vx_clr_channel_set_histogramm_max(f_channel, f_hist_max);
        vx_clr_channel_set_histogramm_min(f_channel, f_hist_min);
    }
    return events.get_channel_histogramm(this, prop, f_channel, f_histogramm.get());
}

void Tvx_channel_edit::update_histogram()
{
    double low = c_low;
    double high = c_high;
    if (pull_histogram()) {
        vx_histogramm_get_params(f_histogramm.get(), nullptr, &low, &high);
    } else {
        vx_histogramm_set_params(f_histogramm.get(), c_empty_bins, low, high);
        vx_histogramm_clear(f_histogramm.get());
    }
    for (auto *const track : {f_track_min, f_track_max}) {
        track->set_min(low);
        track->set_max(high);
    }
    show_marks();
}

void Tvx_channel_edit::show_marks()
{
    f_chart->set_val1(f_track_min->get_val());
    f_chart->set_val2(f_track_max->get_val());
}

bool Tvx_channel_edit::find_prop(wchar_t const *name, unsigned &index)
{
    Tvx_channel_events const &events = get_channel_events();
    std::wstring const wanted = vx::trimmed_name(name);
    vx::data_reading const data(events.open, events.close, this);
    if (!data)
        return false;
    unsigned const count = events.get_np(this);
    for (unsigned i = 0; i < count; ++i) {
        bool usable = false;
        bool numeric = false;
        if (vx::trimmed_name(events.get_wprop(this, i, usable, numeric)) == wanted) {
            index = i;
            return true;
        }
    }
    return false;
}

void Tvx_channel_edit::write_stretch()
{
    if (!f_channel)
        return;
    auto const [low, high] = std::minmax({f_track_min->get_val(), f_track_max->get_val()});
    vx_clr_channel_set_min(f_channel, low);
    vx_clr_channel_set_max(f_channel, high);
}

void Tvx_channel_edit::init_bound_vals()
{
    double low = c_low;
    double high = c_high;
    vx_histogramm_get_params(f_histogramm.get(), nullptr, &low, &high);
    f_track_min->set_val(low);
    f_track_max->set_val(high);
    f_track_min->update_controls();
    f_track_max->update_controls();
    f_chart->update_controls();
    write_stretch();
    show_marks();
}

void Tvx_channel_edit::on_prop_cb_changed(TObject * /*sender*/)
{
    if (f_channel)
        vx_clr_channel_set_prop_name_w(f_channel, f_combo->prop_name.c_str());
    update_histogram();
    init_bound_vals();
    on_changed(this);
}

void Tvx_channel_edit::on_track_double_changed(TObject * /*sender*/)
{
    write_stretch();
    show_marks();
    on_changed(this);
}

void Tvx_channel_edit::choice_default_hg(TObject * /*sender*/)
{
    f_default_hg = true;
    vx_clr_channel_set_histogramm_default(f_channel, true);
    update_histogram();
    update_controls();
    f_hist_min = f_track_min->get_val();
    f_hist_max = f_track_max->get_val();
    vx_clr_channel_set_histogramm_default(f_channel, f_default_hg);
    vx_clr_channel_set_histogramm_max(f_channel, f_hist_max);
    vx_clr_channel_set_histogramm_min(f_channel, f_hist_min);
    on_changed(this);
}

void Tvx_channel_edit::choice_new_hg(TObject * /*sender*/)
{
    f_hist_min = f_track_min->get_val();
    f_hist_max = f_track_max->get_val();
    f_default_hg = false;
    vx_clr_channel_set_histogramm_default(f_channel, false);
    vx_clr_channel_set_histogramm_max(f_channel, f_hist_max);
    vx_clr_channel_set_histogramm_min(f_channel, f_hist_min);
    update_histogram();
    update_controls();
    on_changed(this);
}

void Tvx_channel_edit::choice_upd_hg(TObject *sender)
{
    unsigned prop = 0;
    Tvx_channel_events const &events = get_channel_events();
    if (f_channel && events.upd_histogramm && find_prop(f_combo->prop_name.c_str(), prop)) {
        vx_wait_cursor const wait;
        (void)events.upd_histogramm(this, prop, f_channel);
    }
    choice_default_hg(sender);
}
