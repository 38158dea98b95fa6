#include "controls/numeric/number_text.h"
#include "support/comma_locale.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <optional>

namespace {
constexpr double c_inf = std::numeric_limits<double>::infinity();
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_largest = std::numeric_limits<double>::max();

std::optional<int> int_of(wchar_t const *text)
{
    int value = 77;
    if (vx::str_to_int(text, value))
        return value;
    EXPECT_EQ(value, 77);
    return {};
}

std::optional<double> float_of(wchar_t const *text)
{
    double value = 77;
    if (vx::str_to_float(text, value))
        return value;
    EXPECT_EQ(value, 77);
    return {};
}
} // namespace

TEST(number_text, whole_numbers)
{
    struct
    {
        wchar_t const *text;
        std::optional<int> value;
    } const cases[] = {
        {L"0", 0},
        {L"-12", -12},
        {L"+12", 12},
        {L"  12", 12},
        {L"2147483647", 2147483647},
        {L"-2147483648", std::numeric_limits<int>::min()},
        {L"$1F", 31},
        {L"-0x10", -16},
        {L"$FFFFFFFF", -1},
        {L"2147483648", {}},
        {L"99999999999999999999", {}},
        {L"$100000000", {}},
        {L"", {}},
        {L"-", {}},
        {L"--1", {}},
        {L"+-1", {}},
        {L"$", {}},
        {L"$-1", {}},
        {L"12 ", {}},
        {L"1.0", {}},
        {L"1e3", {}},
        {L"1,5", {}},
        {L"\u0661", {}},
        {L"12\nabc", {}},
    };
    for (auto const &c : cases)
        EXPECT_EQ(int_of(c.text), c.value) << std::string(c.text, c.text + wcslen(c.text));
}

TEST(number_text, numbers_with_decimals_under_any_locale)
{
    vx_test::comma_locale const commas;
    struct
    {
        wchar_t const *text;
        std::optional<double> value;
        double beginning; ///< what can be read of the text
    } const cases[] = {
        {L"1.5", 1.5, 1.5},
        {L" -1.5e-3 ", -0.0015, -0.0015},
        {L"+.5", 0.5, 0.5},
        {L"5.", 5.0, 5.0},
        {L"1E+2", 100.0, 100.0},
        {L"1e308", 1e308, 1e308},
        {L"1e-400", 0.0, 0.0},
        {L"0.000e999", 0.0, 0.0},
        {L"5e-324", 5e-324, 5e-324},
        {L"1e309", {}, c_largest},
        {L"-1e99999999999999999999", {}, -c_largest},
        {L"1e-99999999999999999999", 0.0, 0.0},
        {L"", {}, 0.0},
        {L".", {}, 0.0},
        {L"-", {}, 0.0},
        {L"e5", {}, 0.0},
        {L"1e", {}, 1.0},
        {L"1e-", {}, 1.0},
        {L"1,5", {}, 1.0},
        {L"1.5.2", {}, 1.5},
        {L"1-2", {}, 1.0},
        {L"3 mm", {}, 3.0},
        {L"\n 7 lines\nof text", {}, 7.0},
        {L"nan", {}, 0.0},
        {L"inf", {}, 0.0},
        {L"0x10", {}, 0.0},
        {L"width", {}, 0.0},
    };
    for (auto const &c : cases) {
        std::string const name(c.text, c.text + wcslen(c.text));
        EXPECT_EQ(float_of(c.text), c.value) << name;
        EXPECT_EQ(vx::read_float(c.text), c.beginning) << name;
    }
    // Too many digits for the exponent to be told from the digits alone.
    EXPECT_EQ(vx::read_float(std::wstring(400, L'9')), c_largest);
    EXPECT_EQ(vx::read_float(L"0." + std::wstring(400, L'0') + L"1"), 0.0);
    EXPECT_EQ(vx::read_float(L"0." + std::wstring(400, L'0') + L"1e401"), 1.0);
}

TEST(number_text, general_form)
{
    vx_test::comma_locale const commas;
    struct
    {
        double value;
        int precision, digits;
        wchar_t const *text;
    } const cases[] = {
        {0.0, 15, 0, L"0"},
        {-0.0, 15, 0, L"0"},
        {0.1, 15, 0, L"0.1"},
        {-1234567.5, 15, 0, L"-1234567.5"},
        {1e14, 15, 0, L"100000000000000"},
        {1e15, 15, 0, L"1E15"},
        {1.5e-7, 15, 0, L"1.5E-7"},
        {0.00001, 15, 0, L"0.00001"},
        {0.00000999, 15, 0, L"9.99E-6"},
        {1e300, 15, 0, L"1E300"},
        {c_nan, 15, 0, L"NAN"},
        {c_inf, 15, 0, L"INF"},
        {-c_inf, 2, 4, L"-INF"},
        {123.456, 8, 3, L"123.456"},
        {123456789.0, 8, 3, L"1.2345679E008"},
        {1e20, 8, 3, L"1E020"},
        {-2.5e-10, 8, 4, L"-2.5E-0010"},
        {0.999999999, 8, 3, L"1"},
        {99.96, 3, 0, L"100"},
        {999.6, 3, 0, L"1E3"},
        {12.5, 0, 0, L"1E1"}, // one digit is the least
    };
    for (auto const &c : cases)
        EXPECT_EQ(vx::float_to_str(c.value, c.precision, c.digits), c.text) << c.value;
    EXPECT_EQ(vx::float_to_str(1.0 / 3), L"0.333333333333333");
}

TEST(number_text, fixed_form)
{
    vx_test::comma_locale const commas;
    EXPECT_EQ(vx::float_to_fixed(1234.5, 6), L"1234.500000");
    EXPECT_EQ(vx::float_to_fixed(-0.125, 2), L"-0.12");
    EXPECT_EQ(vx::float_to_fixed(2.5, 0), L"2");
    EXPECT_EQ(vx::float_to_fixed(7.0, -1), L"7");
    EXPECT_EQ(vx::float_to_fixed(-c_largest, 6).size(), 1U + 309 + 1 + 6);
    EXPECT_EQ(vx::float_to_fixed(c_nan, 2), L"nan");
    EXPECT_EQ(vx::float_to_fixed(-c_inf, 2), L"-inf");
}
