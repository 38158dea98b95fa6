#include "controls/numeric/detail/number_text.h"
#include "support/comma_locale.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <tuple>

namespace {
constexpr double c_inf = std::numeric_limits<double>::infinity();
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_largest = std::numeric_limits<double>::max();
constexpr int c_least_int = std::numeric_limits<int>::min();

std::string name(std::wstring const &text)
{
    return {text.begin(), text.end()};
}
} // namespace

TEST(number_text, whole_numbers)
{
    using entry = std::pair<wchar_t const *, int>;
    for (auto const &[text, number] : {entry(L"0", 0), entry(L"-12", -12), entry(L"  +12", 12),
                                       entry(L"2147483647", 2147483647), entry(L"-2147483648", c_least_int),
                                       entry(L"$1F", 31), entry(L"-0x10", -16), entry(L"$FFFFFFFF", -1)}) {
        int value = 77;
        EXPECT_TRUE(vx::str_to_int(text, value)) << name(text);
        EXPECT_EQ(value, number);
    }
    for (wchar_t const *text :
         {L"2147483648", L"99999999999999999999", L"$100000000", L"", L"-", L"--1", L"+-1", L"$", L"$-1",
          L"12 ", L"1.0", L"1e3", L"1,5", L"\u0661", L"12\nabc"}) {
        int value = 77;
        EXPECT_FALSE(vx::str_to_int(text, value)) << name(text);
        EXPECT_EQ(value, 77);
    }
}

TEST(number_text, numbers_with_decimals_under_any_locale)
{
    vx_test::comma_locale const commas;
    using entry = std::pair<wchar_t const *, double>;
    for (auto const &[text, number] :
         {entry(L"1.5", 1.5), entry(L" -1.5e-3 ", -0.0015), entry(L"+.5", 0.5), entry(L"5.", 5),
          entry(L"1E+2", 100), entry(L"1e308", 1e308), entry(L"1e-400", 0), entry(L"0.000e999", 0),
          entry(L"5e-324", 5e-324), entry(L"1e-99999999999999999999", 0)}) {
        double value = 77;
        EXPECT_TRUE(vx::str_to_float(text, value)) << name(text);
        EXPECT_EQ(value, number);
        EXPECT_EQ(vx::read_float(text), number);
    }
    // No numbers, and what can be read of them.
    for (auto const &[text, beginning] :
         {entry(L"1e309", c_largest), entry(L"-1e99999999999999999999", -c_largest), entry(L"", 0),
          entry(L".", 0), entry(L"-", 0), entry(L"e5", 0), entry(L"1e", 1), entry(L"1e-", 1),
          entry(L"1,5", 1), entry(L"1.5.2", 1.5), entry(L"1-2", 1), entry(L"3 mm", 3),
          entry(L"\n 7 lines\nof text", 7), entry(L"nan", 0), entry(L"inf", 0), entry(L"0x10", 0)}) {
        double value = 77;
        EXPECT_FALSE(vx::str_to_float(text, value)) << name(text);
        EXPECT_EQ(value, 77);
        EXPECT_EQ(vx::read_float(text), beginning) << name(text);
    }
    // What is too large or too small is not told by the exponent alone.
    EXPECT_EQ(vx::read_float(std::wstring(400, L'9')), c_largest);
    EXPECT_EQ(vx::read_float(L"0." + std::wstring(400, L'0') + L"1"), 0.0);
    EXPECT_EQ(vx::read_float(L"0." + std::wstring(400, L'0') + L"1e401"), 1.0);
}

TEST(number_text, general_form)
{
    vx_test::comma_locale const commas;
    using entry = std::tuple<double, int, int, wchar_t const *>;
    for (auto const &[value, precision, digits, text] :
         {entry(-0.0, 15, 0, L"0"), entry(-1234567.5, 15, 0, L"-1234567.5"),
          entry(1e14, 15, 0, L"100000000000000"), entry(1e15, 15, 0, L"1E15"),
          entry(1.5e-7, 15, 0, L"1.5E-7"), entry(0.00001, 15, 0, L"0.00001"),
          entry(0.00000999, 15, 0, L"9.99E-6"), entry(c_nan, 15, 0, L"NAN"), entry(-c_inf, 2, 4, L"-INF"),
          entry(123.456, 8, 3, L"123.456"), entry(123456789.0, 8, 3, L"1.2345679E008"),
          entry(1e20, 8, 3, L"1E020"), entry(1e20, 7, 5, L"1E20"), entry(-2.5e-10, 8, 4, L"-2.5E-0010"),
          entry(0.999999999, 8, 3, L"1"), entry(99.96, 3, 0, L"100"), entry(999.6, 3, 0, L"1E3"),
          entry(12.5, 0, 0, L"1E1")})
        EXPECT_EQ(vx::float_to_str(value, precision, digits), text) << value;
    EXPECT_EQ(vx::float_to_str(1.0 / 3), L"0.333333333333333");
}

TEST(number_text, fixed_form)
{
    vx_test::comma_locale const commas;
    EXPECT_EQ(vx::float_to_fixed(1234.5, 6), L"1234.500000");
    EXPECT_EQ(vx::float_to_fixed(-0.125, 2), L"-0.12");
    EXPECT_EQ(vx::float_to_fixed(7.0, -1), L"7");
    EXPECT_EQ(vx::float_to_fixed(-c_largest, 6).size(), 1U + 309 + 1 + 6);
    EXPECT_EQ(vx::float_to_fixed(-c_inf, 2), L"-inf");
}
