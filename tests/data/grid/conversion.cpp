#include "data/grid/copy_words.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <type_traits>
#include <vector>

using namespace vx::data;

namespace {
__extension__ using wide = __int128;

/// What is left of a number in so many bits.
template <class T>
T cut(wide number)
{
    wide const all = static_cast<wide>(1) << (8 * sizeof(T));
    wide rest = number % all;
    if (rest < 0)
        rest += all;
    if (std::is_signed_v<T> && rest >= all / 2)
        rest -= all;
    return static_cast<T>(rest);
}

/// The same conversion, said by arithmetic.
template <class To, class From>
To expected(From value)
{
    if constexpr (std::is_integral_v<To> && std::is_integral_v<From>)
        return cut<To>(value);
    else if constexpr (std::is_integral_v<To>) {
        wide const low = std::numeric_limits<std::int64_t>::min();
        long double const whole = std::trunc(static_cast<long double>(value));
        bool const is_unsigned = std::is_same_v<To, std::uint64_t>;
        long double const end = std::ldexp(1.0L, is_unsigned ? 64 : 63);
        return cut<To>(whole >= std::ldexp(-1.0L, 63) && whole < end ? static_cast<wide>(whole) : low);
    } else
        return static_cast<To>(value);
}

template <class T>
std::vector<T> samples()
{
    std::vector<T> list;
    using limits = std::numeric_limits<T>;
    for (double const v : {0.0,          1.0,          2.5,   100.0,        127.0,   128.0,   200.0,
                           255.0,        256.0,        300.7, 32767.0,      32768.0, 65535.9, 65536.0,
                           2147483647.0, 2147483648.0, 3e9,   4294967296.0, 9.3e18,  1.9e19})
        for (double const sign : {1.0, -1.0})
            if (sign * v >= static_cast<double>(limits::lowest()) &&
                sign * v < static_cast<double>(limits::max()))
                list.push_back(static_cast<T>(sign * v));
    list.push_back(limits::max());
    list.push_back(limits::lowest());
    if constexpr (std::is_floating_point_v<T>)
        list.insert(list.end(), {limits::infinity(), -limits::infinity(), limits::denorm_min(), T(-0.0),
                                 T(0.999), T(-0.999), T(1e30), T(-1e30)});
    return list;
}

template <class T>
struct numbered;
#define NUMBERED(type, number)                                                                               \
    template <>                                                                                              \
    struct numbered<type>                                                                                    \
    {                                                                                                        \
        static constexpr data_type value = data_type::number;                                                \
    }
NUMBERED(std::uint8_t, uint8);
NUMBERED(std::int8_t, int8);
NUMBERED(std::int16_t, int16);
NUMBERED(std::uint16_t, uint16);
NUMBERED(std::int32_t, int32);
NUMBERED(std::uint32_t, uint32);
NUMBERED(std::int64_t, int64);
NUMBERED(std::uint64_t, uint64);
NUMBERED(float, float32);
NUMBERED(double, float64);

template <class From, class To>
void check_pair()
{
    auto const from = samples<From>();
    std::vector<To> dense(from.size() + 1, To(77));
    copy_words(dense.data(), numbered<To>::value, from.data(), numbered<From>::value, from.size());
    // Every third place, from the last back to the first, at addresses that fit no type.
    std::vector<std::byte> loose(3 * sizeof(To) * from.size() + 1);
    auto const step = -static_cast<std::ptrdiff_t>(3 * sizeof(To));
    std::byte *const last = loose.data() + 1 + 3 * sizeof(To) * (from.size() - 1);
    copy_words(last, numbered<To>::value, step, from.data(), numbered<From>::value, sizeof(From),
               from.size());
    for (std::size_t i = 0; i < from.size(); ++i) {
        To const want = expected<To>(from[i]);
        ASSERT_EQ(std::memcmp(&dense[i], &want, sizeof want), 0)
            << static_cast<double>(from[i]) << " from type " << static_cast<int>(numbered<From>::value)
            << " to type " << static_cast<int>(numbered<To>::value) << " gives "
            << static_cast<double>(dense[i]);
        ASSERT_EQ(std::memcmp(last + static_cast<std::ptrdiff_t>(i) * step, &want, sizeof want), 0);
    }
    ASSERT_EQ(dense.back(), To(77));
}

template <class From>
void check_from()
{
    check_pair<From, std::uint8_t>();
    check_pair<From, std::int8_t>();
    check_pair<From, std::int16_t>();
    check_pair<From, std::uint16_t>();
    check_pair<From, std::int32_t>();
    check_pair<From, std::uint32_t>();
    check_pair<From, std::int64_t>();
    check_pair<From, std::uint64_t>();
    check_pair<From, float>();
    check_pair<From, double>();
}
} // namespace

TEST(copy_words, every_type_to_every_type)
{
    check_from<std::uint8_t>();
    check_from<std::int8_t>();
    check_from<std::int16_t>();
    check_from<std::uint16_t>();
    check_from<std::int32_t>();
    check_from<std::uint32_t>();
    check_from<std::int64_t>();
    check_from<std::uint64_t>();
    check_from<float>();
    check_from<double>();
}

TEST(copy_words, what_is_no_number_and_no_type)
{
    double const nan = std::nan("");
    std::int32_t whole = 7;
    copy_words(&whole, data_type::int32, &nan, data_type::float64, 1);
    EXPECT_EQ(whole, 0);
    std::int64_t wide_whole = 7;
    copy_words(&wide_whole, data_type::int64, &nan, data_type::float64, 1);
    EXPECT_EQ(wide_whole, std::numeric_limits<std::int64_t>::min());
    double kept = 5;
    copy_words(&kept, data_type::none, &nan, data_type::float64, 1);
    copy_words(&kept, data_type::float64, &nan, static_cast<data_type>(11), 1);
    EXPECT_EQ(kept, 5);
}
