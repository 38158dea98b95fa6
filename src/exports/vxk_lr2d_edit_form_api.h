#ifndef VXK_LR2D_EDIT_FORM_API_H
#define VXK_LR2D_EDIT_FORM_API_H

/// The plain interface of the layer editor, for hosts in C and C++. A host links against the library or finds
/// the functions by name with `dlsym`.
///
/// The order of calls that a host keeps:
///   1. `vx_lr2d_edt_form_create` or `vx_lr2d_edt_form_create_hosted`
///   2. `vx_lr2d_edt_form_create_all`, once
///   3. `vx_lr2d_edt_form_set_callback` and `vx_lr2d_edt_form_set_lr2d`, in either order
///   4. `vx_lr2d_edt_form_show_pos`, `_show` or `_dock`; `_hide` and `_show` as often as wanted
///   5. any number of `vx_lr2d_edt_form_set_lr2d` and `vx_lr2d_edt_form_update`
///   6. `vx_lr2d_edt_form_destroy`
///
/// Everything runs on the toolkit's main thread, the callback too. No function reports an error: a call ahead
/// of its time does nothing and gives the neutral result. Sizes and positions are logical pixels. No
/// exception passes these functions, except that the two creating ones let one pass to a C++ host when the
/// record cannot be made.

#include "platform/base/export.h"

#include <stdbool.h>

#ifdef __cplusplus
class Tvx_lr2d_edit_form;
class Tvx_apply_form;
class TWinControl;
struct Ivx_layer;
extern "C" {
#else
typedef struct Tvx_lr2d_edit_form Tvx_lr2d_edit_form; ///< the handle of one edit window
typedef struct Tvx_apply_form Tvx_apply_form;         ///< a form of the toolkit with an Apply button
typedef struct TWinControl TWinControl;               ///< a windowed control of the toolkit
typedef struct Ivx_layer Ivx_layer;                   ///< a layer of the engine
#endif

/// Makes the record and its own window, which floats, docks, and carries the layer's name in its title. The
/// caller owns the record and ends it with `vx_lr2d_edt_form_destroy`.
VX_API Tvx_lr2d_edit_form *vx_lr2d_edt_form_create(void);

/// Makes the record on the caller's form, which stays the caller's, keeps its style and title, and outlives
/// the record. The record takes its Apply event back from the form when it is destroyed.
VX_API Tvx_lr2d_edit_form *vx_lr2d_edt_form_create_hosted(Tvx_apply_form *form);

/// Builds the pages. Comes before any call that needs pages; a second call does nothing.
VX_API void vx_lr2d_edt_form_create_all(Tvx_lr2d_edit_form *handle);

/// Shows the pages of `layer`, or none for null. The layer is read once, here: the pages work on a copy of
/// it, and the caller may end its layer at once. Ignored before `vx_lr2d_edt_form_create_all`.
VX_API void vx_lr2d_edt_form_set_lr2d(Tvx_lr2d_edit_form *handle, Ivx_layer *layer);

/// `callback(data)` runs at each Apply, after the current scale was saved, and at the changes that the map
/// must show at once. Null means no callback. `data` stays the caller's.
VX_API void vx_lr2d_edt_form_set_callback(Tvx_lr2d_edit_form *handle, void *data,
                                          void (*callback)(void *data));

/// Refreshes title and pages. Does nothing inside the callback of an Apply: the same refresh follows the
/// callback.
VX_API void vx_lr2d_edt_form_update(Tvx_lr2d_edit_form *handle);

/// The working copy that the pages change, or null. It stays the record's: it is read, never destroyed, and
/// it is replaced at each `vx_lr2d_edt_form_set_lr2d`. Never the layer that the caller passed in.
VX_API Ivx_layer *vx_lr2d_edt_form_get_lr2d_ptr(Tvx_lr2d_edit_form *handle);

/// Whether the window is on the screen, with everything that it lies in.
VX_API bool vx_lr2d_edt_form_get_showing(Tvx_lr2d_edit_form *handle);
VX_API void vx_lr2d_edt_form_show(Tvx_lr2d_edit_form *handle);
VX_API void vx_lr2d_edt_form_hide(Tvx_lr2d_edit_form *handle);

/// Shows the window with its upper left corner at (x, y) of the primary screen, moved left and up as far as
/// its right and lower edges need; negative positions are kept. A window that is showing stays where it is.
VX_API void vx_lr2d_edt_form_show_pos(Tvx_lr2d_edit_form *handle, int x, int y);

/// Docks the window at the bottom of `site`, a dock site of the toolkit.
VX_API void vx_lr2d_edt_form_dock(Tvx_lr2d_edit_form *handle, TWinControl *site);

VX_API int vx_lr2d_edt_form_get_left(Tvx_lr2d_edit_form *handle);
VX_API int vx_lr2d_edt_form_get_top(Tvx_lr2d_edit_form *handle);
VX_API int vx_lr2d_edt_form_get_width(Tvx_lr2d_edit_form *handle);
VX_API int vx_lr2d_edt_form_get_height(Tvx_lr2d_edit_form *handle);
VX_API void vx_lr2d_edt_form_set_left(Tvx_lr2d_edit_form *handle, int value);
VX_API void vx_lr2d_edt_form_set_top(Tvx_lr2d_edit_form *handle, int value);
VX_API void vx_lr2d_edt_form_set_width(Tvx_lr2d_edit_form *handle, int value);
VX_API void vx_lr2d_edt_form_set_height(Tvx_lr2d_edit_form *handle, int value);

/// Ends the record, its pages, the working copy, and the window if it is the record's own. Null is accepted.
/// Not to be called from inside the callback.
VX_API void vx_lr2d_edt_form_destroy(Tvx_lr2d_edit_form *handle);

/// The same for the elements of page layouts, which are layers too: with a title of its own, without the tab
/// of styles, and with what extensions offer for elements. The record is driven by the functions above.
VX_API Tvx_lr2d_edit_form *vx_lr_layout_edt_form_create(void);
VX_API Tvx_lr2d_edit_form *vx_lr_layout_edt_form_create_hosted(Tvx_apply_form *form);
VX_API void vx_lr_layout_edt_form_destroy(Tvx_lr2d_edit_form *handle);

#ifdef __cplusplus
}
#endif

#endif
