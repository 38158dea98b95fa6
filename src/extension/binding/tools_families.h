#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Tools and menus: families that are known by name only, with slot 0 and no more.

VX_BINDING_HANDLE(action_tool)
struct vx_action_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(action_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_action_tool_visible(t_vx_action_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_action_tool_help_context(t_vx_action_tool_interface)
{ return -1; }
namespace vx
{
class VX_API action_tool : public binding::wrapper<t_vx_action_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_action_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_action_tool_help_context(f_handle); }
};
class VX_API action_tool_impl
    : public binding::implementation<action_tool_impl, vx::action_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_action_tool_interface_name; }
    VX_LOCAL static vx_action_tool_interface_table const* family_table();
protected:
    ~action_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_action_tool_interface_table action_tool_family_table{
    &binding::generalize_slot<action_tool_impl>,
};
inline vx_action_tool_interface_table const* action_tool_impl::family_table()
{ return &action_tool_family_table; }
}

VX_BINDING_BARE(action_tool_visitor, 0)
VX_BINDING_HANDLE(assisted_string_tool)
struct vx_assisted_string_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(assisted_string_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_assisted_string_tool_visible(t_vx_assisted_string_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_assisted_string_tool_help_context(t_vx_assisted_string_tool_interface)
{ return -1; }
namespace vx
{
class VX_API assisted_string_tool : public binding::wrapper<t_vx_assisted_string_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_assisted_string_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_assisted_string_tool_help_context(f_handle); }
};
class VX_API assisted_string_tool_impl
    : public binding::implementation<assisted_string_tool_impl, vx::assisted_string_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_assisted_string_tool_interface_name; }
    VX_LOCAL static vx_assisted_string_tool_interface_table const* family_table();
protected:
    ~assisted_string_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_assisted_string_tool_interface_table assisted_string_tool_family_table{
    &binding::generalize_slot<assisted_string_tool_impl>,
};
inline vx_assisted_string_tool_interface_table const* assisted_string_tool_impl::family_table()
{ return &assisted_string_tool_family_table; }
}

VX_BINDING_HANDLE(boolean_tool)
struct vx_boolean_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(boolean_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_boolean_tool_visible(t_vx_boolean_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_boolean_tool_help_context(t_vx_boolean_tool_interface)
{ return -1; }
namespace vx
{
class VX_API boolean_tool : public binding::wrapper<t_vx_boolean_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_boolean_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_boolean_tool_help_context(f_handle); }
};
class VX_API boolean_tool_impl
    : public binding::implementation<boolean_tool_impl, vx::boolean_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_boolean_tool_interface_name; }
    VX_LOCAL static vx_boolean_tool_interface_table const* family_table();
protected:
    ~boolean_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_boolean_tool_interface_table boolean_tool_family_table{
    &binding::generalize_slot<boolean_tool_impl>,
};
inline vx_boolean_tool_interface_table const* boolean_tool_impl::family_table()
{ return &boolean_tool_family_table; }
}

VX_BINDING_BARE(boolean_tool_visitor, 0)
VX_BINDING_HANDLE(button_box)
struct vx_button_box_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(button_box, 2)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_button_box_default_button(t_vx_button_box_interface)
{ return -1; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_button_box_cancel_button(t_vx_button_box_interface)
{ return -1; }
namespace vx
{
class VX_API button_box : public binding::wrapper<t_vx_button_box_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int default_button() const
    { return vxk_framework_button_box_default_button(f_handle); }
    [[nodiscard]] VX_LOCAL int cancel_button() const
    { return vxk_framework_button_box_cancel_button(f_handle); }
};
class VX_API button_box_impl
    : public binding::implementation<button_box_impl, vx::button_box>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_button_box_interface_name; }
    VX_LOCAL static vx_button_box_interface_table const* family_table();
protected:
    ~button_box_impl() = default;
};
VX_LOCAL inline constexpr vx_button_box_interface_table button_box_family_table{
    &binding::generalize_slot<button_box_impl>,
};
inline vx_button_box_interface_table const* button_box_impl::family_table()
{ return &button_box_family_table; }
}

VX_BINDING_BARE(button_box_handler, 0)
VX_BINDING_BARE(button_box_visitor, 2)
VX_BINDING_HANDLE(category_tool)
struct vx_category_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(category_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_category_tool_visible(t_vx_category_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_category_tool_help_context(t_vx_category_tool_interface)
{ return -1; }
namespace vx
{
class VX_API category_tool : public binding::wrapper<t_vx_category_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_category_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_category_tool_help_context(f_handle); }
};
class VX_API category_tool_impl
    : public binding::implementation<category_tool_impl, vx::category_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_category_tool_interface_name; }
    VX_LOCAL static vx_category_tool_interface_table const* family_table();
