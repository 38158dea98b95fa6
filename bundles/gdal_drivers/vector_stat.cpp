#include "data_types.h"
#include "vector_set.h"

#include "platform/base/text_codec.h"

#include <cmath>
#include <set>
#include <unordered_set>
#include <vector>

namespace vx::gdal {
namespace {
/// Number of classes of the histogram that nobody gave bounds for.
constexpr int c_default_classes = 256;

bool is_number(int type)
{
    return type == field_integer || type == field_bigint || type == field_numeric;
}
} // namespace

template <class Visit>
bool vector_set::scan(int field, Visit visit)
{
    if (!field_at(field) || has_filter())
        return false;
    error_guard const guard(f_set->error());
    (void)flush_features();
    position_keeper const keeper(*this);
    // Reading only the column spares the drivers that can do so the geometry and all other fields.
    std::vector<char const *> ignored{"OGR_GEOMETRY", "OGR_STYLE"};
    for (int i = 0; i < field_count(); ++i)
        if (i != field)
            ignored.push_back(field_at(i)->GetNameRef());
    ignored.push_back(nullptr);
    bool const narrowed =
        f_layer->TestCapability(OLCIgnoreFields) && f_layer->SetIgnoredFields(ignored.data()) == OGRERR_NONE;
    f_layer->ResetReading();
    while (OGRFeatureUniquePtr const record{f_layer->GetNextFeature()})
        if (record->IsFieldSetAndNotNull(field) && !visit(*record))
            break;
    if (narrowed)
        f_layer->SetIgnoredFields(nullptr);
    return guard.text().empty();
}

vector_set::field_stat const *vector_set::stat_of(int field)
{
    if (has_filter() || !field_at(field))
        return nullptr;
    auto const known = f_stats.find(field);
    if (known != f_stats.end())
        return &known->second;
    field_stat stat;
    bool const numeric = is_number(field_type(field));
    bool const good = scan(field, [&](OGRFeature const &record) {
        ++stat.count;
        if (!numeric)
            return true;
        double const value = record.GetFieldAsDouble(field);
        if (stat.count == 1)
            stat.minimum = stat.maximum = value;
        stat.minimum = std::fmin(stat.minimum, value);
        stat.maximum = std::fmax(stat.maximum, value);
        stat.sum += value;
        // Welford's recurrence: no loss of digits where the spread is small beside the mean.
        double const away = value - stat.mean;
        stat.mean += away / static_cast<double>(stat.count);
        stat.squares += away * (value - stat.mean);
        return true;
    });
    return good ? &f_stats.emplace(field, stat).first->second : nullptr;
}

bool vector_set::has_stat(int field)
{
    return !has_filter() && f_stats.count(field) != 0;
}

bool vector_set::minimum(int field, double *value)
{
    auto const *const stat = is_number(field_type(field)) ? stat_of(field) : nullptr;
    if (stat && value)
        *value = stat->minimum;
    return stat && value;
}

bool vector_set::maximum(int field, double *value)
{
    auto const *const stat = is_number(field_type(field)) ? stat_of(field) : nullptr;
    if (stat && value)
        *value = stat->maximum;
    return stat && value;
}

bool vector_set::average(int field, double *value)
{
    auto const *const stat = is_number(field_type(field)) ? stat_of(field) : nullptr;
    if (stat && value)
        *value = stat->mean;
    return stat && value;
}

bool vector_set::stdev(int field, double *value)
{
    auto const *const stat = is_number(field_type(field)) ? stat_of(field) : nullptr;
    if (stat && value)
        *value = stat->count > 1 ? std::sqrt(stat->squares / static_cast<double>(stat->count - 1)) : 0;
    return stat && value;
}

bool vector_set::sum(int field, double *value)
{
    auto const *const stat = is_number(field_type(field)) ? stat_of(field) : nullptr;
    if (stat && value)
        *value = stat->sum;
    return stat && value;
}

bool vector_set::count_nonnull(int field, long long *count)
{
    auto const *const stat = stat_of(field);
    if (stat && count)
        *count = stat->count;
    return stat && count;
}

bool vector_set::count_distinct(int field, long long *count)
{
    if (!count || !stat_of(field))
        return false;
    field_stat &stat = f_stats.at(field);
    if (!stat.distinct) {
        std::unordered_set<std::wstring> seen;
        if (!scan(field,
                  [&](OGRFeature const &record) { return seen.insert(cell_text(record, field)), true; }))
            return false;
        stat.distinct = static_cast<long long>(seen.size());
    }
    *count = *stat.distinct;
    return true;
}

bool vector_set::compute_stats(int field, bool force)
{
    return force ? stat_of(field) != nullptr : has_stat(field);
}

bool vector_set::with_unique_numerics(int field, int limit, vx::floatings_visitor visitor)
{
    std::set<double> values;
    bool has_nan = false;
    bool const good = scan(field, [&](OGRFeature const &record) {
        double const value = record.GetFieldAsDouble(field);
        if (std::isnan(value))
            has_nan = true;
        else
            values.insert(value);
        return limit < 0 || values.size() + has_nan < static_cast<std::size_t>(limit);
    });
    if (!good)
        return false;
    std::vector<double> list(values.begin(), values.end());
    if (has_nan)
        list.push_back(std::nan(""));
    if (!list.empty())
        visitor.visit(list.size(), list.data());
    return true;
}

bool vector_set::with_unique_strings(int field, int limit, vx::string_visitor visitor)
{
    std::set<std::wstring> values;
    bool const good = scan(field, [&](OGRFeature const &record) {
        values.insert(cell_text(record, field));
        return limit < 0 || values.size() < static_cast<std::size_t>(limit);
    });
    if (!good)
        return false;
    for (std::wstring const &value : values)
        visitor.visit(value.c_str());
    return true;
}

bool vector_set::has_histogram(int field)
{
    return !has_filter() && is_number(field_type(field));
}

bool vector_set::with_custom_histogram(int field, double minimum, double maximum, int count,
                                       long long *counts, bool force)
{
    if (!force || !has_histogram(field) || count <= 0 || !counts || !(minimum <= maximum))
        return false;
    std::fill(counts, counts + count, 0);
    double const width = (maximum - minimum) / count;
    return scan(field, [&](OGRFeature const &record) {
        double const value = record.GetFieldAsDouble(field);
        if (!(value >= minimum && value <= maximum))
            return true;
        double const place = width > 0 ? (value - minimum) / width : 0;
        // The upper bound belongs to the last class.
        ++counts[std::min(count - 1, static_cast<int>(place))];
        return true;
    });
}

bool vector_set::with_default_histogram(int field, bool force, vx::histogram_visitor visitor)
{
    if (!has_histogram(field) || !(force || has_stat(field)))
        return false;
    auto const *const stat = stat_of(field);
    if (!stat || stat->count == 0)
        return false;
    double const low = stat->minimum;
    double const high = stat->maximum;
    std::vector<long long> counts(c_default_classes);
    if (!with_custom_histogram(field, low, high, c_default_classes, counts.data(), true))
        return false;
    visitor.visit(low, high, c_default_classes, counts.data());
    return true;
}
} // namespace vx::gdal
