#include "platform/basic/vx_histogram.h"

#include <algorithm>
#include <vector>

struct Tvx_histogramm_data
{
    std::vector<double> counts;
    double minimum = 0;
    double maximum = 1;
};

namespace {
/// Lower bound of bin `i`, which for the number of bins is the upper bound of the last one.
double bound(Tvx_histogramm_data const &h, std::size_t i)
{
    if (i == h.counts.size())
        return h.maximum;
    double const part = static_cast<double>(i) / static_cast<double>(h.counts.size());
    // Two products, since the difference of the bounds may not be a finite number.
    return h.minimum * (1 - part) + h.maximum * part;
}
} // namespace

Tvx_histogramm_data *vx_histogramm_create()
{
    return new Tvx_histogramm_data;
}

void vx_histogramm_destroy(Tvx_histogramm_data *histogram)
{
    delete histogram;
}

void vx_histogramm_assign(Tvx_histogramm_data *target, Tvx_histogramm_data const *source)
{
    if (target)
        *target = source ? *source : Tvx_histogramm_data();
}

void vx_histogramm_clear(Tvx_histogramm_data *histogram)
{
    if (histogram)
        std::fill(histogram->counts.begin(), histogram->counts.end(), 0.0);
}

void vx_histogramm_get_params(Tvx_histogramm_data const *histogram, unsigned *size, double *minimum,
                              double *maximum)
{
    if (!histogram)
        return;
    if (size)
        *size = vx_histogramm_get_size(histogram);
    if (minimum)
        *minimum = histogram->minimum;
    if (maximum)
        *maximum = histogram->maximum;
}

void vx_histogramm_set_params(Tvx_histogramm_data *histogram, unsigned size, double minimum, double maximum)
{
    if (!histogram)
        return;
    histogram->counts.assign(size, 0.0);
    histogram->minimum = minimum;
    histogram->maximum = maximum;
}

unsigned vx_histogramm_get_size(Tvx_histogramm_data const *histogram)
{
    return histogram ? static_cast<unsigned>(histogram->counts.size()) : 0;
}

double vx_histogramm_get(Tvx_histogramm_data const *histogram, unsigned bin)
{
    return bin < vx_histogramm_get_size(histogram) ? histogram->counts[bin] : 0.0;
}

void vx_histogramm_set(Tvx_histogramm_data *histogram, unsigned bin, double count)
{
    if (bin < vx_histogramm_get_size(histogram))
        histogram->counts[bin] = count;
}

double vx_histogramm_get_bnd_min(Tvx_histogramm_data const *histogram, unsigned bin)
{
    return bin < vx_histogramm_get_size(histogram) ? bound(*histogram, bin) : 0.0;
}

double vx_histogramm_get_bnd_max(Tvx_histogramm_data const *histogram, unsigned bin)
{
    return bin < vx_histogramm_get_size(histogram) ? bound(*histogram, std::size_t{bin} + 1) : 0.0;
}

void vx_histogramm_set_min(Tvx_histogramm_data *histogram, double minimum)
{
    if (histogram)
        histogram->minimum = minimum;
}

void vx_histogramm_set_max(Tvx_histogramm_data *histogram, double maximum)
{
    if (histogram)
        histogram->maximum = maximum;
}
