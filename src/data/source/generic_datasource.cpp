#include "data/source/generic_datasource.h"

#include "data/grid/grid_datasource.h"
#include "data/vector/vector_datasource.h"
#include "extension/binding/histogram_visitor.h"
#include "extension/binding/string_visitors.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_stat.h"
#include "platform/winapi/collation.h"

#include <algorithm>
#include <cmath>

namespace vx::data {
namespace {
/// Inserts the visited numbers into a set.
class number_set_visitor final : public vx::floatings_visitor_impl
{
public:
    explicit number_set_visitor(std::set<double> &target) : f_target(target) {}
    void visit(unsigned long long count, double *values) override
    {
        for (unsigned long long i = 0; values && i < count; ++i)
            if (!std::isnan(values[i]))                     // has no place in an order
                f_target.insert(f_target.end(), values[i]); // drivers mostly give them in ascending order
    }

private:
    std::set<double> &f_target;
};

/// Fills a histogram with what is visited.
class histogram_visitor final : public vx::histogram_visitor_impl
{
public:
    explicit histogram_visitor(Tvx_histogramm_data *target) : f_target(target) {}
    void visit(double minimum, double maximum, int count, long long *counts) override
    {
        if (count < 0 || (count > 0 && !counts))
            return;
        vx_histogramm_clear(f_target);
        vx_histogramm_set_params(f_target, static_cast<unsigned>(count), minimum, maximum);
        for (int i = 0; i < count; ++i)
            vx_histogramm_set(f_target, static_cast<unsigned>(i), static_cast<double>(counts[i]));
    }

private:
    Tvx_histogramm_data *f_target;
};

bool same_name(std::wstring const &a, std::wstring const &b)
{
    return lstrcmpiW(a.c_str(), b.c_str()) == 0;
}
} // namespace

generic_datasource::generic_datasource() = default;

generic_datasource::~generic_datasource()
{
    release_handle();
}

bool generic_datasource::open_data(std::wstring const & /*source*/, access_mode /*mode*/)
{
    return true;
}

void generic_datasource::close_data()
{
}

// Here the kind of source decides: a temporary of that kind, which does not own the handle, answers.

template <class Work>
bool generic_datasource::with_kind(Work work) const
{
    vector_datasource features;
    if (features.from_generic(f_source))
        return work(features);
    grid_datasource grid;
    return grid.from_generic(f_source) && work(grid);
}

bool generic_datasource::compute_stat_common(field_index_type field, statistic &stat)
{
    return with_kind([&](generic_datasource &source) { return source.compute_stat_common(field, stat); });
}

bool generic_datasource::compute_stat_stdev(field_index_type field, statistic &stat)
{
    return with_kind([&](generic_datasource &source) { return source.compute_stat_stdev(field, stat); });
}

bool generic_datasource::compute_stat_distinct(field_index_type field, statistic &stat)
{
    return with_kind([&](generic_datasource &source) { return source.compute_stat_distinct(field, stat); });
}

bool generic_datasource::fetch_values(field_index_type field, std::vector<std::wstring> &values)
{
    return with_kind([&](generic_datasource &source) { return source.fetch_values(field, values); });
}

bool generic_datasource::fetch_values(field_index_type field, std::vector<double> &values)
{
    return with_kind([&](generic_datasource &source) { return source.fetch_values(field, values); });
}

bool generic_datasource::fetch_unique_values(field_index_type field, std::uint64_t limit,
                                             std::set<std::wstring> &values)
{
    return with_kind(
        [&](generic_datasource &source) { return source.fetch_unique_values(field, limit, values); });
}

bool generic_datasource::fetch_unique_values(field_index_type field, std::uint64_t limit,
                                             std::set<double> &values)
{
    return with_kind(
        [&](generic_datasource &source) { return source.fetch_unique_values(field, limit, values); });
}

bool generic_datasource::fetch_unique_values(field_index_type key,
                                             std::vector<field_index_type> const &fields, std::uint64_t limit,
                                             std::map<std::wstring, std::vector<std::wstring>> &values)
{
    return with_kind(
        [&](generic_datasource &source) { return source.fetch_unique_values(key, fields, limit, values); });
}

bool generic_datasource::open(std::wstring const &source, access_mode mode)
{
    return open(connection(source), mode);
}

bool generic_datasource::open(connection const &c, access_mode mode)
{
    close();
    t_vx_data_source_interface handle;
    c.open(mode == access_read, &handle);
    if (mode == access_update_or_read && vx::binding::is_null(handle)) {
        handle = {};
        c.open(true, &handle);
    }
    return finish_open(handle, c.source(), mode);
}

bool generic_datasource::open(std::wstring const &source, options const &o, access_mode mode)
{
    return open(o.alter_source(source), mode);
}

bool generic_datasource::open(connection const &c, options const &o, access_mode mode)
{
    connection altered = c;
    altered.set_source(o.alter_source(c.source()));
    return open(altered, mode);
}

bool generic_datasource::open(void *connect, access_mode mode)
{
    close();
    t_vx_data_source_interface handle;
    vx_datasource_connect_open(connect, mode == access_read, &handle);
    if (mode == access_update_or_read && vx::binding::is_null(handle)) {
        handle = {};
        vx_datasource_connect_open(connect, true, &handle);
    }
    std::wstring source;
    {
        Tvx_std_wstring_adapter receiver(source);
        vx_datasource_connect_get_source(connect, receiver);
    }
    return finish_open(handle, source, mode);
}

bool generic_datasource::create(std::wstring const &source, driver_type driver)
{
    close();
    t_vx_data_source_interface handle;
    vx_datasource_create(source.c_str(), driver, &handle);
    return finish_open(handle, source, access_update);
}

bool generic_datasource::create(std::wstring const &source, options const &o, driver_type driver)
{
    return create(o.alter_source(source), driver);
}

bool generic_datasource::from_handle(t_vx_data_source_interface handle)
{
    close();
    take_handle(handle, false);
    return is_open();
}

void generic_datasource::close()
{
    close_data();
    release_handle();
}

void generic_datasource::take_handle(vx::data_source source, bool owned)
{
    f_source = source;
    f_stat_source = vx_stat_source_interface_specialize(vx_data_source_interface_generalize(source));
    f_owned = owned;
}

bool generic_datasource::finish_open(t_vx_data_source_interface handle, std::wstring const &source,
                                     access_mode mode)
{
    if (vx::binding::is_null(handle))
        return false;
    take_handle(handle, true);
    return open_data(source, mode);
}

void generic_datasource::release_handle()
{
    if (f_owned)
        vx_datasource_end(f_source);
    f_owned = false;
    f_source = {};
    f_stat_source = {};
}

int generic_datasource::driver_id() const
{
    return f_source.driver_id();
}

bool generic_datasource::has_capability(caps_type caps) const
{
    return f_source.has_capability(caps);
}

bool generic_datasource::extent(Tvx_box_d2 &box, force_type force) const
{
    return f_source.with_extent(&box, force == force_compute);
}

bool generic_datasource::extent(Tvx_box_d3 &box, force_type force) const
{
    return f_source.with_extent_z(&box, force == force_compute);
}

std::wstring generic_datasource::name() const
{
    return visited_text([&](auto &v) { f_source.with_name(v); });
}

std::wstring generic_datasource::desription() const
{
    return visited_text([&](auto &v) { f_source.with_description(v); });
}

std::wstring generic_datasource::projection() const
{
    return visited_text([&](auto &v) { f_source.with_proj4(v); });
}

bool generic_datasource::set_projection(std::wstring const &proj4)
{
    return f_source.set_proj4(proj4.c_str());
}

std::vector<std::wstring> generic_datasource::files_list() const
{
    std::vector<std::wstring> files;
    vx::stdwstring_list_visitor visitor(files);
    f_source.with_files(visitor);
    return files;
}

int generic_datasource::vector_count() const
{
    return f_source.vector_count();
}

std::wstring generic_datasource::vector_source(int i) const
{
    return visited_text([&](auto &v) { f_source.vector_source(i, v); });
}

std::wstring generic_datasource::vector_name(int i) const
{
    return visited_text([&](auto &v) { f_source.vector_name(i, v); });
}

int generic_datasource::grid_count() const
{
    return f_source.grid_count();
}

std::wstring generic_datasource::grid_source(int i) const
{
    return visited_text([&](auto &v) { f_source.grid_source(i, v); });
}

std::wstring generic_datasource::grid_name(int i) const
{
    return visited_text([&](auto &v) { f_source.grid_name(i, v); });
}

std::wstring generic_datasource::error_message() const
{
    return visited_text([&](auto &v) { f_source.with_error(v); });
}

field_index_type generic_datasource::field_count() const
{
    // More than any format has, and few enough to ask for each: the number is what a driver claims.
    constexpr int c_max_fields = 1 << 16;
    return static_cast<field_index_type>(std::clamp(f_source.field_count(), 0, c_max_fields));
}

std::wstring generic_datasource::field_name(field_index_type i) const
{
    return visited_text([&](auto &v) { f_source.field_name(interface_index(i), v); });
}

std::wstring generic_datasource::field_alias(field_index_type i) const
{
    return visited_text([&](auto &v) { f_source.field_alias(interface_index(i), v); });
}

bool generic_datasource::set_field_alias(field_index_type i, std::wstring const &alias)
{
    return f_source.set_field_alias(interface_index(i), alias.c_str());
}

vx::data::field_type generic_datasource::field_type(field_index_type i) const
{
    return static_cast<vx::data::field_type>(f_source.field_type(interface_index(i)));
}

int generic_datasource::field_subtype(field_index_type i) const
{
    return f_source.field_subtype(interface_index(i));
}

bool generic_datasource::field_readonly(field_index_type i) const
{
    return f_source.field_readonly(interface_index(i));
}

std::wstring generic_datasource::field_default(field_index_type i) const
{
    return visited_text([&](auto &v) { f_source.field_default(interface_index(i), v); });
}

bool generic_datasource::field_nullable(field_index_type i) const
{
    return f_source.field_nullable(interface_index(i));
}

bool generic_datasource::field_dict(field_index_type i, vx::data::field_dict &dict) const
{
    field_dict_visitor visitor(dict);
    return f_source.field_dict(interface_index(i), visitor);
}

field_index_type generic_datasource::field_index(std::wstring const &name) const
{
    if (name.empty())
        return c_no_field;
    int index = -1;
    if (!f_source.field_index(name.c_str(), &index))
        index = find_field_index(name);
    return static_cast<field_index_type>(static_cast<std::int64_t>(index));
}

int generic_datasource::find_field_index(std::wstring const &name) const
{
    auto const count = field_count();
    for (field_index_type i = 0; i < count; ++i)
        if (same_name(field_name(i), name))
            return static_cast<int>(i);
    return -1;
}

std::wstring generic_datasource::field_unique_name(std::wstring const &name) const
{
    std::wstring proposal;
    vx::stdwstring_visitor visitor(proposal);
    return f_source.make_field_name(name.c_str(), visitor) ? proposal : make_field_unique_name(name);
}

std::wstring generic_datasource::make_field_unique_name(std::wstring const &name) const
{
    std::vector<std::wstring> taken;
    for (field_index_type i = 0; i < field_count(); ++i)
        taken.push_back(field_name(i));
    std::wstring result = name;
    unsigned long long counter = 0;
    for (std::size_t i = 0; i < taken.size();) {
        if (!same_name(taken[i], result)) {
            ++i;
            continue;
        }
        result = name + std::to_wstring(++counter);
        i = 0;
    }
    return result;
}

bool generic_datasource::field_has_statistics(field_index_type i) const
{
    return f_stat_source.has_stat(interface_index(i));
}

bool generic_datasource::field_has_histogram(field_index_type i) const
{
    return f_stat_source.has_histogram(interface_index(i));
}

statistic const &generic_datasource::common_of(field_index_type i)
{
    statistic &entry = f_stats[i];
    if (!entry.common_done)
        compute_stat_common(i, entry);
    return entry;
}

double generic_datasource::field_minimum(field_index_type i)
{
    double value = 0;
    return f_stat_source.minimum(interface_index(i), &value) ? value : common_of(i).minimum;
}

double generic_datasource::field_maximum(field_index_type i)
{
    double value = 0;
    return f_stat_source.maximum(interface_index(i), &value) ? value : common_of(i).maximum;
}

double generic_datasource::field_average(field_index_type i)
{
    double value = 0;
    return f_stat_source.average(interface_index(i), &value) ? value : common_of(i).average;
}

std::uint64_t generic_datasource::field_quantity(field_index_type i)
{
    long long count = 0;
    return f_stat_source.count_nonnull(interface_index(i), &count) ? static_cast<std::uint64_t>(count)
                                                                   : common_of(i).quantity;
}

std::uint64_t generic_datasource::field_distinct(field_index_type i)
{
    long long count = 0;
    if (f_stat_source.count_distinct(interface_index(i), &count))
        return static_cast<std::uint64_t>(count);
    return compute_stat_distinct(i).distinct;
}

double generic_datasource::field_stdev(field_index_type i)
{
    double value = 0;
    if (f_stat_source.stdev(interface_index(i), &value))
        return value;
    statistic &entry = f_stats[i];
    if (!entry.stdev_done) {
        // A second pass over the values; what it needs may come from the driver.
        if (!entry.common_done) {
            double const average = field_average(i);
            std::uint64_t const quantity = field_quantity(i);
            entry.average = average;
            entry.quantity = quantity;
        }
        compute_stat_stdev(i, entry);
    }
    return entry.stdev;
}

void generic_datasource::field_statistics(field_index_type i, Tvx_stat_data *stat)
{
    vx_stat_set_minimum(stat, field_minimum(i));
    vx_stat_set_maximum(stat, field_maximum(i));
    vx_stat_set_average(stat, field_average(i));
    vx_stat_set_stddev(stat, field_stdev(i));
}

bool generic_datasource::field_histogram(field_index_type i, Tvx_stat_data *stat)
{
    bool present = false;
    Tvx_histogramm_data *const histogram = vx_stat_get_histogramm(stat, &present);
    bool const result = field_histogram(i, histogram);
    vx_stat_set_histogramm(stat, result);
    return result;
}

bool generic_datasource::field_histogram(field_index_type i, Tvx_histogramm_data *histogram)
{
    histogram_visitor visitor(histogram);
    return f_stat_source.with_default_histogram(interface_index(i), true, visitor);
}

statistic const &generic_datasource::compute_stat_common(field_index_type i)
{
    return common_of(i);
}

statistic const &generic_datasource::compute_stat_stdev(field_index_type i)
{
    statistic &entry = f_stats[i];
    if (!entry.stdev_done) {
        common_of(i);
        compute_stat_stdev(i, entry);
    }
    return entry;
}

statistic const &generic_datasource::compute_stat_distinct(field_index_type i)
{
    statistic &entry = f_stats[i];
    if (!entry.distinct_done)
        compute_stat_distinct(i, entry);
    return entry;
}

bool generic_datasource::field_values(field_index_type i, std::vector<std::wstring> &values)
{
    return fetch_values(i, values);
}

bool generic_datasource::field_values(field_index_type i, std::vector<double> &values)
{
    return fetch_values(i, values);
}

bool generic_datasource::field_unique_values(field_index_type i, std::uint64_t limit,
                                             std::set<std::wstring> &values)
{
    if (f_stat_source) {
        values.clear();
        vx::stdwstring_set_visitor visitor(values);
        if (f_stat_source.with_unique_strings(interface_index(i), interface_index(limit), visitor))
            return true;
    }
    return fetch_unique_values(i, limit, values);
}

bool generic_datasource::field_unique_values(field_index_type i, std::uint64_t limit,
                                             std::set<double> &values)
{
    if (f_stat_source) {
        number_set_visitor visitor(values);
        if (f_stat_source.with_unique_numerics(interface_index(i), interface_index(limit), visitor))
            return true;
    }
    return fetch_unique_values(i, limit, values);
}

bool generic_datasource::field_unique_values(field_index_type key,
                                             std::vector<field_index_type> const &fields, std::uint64_t limit,
                                             std::map<std::wstring, std::vector<std::wstring>> &values)
{
    return fetch_unique_values(key, fields, limit, values);
}
} // namespace vx::data
