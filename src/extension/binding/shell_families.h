#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/interface.h"

// Application shell: families that are known by name only, with slot 0 and no more.

VX_BINDING_BARE(app_events_service, 5)
VX_BINDING_BARE(app_events_service_visitor, 5)
VX_BINDING_BARE(app_service, 15)
VX_BINDING_BARE(app_service_visitor, 15)
VX_BINDING_BARE(app_view, 4)
VX_BINDING_BARE(custom_app_service, 79)
VX_BINDING_BARE(custom_app_service_visitor, 79)
VX_BINDING_BARE(dock_panel, 92)
VX_BINDING_BARE(dock_panel_service, 94,
    [[nodiscard]] VX_LOCAL int priority() const { return 1; })
[[nodiscard]] VX_LOCAL inline int vxk_framework_dock_panel_service_priority(t_vx_dock_panel_service_interface)
{ return 1; }

VX_BINDING_BARE(dock_panel_service_visitor, 94)
VX_BINDING_BARE(dock_panel_view, 0)
VX_BINDING_BARE(dock_panel_visitor, 92)
VX_BINDING_BARE_PASSED(main_form, 92)
VX_BINDING_BARE_PASSED(main_form_visitor, 92)
VX_BINDING_BARE_PASSED(mdi_child, 92)
VX_BINDING_BARE_PASSED(mdi_child_view, 0)
VX_BINDING_BARE_PASSED(mdi_child_visitor, 92)
VX_BINDING_BARE(modal_dialog, 101)
VX_BINDING_BARE(modal_dialog_service, 102)
VX_BINDING_BARE(modal_dialog_service_visitor, 102)
VX_BINDING_BARE(modal_dialog_view, 101)
VX_BINDING_BARE(modal_dialog_visitor, 101)
VX_BINDING_BARE(modeless_dialog, 72,
    [[nodiscard]] VX_LOCAL bool visible() const { return false; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_modeless_dialog_visible(t_vx_modeless_dialog_interface)
{ return false; }

VX_BINDING_BARE(modeless_dialog_service, 72)
VX_BINDING_BARE(modeless_dialog_service_visitor, 72)
VX_BINDING_BARE(modeless_dialog_view, 2)
VX_BINDING_BARE(modeless_dialog_visitor, 72)
VX_BINDING_BARE(status_panel_view, 0)
VX_BINDING_BARE(statusbar, 0)
VX_BINDING_BARE(string_status_panel, 0,
    [[nodiscard]] VX_LOCAL bool visible() const { return true; })
[[nodiscard]] VX_LOCAL inline bool vxk_framework_string_status_panel_visible(
    t_vx_string_status_panel_interface)
{ return true; }

VX_BINDING_BARE(toolbar, 6)
VX_BINDING_BARE(tray_icon, 2)
VX_BINDING_BARE(tray_icon_visitor, 2)
