#pragma once

#include "platform/base/export.h"

#include <cstdint>
#include <cstring>

/// Keeps a name inside the module that is being built, whatever the module's compiler flags are. Everything
/// of the component interface that has an identity (tables above all) is local: each module owns a copy.
#define VX_LOCAL __attribute__((visibility("hidden")))

struct vx_interface_table;

/// The generic handle of an object: from it every interface of the object can be asked for. Null if either
/// word is.
struct VX_API t_vx_interface
{
    vx_interface_table const *table = nullptr;
    void *self = nullptr;
};

/// The generic table. `specialize` writes null to both outs, then the family table and its `self` if the
/// object has the interface of that exact name.
struct vx_interface_table
{
    void (*specialize)(void const *table, void *self, char const *name, void **out_table, void **out_self);
};

/// What all families of the component interface share. The headers beside this one are generated from
/// families.def by tools/generate_binding.py; a module includes the families that it uses.
namespace vx::binding {
template <class Handle>
[[nodiscard]] VX_LOCAL constexpr bool is_null(Handle h)
{
    return !h.table || !h.self;
}

/// By table, then by object, both as unsigned numbers: -1, 0 or 1.
template <class Handle>
[[nodiscard]] VX_LOCAL int compare(Handle a, Handle b)
{
    auto const number = [](void const *word) { return reinterpret_cast<std::uintptr_t>(word); };
    if (number(a.table) != number(b.table))
        return number(a.table) < number(b.table) ? -1 : 1;
    if (number(a.self) != number(b.self))
        return number(a.self) < number(b.self) ? -1 : 1;
    return 0;
}

template <class Handle>
[[nodiscard]] VX_LOCAL t_vx_interface generalize(Handle h)
{
    t_vx_interface result;
    if (!is_null(h))
        h.table->generalize(&result, h.table, h.self);
    return result;
}

/// The handle of the interface `name` of the same object, null if the object hasn't it in this very revision.
template <class Handle>
[[nodiscard]] VX_LOCAL Handle specialize(t_vx_interface g, char const *name)
{
    void *table = nullptr;
    void *self = nullptr;
    if (!is_null(g))
        g.table->specialize(g.table, g.self, name, &table, &self);
    return {static_cast<decltype(Handle::table)>(table), self};
}

/// Base of the wrappers: one handle, copied freely, and nothing else. A null handle is legal everywhere: its
/// methods do nothing and give their defaults.
template <class Handle>
class VX_API wrapper
{
public:
    using handle_type = Handle;

    constexpr wrapper() = default;
    constexpr wrapper(Handle h) : f_handle(h) {}

    constexpr operator Handle() const { return f_handle; }
    [[nodiscard]] constexpr Handle handle() const { return f_handle; }
    [[nodiscard]] constexpr explicit operator bool() const { return !binding::is_null(f_handle); }

protected:
    Handle f_handle;
};

template <class T>
concept wrapped = requires
{
    typename T::handle_type;
};

/// The form in which a value crosses: wrappers go as their handle, all else as it is.
template <class T>
struct wire
{
    using type = T;
};
template <wrapped T>
struct wire<T>
{
    using type = typename T::handle_type;
};
template <class T>
using wire_t = typename wire<T>::type;

/// The trampoline behind a table slot: calls the method virtually on the object in `self`. A method that
/// gives a handle has the place of the result ahead of all other arguments.
template <auto Method>
struct slot;

template <class Impl, class R, class... Args, R (Impl::*Method)(Args...)>
requires(!wrapped<R>) struct VX_LOCAL slot<Method>
{
    static R call(void const *, void *self, wire_t<Args>... args)
    {
        return (static_cast<Impl *>(self)->*Method)(args...);
    }
};

template <class Impl, wrapped R, class... Args, R (Impl::*Method)(Args...)>
struct VX_LOCAL slot<Method>
{
    static wire_t<R> *call(wire_t<R> *result, void const *, void *self, wire_t<Args>... args)
    {
        *result = (static_cast<Impl *>(self)->*Method)(args...);
        return result;
    }
};

/// Slot 0 of every family table.
template <class Impl>
VX_LOCAL t_vx_interface *generalize_slot(t_vx_interface *result, void const *, void *self)
{
    *result = static_cast<Impl *>(self)->operator t_vx_interface();
    return result;
}

template <class Impl>
VX_LOCAL void specialize_slot(void const *, void *self, char const *name, void **out_table, void **out_self)
{
    *out_table = nullptr;
    *out_self = nullptr;
    if (name)
        static_cast<Impl *>(self)->specialize(name, out_table, out_self);
}

/// The generic table of the objects of `Impl`, one a module. Like the family tables it is a constant of the
/// program image: there is nothing to fill at run time and no order of start to mind.
template <class Impl>
VX_LOCAL inline constexpr vx_interface_table generic_table{&specialize_slot<Impl>};

/// Base of the implementation classes: the two virtual operations that every family has, and the ways to the
/// handles of the object. `Impl` names its interface and its table.
///
/// The type is visible so that exported classes may derive from it; its members stay local to the module,
/// since they lead to the module's own tables. Objects are never deleted through it.
template <class Impl, class Wrapper>
class VX_API implementation
{
public:
    using handle_type = typename Wrapper::handle_type;

