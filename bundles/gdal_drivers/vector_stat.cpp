#include "data_types.h"
#include "id_draw.h"
#include "sql_answer.h"
#include "sql_names.h"
#include "vector_set.h"
#include "wide_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <string>

namespace vx::gdal {
namespace {
/// Number of classes of the histogram that nobody gave bounds for.
constexpr int c_default_classes = 256;
/// Values whose places in a table are fetched ahead of their turn.
constexpr std::size_t c_ahead = 16;

bool is_number(int type)
{
    return type == field_integer || type == field_bigint || type == field_numeric;
}

/// Calls `visit` with each number of a batch that is one: neither null nor NaN. False when `visit` gave
/// false.
template <class T, class Visit>
bool for_each_number(column_batch const &batch, Visit visit)
{
    T const *const values = batch.numbers<T>();
    for (std::size_t i = 0; i < batch.count; ++i) {
        if (!batch.is_defined(i))
            continue;
        if constexpr (std::is_floating_point_v<T>)
            if (std::isnan(values[i]))
                continue;
        if (!visit(values[i]))
            return false;
    }
    return true;
}

/// `visit` takes numbers of any type.
template <class Visit>
bool for_each_number(column_batch const &batch, Visit visit)
{
    switch (batch.kind) {
    case column_batch::integers:
        return for_each_number<int>(batch, visit);
    case column_batch::bigints:
        return for_each_number<long long>(batch, visit);
    case column_batch::floatings:
        return for_each_number<double>(batch, visit);
    default:
        return true;
    }
}

/// Statistics of batches. `Real` is what is summed with: the larger type has room for the squares of any
/// number.
template <class Real>
class running_stat
{
public:
    void add(column_batch const &batch)
    {
        double minimum = HUGE_VAL;
        double maximum = -HUGE_VAL;
        Real sum = 0;
        long long count = 0;
        for_each_number(batch, [&](auto number) {
            auto const value = static_cast<double>(number);
            minimum = std::min(minimum, value);
            maximum = std::max(maximum, value);
            sum += value;
            ++count;
            return true;
        });
        if (count == 0)
            return;
        Real const mean = sum / static_cast<Real>(count);
        Real squares = 0;
        for_each_number(batch, [&](auto number) {
            Real const away = static_cast<double>(number) - mean;
            squares += away * away;
            return true;
        });
        f_minimum = std::min(f_minimum, minimum);
        f_maximum = std::max(f_maximum, maximum);
        f_sum += sum;
        // Two sets of values joined, by Chan, Golub and LeVeque: no loss of digits where the spread is small
        // beside the mean.
        auto const before = static_cast<Real>(f_count);
        auto const more = static_cast<Real>(count);
        Real const away = mean - f_mean;
        f_squares += squares + away * away * before * more / (before + more);
        f_mean += away * more / (before + more);
        f_count += count;
    }
    [[nodiscard]] bool is_finite() const { return std::isfinite(f_mean) && std::isfinite(f_squares); }
    [[nodiscard]] field_stat result() const
    {
        field_stat stat;
        stat.count = f_count;
        if (f_count == 0)
            return stat;
        stat.minimum = f_minimum;
        stat.maximum = f_maximum;
        stat.mean = static_cast<double>(f_mean);
        stat.sum = static_cast<double>(f_sum);
        stat.squares = static_cast<double>(f_squares);
        // Where an infinite number is among them, so is the deviation.
        if (f_count > 1)
            stat.deviation = is_finite()
                                 ? static_cast<double>(std::sqrt(f_squares / static_cast<Real>(f_count - 1)))
                                 : HUGE_VAL;
        return stat;
    }

private:
    double f_minimum = HUGE_VAL;
    double f_maximum = -HUGE_VAL;
    Real f_sum = 0, f_mean = 0, f_squares = 0;
    long long f_count = 0;
};

template <class T>
std::string whole_text(T value)
{
    std::array<char, 24> text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

/// Different numbers of a field, of whole or of real ones.
class number_set
{
public:
    /// Calls `is_new` with each number that is new; false when that gave false.
    template <class IsNew>
    bool add(column_batch const &batch, IsNew is_new)
    {
        switch (batch.kind) {
        case column_batch::floatings:
            f_is_floating = true;
            return add_floatings(batch, is_new);
        case column_batch::integers:
            return add_whole<int>(batch, is_new);
        case column_batch::bigints:
            return add_whole<long long>(batch, is_new);
        default:
            return true;
        }
    }
    [[nodiscard]] std::size_t size() const { return f_keys.size(); }
    void collect(column_batch const &batch)
    {
        f_is_floating = batch.kind == column_batch::floatings;
        if (f_is_floating)
            for_each_number<double>(batch, [&](double v) { return f_keys.collect(key_at(v)), true; });
        else
            (void)add(batch, [](auto) { return true; });
    }
    /// Ascending. Nothing is left behind.
    [[nodiscard]] std::vector<double> take_sorted()
    {
        auto const keys = f_is_floating ? f_keys.take_sorted([](std::uint64_t key) { return key; })
                                        : f_keys.take_sorted([](std::uint64_t key) {
                                              return key_of(static_cast<double>(static_cast<long long>(key)));
                                          });
        std::vector<double> numbers(keys.size());
        std::transform(keys.begin(), keys.end(), numbers.begin(), &number_of_key);
        return numbers;
    }

private:
    /// Both zeros are one value.
    static std::uint64_t key_at(double value) { return key_of(value == 0 ? 0.0 : value); }

    template <class IsNew>
    bool add_floatings(column_batch const &batch, IsNew is_new)
    {
        auto const *const values = batch.numbers<double>();
        for (std::size_t i = 0; i < batch.count; ++i) {
            if (i + c_ahead < batch.count)
                f_keys.prefetch(key_at(values[i + c_ahead]));
            if (batch.is_defined(i) && !std::isnan(values[i]) && f_keys.insert(key_at(values[i])) &&
                !is_new(values[i]))
                return false;
        }
        return true;
    }
    template <class T, class IsNew>
    bool add_whole(column_batch const &batch, IsNew is_new)
    {
        return for_each_number<T>(batch, [&](T v) { return !f_keys.insert_whole(v) || is_new(v); });
    }

    distinct_keys f_keys;
    bool f_is_floating = false;
};

/// False when there are `limit` of them; a negative limit is none.
bool add_texts(column_batch const &batch, long long limit, distinct_texts &texts)
{
    std::array<std::uint64_t, c_ahead> hashes;
    for (std::size_t start = 0; start < batch.count; start += c_ahead) {
        std::size_t const count = std::min(c_ahead, batch.count - start);
        for (std::size_t i = 0; i < count; ++i) {
            hashes[i] = distinct_texts::hash(batch.text(start + i));
            texts.prefetch(hashes[i]);
        }
        for (std::size_t i = 0; i < count; ++i)
            if (batch.is_defined(start + i) && texts.insert(batch.text(start + i), hashes[i]) &&
                static_cast<long long>(texts.size()) == limit)
                return false;
    }
    return true;
}

/// A limit is looked at behind each value, so that none lets one value through.
long long at_least_one(long long limit)
{
    return limit == 0 ? 1 : limit;
}

/// What is asked of a number field, in the way of the database. Cells without a number are passed over.
struct field_question
{
    std::string number; ///< the field as a real number
    std::string rows;   ///< table and condition

    field_question(OGRLayer &layer, OGRFieldDefn const &field)
    {
        std::string const name = quoted_name(field.GetNameRef());
        number = "CAST(" + name + " AS DOUBLE PRECISION)";
        // A column of this database takes text as well, which GDAL reads as a number.
        rows = " FROM " + table_name(layer, false) + " WHERE typeof(" + name + ") IN ('integer', 'real')";
    }
};
} // namespace

bool vector_set::ask_database(int field, field_stat &stat)
{
    server_table const *const asked = server();
    if (!asked)
        return !has_filter() && is_number(field_type(field)) && ask_sqlite(field, stat);
    std::wstring ignored;
    error_guard const guard(ignored);
    store_changes();
    if (!is_number(field_type(field))) {
        auto const count = asked->count_values(*field_at(field));
        stat.count = count.value_or(0);
        return count.has_value();
    }
    auto const found = asked->statistics(*field_at(field));
    stat = found.value_or(field_stat());
    return found.has_value();
}

/// One pass gives all: the squares are summed from a value near the others, as far as the first one is near.
/// If it is far off, so that digits were lost, a second pass sums them from the mean.
bool vector_set::ask_sqlite(int field, field_stat &stat)
{
    constexpr double c_far = 1e6; ///< squared distance of the first value from the mean, in variances
    if (!f_set->is_driver("SQLite"))
        return false;
    std::wstring ignored;
    error_guard const guard(ignored);
    store_changes();
    GDALDataset &base = f_set->gdal();
    field_question const asked(*f_layer, *field_at(field));
    auto const first = sql_answer(base, "SELECT " + asked.number + asked.rows + " LIMIT 1").next();
    if (!guard.text().empty())
        return false;
    if (!first) {
        // Nothing but nulls, or nothing that the database calls a number.
        auto const any = sql_answer(base, "SELECT COUNT(" + quoted_name(field_at(field)->GetNameRef()) +
                                              ") FROM " + table_name(*f_layer, false))
                             .next();
        return any && any->GetFieldAsInteger64(0) == 0;
    }
    auto const away_from = [&](double value) {
        return "(" + asked.number + " - (" + whole_text(value) + "))";
    };
    auto const squares_from = [&](double value) {
        return "SUM(" + away_from(value) + " * " + away_from(value) + ")";
    };
    double const start = first->GetFieldAsDouble(0);
    if (!std::isfinite(start))
        return false;
    std::string const field_name = quoted_name(field_at(field)->GetNameRef());
    std::string const question = "SELECT COUNT(*), MIN(" + asked.number + "), MAX(" + asked.number +
                                 "), SUM(" + asked.number + "), SUM(" + away_from(start) + "), " +
                                 squares_from(start) + ", (SELECT COUNT(" + field_name + ") FROM " +
                                 table_name(*f_layer, false) + ")" + asked.rows;
    auto const all = sql_answer(base, question).next();
    if (!all || !guard.text().empty())
        return false;
    stat.count = all->GetFieldAsInteger64(0);
    // A text among the numbers: GDAL's reading of it counts.
    if (all->GetFieldAsInteger64(6) != stat.count)
        return false;
    stat.minimum = all->GetFieldAsDouble(1);
    stat.maximum = all->GetFieldAsDouble(2);
    stat.sum = all->GetFieldAsDouble(3);
    double const shift = all->GetFieldAsDouble(4) / static_cast<double>(stat.count);
    double const shifted = static_cast<double>(stat.count) * shift * shift;
    if (!std::isfinite(shifted) || !std::isfinite(all->GetFieldAsDouble(5)))
        return false;
    stat.mean = start + shift;
    stat.squares = std::max(0.0, all->GetFieldAsDouble(5) - shifted);
    if (shifted > c_far * stat.squares) {
        auto const again = sql_answer(base, "SELECT " + squares_from(stat.mean) + asked.rows).next();
        if (!again || !guard.text().empty())
            return false;
        stat.squares = again->GetFieldAsDouble(0);
    }
    return std::isfinite(stat.sum);
}

bool vector_set::scan_numbers(int field, field_stat &stat)
{
    auto const summed = [&](auto sums) {
        bool const good = scan(field, [&](column_batch const &batch) { return sums.add(batch), true; });
        stat = sums.result();
        return std::pair(good, sums.is_finite());
    };
    auto const [good, is_finite] = summed(running_stat<double>());
    if (!good || is_finite || !std::isfinite(stat.minimum) || !std::isfinite(stat.maximum))
        return good;
    return summed(running_stat<long double>()).first;
}

field_stat const *vector_set::stat_of(int field)
{
    if (!field_at(field) || !answers_filtered())
        return nullptr;
    auto const known = f_stats.find(field);
    if (known != f_stats.end())
        return &known->second;
    field_stat stat;
    // Of text only the number of cells is of use.
    auto const count = [&](column_batch const &batch) {
        for (std::size_t i = 0; i < batch.count; ++i)
            stat.count += batch.is_defined(i);
        return true;
    };
    bool const wants_numbers = is_number(field_type(field));
    bool good = ask_database(field, stat);
    if (good && stat.count > 1)
        stat.deviation = std::sqrt(stat.squares / static_cast<double>(stat.count - 1));
    // What a server does not answer is left to the caller, who asks on the way whether to go on.
    if (!good && !f_server) {
        stat = {};
        good = wants_numbers ? scan_numbers(field, stat) : scan(field, count);
    }
    return good ? &f_stats.emplace(field, stat).first->second : nullptr;
}

bool vector_set::has_stat(int field)
{
    return answers_filtered() && f_stats.count(field) != 0;
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
        *value = stat->deviation;
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

/// Different numbers may have one text, since a text has fifteen digits.
bool vector_set::collect_texts(int field, long long limit, distinct_texts &texts)
{
    if (!field_at(field) || !answers_filtered())
        return false;
    limit = at_least_one(limit);
    if (server_table const *const asked = server()) {
        std::wstring ignored;
        error_guard const guard(ignored);
        store_changes();
        auto const rows = asked->distinct(*field_at(field), limit);
        if (rows)
            for (auto const &row : *rows)
                texts.insert(cell_bytes(*row, 0));
        return rows.has_value();
    }
    number_set numbers;
    auto const add_number = [&](auto number) {
        if constexpr (std::is_floating_point_v<decltype(number)>)
            texts.insert(number_text(number));
        else
            texts.insert(whole_text(number));
        return static_cast<long long>(texts.size()) != limit;
    };
    auto const add = [&](column_batch const &batch) {
        return batch.kind == column_batch::texts ? add_texts(batch, limit, texts)
                                                 : numbers.add(batch, add_number);
    };
    return scan(field, add);
}

bool vector_set::count_distinct(int field, long long *count)
{
    if (!count || !field_at(field) || !answers_filtered())
        return false;
    if (auto const known = f_distinct.find(field); known != f_distinct.end()) {
        *count = known->second;
        return true;
    }
    std::optional<long long> found;
    if (server_table const *const asked = server()) {
        std::wstring ignored;
        error_guard const guard(ignored);
        store_changes();
        found = asked->count_distinct(*field_at(field));
    }
    if (distinct_texts texts; !found && collect_texts(field, -1, texts))
        found = static_cast<long long>(texts.size());
    if (found)
        *count = f_distinct[field] = *found;
    return found.has_value();
}

bool vector_set::compute_stats(int field, bool force)
{
    return force ? stat_of(field) != nullptr : has_stat(field);
}

bool vector_set::with_unique_numerics(int field, int limit, vx::floatings_visitor visitor)
{
    // Of other fields the caller reads the cells as numbers.
    if (!is_number(field_type(field)) || !answers_filtered())
        return false;
    limit = static_cast<int>(at_least_one(limit));
    if (server_table const *const asked = server()) {
        std::wstring ignored;
        error_guard const guard(ignored);
        store_changes();
        auto const rows = asked->distinct_numbers(*field_at(field), limit);
        if (!rows)
            return false;
        std::vector<double> found;
        for (auto const &row : *rows)
            found.push_back(row->GetFieldAsDouble(0));
        std::sort(found.begin(), found.end());
        if (!found.empty())
            visitor.visit(found.size(), found.data());
        return true;
    }
    number_set numbers;
    auto const is_below = [&](auto) { return static_cast<long long>(numbers.size()) != limit; };
    auto const add = [&](column_batch const &batch) {
        return limit < 0 ? (numbers.collect(batch), true) : numbers.add(batch, is_below);
    };
    if (!scan(field, add))
        return false;
    std::vector<double> list = numbers.take_sorted();
    if (!list.empty())
        visitor.visit(list.size(), list.data());
    return true;
}

bool vector_set::with_unique_strings(int field, int limit, vx::string_visitor visitor)
{
    distinct_texts texts;
    if (!collect_texts(field, limit, texts))
        return false;
    wide_text wide;
    texts.visit_sorted([&](std::string_view text) { visitor.visit(wide.of(text)); });
    return true;
}

bool vector_set::with_sample(int field, unsigned long long count, double minimum, double maximum,
                             vx::floatings_visitor visitor)
{
    if (!is_number(field_type(field)))
        return false;
    server_table const *const asked = server();
    if (!asked)
        return draw_from_file(field, count, minimum, maximum, visitor);
    error_guard const guard(f_set->error());
    store_changes();
    auto found = asked->sample(*field_at(field), count, minimum, maximum);
    if (found && !found->empty())
        visitor.visit(found->size(), found->data());
    return found.has_value();
}

bool vector_set::draw_from_file(int field, unsigned long long count, double minimum, double maximum,
                                vx::floatings_visitor visitor)
{
    char const *const fid = f_layer ? f_layer->GetFIDColumn() : "";
    if (!*fid || has_filter() || count > c_most_draws ||
        (!f_set->is_driver("GPKG") && !f_set->is_driver("SQLite")))
        return false;
    std::wstring ignored;
    error_guard const guard(ignored);
    store_changes();
    GDALDataset &base = f_set->gdal();
    std::string const id = quoted_name(fid);
    std::string const table = table_name(*f_layer, false);
    std::string const name = quoted_name(field_at(field)->GetNameRef());
    // A view finds no row by its identifier alone.
    auto const ends = sql_answer(base, "SELECT (SELECT MIN(" + id + ") FROM " + table +
                                           ") AS first, (SELECT MAX(" + id + ") FROM " + table +
                                           ") AS last WHERE EXISTS (SELECT 1 FROM sqlite_master WHERE type = "
                                           "'table' AND lower(name) = lower(" +
                                           text_literal(f_layer->GetName()) + "))")
                          .next();
    if (!ends || !ends->IsFieldSetAndNotNull(0))
        return false;
    std::vector<double> values;
    auto const ask = [&](std::string const &ids, std::vector<double> &found) {
        sql_answer answer(base, "SELECT CAST(" + name + " AS DOUBLE PRECISION) AS number, typeof(" + name +
                                    ") IN ('integer', 'real') AS is_number FROM " + table + " WHERE " + id +
                                    " IN (" + ids + ") AND " + name + " IS NOT NULL");
        while (OGRFeatureUniquePtr const row = answer.next()) {
            if (!row->GetFieldAsInteger(1)) // a text, which GDAL may read as a number
                return false;
            if (double const value = row->GetFieldAsDouble(0); value >= minimum && value <= maximum)
                found.push_back(value);
        }
        return guard.text().empty();
    };
    if (!draw_by_ids(ends->GetFieldAsInteger64(0), ends->GetFieldAsInteger64(1), count, values, ask) ||
        values.size() < count / 2 || values.empty())
        return false;
    visitor.visit(values.size(), values.data());
    return true;
}

bool vector_set::with_numbers(int field, vx::floatings_visitor visitor)
{
    constexpr std::size_t c_run = 4096;
    server_table const *const asked = is_number(field_type(field)) ? server() : nullptr;
    if (!asked || !visitor)
        return false;
    error_guard const guard(f_set->error());
    store_changes();
    std::vector<double> run;
    auto const hand_out = [&] {
        if (!run.empty())
            visitor.visit(run.size(), run.data());
        run.clear();
    };
    bool const is_good = asked->numbers(*field_at(field), [&](OGRFeature const &row) {
        run.push_back(row.GetFieldAsDouble(0));
        if (run.size() == c_run)
            hand_out();
        return true;
    });
    hand_out();
    return is_good;
}

bool vector_set::with_texts(int field, vx::string_visitor visitor)
{
    server_table const *const asked = field_at(field) && visitor ? server() : nullptr;
    if (!asked)
        return false;
    error_guard const guard(f_set->error());
    store_changes();
    wide_text wide;
    return asked->cells(*field_at(field), [&](OGRFeature const &row) {
        visitor.visit(wide.of(cell_bytes(row, 0)));
        return true;
    });
}

bool vector_set::with_first_features(int key, int const *fields, int count, unsigned long long limit,
                                     vx::string_visitor visitor)
{
    server_table const *const asked = field_at(key) && (fields || count <= 0) ? server() : nullptr;
    if (!asked)
        return false;
    std::vector<OGRFieldDefn const *> others;
    for (int i = 0; i < count; ++i)
        if (auto const *const other = field_at(fields[i]))
            others.push_back(other);
        else
            return false;
    error_guard const guard(f_set->error());
    store_changes();
    long long const most = limit > LLONG_MAX ? -1 : at_least_one(static_cast<long long>(limit));
    auto const rows = asked->first_rows(*field_at(key), others, most);
    if (!rows)
        return false;
    for (auto const &row : *rows)
        for (int cell = 0; cell < row->GetFieldCount(); ++cell)
            visit_utf8(visitor, row->IsFieldSetAndNotNull(cell) ? cell_bytes(*row, cell).c_str() : "");
    return true;
}

bool vector_set::has_histogram(int field)
{
    return is_number(field_type(field)) && answers_filtered();
}

bool vector_set::with_custom_histogram(int field, double minimum, double maximum, int count,
                                       long long *counts, bool force)
{
    if (!force || !has_histogram(field) || count <= 0 || !counts || !(minimum <= maximum))
        return false;
    if (server_table const *const asked = server()) {
        std::wstring ignored;
        error_guard const guard(ignored);
        store_changes();
        auto const found = asked->histogram(*field_at(field), minimum, maximum, count);
        if (found)
            std::copy(found->begin(), found->end(), counts);
        return found.has_value();
    }
    std::fill(counts, counts + count, 0);
    double const width = (maximum - minimum) / count;
    return scan(field, [&](column_batch const &batch) {
        return for_each_number(batch, [&](auto number) {
            auto const value = static_cast<double>(number);
            if (!(value >= minimum && value <= maximum))
                return true;
            double const place = width > 0 ? (value - minimum) / width : 0;
            // The upper bound belongs to the last class.
            ++counts[place < count ? static_cast<int>(place) : count - 1];
            return true;
        });
    });
}

bool vector_set::with_default_histogram(int field, bool force, vx::histogram_visitor visitor)
{
    if (!has_histogram(field) || !(force || has_stat(field)))
        return false;
    auto const *const stat = stat_of(field);
    if (!stat || stat->count == 0 || !std::isfinite(stat->maximum - stat->minimum))
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
