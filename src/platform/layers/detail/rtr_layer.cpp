#include "platform/layers/detail/rtr_layer.h"

#include "platform/basic/vx_fault.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_rtr_lr2d.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vx::layers {
rtr_layer::rtr_layer() : Ivx_layer(c_lr_key_rtr)
{
}

std::unique_ptr<Ivx_layer> rtr_layer::clone() const
{
    auto copy = std::make_unique<rtr_layer>();
    copy->take_common(*this);
    copy->draw_type = draw_type;
    copy->transparent = transparent;
    copy->opacity = opacity;
    copy->source = source;
    for (auto const &[band, stat] : statistics) {
        auto &kept = copy->statistics[band];
        kept.reset(vx_stat_create());
        vx_stat_assign(kept.get(), stat.get());
    }
    copy->channels.reset(vx_rgb_channels_clone(channels.get()));
    copy->has_fed_channels = has_fed_channels;
    copy->fed_from = fed_from;
    return copy;
}

void rtr_layer::file_name_changed()
{
    source.reset();
    statistics.clear();
    // A password that was asked for makes no other data of them.
    if (has_fed_channels && vx_mask_passwords(file_name) == fed_from)
        return;
    channels.reset(vx_rgb_channels_create());
    has_fed_channels = false;
}

Tvx_rtr_source &rtr_layer::opened_source()
{
    if (!source)
        source = std::make_shared<Tvx_rtr_source>(file_name);
    return *source;
}

Tvx_stat_data *rtr_layer::statistic(unsigned band)
{
    if (band >= opened_source().bands().size())
        return nullptr;
    auto &stat = statistics[band];
    if (!stat)
        stat.reset(vx_stat_create());
    return stat.get();
}

void rtr_layer::set_channels(void const *from)
{
    vx_rgb_channels_assign(channels.get(), from);
    note_fed();
}

void rtr_layer::note_fed()
{
    has_fed_channels = true;
    fed_from = vx_mask_passwords(file_name);
}

void *rtr_layer::rgb_channels()
{
    auto const &bands = opened_source().bands();
    if (has_fed_channels || bands.empty())
        return channels.get();
    note_fed();
    auto const feed = [&](void *channel, std::size_t band) {
        unsigned const of = static_cast<unsigned>(std::min(band, bands.size() - 1));
        double low = 0, high = 0;
        vx_clr_channel_set_prop_name_w(channel, bands[of].c_str());
        if (source->is_bytes(of) || !source->shown_bounds(of, low, high))
            return;
        vx_clr_channel_set_min(channel, low);
        vx_clr_channel_set_max(channel, high);
    };
    feed(vx_rgb_channels_get_red(channels.get()), 0);
    feed(vx_rgb_channels_get_green(channels.get()), 1);
    feed(vx_rgb_channels_get_blue(channels.get()), 2);
    feed(vx_rgb_channels_get_gray(channels.get()), 0);
    return channels.get();
}
} // namespace vx::layers

struct Tvx_rtr_stat
{
    Tvx_rtr_source &source;
    unsigned band;
};

using vx::layers::rtr_layer;

namespace {
bool fill_histogram(Tvx_rtr_source &source, unsigned band, Tvx_stat_data *stat)
{
    return (vx_stat_has_statistic(stat) || source.compute_stat(band, stat)) &&
           source.compute_histogram(band, stat, vx_stat_get_minimum(stat, nullptr),
                                    vx_stat_get_maximum(stat, nullptr));
}

/// The band's record with its histogram; null when there is none.
Tvx_stat_data *with_histogram(Ivx_layer *layer, unsigned band)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    auto *const stat = raster ? raster->statistic(band) : nullptr;
    bool const has = stat && vx_stat_has_statistic(stat) && vx_stat_has_histogramm(stat);
    return has || (stat && fill_histogram(raster->opened_source(), band, stat)) ? stat : nullptr;
}

template <class T>
void tell(T *out, T value)
{
    if (out)
        *out = value;
}
} // namespace

Ivx_layer *vx_rtr_lr2d_create(wchar_t const *source)
{
    auto layer = std::make_unique<rtr_layer>();
    layer->file_name = source ? source : L"";
    return layer.release();
}

int vx_rtr_lr2d_get_draw_type(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &rtr_layer::draw_type, static_cast<int>(c_rtr_draw_normal));
}

void vx_rtr_lr2d_set_draw_type(Ivx_layer *layer, int draw_type)
{
    if (draw_type >= c_rtr_draw_normal && draw_type <= c_rtr_draw_gray)
        vx::layers::set(layer, &rtr_layer::draw_type, draw_type);
}

Tvx_color vx_rtr_lr2d_get_transparent_clr(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &rtr_layer::transparent, Tvx_color{});
}

void vx_rtr_lr2d_set_transparent_clr(Ivx_layer *layer, Tvx_color color)
{
    vx::layers::set(layer, &rtr_layer::transparent, color);
}