    /// On a match of the whole name: writes the table and the object; otherwise writes nothing.
    VX_LOCAL virtual void specialize(char const *name, void **table, void **self)
    {
        if (std::strcmp(name, Impl::interface_name()) != 0)
            return;
        *table = const_cast<void *>(static_cast<void const *>(Impl::family_table()));
        *self = static_cast<Impl *>(this);
    }
    VX_LOCAL virtual operator t_vx_interface() { return {&generic_table<Impl>, static_cast<Impl *>(this)}; }

    VX_LOCAL operator handle_type() { return {Impl::family_table(), static_cast<Impl *>(this)}; }
    VX_LOCAL operator Wrapper() { return Wrapper(operator handle_type()); }

    /// The object behind a handle that this very module made; null for every other handle.
    [[nodiscard]] VX_LOCAL static Impl *from_interface(handle_type h)
    {
        return h.table == Impl::family_table() ? static_cast<Impl *>(h.self) : nullptr;
    }

protected:
    ~implementation() = default;
};
} // namespace vx::binding

/// The parts of a family that have the same form in all of them. `name` is the family's bare name.
#define VX_BINDING_HANDLE(name)                                                                              \
    struct vx_##name##_interface_table;                                                                      \
    struct VX_API t_vx_##name##_interface                                                                    \
    {                                                                                                        \
        vx_##name##_interface_table const *table = nullptr;                                                  \
        void *self = nullptr;                                                                                \
    };

/// The name string, which holds the revision, and the five plain functions.
#define VX_BINDING_FUNCTIONS(name, revision)                                                                 \
    VX_LOCAL inline constexpr char vx_##name##_interface_name[] = "vx_" #name "_interface_" #revision;       \
    [[nodiscard]] VX_LOCAL inline t_vx_##name##_interface vx_##name##_interface_null()                       \
    {                                                                                                        \
        return {};                                                                                           \
    }                                                                                                        \
    [[nodiscard]] VX_LOCAL inline int vx_##name##_interface_is_null(t_vx_##name##_interface h)               \
    {                                                                                                        \
        return vx::binding::is_null(h);                                                                      \
    }                                                                                                        \
    [[nodiscard]] VX_LOCAL inline int vx_##name##_interface_compare(t_vx_##name##_interface a,               \
                                                                    t_vx_##name##_interface b)               \
    {                                                                                                        \
        return vx::binding::compare(a, b);                                                                   \
    }                                                                                                        \
    [[nodiscard]] VX_LOCAL inline t_vx_interface vx_##name##_interface_generalize(t_vx_##name##_interface h) \
    {                                                                                                        \
        return vx::binding::generalize(h);                                                                   \
    }                                                                                                        \
    [[nodiscard]] VX_LOCAL inline t_vx_##name##_interface vx_##name##_interface_specialize(t_vx_interface g) \
    {                                                                                                        \
        return vx::binding::specialize<t_vx_##name##_interface>(g, vx_##name##_interface_name);              \
    }

/// The table of a family without methods, its wrapper and its implementation class.
#define VX_BINDING_BARE_TABLE(name)                                                                          \
    struct vx_##name##_interface_table                                                                       \
    {                                                                                                        \
        t_vx_interface *(*generalize)(t_vx_interface * result, void const *table, void *self);               \
    };

#define VX_BINDING_BARE_WRAPPER(name, ...)                                                                   \
    namespace vx {                                                                                           \
    class VX_API name : public binding::wrapper<t_vx_##name##_interface>                                     \
    {                                                                                                        \
    public:                                                                                                  \
        using wrapper::wrapper;                                                                              \
        __VA_ARGS__                                                                                          \
    };                                                                                                       \
    }

#define VX_BINDING_BARE_IMPLEMENTATION(name, ...)                                                            \
    namespace vx {                                                                                           \
    class VX_API name##_impl : public binding::implementation<name##_impl, vx::name>                         \
    {                                                                                                        \
    public:                                                                                                  \
        VX_LOCAL static char const *interface_name() { return vx_##name##_interface_name; }                  \
        VX_LOCAL static vx_##name##_interface_table const *family_table();                                   \
        __VA_ARGS__                                                                                          \
                                                                                                             \
    protected:                                                                                               \
        ~name##_impl() = default;                                                                            \
    };                                                                                                       \
    VX_LOCAL inline constexpr vx_##name##_interface_table name##_family_table{                               \
        &binding::generalize_slot<name##_impl>};                                                             \
    inline vx_##name##_interface_table const *name##_impl::family_table()                                    \
    {                                                                                                        \
        return &name##_family_table;                                                                         \
    }                                                                                                        \
    }

/// A family whose slots are not known, one that this module only passes on and one that it may implement. The
/// rest of the arguments are methods of which the default alone is known. Nothing calls them through a
/// handle, so they are not virtual: a class that means to override one does not compile.
#define VX_BINDING_BARE_PASSED(name, revision, ...)                                                          \
    VX_BINDING_HANDLE(name)                                                                                  \
    VX_BINDING_BARE_TABLE(name)                                                                              \
    VX_BINDING_FUNCTIONS(name, revision)                                                                     \
    VX_BINDING_BARE_WRAPPER(name, __VA_ARGS__)

#define VX_BINDING_BARE(name, revision, ...)                                                                 \
    VX_BINDING_BARE_PASSED(name, revision, __VA_ARGS__)                                                      \
    VX_BINDING_BARE_IMPLEMENTATION(name, __VA_ARGS__)
