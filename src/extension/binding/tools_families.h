#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Tools and menus: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(action_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_action_tool_visible(t_vx_action_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_action_tool_help_context(t_vx_action_tool_interface)
{ return -1; }

VX_BINDING_BARE(action_tool_visitor, 0)
VX_BINDING_BARE(assisted_string_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_assisted_string_tool_visible(
    t_vx_assisted_string_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_assisted_string_tool_help_context(
    t_vx_assisted_string_tool_interface)
{ return -1; }

VX_BINDING_BARE(boolean_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_boolean_tool_visible(t_vx_boolean_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_boolean_tool_help_context(t_vx_boolean_tool_interface)
{ return -1; }

VX_BINDING_BARE(boolean_tool_visitor, 0)
VX_BINDING_BARE(button_box, 2,
    [[nodiscard]] VX_LOCAL int default_button() const { return -1; }
    [[nodiscard]] VX_LOCAL int cancel_button() const { return -1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_button_box_default_button(t_vx_button_box_interface)
{ return -1; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_button_box_cancel_button(t_vx_button_box_interface)
{ return -1; }

VX_BINDING_BARE(button_box_handler, 0)
VX_BINDING_BARE(button_box_visitor, 2)
VX_BINDING_BARE(category_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_category_tool_visible(t_vx_category_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_category_tool_help_context(t_vx_category_tool_interface)
{ return -1; }

VX_BINDING_BARE(category_tool_visitor, 0)
VX_BINDING_BARE(context_menu, 3)
VX_BINDING_BARE_PASSED(context_popup_menu, 0)
VX_BINDING_BARE(enum_tool, 1,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_enum_tool_visible(t_vx_enum_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_enum_tool_help_context(t_vx_enum_tool_interface)
{ return -1; }

VX_BINDING_BARE(floating_tool, 1,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL double increment() const { return 1.0; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_floating_tool_visible(t_vx_floating_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline double vxk_framework_floating_tool_increment(t_vx_floating_tool_interface)
{ return 1.0; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_floating_tool_help_context(t_vx_floating_tool_interface)
{ return -1; }

VX_BINDING_BARE(integer_tool, 2,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int increment() const { return 1; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_integer_tool_visible(t_vx_integer_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_tool_increment(t_vx_integer_tool_interface)
{ return 1; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_integer_tool_help_context(t_vx_integer_tool_interface)
{ return -1; }

VX_BINDING_BARE(list_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_list_tool_visible(t_vx_list_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_list_tool_help_context(t_vx_list_tool_interface)
{ return -1; }

VX_BINDING_BARE(menu_item_set, 0)
VX_BINDING_BARE(menu_item_set_visitor, 0)
VX_BINDING_BARE_PASSED(mru_multiaction_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_mru_multiaction_tool_visible(
    t_vx_mru_multiaction_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_mru_multiaction_tool_help_context(
    t_vx_mru_multiaction_tool_interface)
{ return -1; }

VX_BINDING_BARE(multiaction_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_multiaction_tool_visible(t_vx_multiaction_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_multiaction_tool_help_context(t_vx_multiaction_tool_interface)
{ return -1; }

VX_BINDING_BARE(multiboolean_tool, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_multiboolean_tool_visible(t_vx_multiboolean_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_multiboolean_tool_help_context(
    t_vx_multiboolean_tool_interface)
{ return -1; }

VX_BINDING_BARE(popup_menu, 0)
VX_BINDING_BARE(popup_menu_provider, 0)
VX_BINDING_BARE(popup_menu_view, 0)
VX_BINDING_BARE(popup_menu_visitor, 1)
VX_BINDING_BARE(string_tool, 1,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; }
    [[nodiscard]] VX_LOCAL int help_context() const { return -1; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_string_tool_visible(t_vx_string_tool_interface)
{ return true; }
[[nodiscard]] VX_LOCAL inline int vxk_framework_string_tool_help_context(t_vx_string_tool_interface)
{ return -1; }

VX_BINDING_BARE(tool_service, 10,
    [[nodiscard]] VX_LOCAL int priority() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_tool_service_priority(t_vx_tool_service_interface)
{ return 1; }

VX_BINDING_BARE(tool_service_visitor, 10)
VX_BINDING_BARE(tool_set, 5)
VX_BINDING_BARE(tool_set_view, 0)
VX_BINDING_BARE(tool_set_visitor, 5)
VX_BINDING_BARE(tool_view, 0)
