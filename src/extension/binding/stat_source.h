#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/floatings_visitor.h"
#include "extension/binding/histogram_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(stat_source)
struct vx_stat_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*has_stat)(void const* table, void* self, int field);
    bool (*minimum)(void const* table, void* self, int field, double* value);
    bool (*maximum)(void const* table, void* self, int field, double* value);
    bool (*average)(void const* table, void* self, int field, double* value);
    bool (*stdev)(void const* table, void* self, int field, double* value);
    bool (*sum)(void const* table, void* self, int field, double* value);
    bool (*count_nonnull)(void const* table, void* self, int field, long long* count);
    bool (*count_distinct)(void const* table, void* self, int field, long long* count);
    bool (*compute_stats)(void const* table, void* self, int field, bool force);
    bool (*with_unique_numerics)(void const* table, void* self, int field, int limit,
        t_vx_floatings_visitor_interface visitor);
    bool (*with_unique_strings)(void const* table, void* self, int field, int limit,
        t_vx_string_visitor_interface visitor);
    bool (*has_histogram)(void const* table, void* self, int field);
    bool (*with_custom_histogram)(void const* table, void* self, int field, double minimum, double maximum,
        int count, long long* counts, bool force);
    bool (*with_default_histogram)(void const* table, void* self, int field, bool force,
        t_vx_histogram_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(stat_source, 9)
VX_LOCAL inline bool vxk_datasource_stat_source_has_stat(t_vx_stat_source_interface h, int field)
{
    return h.table && h.self ? h.table->has_stat(h.table, h.self, field) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_minimum(
    t_vx_stat_source_interface h, int field, double* value)
{
    return h.table && h.self ? h.table->minimum(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_maximum(
    t_vx_stat_source_interface h, int field, double* value)
{
    return h.table && h.self ? h.table->maximum(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_average(
    t_vx_stat_source_interface h, int field, double* value)
{
    return h.table && h.self ? h.table->average(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_stdev(t_vx_stat_source_interface h, int field, double* value)
{
    return h.table && h.self ? h.table->stdev(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_sum(t_vx_stat_source_interface h, int field, double* value)
{
    return h.table && h.self ? h.table->sum(h.table, h.self, field, value) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_count_nonnull(
    t_vx_stat_source_interface h, int field, long long* count)
{
    return h.table && h.self ? h.table->count_nonnull(h.table, h.self, field, count) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_count_distinct(
    t_vx_stat_source_interface h, int field, long long* count)
{
    return h.table && h.self ? h.table->count_distinct(h.table, h.self, field, count) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_compute_stats(
    t_vx_stat_source_interface h, int field, bool force)
{
    return h.table && h.self ? h.table->compute_stats(h.table, h.self, field, force) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_with_unique_numerics(
    t_vx_stat_source_interface h, int field, int limit, t_vx_floatings_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_unique_numerics(h.table, h.self, field, limit, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_with_unique_strings(
    t_vx_stat_source_interface h, int field, int limit, t_vx_string_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_unique_strings(h.table, h.self, field, limit, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_has_histogram(t_vx_stat_source_interface h, int field)
{
    return h.table && h.self ? h.table->has_histogram(h.table, h.self, field) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_with_custom_histogram(
    t_vx_stat_source_interface h, int field, double minimum, double maximum, int count, long long* counts,
        bool force)
{
    return h.table && h.self ? h.table->with_custom_histogram(h.table, h.self, field, minimum, maximum,
        count, counts, force) : false;
}
VX_LOCAL inline bool vxk_datasource_stat_source_with_default_histogram(
    t_vx_stat_source_interface h, int field, bool force, t_vx_histogram_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_default_histogram(h.table, h.self, field, force,
        visitor) : false;
}
namespace vx
{
/// What a data set knows of the values of its fields; false: not known.
class VX_API stat_source : public binding::wrapper<t_vx_stat_source_interface>
{
public:
    using wrapper::wrapper;
    /// Answers come without reading all data.
    VX_LOCAL bool has_stat(int field) const
    { return vxk_datasource_stat_source_has_stat(f_handle, field); }
    VX_LOCAL bool minimum(int field, double* value) const
    { return vxk_datasource_stat_source_minimum(f_handle, field, value); }
    VX_LOCAL bool maximum(int field, double* value) const
    { return vxk_datasource_stat_source_maximum(f_handle, field, value); }
    VX_LOCAL bool average(int field, double* value) const
    { return vxk_datasource_stat_source_average(f_handle, field, value); }
    /// Of the sample.
    VX_LOCAL bool stdev(int field, double* value) const
    { return vxk_datasource_stat_source_stdev(f_handle, field, value); }
    VX_LOCAL bool sum(int field, double* value) const
    { return vxk_datasource_stat_source_sum(f_handle, field, value); }
    VX_LOCAL bool count_nonnull(int field, long long* count) const
    { return vxk_datasource_stat_source_count_nonnull(f_handle, field, count); }
    VX_LOCAL bool count_distinct(int field, long long* count) const
    { return vxk_datasource_stat_source_count_distinct(f_handle, field, count); }
    VX_LOCAL bool compute_stats(int field, bool force) const
    { return vxk_datasource_stat_source_compute_stats(f_handle, field, force); }
    VX_LOCAL bool with_unique_numerics(int field, int limit, vx::floatings_visitor visitor) const
    { return vxk_datasource_stat_source_with_unique_numerics(f_handle, field, limit, visitor); }
    VX_LOCAL bool with_unique_strings(int field, int limit, vx::string_visitor visitor) const
    { return vxk_datasource_stat_source_with_unique_strings(f_handle, field, limit, visitor); }
    VX_LOCAL bool has_histogram(int field) const
    { return vxk_datasource_stat_source_has_histogram(f_handle, field); }
    VX_LOCAL bool with_custom_histogram(int field, double minimum, double maximum, int count,
        long long* counts, bool force) const
    { return vxk_datasource_stat_source_with_custom_histogram(f_handle, field, minimum, maximum, count,
        counts, force); }
    VX_LOCAL bool with_default_histogram(int field, bool force, vx::histogram_visitor visitor) const
    { return vxk_datasource_stat_source_with_default_histogram(f_handle, field, force, visitor); }
};
class VX_API stat_source_impl
    : public binding::implementation<stat_source_impl, vx::stat_source>
{
public:
    virtual bool has_stat(int) { return false; }
    virtual bool minimum(int, double*) { return false; }
    virtual bool maximum(int, double*) { return false; }
    virtual bool average(int, double*) { return false; }
    virtual bool stdev(int, double*) { return false; }
    virtual bool sum(int, double*) { return false; }
    virtual bool count_nonnull(int, long long*) { return false; }
    virtual bool count_distinct(int, long long*) { return false; }
    virtual bool compute_stats(int, bool) { return false; }
    virtual bool with_unique_numerics(int, int, vx::floatings_visitor) { return false; }
    virtual bool with_unique_strings(int, int, vx::string_visitor) { return false; }
    virtual bool has_histogram(int) { return false; }
    virtual bool with_custom_histogram(int, double, double, int, long long*, bool) { return false; }
    virtual bool with_default_histogram(int, bool, vx::histogram_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_stat_source_interface_name; }
    VX_LOCAL static vx_stat_source_interface_table const* family_table();
protected:
    ~stat_source_impl() = default;
};
VX_LOCAL inline constexpr vx_stat_source_interface_table stat_source_family_table{
    &binding::generalize_slot<stat_source_impl>,
    &binding::slot<&stat_source_impl::has_stat>::call,
    &binding::slot<&stat_source_impl::minimum>::call,
    &binding::slot<&stat_source_impl::maximum>::call,
    &binding::slot<&stat_source_impl::average>::call,
    &binding::slot<&stat_source_impl::stdev>::call,
    &binding::slot<&stat_source_impl::sum>::call,
    &binding::slot<&stat_source_impl::count_nonnull>::call,
    &binding::slot<&stat_source_impl::count_distinct>::call,
    &binding::slot<&stat_source_impl::compute_stats>::call,
    &binding::slot<&stat_source_impl::with_unique_numerics>::call,
    &binding::slot<&stat_source_impl::with_unique_strings>::call,
    &binding::slot<&stat_source_impl::has_histogram>::call,
    &binding::slot<&stat_source_impl::with_custom_histogram>::call,
    &binding::slot<&stat_source_impl::with_default_histogram>::call,
};
inline vx_stat_source_interface_table const* stat_source_impl::family_table()
{ return &stat_source_family_table; }
}
