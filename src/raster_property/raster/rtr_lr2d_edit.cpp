#include "raster_property/raster/rtr_lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/vx_rtr_lr2d.h"

namespace {
using stat_work = vx::owned<Tvx_rtr_stat, &vx_rtr_lr2d_rastr_stat_destroy>;

stat_work work_on(Ivx_layer *layer, unsigned band)
{
    return stat_work(vx_rtr_lr2d_rastr_stat_create(vx_rtr_lr2d_get_sourse(layer), band));
}

/// True if all four are known.
bool tell(Tvx_stat_data const *stat, double &min, double &max, double &average, double &stddev)
{
    bool known[4] = {};
    min = vx_stat_get_minimum(stat, &known[0]);
    max = vx_stat_get_maximum(stat, &known[1]);
    average = vx_stat_get_average(stat, &known[2]);
    stddev = vx_stat_get_stddev(stat, &known[3]);
    return known[0] && known[1] && known[2] && known[3];
}
/// Whether the record has a histogram between these bounds.
bool has_histogram_of(Tvx_stat_data *stat, double wanted_low, double wanted_high)
{
    bool has = false;
    double low = 0.0;
    double high = 0.0;
    vx_histogramm_get_params(vx_stat_get_histogramm(stat, &has), nullptr, &low, &high);
    return has && low == wanted_low && high == wanted_high;
}

void take_histogram(Tvx_stat_data *to, Tvx_stat_data *from)
{
    vx_histogramm_assign(vx_stat_get_histogramm(to, nullptr), vx_stat_get_histogramm(from, nullptr));
    vx_stat_set_histogramm(to, true);
}
} // namespace

// ---- the bands

bool Tvx_rtr_lr2d_edit::on_data_open(TObject * /*sender*/)
{
    f_raster = get_rtr_lr2d();
    return f_raster != nullptr;
}

void Tvx_rtr_lr2d_edit::on_data_close(TObject * /*sender*/)
{
    f_raster = nullptr;
}

unsigned Tvx_rtr_lr2d_edit::on_data_get_np(TObject * /*sender*/)
{
    return f_raster ? vx_rtr_lr2d_get_prop_count(f_raster) : 0;
}

unsigned Tvx_rtr_lr2d_edit::on_data_get_no(TObject * /*sender*/)
{
    return 0;
}

wchar_t const *Tvx_rtr_lr2d_edit::on_data_get_prop(TObject *sender, unsigned prop, bool &usable,
                                                   bool &numeric)
{
    usable = numeric = true;
    return on_data_get_capt_prop(sender, prop);
}

wchar_t const *Tvx_rtr_lr2d_edit::on_data_get_capt_prop(TObject * /*sender*/, unsigned prop)
{
    return f_raster ? vx_rtr_lr2d_get_prop_name(f_raster, prop) : L"";
}

char const *Tvx_rtr_lr2d_edit::on_data_get_str(TObject * /*sender*/, unsigned /*prop*/, unsigned /*obj*/,
                                               bool &defined)
{
    if (f_raster)
        defined = false;
    f_text = "0";
    return f_text.c_str();
}

double Tvx_rtr_lr2d_edit::on_data_get_val(TObject * /*sender*/, unsigned /*prop*/, unsigned /*obj*/,
                                          bool &defined)
{
    if (f_raster)
        defined = false;
    return 0.0;
}

Tvx_stat_data *Tvx_rtr_lr2d_edit::band_stat(Ivx_layer *layer, unsigned band) const
{
    Tvx_stat_data *const stat = vx_rtr_lr2d_get_statistic(layer, band);
    if (stat && !vx_stat_has_statistic(stat))
        (void)vx_rtr_lr2d_compute_stat(work_on(layer, band).get(), stat);
    return vx_stat_has_statistic(stat) ? stat : nullptr;
}

bool Tvx_rtr_lr2d_edit::on_data_get_stat(TObject * /*sender*/, unsigned prop, double &min, double &max,
                                         double &average, double &stddev, bool &ok)
{
    ok = false;
    Tvx_stat_data const *const stat = f_raster ? band_stat(f_raster, prop) : nullptr;
    ok = stat && tell(stat, min, max, average, stddev);
    return ok;
}

