#pragma once

#include <cmath>

/// Means of the sources that turn classes into plain functions.
namespace vx::styles {
template <class T>
[[nodiscard]] bool is_valid(T const &)
{
    return true;
}
[[nodiscard]] inline bool is_valid(double value)
{
    return std::isfinite(value);
}
} // namespace vx::styles

/// A pair of plain functions on a field; null reads the type's zero and is not written. Sizes and angles that
/// are no numbers are refused.
#define VX_FIELD(prefix, object_type, field, type)                                                           \
    type prefix##_get_##field(void const *object)                                                            \
    {                                                                                                        \
        return object ? static_cast<object_type const *>(object)->field : type{};                            \
    }                                                                                                        \
    void prefix##_set_##field(void *object, type value)                                                      \
    {                                                                                                        \
        if (object && is_valid(value))                                                                       \
            static_cast<object_type *>(object)->field = value;                                               \
    }

#define VX_PART(prefix, object_type, part)                                                                   \
    void *prefix##_get_##part##_style_ptr(void *object)                                                      \
    {                                                                                                        \
        return object ? &static_cast<object_type *>(object)->part : nullptr;                                 \
    }

#define VX_LIFE(prefix, object_type)                                                                         \
    void *prefix##_create()                                                                                  \
    {                                                                                                        \
        return new object_type;                                                                              \
    }                                                                                                        \
    void *prefix##_clone(void const *style)                                                                  \
    {                                                                                                        \
        return style ? new object_type(*static_cast<object_type const *>(style)) : nullptr;                  \
    }                                                                                                        \
    void prefix##_destroy(void *style)                                                                       \
    {                                                                                                        \
        delete static_cast<object_type *>(style);                                                            \
    }                                                                                                        \
    void prefix##_assign(void *target, void const *source)                                                   \
    {                                                                                                        \
        if (target && source)                                                                                \
            *static_cast<object_type *>(target) = *static_cast<object_type const *>(source);                 \
    }                                                                                                        \
    bool prefix##_equal(void const *a, void const *b)                                                        \
    {                                                                                                        \
        return a == b ||                                                                                     \
               (a && b && *static_cast<object_type const *>(a) == *static_cast<object_type const *>(b));     \
    }
