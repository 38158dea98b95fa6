#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Filters behind the opaque pointers.
namespace vx::calc {
enum class relation : std::uint8_t
{
    equal,
    is_close,
    not_equal,
    less,
    less_eq,
    greater,
    greater_eq,
    begins_with,
    ends_with,
    contains,
    not_contains,
    is_null,
    not_null
};
enum class logic : std::uint8_t
{
    empty,
    logic_and,
    logic_or
};

[[nodiscard]] std::optional<relation> relation_of(std::wstring_view word);
[[nodiscard]] wchar_t const *word_of(relation r);
/// The sign for people, or the word of a relation without one.
[[nodiscard]] wchar_t const *sign_of(relation r);
[[nodiscard]] std::optional<logic> logic_of(std::wstring_view word);
[[nodiscard]] wchar_t const *word_of(logic l);

struct condition
{
    std::wstring field;
    std::wstring value;
    relation rel = relation::equal;
    logic next = logic::empty; ///< what joins it to the following condition
    bool in_force = true;
    bool match_case = true;
};

struct filter
{
    std::vector<condition> conditions;
};

/// The number that all of the text spells, white space at its ends aside; "." is the decimal sign.
[[nodiscard]] std::optional<double> number_of(std::wstring_view text);
/// The same for a whole number of 64 bits that is written without point and exponent.
[[nodiscard]] std::optional<std::int64_t> whole_of(std::wstring_view text);

[[nodiscard]] std::wstring to_text(filter const &f);
[[nodiscard]] std::optional<filter> from_text(std::wstring_view text);
[[nodiscard]] std::wstring pretty(filter const &f);
} // namespace vx::calc
