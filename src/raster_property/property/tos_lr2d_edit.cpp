#include "raster_property/property/tos_lr2d_edit.h"

#include "style_manager/shell/typed_stl_mngr_edits.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_histogram.h"
#include "platform/basic/vx_stat.h"
#include "platform/data/vx_tos_data.h"
#include "platform/layers/vx_lr2d.h"

namespace {
using owned_work = vx::owned<Tvx_tos_stat, &vx_tos_data_tos_stat_destroy>;
}

Tvx_tos_lr2d_edit::Tvx_tos_lr2d_edit(TComponent *owner) : Tvx_basic_lr2d_edit(owner)
{
    f_prop_work.on_get_tos_lr2d = make_closure<&Tvx_tos_lr2d_edit::get_tos_lr2d>(this);
}

void Tvx_tos_lr2d_edit::feed(Tvx_typed_stl_mngr_edit *edit)
{
    edit->set_on_data_open(make_closure<&Tvx_tos_lr2d_edit::on_data_open>(this));
    edit->set_on_data_close(make_closure<&Tvx_tos_lr2d_edit::on_data_close>(this));
    edit->set_on_data_get_np(make_closure<&Tvx_tos_lr2d_edit::on_data_get_np>(this));
    edit->set_on_data_get_no(make_closure<&Tvx_tos_lr2d_edit::on_data_get_no>(this));
    edit->set_on_data_get_prop(make_closure<&Tvx_tos_lr2d_edit::on_data_get_prop>(this));
    edit->set_on_data_get_capt_prop(make_closure<&Tvx_tos_lr2d_edit::on_data_get_capt_prop>(this));
    edit->set_on_data_get_stat(make_closure<&Tvx_tos_lr2d_edit::on_data_get_stat>(this));
    edit->set_on_data_get_str(make_closure<&Tvx_tos_lr2d_edit::on_data_get_str>(this));
    edit->set_on_data_get_val(make_closure<&Tvx_tos_lr2d_edit::on_data_get_val>(this));
    edit->set_on_data_get_prop_file_name(make_closure<&Tvx_tos_lr2d_edit::on_data_get_prop_file_name>(this));
}

void Tvx_tos_lr2d_edit::let_go_of_former_file()
{
    if (f_file_layer != get_tos_lr2d())
        f_prop_work.tos_close();
    f_file_layer = get_tos_lr2d();
}

std::wstring Tvx_tos_lr2d_edit::file_name() const
{
    std::wstring name;
    vx_lr2d_get_wfilename(get_tos_lr2d(), Tvx_std_wstring_adapter(name));
    return name;
}

// ---- the file

bool Tvx_tos_lr2d_edit::on_data_open(TObject *sender)
{
    return f_prop_work.on_data_open(sender);
}

void Tvx_tos_lr2d_edit::on_data_close(TObject *sender)
{
    f_prop_work.on_data_close(sender);
}

unsigned Tvx_tos_lr2d_edit::on_data_get_np(TObject *sender)
{
    return f_prop_work.on_data_get_np(sender);
}

unsigned Tvx_tos_lr2d_edit::on_data_get_no(TObject *sender)
{
    return f_prop_work.on_data_get_no(sender);
}

char const *Tvx_tos_lr2d_edit::on_data_get_prop(TObject *sender, unsigned prop, bool &usable, bool &numeric)
{
    return f_prop_work.on_data_get_prop(sender, prop, usable, numeric);
}

char const *Tvx_tos_lr2d_edit::on_data_get_capt_prop(TObject *sender, unsigned prop)
{
    return f_prop_work.on_data_get_capt_prop(sender, prop);
}

wchar_t const *Tvx_tos_lr2d_edit::on_data_get_wprop(TObject *sender, unsigned prop, bool &usable,
                                                    bool &numeric)
{
    return f_prop_work.on_data_get_wprop(sender, prop, usable, numeric);
}

wchar_t const *Tvx_tos_lr2d_edit::on_data_get_capt_wprop(TObject *sender, unsigned prop)
{
    return f_prop_work.on_data_get_capt_wprop(sender, prop);
}

