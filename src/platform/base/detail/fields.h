#pragma once

#include "platform/base/string_adp.h"

#include <cmath>
#include <string>
#include <type_traits>

/// Plain functions on opaque pointers, each written out and each a line of these: the object behind the
/// pointer is a `T`, and the field is named by member pointer. Null reads the type's zero and is not written.
/// The pointer that `part` gives is one that all of them take.
namespace vx::fields {
/// Sizes, angles and bounds that are no finite numbers are refused.
template <class Value>
[[nodiscard]] bool is_valid(Value const &value)
{
    if constexpr (std::is_floating_point_v<Value>)
        return std::isfinite(value);
    else
        return true;
}

template <class T, class Value>
[[nodiscard]] Value get(void const *object, Value T::*field)
{
    return object ? static_cast<T const *>(object)->*field : Value{};
}

template <class T, class Value>
void set(void *object, Value T::*field, std::type_identity_t<Value> value)
{
    if (object && is_valid(value))
        static_cast<T *>(object)->*field = value;
}

/// Address of a field; null for null.
template <class T, class Part>
[[nodiscard]] Part *part(void *object, Part T::*field)
{
    return object ? &(static_cast<T *>(object)->*field) : nullptr;
}
template <class T, class Part>
[[nodiscard]] Part const *part(void const *object, Part T::*field)
{
    return object ? &(static_cast<T const *>(object)->*field) : nullptr;
}

/// Hands a text to the adapter, the empty one for null.
template <class T>
void feed_text(void const *object, std::wstring T::*field, Ivx_string_adp *adp)
{
    vx_string_adp_feed(adp, object ? (static_cast<T const *>(object)->*field).c_str() : L"");
}

template <class T>
void set_text(void *object, std::wstring T::*field, wchar_t const *text)
{
    if (object)
        static_cast<T *>(object)->*field = text ? text : L"";
}

// ---- life of values that are copied as a whole

template <class T>
[[nodiscard]] T *clone(void const *object)
{
    return object ? new T(*static_cast<T const *>(object)) : nullptr;
}

template <class T>
void destroy(void *object)
{
    delete static_cast<T *>(object);
}

template <class T>
void assign(void *target, void const *source)
{
    if (target && source && target != source)
        *static_cast<T *>(target) = *static_cast<T const *>(source);
}

template <class T>
[[nodiscard]] bool equal(void const *a, void const *b)
{
    return a == b || (a && b && *static_cast<T const *>(a) == *static_cast<T const *>(b));
}
} // namespace vx::fields
