#ifndef VX_STYLE_DIALOG_H
#define VX_STYLE_DIALOG_H

/// The style dialogs as plain functions, for modules and hosts in C and C++.
///
/// All are modal and run on the toolkit's main thread. (`x`, `y`) is the point of the screen where the upper
/// left corner of the dialog comes; where it does not fit it stands to the left of the point, or above it.
/// (0, 0) is the middle of the screen. True when the user accepted; else, and with a null pointer, the
/// result is false and the object is as it was, byte by byte.
///
/// Those of the first group are made by the module known as "vxk_scene2d_editor_bdl.dll". They look for it
/// among the modules that are loaded and load nothing: without it the result is false at once.

#include "platform/base/export.h"

#include <stdbool.h>

#ifdef __cplusplus
struct Tvx_color;
extern "C" {
#else
typedef struct Tvx_color Tvx_color; ///< four bytes: red, green, blue, alpha
#endif

/// Edit a composed style, a `pnt_style`, `pln_style` or `pgn_style`.
VX_API bool vx_pnt_style_dialog(int x, int y, void *style);
VX_API bool vx_pln_style_dialog(int x, int y, void *style);
VX_API bool vx_pgn_style_dialog(int x, int y, void *style);
/// Edit a text style. `properties` is a list of `vx_wstrings_create`, which stays the caller's: the names of
/// the properties that a line of the text may stand for; null offers none.
VX_API bool vx_txt_pnt_style_dialog(int x, int y, void *style, void *properties);
VX_API bool vx_txt_pln_style_dialog(int x, int y, void *style, void *properties);
VX_API bool vx_txt_pgn_style_dialog(int x, int y, void *style, void *properties);
/// Sets what the texts of a manager have in common; `style` is the manager of a text style.
VX_API bool vx_txt_common_style_dialog(int x, int y, void *style);
/// Names, order, number and the active one of the managers of a list.
VX_API bool vx_stl_mngr_list_setting_dialog(int x, int y, void *list);

/// Edits a colour, opacity included.
VX_API bool vx_clr_style_dialog(int x, int y, Tvx_color *color);

/// The library's own dialogs for composed styles: they are there without any other module.
VX_API bool vx_pnt_style_dialog_vcl(int x, int y, void *style);
VX_API bool vx_pln_style_dialog_vcl(int x, int y, void *style);
VX_API bool vx_pgn_style_dialog_vcl(int x, int y, void *style);

#ifdef __cplusplus
}
#endif

#endif
