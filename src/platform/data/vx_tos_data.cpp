#include "platform/data/vx_tos_data.h"

#include "platform/basic/vx_stat.h"
#include "platform/data/detail/entity.h"
#include "platform/data/detail/tos_file.h"

#include <cmath>

struct Ivx_tos_data final : Ivx_entity
{
    explicit Ivx_tos_data(std::wstring name) : file_name(std::move(name)) {}
    [[nodiscard]] char const *entity_type() const override { return "tos_data"; }
    [[nodiscard]] std::wstring display_name() const override { return vx::data::source_base_name(file_name); }

    std::wstring const file_name;
    int count = 1;
};

struct Tvx_tos_stat
{
    /// Null when the file cannot be opened or has no such property; each call tries again.
    vx::tos::property *opened()
    {
        vx::fault ignored;
        if (!values)
            if (auto const file = vx::tos::file::open(file_name, true, ignored);
                file && prop < file->properties().size())
                values = std::make_unique<vx::tos::property>(file, prop);
        return values.get();
    }

    std::wstring file_name;
    unsigned prop;
    std::unique_ptr<vx::tos::property> values;
};

namespace {
/// Puts what is known of a property into the file. It is in memory already, for files that take nothing.
void keep_in_file(Tvx_tos_stat const &ts)
{
    vx::fault ignored;
    if (auto const file = vx::tos::file::open(ts.file_name, false, ignored))
        (void)file->keep(ts.prop, ts.values->known(), ignored);
}

void fill_stat(Tvx_stat_data *stat, vx::tos::cell_stat const &from)
{
    vx_stat_set_minimum(stat, from.minimum);
    vx_stat_set_maximum(stat, from.maximum);
    vx_stat_set_average(stat, from.average);
    vx_stat_set_stddev(stat, from.deviation());
}

void fill_histogram(Tvx_stat_data *stat, vx::tos::cell_histogram const &from)
{
    auto *const histogram = vx_stat_get_histogramm(stat, nullptr);
    vx_histogramm_set_params(histogram, vx::tos::c_classes, from.low, from.high);
    for (unsigned i = 0; i < vx::tos::c_classes; ++i)
        vx_histogramm_set(histogram, i, static_cast<double>(from.counts[i]));
    vx_stat_set_histogramm(stat, true);
}

bool is_between(vx::tos::cell_histogram const &histogram, double low, double high)
{
    return histogram.low == low && histogram.high == high;
}
} // namespace

Ivx_tos_data *vx_tos_data_create(wchar_t const *file_name)
{
    return new Ivx_tos_data(file_name ? file_name : L"");
}

Ivx_tos_data *vx_tos_data_retain(Ivx_tos_data *data)
{
    if (data)
        ++data->count;
    return data;
}

void vx_tos_data_release(Ivx_tos_data *data)
{
    if (data && --data->count == 0)
        delete data;
}

Ivx_tos_data *vx_tos_data_safe_downcast(Ivx_entity *entity)
{
    return dynamic_cast<Ivx_tos_data *>(entity);
}

Ivx_entity *vx_tos_data_safe_upcast(Ivx_tos_data *data)
{
    return data;
}

void vx_tos_data_get_wfilename(Ivx_tos_data const *data, Ivx_string_adp *file_name)
{
    vx_string_adp_feed(file_name, data ? data->file_name.c_str() : nullptr);
}

// ---- statistics

Tvx_tos_stat *vx_tos_data_tos_stat_create(wchar_t const *file_name, unsigned prop)
{
    return new Tvx_tos_stat{file_name ? file_name : L"", prop, nullptr};
}

void vx_tos_data_tos_stat_destroy(Tvx_tos_stat *ts)
{
    delete ts;
}

bool vx_tos_data_compute_stat(Tvx_tos_stat *ts, Tvx_stat_data *stat)
{
    auto *const values = ts && stat ? ts->opened() : nullptr;
    if (!values)
        return false;
    vx::fault ignored;
    if (!values->known().stat && values->update_stat(ignored))
        keep_in_file(*ts);
    if (!values->known().has_values())
        return false;
    fill_stat(stat, *values->known().stat);
    return true;
}

bool vx_tos_data_compute_hg(Tvx_tos_stat *ts, Tvx_stat_data *stat)
{
    if (!ts || !stat || (!vx_stat_has_statistic(stat) && !vx_tos_data_compute_stat(ts, stat)))
        return false;
    return vx_tos_data_compute_hg_min_max(ts, stat, vx_stat_get_minimum(stat, nullptr),
                                          vx_stat_get_maximum(stat, nullptr));
}

bool vx_tos_data_compute_hg_min_max(Tvx_tos_stat *ts, Tvx_stat_data *stat, double minimum, double maximum)
{
    bool const is_span = std::isfinite(minimum) && std::isfinite(maximum) && minimum <= maximum;
    auto *const values = ts && stat && is_span ? ts->opened() : nullptr;
    if (!values)
        return false;
    auto const &known = values->known();
    bool const is_whole =
        known.has_values() && known.stat->minimum == minimum && known.stat->maximum == maximum;
    vx::fault ignored;
    if (is_whole && !known.histogram && values->update_histogram(ignored))
        keep_in_file(*ts);
    if (known.histogram && is_between(*known.histogram, minimum, maximum)) {
        fill_histogram(stat, *known.histogram);
        return true;
    }
    auto const made = values->histogram(minimum, maximum);
    if (made)
        fill_histogram(stat, *made);
    return made.has_value();
}

bool vx_tos_data_update_hg(Tvx_tos_stat *ts, Tvx_stat_data *stat)
{
    auto *const values = ts && stat ? ts->opened() : nullptr;
    vx::fault ignored;
    if (!values || !values->update_stat(ignored) || !values->update_histogram(ignored))
        return false;
    keep_in_file(*ts);
    fill_stat(stat, *values->known().stat);
    fill_histogram(stat, *values->known().histogram);
    return true;
}
