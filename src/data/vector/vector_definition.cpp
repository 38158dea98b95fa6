#include "data/vector/vector_definition.h"

#include <algorithm>

namespace vx::data {
vector_definition::field_meta const &vector_definition::field_at(std::size_t i) const
{
    static field_meta const none;
    return i < f_fields.size() ? f_fields[i] : none;
}

vector_definition::geom_field_meta const &vector_definition::geom_field_at(int i) const
{
    static geom_field_meta const none;
    auto const at = static_cast<std::size_t>(i);
    return i >= 0 && at < f_geom_fields.size() ? f_geom_fields[at] : none;
}

int vector_definition::field_count()
{
    return static_cast<int>(f_fields.size());
}

// A negative index becomes a number past every end.

void vector_definition::field_name(int field, vx::string_visitor visitor)
{
    visitor.visit(field_at(static_cast<std::size_t>(field)).name.c_str());
}

int vector_definition::field_type(int field)
{
    return static_cast<int>(field_at(static_cast<std::size_t>(field)).type);
}

int vector_definition::field_subtype(int /*field*/)
{
    return 0;
}

int vector_definition::field_width(int field)
{
    return field_at(static_cast<std::size_t>(field)).width;
}

int vector_definition::field_precision(int field)
{
    return field_at(static_cast<std::size_t>(field)).precision;
}

bool vector_definition::field_nullable(int field)
{
    return field_at(static_cast<std::size_t>(field)).nullable;
}

void vector_definition::field_default(int field, vx::string_visitor visitor)
{
    visitor.visit(field_at(static_cast<std::size_t>(field)).default_value.c_str());
}

int vector_definition::geom_field_count()
{
    return static_cast<int>(f_geom_fields.size());
}

void vector_definition::geom_field_name(int field, vx::string_visitor visitor)
{
    visitor.visit(geom_field_at(field).name.c_str());
}

int vector_definition::geom_field_type(int field)
{
    return static_cast<int>(geom_field_at(field).type);
}

void vector_definition::geom_field_proj4(int field, vx::string_visitor visitor)
{
    visitor.visit(geom_field_at(field).proj4.c_str());
}

void vector_definition::with_fid_field(vx::string_visitor visitor)
{
    visitor.visit(f_fid_field.c_str());
}

void vector_definition::with_proj4(vx::string_visitor visitor)
{
    visitor.visit(f_proj4.c_str());
}

void vector_definition::append(std::wstring const &name, vx::data::field_type type, std::int32_t width,
                               std::int32_t precision, bool nullable, std::wstring const &default_value)
{
    f_fields.push_back({name, type, width, precision, nullable, default_value});
}

void vector_definition::prepend(std::wstring const &name, vx::data::field_type type, std::int32_t width,
                                std::int32_t precision, bool nullable, std::wstring const &default_value)
{
    f_fields.insert(f_fields.begin(), {name, type, width, precision, nullable, default_value});
}

int vector_definition::find(std::wstring const &name) const
{
    auto const found =
        std::find_if(f_fields.begin(), f_fields.end(), [&](field_meta const &f) { return f.name == name; });
    return found == f_fields.end() ? -1 : static_cast<int>(found - f_fields.begin());
}

std::wstring vector_definition::name(std::size_t i) const
{
    return field_at(i).name;
}

void vector_definition::set_name(std::size_t i, std::wstring const &name)
{
    if (i < f_fields.size())
        f_fields[i].name = name;
}

vx::data::field_type vector_definition::type(std::size_t i) const
{
    return field_at(i).type;
}

void vector_definition::set_type(std::size_t i, vx::data::field_type type)
{
    if (i < f_fields.size())
        f_fields[i].type = type;
}

std::int32_t vector_definition::width(std::size_t i) const
{
    return field_at(i).width;
}

void vector_definition::set_width(std::size_t i, std::int32_t width)
{
    if (i < f_fields.size())
        f_fields[i].width = width;
}

std::int32_t vector_definition::precision(std::size_t i) const
{
    return field_at(i).precision;
}

void vector_definition::set_precision(std::size_t i, std::int32_t precision)
{
    if (i < f_fields.size())
        f_fields[i].precision = precision;
}

bool vector_definition::nullable(std::size_t i) const
{
    return field_at(i).nullable;
}

void vector_definition::set_nullable(std::size_t i, bool nullable)
{
    if (i < f_fields.size())
        f_fields[i].nullable = nullable;
}

std::wstring vector_definition::defaultv(std::size_t i) const
{
    return field_at(i).default_value;
}

void vector_definition::set_defaultv(std::size_t i, std::wstring const &value)
{
    if (i < f_fields.size())
        f_fields[i].default_value = value;
}
} // namespace vx::data
