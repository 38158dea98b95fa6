#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"

class TTabSheet;
class TWinControl;
struct t_vx_docker_interface;

/// Panels that other modules describe by the component interface, shown by controls of the toolkit.

/// Shows the docker in the sheet: its caption on the tab, its element as the content; a docker that is not
/// visible takes the tab away. The docker gets a view by `reattach`, whose three updates read anew: the
/// appearance captions and the element with all it holds, the state what is visible and enabled, the data
/// what stands in the elements. What shows it belongs to the sheet and lets go of the docker when the sheet
/// ends.
///
/// Elements that are shown: grid layouts, group boxes, scroll layouts, labels, outputs of one and of several
/// lines, buttons, check boxes. In the place of any other stands a line that says that it cannot be shown.
VX_API void vx_dock_panels_tabsheet_visit_docker(TTabSheet *sheet, t_vx_docker_interface docker);
/// The docker is not asked any more, and the tab goes. `is_dead`: it has ended already, so that it is not
/// told either. Nothing for a sheet without a docker.
VX_API void vx_dock_panels_tabsheet_leave_docker(TTabSheet *sheet, bool is_dead);

/// A module that has a control of the toolkit to show, rather than elements, says so for its docker: the
/// sheet then asks `make` for it, with itself as parent, in place of the docker's element: once, when the
/// docker is first visible. The control, or null for nothing to show, lies on all of the sheet, which owns
/// it. Captions, visibility and updates stay the docker's; what `make` throws passes through, as what a
/// docker throws. An empty closure takes the offer back with what was made, which a docker does before it
/// ends. A control may also be ended by its maker.
VX_API void vx_dock_panels_offer_control(t_vx_docker_interface docker,
                                         closure<TWinControl *(TWinControl *)> make);
