#pragma once

#include "data/connection/data_types.h"

#include "platform/base/export.h"

#include <cstdint>
#include <string_view>

namespace vx::data {
/// One attribute value, a copy of its own. The numbers of the kinds are those of `field_type`; the kind 0 is
/// null.
class VX_API any
{
public:
    any() = default;
    any(any const &other);
    any(any &&other) noexcept;
    any &operator=(any other) noexcept;
    ~any();

    [[nodiscard]] static any from_string(std::wstring_view text);
    [[nodiscard]] static any from_numeric(double value);
    [[nodiscard]] static any from_integer(std::int32_t value);
    [[nodiscard]] static any from_bigint(std::int64_t value);

    [[nodiscard]] field_type kind() const { return f_kind; }
    [[nodiscard]] bool is_null() const { return f_kind == field_type::none; }
    /// Each is the value when the kind fits, else null, 0.0 or 0. The text is zero-terminated and the
    /// object's own.
    [[nodiscard]] wchar_t const *string() const
    {
        return f_kind == field_type::string ? f_value.string : nullptr;
    }
    [[nodiscard]] double numeric() const { return f_kind == field_type::numeric ? f_value.numeric : 0.0; }
    [[nodiscard]] std::int32_t integer() const { return f_kind == field_type::integer ? f_value.integer : 0; }
    [[nodiscard]] std::int64_t bigint() const { return f_kind == field_type::bigint ? f_value.bigint : 0; }

private:
    union value {
        wchar_t *string;
        double numeric;
        std::int32_t integer;
        std::int64_t bigint;
    };

    field_type f_kind = field_type::none;
    value f_value{};
};
} // namespace vx::data