double vx_rtr_lr2d_get_opacity(Ivx_layer const *layer)
{
    return vx::layers::get(layer, &rtr_layer::opacity, 1.0);
}

void vx_rtr_lr2d_set_opacity(Ivx_layer *layer, double opacity)
{
    if (vx::layers::cut_opacity(opacity))
        vx::layers::set(layer, &rtr_layer::opacity, opacity);
}

void *vx_rtr_lr2d_get_rgb_channels_ptr(Ivx_layer *layer)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    return raster ? raster->rgb_channels() : nullptr;
}

// ---- bands

unsigned vx_rtr_lr2d_get_prop_count(Ivx_layer *layer)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    return raster ? static_cast<unsigned>(raster->opened_source().bands().size()) : 0;
}

wchar_t const *vx_rtr_lr2d_get_prop_name(Ivx_layer *layer, unsigned band)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    return band < vx_rtr_lr2d_get_prop_count(layer) ? raster->opened_source().bands()[band].c_str() : L"";
}

bool vx_rtr_lr2d_find_cell(Ivx_layer *layer, Tvx_pnt_d2 at, int *column, int *row)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    vx::layers::raster_place place;
    if (!raster || !raster->opened_source().place(place))
        return false;
    double const dx = at.x - place.x[2], dy = at.y - place.y[2];
    double const det = place.x[0] * place.y[1] - place.x[1] * place.y[0];
    double const across = (dx * place.y[1] - dy * place.x[1]) / det,
                 down = (dy * place.x[0] - dx * place.y[0]) / det;
    if (!(across >= 0 && down >= 0 && across < place.width && down < place.height))
        return false;
    tell(column, static_cast<int>(across));
    tell(row, static_cast<int>(down));
    return true;
}

bool vx_rtr_lr2d_get_cell(Ivx_layer *layer, unsigned band, int column, int row, double *value)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    vx::layers::raster_place place;
    double cell = 0;
    if (!raster || !raster->opened_source().place(place) || column < 0 || row < 0 || column >= place.width ||
        row >= place.height || band >= vx_rtr_lr2d_get_prop_count(layer) ||
        !raster->opened_source().read(static_cast<int>(band), {column, row, 1, 1, 1, 1}, &cell) ||
        std::isnan(cell))
        return false;
    tell(value, cell);
    return true;
}

Tvx_stat_data *vx_rtr_lr2d_get_statistic(Ivx_layer *layer, unsigned band)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    return raster ? raster->statistic(band) : nullptr;
}

Tvx_rtr_source *vx_rtr_lr2d_get_sourse(Ivx_layer *layer)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    return raster ? &raster->opened_source() : nullptr;
}

Tvx_rtr_stat *vx_rtr_lr2d_rastr_stat_create(Tvx_rtr_source *source, unsigned band)
{
    return source ? new Tvx_rtr_stat{*source, band} : nullptr;
}

void vx_rtr_lr2d_rastr_stat_destroy(Tvx_rtr_stat *rs)
{
    delete rs;
}

bool vx_rtr_lr2d_compute_stat(Tvx_rtr_stat *rs, Tvx_stat_data *stat)
{
    return rs && stat && rs->source.compute_stat(rs->band, stat);
}

bool vx_rtr_lr2d_compute_hg(Tvx_rtr_stat *rs, Tvx_stat_data *stat)
{
    return rs && stat && fill_histogram(rs->source, rs->band, stat);
}

bool vx_rtr_lr2d_compute_hg_min_max(Tvx_rtr_stat *rs, Tvx_stat_data *stat, double minimum, double maximum)
{
    return rs && stat && rs->source.compute_histogram(rs->band, stat, minimum, maximum);
}

bool vx_rtr_lr2d_get_hg_stats(Ivx_layer *layer, unsigned band, unsigned *count, double *minimum,
                              double *maximum, double *average, double *deviation)
{
    auto *const stat = with_histogram(layer, band);
    if (!stat)
        return false;
    vx_histogramm_get_params(vx_stat_get_histogramm(stat, nullptr), count, minimum, maximum);
    tell(average, vx_stat_get_average(stat, nullptr));
    tell(deviation, vx_stat_get_stddev(stat, nullptr));
    return true;
}

int vx_rtr_lr2d_get_hg_value(Ivx_layer *layer, unsigned band, unsigned bin)
{
    auto *const raster = vx::layers::as<rtr_layer>(layer);
    auto *const stat = raster ? raster->statistic(band) : nullptr;
    if (!vx_stat_has_histogramm(stat))
        return 0;
    double const cells = vx_histogramm_get(vx_stat_get_histogramm(stat, nullptr), bin);
    return static_cast<int>(std::min(cells, static_cast<double>(std::numeric_limits<int>::max())));
}
