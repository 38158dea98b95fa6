#include "arrow_column.h"
#include "data_types.h"
#include "vector_set.h"

#include <cmath>
#include <functional>
#include <set>
#include <string>
#include <string_view>
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

/// Reading only one column spares the drivers that can do so the geometry and all other fields.
class vector_set::narrowed_layer
{
public:
    narrowed_layer(OGRLayer &layer, int field) : f_layer(layer)
    {
        std::vector<char const *> ignored{"OGR_GEOMETRY", "OGR_STYLE"};
        OGRFeatureDefn *const fields = layer.GetLayerDefn();
        for (int i = 0; i < fields->GetFieldCount(); ++i)
            if (i != field)
                ignored.push_back(fields->GetFieldDefn(i)->GetNameRef());
        ignored.push_back(nullptr);
        f_is_narrow =
            layer.TestCapability(OLCIgnoreFields) && layer.SetIgnoredFields(ignored.data()) == OGRERR_NONE;
        layer.ResetReading();
    }
    ~narrowed_layer()
    {
        if (f_is_narrow)
            f_layer.SetIgnoredFields(nullptr);
    }
    narrowed_layer(narrowed_layer const &) = delete;
    narrowed_layer &operator=(narrowed_layer const &) = delete;

private:
    OGRLayer &f_layer;
    bool f_is_narrow = false;
};

bool vector_set::scan_numbers(int field,
                              std::function<bool(double const *values, std::size_t count)> const &visit)
{
    auto const *const defn = field_at(field);
    if (!defn || has_filter())
        return false;
    error_guard const guard(f_set->error());
    (void)flush_features();
    position_keeper const keeper(*this);
    narrowed_layer const narrowed(*f_layer, field);
    column_result const columns = is_number(field_type_of(*defn)) && field_subtype_of(*defn) == subtype_none
                                      ? read_numbers(*f_layer, defn->GetNameRef(), visit)
                                      : column_result::not_offered;
    if (columns != column_result::not_offered)
        return columns == column_result::done && guard.text().empty();
    f_layer->ResetReading();
    while (OGRFeatureUniquePtr const record{f_layer->GetNextFeature()}) {
        if (!record->IsFieldSetAndNotNull(field))
            continue;
        double const value = record->GetFieldAsDouble(field);
        if (!visit(&value, 1))
            break;
    }
    return guard.text().empty();
}

bool vector_set::scan_texts(int field, std::function<bool(std::string_view text)> const &visit)
{
    auto const *const defn = field_at(field);
    if (!defn || has_filter())
        return false;
    error_guard const guard(f_set->error());
    (void)flush_features();
    position_keeper const keeper(*this);
    narrowed_layer const narrowed(*f_layer, field);
    column_result const columns = defn->GetType() == OFTString
                                      ? read_texts(*f_layer, defn->GetNameRef(), visit)
                                      : column_result::not_offered;
    if (columns != column_result::not_offered)
        return columns == column_result::done && guard.text().empty();
    f_layer->ResetReading();
    while (OGRFeatureUniquePtr const record{f_layer->GetNextFeature()})
        if (record->IsFieldSetAndNotNull(field) && !visit(cell_bytes(*record, field)))
            break;
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
    auto const add = [&](double const *values, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            double const value = values[i];
            if (++stat.count == 1)
                stat.minimum = stat.maximum = value;
            stat.minimum = std::fmin(stat.minimum, value);
            stat.maximum = std::fmax(stat.maximum, value);
            stat.sum += value;
            // Welford's recurrence: no loss of digits where the spread is small beside the mean.
            double const away = value - stat.mean;
            stat.mean += away / static_cast<double>(stat.count);
            stat.squares += away * (value - stat.mean);
        }
        return true;
    };
    // Of text only the number of cells is of use.
    bool const good = is_number(field_type(field))
                          ? scan_numbers(field, add)
                          : scan_texts(field, [&](std::string_view) { return ++stat.count, true; });
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
    if (!count || has_filter() || !field_at(field))
        return false;
    auto const known = f_stats.find(field);
    if (known == f_stats.end() || !known->second.distinct) {
        std::unordered_set<std::string> seen;
        long long cells = 0;
        if (!scan_texts(field, [&](std::string_view text) { return ++cells, seen.emplace(text), true; }))
            return false;
        if (is_number(field_type(field)) && !stat_of(field))
            return false;
        field_stat &stat = f_stats[field];
        stat.count = cells;
        stat.distinct = static_cast<long long>(seen.size());
    }
    *count = *f_stats.at(field).distinct;
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
    bool const good = scan_numbers(field, [&](double const *cells, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (std::isnan(cells[i]))
                has_nan = true;
            else
                values.insert(cells[i]);
            if (limit >= 0 && values.size() + has_nan >= static_cast<std::size_t>(limit))
                return false;
        }
        return true;
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
    std::set<std::string, std::less<>> values;
    bool const good = scan_texts(field, [&](std::string_view text) {
        if (values.find(text) == values.end())
            values.emplace(text);
        return limit < 0 || values.size() < static_cast<std::size_t>(limit);
    });
    if (!good)
        return false;
    for (std::string const &value : values)
        visit_utf8(visitor, value.c_str());
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
    return scan_numbers(field, [&](double const *cells, std::size_t number) {
        for (std::size_t i = 0; i < number; ++i) {
            if (!(cells[i] >= minimum && cells[i] <= maximum))
                continue;
            double const place = width > 0 ? (cells[i] - minimum) / width : 0;
            // The upper bound belongs to the last class.
            ++counts[std::min(count - 1, static_cast<int>(place))];
        }
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