bool Tvx_tos_lr2d_edit::on_data_get_stat(TObject *sender, unsigned prop, double &min, double &max,
                                         double &average, double &stddev, bool &ok)
{
    return f_prop_work.on_data_get_stat(sender, prop, min, max, average, stddev, ok);
}

bool Tvx_tos_lr2d_edit::on_data_get_histogramm(TObject *sender, unsigned prop, Tvx_histogramm_data *histogram)
{
    return f_prop_work.on_data_get_histogramm(sender, prop, histogram);
}

char const *Tvx_tos_lr2d_edit::on_data_get_str(TObject *sender, unsigned prop, unsigned obj, bool &defined)
{
    return f_prop_work.on_data_get_str(sender, prop, obj, defined);
}

double Tvx_tos_lr2d_edit::on_data_get_val(TObject *sender, unsigned prop, unsigned obj, bool &defined)
{
    return f_prop_work.on_data_get_val(sender, prop, obj, defined);
}

void Tvx_tos_lr2d_edit::on_data_get_prop_file_name(TObject *sender, unsigned prop, Ivx_string_adp *out)
{
    f_prop_work.on_data_get_prop_file_name(sender, prop, out);
}

// ---- the records of channels

bool Tvx_tos_lr2d_edit::on_data_get_channel_stat(TObject * /*sender*/, unsigned prop,
                                                 Tvx_color_channel *channel, double &min, double &max,
                                                 double &average, double &stddev, bool &ok)
{
    ok = false;
    Tvx_stat_data *const stat = get_tos_lr2d() ? vx_clr_channel_get_stat(channel) : nullptr;
    if (!stat)
        return false;
    if (!vx_stat_has_statistic(stat)) {
        owned_work const work(vx_tos_data_tos_stat_create(file_name().c_str(), prop));
        vx_tos_data_compute_stat(work.get(), stat);
    }
    bool known[4];
    min = vx_stat_get_minimum(stat, &known[0]);
    max = vx_stat_get_maximum(stat, &known[1]);
    average = vx_stat_get_average(stat, &known[2]);
    stddev = vx_stat_get_stddev(stat, &known[3]);
    ok = known[0] && known[1] && known[2] && known[3];
    return ok;
}

bool Tvx_tos_lr2d_edit::on_data_get_channel_histogramm(TObject * /*sender*/, unsigned prop,
                                                       Tvx_color_channel *channel,
                                                       Tvx_histogramm_data *histogram)
{
    Tvx_stat_data *const stat = get_tos_lr2d() ? vx_clr_channel_get_stat(channel) : nullptr;
    if (!stat)
        return false;
    bool const is_full = vx_clr_channel_get_histogramm_default(channel);
    double const low =
        is_full ? vx_stat_get_minimum(stat, nullptr) : vx_clr_channel_get_histogramm_min(channel);
    double const high =
        is_full ? vx_stat_get_maximum(stat, nullptr) : vx_clr_channel_get_histogramm_max(channel);
    bool fits = false;
    if (Tvx_histogramm_data const *const kept = vx_stat_get_histogramm(stat, &fits); fits) {
        double kept_low = 0, kept_high = 0;
        vx_histogramm_get_params(kept, nullptr, &kept_low, &kept_high);
        fits = kept_low == low && kept_high == high;
    }
    if (!fits) {
        owned_work const work(vx_tos_data_tos_stat_create(file_name().c_str(), prop));
        if (is_full)
            vx_tos_data_compute_hg(work.get(), stat);
        else
            vx_tos_data_compute_hg_min_max(work.get(), stat, low, high);
    }
    bool present = false;
    Tvx_histogramm_data const *const made = vx_stat_get_histogramm(stat, &present);
    if (present)
        vx_histogramm_assign(histogram, made);
    return present;
}

bool Tvx_tos_lr2d_edit::on_data_upd_histogramm(TObject * /*sender*/, unsigned prop,
                                               Tvx_color_channel *channel)
{
    Tvx_stat_data *const stat = get_tos_lr2d() ? vx_clr_channel_get_stat(channel) : nullptr;
    if (!stat)
        return false;
    owned_work const work(vx_tos_data_tos_stat_create(file_name().c_str(), prop));
    return vx_tos_data_update_hg(work.get(), stat);
}
