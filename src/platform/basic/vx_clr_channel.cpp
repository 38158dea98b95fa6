#include "platform/basic/vx_clr_channel.h"

#include "platform/base/owned.h"

#include <cmath>
#include <string>

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
};

struct rgb_channels
{
    channel red;
    channel green;
    channel blue;
    channel gray;
};

channel *channel_of(void *c)
{
    return static_cast<channel *>(c);
}
channel const *channel_of(void const *c)
{
    return static_cast<channel const *>(c);
}
rgb_channels *set_of(void *c)
{
    return static_cast<rgb_channels *>(c);
}

bool usable(double value)
{
    return std::isfinite(value);
}
bool usable(bool)
{
    return true;
}
} // namespace

void vx_clr_channel_get_prop_name_w(void const *c, Ivx_string_adp *adp)
{
    vx_string_adp_feed(adp, c ? channel_of(c)->prop_name.c_str() : L"");
}

void vx_clr_channel_set_prop_name_w(void *c, wchar_t const *name)
{
    if (c)
        channel_of(c)->prop_name = name ? name : L"";
}

#define VX_CHANNEL_FIELD(field, type)                                                                        \
    type vx_clr_channel_get_##field(void const *c)                                                           \
    {                                                                                                        \
        return c ? channel_of(c)->field : type{};                                                            \
    }                                                                                                        \
    void vx_clr_channel_set_##field(void *c, type value)                                                     \
    {                                                                                                        \
        if (c && usable(value))                                                                              \
            channel_of(c)->field = value;                                                                    \
    }
VX_CHANNEL_FIELD(min, double)
VX_CHANNEL_FIELD(max, double)
VX_CHANNEL_FIELD(histogramm_default, bool)
VX_CHANNEL_FIELD(histogramm_min, double)
VX_CHANNEL_FIELD(histogramm_max, double)
#undef VX_CHANNEL_FIELD

Tvx_stat_data *vx_clr_channel_get_stat(void *c)
{
    return c ? channel_of(c)->stat.get() : nullptr;
}

void *vx_rgb_channels_create()
{
    return new rgb_channels;
}

void *vx_rgb_channels_clone(void const *channels)
{
    return channels ? new rgb_channels(*static_cast<rgb_channels const *>(channels)) : nullptr;
}

void vx_rgb_channels_destroy(void *channels)
{
    delete set_of(channels);
}

void vx_rgb_channels_assign(void *target, void const *source)
{
    if (target && source && target != source)
        *set_of(target) = *static_cast<rgb_channels const *>(source);
}

void *vx_rgb_channels_get_red(void *channels)
{
    return channels ? &set_of(channels)->red : nullptr;
}

void *vx_rgb_channels_get_green(void *channels)
{
    return channels ? &set_of(channels)->green : nullptr;
}

void *vx_rgb_channels_get_blue(void *channels)
{
    return channels ? &set_of(channels)->blue : nullptr;
}

void *vx_rgb_channels_get_gray(void *channels)
{
    return channels ? &set_of(channels)->gray : nullptr;
}
