#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/geometry.h"
#include "platform/base/string_adp.h"

struct Ivx_layer;
struct Ivx_scn_2d;

/// Page layouts (vx_layout_lr2d.h) on devices, in PDF and picture files. Everything has its size on paper: a
/// frame draws its scene as a map of its scale, with styles in millimetres of the page and with its labels.
///
/// Main thread only. `cancelled` is asked about every 20 milliseconds; true ends the work.

/// Draws what stands in the box of the page, in millimetres, on all of a device (vx_bmp_dc.h), which keeps
/// what it shows around that. The lowest element is drawn first; the page is its own background. False when
/// the drawing was cancelled, when data or pictures could not be read (the rest is drawn), and for a box
/// without extent.
VX_API bool vx_layout_render(Ivx_scn_2d *layout, Tvx_box_d2 const &page_box, void *dc,
                             closure<bool()> cancelled = {});
/// One element of the layout alone, whether it is visible or not.
VX_API bool vx_layout_render_element(Ivx_scn_2d *layout, Ivx_layer *element, Tvx_box_d2 const &page_box,
                                     void *dc, closure<bool()> cancelled = {});

/// The room, in millimetres, that a legend's lines, a text or a table needs; the element's own for others.
[[nodiscard]] VX_API Tvx_pnt_d2 vx_layout_get_wanted_size(Ivx_scn_2d *layout, Ivx_layer *element);

/// How a file came out.
enum Tvx_layout_outcome : int
{
    c_layout_written,
    c_layout_cancelled, ///< there is no new file
    c_layout_failed,    ///< there is no new file; the reason says why
};
/// The page in a PDF file of its size: lines, areas and letters stay what they are, rasters become pictures
/// of `dpi`. What could not be read is left out, and the outcome is "written" with a reason. The file
/// replaces one of its name as a whole or not at all. `reason` (platform/basic/vx_fault.h) may be null.
VX_API Tvx_layout_outcome vx_layout_save_pdf_w(Ivx_scn_2d *layout, wchar_t const *file, double dpi,
                                               Ivx_string_adp *reason, closure<bool()> cancelled = {});
/// The page as a picture of so many pixels an inch, 10 to 2400, in the format that the suffix names (".png",
/// ".jpg", ".tif", ".bmp"); in the same way. Pages that need more than 30,000 pixels along a side, or more
/// memory than there is, fail with a reason.
VX_API Tvx_layout_outcome vx_layout_save_picture_w(Ivx_scn_2d *layout, wchar_t const *file, double dpi,
                                                   Ivx_string_adp *reason, closure<bool()> cancelled = {});
