#include "platform/basic/vx_stat.h"

#include "platform/base/owned.h"

#include <array>
#include <optional>

namespace {
enum stat_value
{
    stat_minimum,
    stat_maximum,
    stat_average,
    stat_stddev,
    stat_value_count
};
} // namespace

struct Tvx_stat_data
{
    std::array<std::optional<double>, stat_value_count> values;
    vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy> histogram{vx_histogramm_create()};
    bool has_histogram = false;
};

namespace {
double value_of(Tvx_stat_data const *stat, stat_value which, bool *known)
{
    auto const value = stat ? stat->values[which] : std::nullopt;
    if (known)
        *known = value.has_value();
    return value.value_or(0.0);
}

void set_value(Tvx_stat_data *stat, stat_value which, double value)
{
    if (stat)
        stat->values[which] = value;
}
} // namespace

Tvx_stat_data *vx_stat_create()
{
    return new Tvx_stat_data;
}

void vx_stat_destroy(Tvx_stat_data *stat)
{
    delete stat;
}

void vx_stat_assign(Tvx_stat_data *target, Tvx_stat_data const *source)
{
    if (!target || target == source)
        return;
    if (!source) {
        vx_stat_clear(target);
        return;
    }
    target->values = source->values;
    target->has_histogram = source->has_histogram;
    vx_histogramm_assign(target->histogram.get(), source->histogram.get());
}

void vx_stat_clear(Tvx_stat_data *stat)
{
    if (!stat)
        return;
    stat->values = {};
    stat->has_histogram = false;
    vx_histogramm_assign(stat->histogram.get(), nullptr);
}

double vx_stat_get_minimum(Tvx_stat_data const *stat, bool *known)
{
    return value_of(stat, stat_minimum, known);
}

double vx_stat_get_maximum(Tvx_stat_data const *stat, bool *known)
{
    return value_of(stat, stat_maximum, known);
}

double vx_stat_get_average(Tvx_stat_data const *stat, bool *known)
{
    return value_of(stat, stat_average, known);
}

double vx_stat_get_stddev(Tvx_stat_data const *stat, bool *known)
{
    return value_of(stat, stat_stddev, known);
}

void vx_stat_set_minimum(Tvx_stat_data *stat, double value)
{
    set_value(stat, stat_minimum, value);
}

void vx_stat_set_maximum(Tvx_stat_data *stat, double value)
{
    set_value(stat, stat_maximum, value);
}

void vx_stat_set_average(Tvx_stat_data *stat, double value)
{
    set_value(stat, stat_average, value);
}

void vx_stat_set_stddev(Tvx_stat_data *stat, double value)
{
    set_value(stat, stat_stddev, value);
}

bool vx_stat_has_statistic(Tvx_stat_data const *stat)
{
    if (!stat)
        return false;
    for (auto const &value : stat->values)
        if (!value)
            return false;
    return true;
}

bool vx_stat_has_histogramm(Tvx_stat_data const *stat)
{
    return stat && stat->has_histogram;
}

Tvx_histogramm_data *vx_stat_get_histogramm(Tvx_stat_data *stat, bool *present)
{
    if (present)
        *present = vx_stat_has_histogramm(stat);
    return stat ? stat->histogram.get() : nullptr;
}

void vx_stat_set_histogramm(Tvx_stat_data *stat, bool present)
{
    if (stat)
        stat->has_histogram = present;
}
