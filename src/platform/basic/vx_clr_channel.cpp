#include "platform/basic/vx_clr_channel.h"

#include "platform/base/detail/fields.h"
#include "platform/base/owned.h"

#include <string>
#include <tuple>

using namespace vx::fields;

namespace {
struct channel
{
    std::wstring prop_name;
    double min = 0;
    double max = 255;
    bool histogramm_default = true;
    double histogramm_min = 0;
    double histogramm_max = 255;
    vx::owned<Tvx_stat_data, &vx_stat_destroy> stat{vx_stat_create()};

    channel() = default;
    channel(channel const &other) { *this = other; }
    channel &operator=(channel const &other)
    {
        prop_name = other.prop_name;
        min = other.min;
        max = other.max;
        histogramm_default = other.histogramm_default;
        histogramm_min = other.histogramm_min;
        histogramm_max = other.histogramm_max;
        vx_stat_assign(stat.get(), other.stat.get()); // the record keeps its address
        return *this;
    }
    ~channel() = default;

    [[nodiscard]] bool draws_like(channel const &other) const
    {
        auto const settings = [](channel const &of) {
            return std::tie(of.prop_name, of.min, of.max, of.histogramm_default, of.histogramm_min,
                            of.histogramm_max);
        };
        return settings(*this) == settings(other);
    }
};

struct rgb_channels
{
    channel red;
    channel green;
    channel blue;
    channel gray;
};
} // namespace

void vx_clr_channel_get_prop_name_w(void const *c, Ivx_string_adp *adp)
{
    feed_text(c, &channel::prop_name, adp);
}

void vx_clr_channel_set_prop_name_w(void *c, wchar_t const *name)
{
    auto *const to = static_cast<channel *>(c);
    if (to && to->prop_name != (name ? name : L""))
        vx_stat_clear(to->stat.get());
    set_text(c, &channel::prop_name, name);
}

double vx_clr_channel_get_min(void const *c)
{
    return get(c, &channel::min);
}

void vx_clr_channel_set_min(void *c, double value)
{
    set(c, &channel::min, value);
}

double vx_clr_channel_get_max(void const *c)
{
    return get(c, &channel::max);
}

void vx_clr_channel_set_max(void *c, double value)
{
    set(c, &channel::max, value);
}

bool vx_clr_channel_get_histogramm_default(void const *c)
{
    return get(c, &channel::histogramm_default);
}

void vx_clr_channel_set_histogramm_default(void *c, bool value)
{
    set(c, &channel::histogramm_default, value);
}

double vx_clr_channel_get_histogramm_min(void const *c)
{
    return get(c, &channel::histogramm_min);
}

void vx_clr_channel_set_histogramm_min(void *c, double value)
{
    set(c, &channel::histogramm_min, value);
}

double vx_clr_channel_get_histogramm_max(void const *c)
{
    return get(c, &channel::histogramm_max);
}

void vx_clr_channel_set_histogramm_max(void *c, double value)
{
    set(c, &channel::histogramm_max, value);
}

Tvx_stat_data *vx_clr_channel_get_stat(void *c)
{
    auto const *const stat = part(c, &channel::stat);
    return stat ? stat->get() : nullptr;
}

void *vx_rgb_channels_create()
{
    return new rgb_channels;
}

void *vx_rgb_channels_clone(void const *channels)
{
    return clone<rgb_channels>(channels);
}

void vx_rgb_channels_destroy(void *channels)
{
    destroy<rgb_channels>(channels);
}

void vx_rgb_channels_assign(void *target, void const *source)
{
    assign<rgb_channels>(target, source);
}

bool vx_rgb_channels_equal(void const *a, void const *b)
{
    auto const *const x = static_cast<rgb_channels const *>(a);
    auto const *const y = static_cast<rgb_channels const *>(b);
    if (!x || !y)
        return x == y;
    return x->red.draws_like(y->red) && x->green.draws_like(y->green) && x->blue.draws_like(y->blue) &&
           x->gray.draws_like(y->gray);
}

void *vx_rgb_channels_get_red(void *channels)
{
    return part(channels, &rgb_channels::red);
}

void *vx_rgb_channels_get_green(void *channels)
{
    return part(channels, &rgb_channels::green);
}

void *vx_rgb_channels_get_blue(void *channels)
{
    return part(channels, &rgb_channels::blue);
}

void *vx_rgb_channels_get_gray(void *channels)
{
    return part(channels, &rgb_channels::gray);
}