protected:
    ~category_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_category_tool_interface_table category_tool_family_table{
    &binding::generalize_slot<category_tool_impl>,
};
inline vx_category_tool_interface_table const* category_tool_impl::family_table()
{ return &category_tool_family_table; }
}

VX_BINDING_BARE(category_tool_visitor, 0)
VX_BINDING_BARE(context_menu, 3)
VX_BINDING_BARE_PASSED(context_popup_menu, 0)
VX_BINDING_HANDLE(enum_tool)
struct vx_enum_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(enum_tool, 1)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_enum_tool_visible(t_vx_enum_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_enum_tool_help_context(t_vx_enum_tool_interface)
{ return -1; }
namespace vx
{
class VX_API enum_tool : public binding::wrapper<t_vx_enum_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_enum_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_enum_tool_help_context(f_handle); }
};
class VX_API enum_tool_impl
    : public binding::implementation<enum_tool_impl, vx::enum_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_enum_tool_interface_name; }
    VX_LOCAL static vx_enum_tool_interface_table const* family_table();
protected:
    ~enum_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_enum_tool_interface_table enum_tool_family_table{
    &binding::generalize_slot<enum_tool_impl>,
};
inline vx_enum_tool_interface_table const* enum_tool_impl::family_table()
{ return &enum_tool_family_table; }
}

VX_BINDING_HANDLE(floating_tool)
struct vx_floating_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(floating_tool, 1)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_floating_tool_visible(t_vx_floating_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_tool_increment(t_vx_floating_tool_interface)
{ return 1.0; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_floating_tool_help_context(t_vx_floating_tool_interface)
{ return -1; }
namespace vx
{
class VX_API floating_tool : public binding::wrapper<t_vx_floating_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_floating_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL double increment() const
    { return vxk_framework_floating_tool_increment(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_floating_tool_help_context(f_handle); }
};
class VX_API floating_tool_impl
    : public binding::implementation<floating_tool_impl, vx::floating_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_floating_tool_interface_name; }
    VX_LOCAL static vx_floating_tool_interface_table const* family_table();
protected:
    ~floating_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_floating_tool_interface_table floating_tool_family_table{
    &binding::generalize_slot<floating_tool_impl>,
};
inline vx_floating_tool_interface_table const* floating_tool_impl::family_table()
{ return &floating_tool_family_table; }
}

VX_BINDING_HANDLE(integer_tool)
struct vx_integer_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(integer_tool, 2)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_integer_tool_visible(t_vx_integer_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_tool_increment(t_vx_integer_tool_interface)
{ return 1; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_tool_help_context(t_vx_integer_tool_interface)
{ return -1; }
namespace vx
{
class VX_API integer_tool : public binding::wrapper<t_vx_integer_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_integer_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int increment() const
    { return vxk_framework_integer_tool_increment(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_integer_tool_help_context(f_handle); }
};
class VX_API integer_tool_impl
    : public binding::implementation<integer_tool_impl, vx::integer_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_integer_tool_interface_name; }
    VX_LOCAL static vx_integer_tool_interface_table const* family_table();
protected:
    ~integer_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_integer_tool_interface_table integer_tool_family_table{
    &binding::generalize_slot<integer_tool_impl>,
};
inline vx_integer_tool_interface_table const* integer_tool_impl::family_table()
{ return &integer_tool_family_table; }
}

VX_BINDING_HANDLE(list_tool)
struct vx_list_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(list_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_list_tool_visible(t_vx_list_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_list_tool_help_context(t_vx_list_tool_interface)
{ return -1; }
namespace vx
{
class VX_API list_tool : public binding::wrapper<t_vx_list_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_list_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_list_tool_help_context(f_handle); }
};
class VX_API list_tool_impl
    : public binding::implementation<list_tool_impl, vx::list_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_list_tool_interface_name; }
    VX_LOCAL static vx_list_tool_interface_table const* family_table();
protected:
    ~list_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_list_tool_interface_table list_tool_family_table{
    &binding::generalize_slot<list_tool_impl>,
};
inline vx_list_tool_interface_table const* list_tool_impl::family_table()
{ return &list_tool_family_table; }
}

VX_BINDING_BARE(menu_item_set, 0)
VX_BINDING_BARE(menu_item_set_visitor, 0)
VX_BINDING_HANDLE(mru_multiaction_tool)
struct vx_mru_multiaction_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(mru_multiaction_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_mru_multiaction_tool_visible(t_vx_mru_multiaction_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_mru_multiaction_tool_help_context(t_vx_mru_multiaction_tool_interface)
{ return -1; }
namespace vx
{
class VX_API mru_multiaction_tool : public binding::wrapper<t_vx_mru_multiaction_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_mru_multiaction_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_mru_multiaction_tool_help_context(f_handle); }
};
}

VX_BINDING_HANDLE(multiaction_tool)
struct vx_multiaction_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(multiaction_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_multiaction_tool_visible(t_vx_multiaction_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_multiaction_tool_help_context(t_vx_multiaction_tool_interface)
{ return -1; }
namespace vx
{
class VX_API multiaction_tool : public binding::wrapper<t_vx_multiaction_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_multiaction_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_multiaction_tool_help_context(f_handle); }
};
class VX_API multiaction_tool_impl
    : public binding::implementation<multiaction_tool_impl, vx::multiaction_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_multiaction_tool_interface_name; }
    VX_LOCAL static vx_multiaction_tool_interface_table const* family_table();
protected:
    ~multiaction_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_multiaction_tool_interface_table multiaction_tool_family_table{
    &binding::generalize_slot<multiaction_tool_impl>,
};
inline vx_multiaction_tool_interface_table const* multiaction_tool_impl::family_table()
{ return &multiaction_tool_family_table; }
}

