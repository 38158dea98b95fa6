#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/floatings_visitor.h"
#include "extension/binding/interface.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(question_source)
struct vx_question_source_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*with_sample)(void const* table, void* self, int field, unsigned long long count, double minimum,
        double maximum, t_vx_floatings_visitor_interface visitor);
    bool (*with_numbers)(void const* table, void* self, int field, t_vx_floatings_visitor_interface visitor);
    bool (*with_first_features)(void const* table, void* self, int key, int const* fields, int count,
        unsigned long long limit, t_vx_string_visitor_interface visitor);
    bool (*with_texts)(void const* table, void* self, int field, t_vx_string_visitor_interface visitor);
};
VX_BINDING_FUNCTIONS(question_source, 1)
VX_LOCAL inline bool vxk_datasource_question_source_with_sample(
    t_vx_question_source_interface h, int field, unsigned long long count, double minimum, double maximum,
        t_vx_floatings_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_sample(h.table, h.self, field, count, minimum, maximum,
        visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_question_source_with_numbers(
    t_vx_question_source_interface h, int field, t_vx_floatings_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_numbers(h.table, h.self, field, visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_question_source_with_first_features(
    t_vx_question_source_interface h, int key, int const* fields, int count, unsigned long long limit,
        t_vx_string_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_first_features(h.table, h.self, key, fields, count, limit,
        visitor) : false;
}
VX_LOCAL inline bool vxk_datasource_question_source_with_texts(
    t_vx_question_source_interface h, int field, t_vx_string_visitor_interface visitor)
{
    return h.table && h.self ? h.table->with_texts(h.table, h.self, field, visitor) : false;
}
namespace vx
{
/// A data set that answers questions about its features itself, as a database server does.
class VX_API question_source : public binding::wrapper<t_vx_question_source_interface>
{
public:
    using wrapper::wrapper;
    /// About so many numbers of the field within the bounds, drawn by chance; false: not answered.
    VX_LOCAL bool with_sample(int field, unsigned long long count, double minimum, double maximum,
        vx::floatings_visitor visitor) const
    { return vxk_datasource_question_source_with_sample(f_handle, field, count, minimum, maximum, visitor); }
    /// All numbers of the field, in runs; false: not answered, or not to the end.
    VX_LOCAL bool with_numbers(int field, vx::floatings_visitor visitor) const
    { return vxk_datasource_question_source_with_numbers(f_handle, field, visitor); }
    /// For each of at most `limit` different values of the key the first feature that has it: visits the key
    /// and then the texts of the fields, empty ones for null; false: not answered.
    VX_LOCAL bool with_first_features(int key, int const* fields, int count, unsigned long long limit,
        vx::string_visitor visitor) const
    { return vxk_datasource_question_source_with_first_features(f_handle, key, fields, count, limit,
        visitor); }
    /// The texts of all cells of the field that hold something; false: not answered, or not to the end.
    VX_LOCAL bool with_texts(int field, vx::string_visitor visitor) const
    { return vxk_datasource_question_source_with_texts(f_handle, field, visitor); }
};
class VX_API question_source_impl
    : public binding::implementation<question_source_impl, vx::question_source>
{
public:
    virtual bool with_sample(int, unsigned long long, double, double, vx::floatings_visitor) { return false; }
    virtual bool with_numbers(int, vx::floatings_visitor) { return false; }
    virtual bool with_first_features(int, int const*, int, unsigned long long,
        vx::string_visitor) { return false; }
    virtual bool with_texts(int, vx::string_visitor) { return false; }
    VX_LOCAL static char const* interface_name() { return vx_question_source_interface_name; }
    VX_LOCAL static vx_question_source_interface_table const* family_table();
protected:
    ~question_source_impl() = default;
};
VX_LOCAL inline constexpr vx_question_source_interface_table question_source_family_table{
    &binding::generalize_slot<question_source_impl>,
    &binding::slot<&question_source_impl::with_sample>::call,
    &binding::slot<&question_source_impl::with_numbers>::call,
    &binding::slot<&question_source_impl::with_first_features>::call,
    &binding::slot<&question_source_impl::with_texts>::call,
};
inline vx_question_source_interface_table const* question_source_impl::family_table()
{ return &question_source_family_table; }
}