bool Tvx_rtr_lr2d_edit::on_data_get_histogramm(TObject * /*sender*/, unsigned prop,
                                               Tvx_histogramm_data *histogram)
{
    int const draw_type = f_raster ? vx_rtr_lr2d_get_draw_type(f_raster) : c_rtr_draw_normal;
    if (draw_type != c_rtr_draw_channels && draw_type != c_rtr_draw_gray)
        return true;
    unsigned count = 0;
    double min = 0.0;
    double max = 1.0;
    if (!vx_rtr_lr2d_get_hg_stats(f_raster, prop, &count, &min, &max, nullptr, nullptr))
        return false;
    vx_histogramm_set_params(histogram, count, min, max);
    for (unsigned i = 0; i < count; ++i)
        vx_histogramm_set(histogram, i, vx_rtr_lr2d_get_hg_value(f_raster, prop, i));
    return true;
}

// ---- the channels

bool Tvx_rtr_lr2d_edit::on_data_get_channel_stat(TObject * /*sender*/, unsigned prop,
                                                 Tvx_color_channel *channel, double &min, double &max,
                                                 double &average, double &stddev, bool &ok)
{
    ok = false;
    Ivx_layer *const layer = get_rtr_lr2d();
    Tvx_stat_data *const stat = vx_clr_channel_get_stat(channel);
    if (!layer || !stat)
        return false;
    if (!vx_stat_has_statistic(stat))
        if (Tvx_stat_data const *const band = band_stat(layer, prop))
            vx_stat_assign(stat, band);
    ok = tell(stat, min, max, average, stddev);
    return ok;
}

bool Tvx_rtr_lr2d_edit::on_data_get_channel_histogramm(TObject * /*sender*/, unsigned prop,
                                                       Tvx_color_channel *channel,
                                                       Tvx_histogramm_data *histogram)
{
    Ivx_layer *const layer = get_rtr_lr2d();
    Tvx_stat_data *const stat = vx_clr_channel_get_stat(channel);
    if (!layer || !stat)
        return false;
    bool const is_default = vx_clr_channel_get_histogramm_default(channel);
    double const wanted_low =
        is_default ? vx_stat_get_minimum(stat, nullptr) : vx_clr_channel_get_histogramm_min(channel);
    double const wanted_high =
        is_default ? vx_stat_get_maximum(stat, nullptr) : vx_clr_channel_get_histogramm_max(channel);
    if (!has_histogram_of(stat, wanted_low, wanted_high)) {
        Tvx_stat_data *const band = vx_rtr_lr2d_get_statistic(layer, prop);
        stat_work const work = work_on(layer, prop);
        if (!is_default)
            (void)vx_rtr_lr2d_compute_hg_min_max(work.get(), stat, wanted_low, wanted_high);
        else if (has_histogram_of(band, wanted_low, wanted_high))
            take_histogram(stat, band);
        else if (vx_rtr_lr2d_compute_hg(work.get(), stat) &&
                 vx_stat_get_minimum(band, nullptr) == wanted_low &&
                 vx_stat_get_maximum(band, nullptr) == wanted_high)
            take_histogram(band, stat);
    }
    if (!vx_stat_has_histogramm(stat))
        return false;
    vx_histogramm_assign(histogram, vx_stat_get_histogramm(stat, nullptr));
    return true;
}

bool Tvx_rtr_lr2d_edit::on_data_upd_histogramm(TObject * /*sender*/, unsigned prop,
                                               Tvx_color_channel *channel)
{
    Ivx_layer *const layer = get_rtr_lr2d();
    Tvx_stat_data *const stat = vx_clr_channel_get_stat(channel);
    if (!layer || !stat || !vx_rtr_lr2d_compute_stat(work_on(layer, prop).get(), stat))
        return false;
    // What the band had is as old as what the channel had.
    vx_stat_assign(vx_rtr_lr2d_get_statistic(layer, prop), stat);
    return true;
}

Tvx_channel_events Tvx_rtr_lr2d_edit::channel_events()
{
    return {
        .open = make_closure<&Tvx_rtr_lr2d_edit::on_data_open>(this),
        .close = make_closure<&Tvx_rtr_lr2d_edit::on_data_close>(this),
        .get_np = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_np>(this),
        .get_wprop = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_prop>(this),
        .get_capt_wprop = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_capt_prop>(this),
        .get_stat = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_stat>(this),
        .get_histogramm = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_histogramm>(this),
        .get_channel_stat = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_channel_stat>(this),
        .get_channel_histogramm = make_closure<&Tvx_rtr_lr2d_edit::on_data_get_channel_histogramm>(this),
        .upd_histogramm = make_closure<&Tvx_rtr_lr2d_edit::on_data_upd_histogramm>(this),
    };
}
