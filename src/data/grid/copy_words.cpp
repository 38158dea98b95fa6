#include "data/grid/copy_words.h"

#include <cstring>
#include <limits>
#include <type_traits>

namespace vx::data {
namespace {
template <class Target, class Source>
Target cast(Source value)
{
    if constexpr (std::is_floating_point_v<Source> && std::is_integral_v<Target>) {
        constexpr Source c_end = 9223372036854775808.0; // 2 to the power of 63
        if constexpr (std::is_same_v<Target, std::uint64_t>)
            if (value >= c_end && value < 2 * c_end)
                return static_cast<Target>(value);
        return static_cast<Target>(value >= -c_end && value < c_end
                                       ? static_cast<std::int64_t>(value)
                                       : std::numeric_limits<std::int64_t>::min());
    } else
        return static_cast<Target>(value);
}

/// One loop for each pair of types.
template <class Target, class Source>
void copy_run(std::byte *target, std::ptrdiff_t target_stride, std::byte const *source,
              std::ptrdiff_t source_stride, std::uint64_t count)
{
    auto const copy_cell = [](std::byte *to, std::byte const *from) {
        Source value;
        std::memcpy(&value, from, sizeof value);
        auto const result = cast<Target>(value);
        std::memcpy(to, &result, sizeof result);
    };
    if (target_stride == sizeof(Target) && source_stride == sizeof(Source))
        for (std::uint64_t i = 0; i < count; ++i)
            copy_cell(target + i * sizeof(Target), source + i * sizeof(Source));
    else
        for (std::uint64_t i = 0; i < count; ++i, target += target_stride, source += source_stride)
            copy_cell(target, source);
}

/// Calls `run` with the type of the cells; not at all for a type that is none.
template <class Run>
void with_type(data_type type, Run run)
{
    switch (type) {
    case data_type::uint8:
        return run(std::type_identity<std::uint8_t>());
    case data_type::int8:
        return run(std::type_identity<std::int8_t>());
    case data_type::int16:
        return run(std::type_identity<std::int16_t>());
    case data_type::uint16:
        return run(std::type_identity<std::uint16_t>());
    case data_type::int32:
        return run(std::type_identity<std::int32_t>());
    case data_type::uint32:
        return run(std::type_identity<std::uint32_t>());
    case data_type::int64:
        return run(std::type_identity<std::int64_t>());
    case data_type::uint64:
        return run(std::type_identity<std::uint64_t>());
    case data_type::float32:
        return run(std::type_identity<float>());
    case data_type::float64:
        return run(std::type_identity<double>());
    default:
        return;
    }
}

template <class Source>
void copy_words_t(std::byte *target, data_type target_type, std::ptrdiff_t target_stride,
                  std::byte const *source, std::ptrdiff_t source_stride, std::uint64_t count)
{
    with_type(target_type, [&]<class Target>(std::type_identity<Target>) {
        copy_run<Target, Source>(target, target_stride, source, source_stride, count);
    });
}
} // namespace

void copy_words(void *target, data_type target_type, std::ptrdiff_t target_stride, void const *source,
                data_type source_type, std::ptrdiff_t source_stride, std::uint64_t count)
{
    with_type(source_type, [&]<class Source>(std::type_identity<Source>) {
        copy_words_t<Source>(static_cast<std::byte *>(target), target_type, target_stride,
                             static_cast<std::byte const *>(source), source_stride, count);
    });
}

void copy_words(void *target, data_type target_type, void const *source, data_type source_type,
                std::uint64_t count)
{
    copy_words(target, target_type, datatype_size_bytes(target_type), source, source_type,
               datatype_size_bytes(source_type), count);
}
} // namespace vx::data