VX_BINDING_HANDLE(multiboolean_tool)
struct vx_multiboolean_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(multiboolean_tool, 0)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_multiboolean_tool_visible(t_vx_multiboolean_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_multiboolean_tool_help_context(t_vx_multiboolean_tool_interface)
{ return -1; }
namespace vx
{
class VX_API multiboolean_tool : public binding::wrapper<t_vx_multiboolean_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_multiboolean_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_multiboolean_tool_help_context(f_handle); }
};
class VX_API multiboolean_tool_impl
    : public binding::implementation<multiboolean_tool_impl, vx::multiboolean_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_multiboolean_tool_interface_name; }
    VX_LOCAL static vx_multiboolean_tool_interface_table const* family_table();
protected:
    ~multiboolean_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_multiboolean_tool_interface_table multiboolean_tool_family_table{
    &binding::generalize_slot<multiboolean_tool_impl>,
};
inline vx_multiboolean_tool_interface_table const* multiboolean_tool_impl::family_table()
{ return &multiboolean_tool_family_table; }
}

VX_BINDING_BARE(popup_menu, 0)
VX_BINDING_BARE(popup_menu_provider, 0)
VX_BINDING_BARE(popup_menu_view, 0)
VX_BINDING_BARE(popup_menu_visitor, 1)
VX_BINDING_HANDLE(string_tool)
struct vx_string_tool_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(string_tool, 1)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline bool vxk_framework_string_tool_visible(t_vx_string_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_string_tool_help_context(t_vx_string_tool_interface)
{ return -1; }
namespace vx
{
class VX_API string_tool : public binding::wrapper<t_vx_string_tool_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL bool visible() const
    { return vxk_framework_string_tool_visible(f_handle); }
    [[nodiscard]] VX_LOCAL int help_context() const
    { return vxk_framework_string_tool_help_context(f_handle); }
};
class VX_API string_tool_impl
    : public binding::implementation<string_tool_impl, vx::string_tool>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_string_tool_interface_name; }
    VX_LOCAL static vx_string_tool_interface_table const* family_table();
protected:
    ~string_tool_impl() = default;
};
VX_LOCAL inline constexpr vx_string_tool_interface_table string_tool_family_table{
    &binding::generalize_slot<string_tool_impl>,
};
inline vx_string_tool_interface_table const* string_tool_impl::family_table()
{ return &string_tool_family_table; }
}

VX_BINDING_HANDLE(tool_service)
struct vx_tool_service_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
};
VX_BINDING_FUNCTIONS(tool_service, 10)
// The slots of these are not known here: whatever the handle, they give the default.
[[nodiscard]] VX_LOCAL inline int vxk_framework_tool_service_priority(t_vx_tool_service_interface)
{ return 1; }
namespace vx
{
class VX_API tool_service : public binding::wrapper<t_vx_tool_service_interface>
{
public:
    using wrapper::wrapper;
    [[nodiscard]] VX_LOCAL int priority() const
    { return vxk_framework_tool_service_priority(f_handle); }
};
class VX_API tool_service_impl
    : public binding::implementation<tool_service_impl, vx::tool_service>
{
public:
    VX_LOCAL static char const* interface_name() { return vx_tool_service_interface_name; }
    VX_LOCAL static vx_tool_service_interface_table const* family_table();
protected:
    ~tool_service_impl() = default;
};
VX_LOCAL inline constexpr vx_tool_service_interface_table tool_service_family_table{
    &binding::generalize_slot<tool_service_impl>,
};
inline vx_tool_service_interface_table const* tool_service_impl::family_table()
{ return &tool_service_family_table; }
}

VX_BINDING_BARE(tool_service_visitor, 10)
VX_BINDING_BARE(tool_set, 5)
VX_BINDING_BARE(tool_set_view, 0)
VX_BINDING_BARE(tool_set_visitor, 5)
VX_BINDING_BARE(tool_view, 0)
