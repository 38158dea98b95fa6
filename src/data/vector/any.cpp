#include "data/vector/any.h"

#include <algorithm>
#include <utility>

namespace vx::data {
namespace {
wchar_t *copy_of(std::wstring_view text)
{
    auto *const copy = new wchar_t[text.size() + 1];
    std::copy(text.begin(), text.end(), copy);
    copy[text.size()] = 0;
    return copy;
}
} // namespace

any::any(any const &other) : f_kind(other.f_kind), f_value(other.f_value)
{
    if (f_kind == field_type::string)
        f_value.string = copy_of(other.f_value.string);
}

any::any(any &&other) noexcept
    : f_kind(std::exchange(other.f_kind, field_type::none)), f_value(std::exchange(other.f_value, value{}))
{
}

any &any::operator=(any other) noexcept
{
    std::swap(f_kind, other.f_kind);
    std::swap(f_value, other.f_value);
    return *this;
}

any::~any()
{
    if (f_kind == field_type::string)
        delete[] f_value.string;
}

any any::from_string(std::wstring_view text)
{
    any out;
    out.f_value.string = copy_of(text);
    out.f_kind = field_type::string;
    return out;
}

any any::from_numeric(double value)
{
    any out;
    out.f_kind = field_type::numeric;
    out.f_value.numeric = value;
    return out;
}

any any::from_integer(std::int32_t value)
{
    any out;
    out.f_kind = field_type::integer;
    out.f_value.integer = value;
    return out;
}

any any::from_bigint(std::int64_t value)
{
    any out;
    out.f_kind = field_type::bigint;
    out.f_value.bigint = value;
    return out;
}
} // namespace vx::data
