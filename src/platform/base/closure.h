#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

/// A bound function in two words: a plain function and the object that it gets as its first argument.
///
/// Closures are values: copied freely, compared word by word, false while empty. A closure keeps nothing
/// alive; who hands one out takes it back before its object dies. Running an empty closure does nothing and
/// gives a value-initialised result.
///
///     edit->OnChange = closure<void(TObject*)>::bind<&Tvx_page::on_edit_change>(this);
template <class Signature>
class closure;

template <class R, class... Args>
class closure<R(Args...)>
{
public:
    using function_type = R (*)(void *object, Args... args);

    constexpr closure() noexcept = default;
    constexpr closure(std::nullptr_t) noexcept {}
    /// A function that takes the object as `void*`.
    constexpr closure(function_type function, void *object) noexcept : f_function(function), f_object(object)
    {
    }

    /// The member function `Method` of `object`.
    template <auto Method, class T>
    [[nodiscard]] static constexpr closure bind(T *object) noexcept
    {
        if constexpr (std::is_member_function_pointer_v<decltype(Method)>)
            return closure(
                [](void *self, Args... args) -> R {
                    return (static_cast<T *>(self)->*Method)(std::forward<Args>(args)...);
                },
                const_cast<std::remove_const_t<T> *>(object));
        else
            return closure(
                [](void *self, Args... args) -> R {
                    return Method(static_cast<T *>(self), std::forward<Args>(args)...);
                },
                const_cast<std::remove_const_t<T> *>(object));
    }

    R operator()(Args... args) const
    {
        if (f_function)
            return f_function(f_object, std::forward<Args>(args)...);
        if constexpr (!std::is_void_v<R>)
            return R{};
    }

    [[nodiscard]] constexpr explicit operator bool() const noexcept { return f_function != nullptr; }
    [[nodiscard]] constexpr function_type function() const noexcept { return f_function; }
    [[nodiscard]] constexpr void *object() const noexcept { return f_object; }

    friend constexpr bool operator==(closure const &a, closure const &b) noexcept
    {
        return a.f_function == b.f_function && a.f_object == b.f_object;
    }

private:
    function_type f_function = nullptr;
    void *f_object = nullptr;
};

namespace vx::detail {
template <class M>
struct method_signature;
template <class R, class T, class... Args>
struct method_signature<R (T::*)(Args...)>
{
    using type = R(Args...);
};
template <class R, class T, class... Args>
struct method_signature<R (T::*)(Args...) const>
{
    using type = R(Args...);
};
} // namespace vx::detail

/// Short form with the signature taken from the method: `make_closure<&Tvx_page::on_edit_change>(this)`.
template <auto Method, class T>
[[nodiscard]] constexpr auto make_closure(T *object) noexcept
{
    return closure<typename vx::detail::method_signature<decltype(Method)>::type>::template bind<Method>(
        object);
}
