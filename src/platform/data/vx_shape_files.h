#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"

struct Ivx_attr_data;

/// Geometry of a vector data set, read whole on first use and then held in plain arrays. Shape `i` belongs to
/// record `i` of the attribute table. Main thread only.
struct Ivx_shape_files;

/// What a shape consists of; the numbers are those of the geometry types without z.
enum Tvx_shape_kind : int
{
    c_shape_none = 0,     ///< no geometry
    c_shape_point = 1,    ///< any number of points
    c_shape_polyline = 3, ///< each part is a line
    c_shape_polygon = 5,  ///< each part is a closed ring; filled by the even-odd rule, so holes are rings too
};

/// One shape as a view into the arrays: valid while the shapes are open. Part `p` has the points from
/// `part_starts[p]` up to `part_starts[p + 1]`; the array has `part_count + 1` entries, and 0 parts for no
/// geometry.
struct Tvx_shape_view
{
    Tvx_shape_kind kind = c_shape_none;
    int part_count = 0;
    unsigned const *part_starts = nullptr;
    Tvx_pnt_d2 const *points = nullptr; ///< indexed by the values of `part_starts`
    Tvx_box_d2 box;
};

/// Null when the data object is null, cannot be opened or has no vector part, and when whoever waits for the
/// data set gave the reading up.
[[nodiscard]] VX_API Ivx_shape_files *vx_shape_files_open(Ivx_attr_data *data);
/// Null is accepted.
VX_API void vx_shape_files_close(Ivx_shape_files *shapes);

[[nodiscard]] VX_API unsigned vx_shape_files_get_count(Ivx_shape_files const *shapes);
/// True when the source could not read all shapes, as of a file that was cut; those have no geometry here.
[[nodiscard]] VX_API bool vx_shape_files_is_damaged(Ivx_shape_files const *shapes);
/// Box of all shapes; empty when none has a geometry.
[[nodiscard]] VX_API Tvx_box_d2 vx_shape_files_get_box(Ivx_shape_files const *shapes);
/// False past the end; a record without geometry gives true and an empty view.
VX_API bool vx_shape_files_get(Ivx_shape_files const *shapes, unsigned index, Tvx_shape_view *view);

/// Calls `visit` for each shape whose box meets `box`, in the order of the records, until it gives false.
using Tvx_shape_visit = bool (*)(unsigned index, Tvx_shape_view const *view, void *user);
VX_API void vx_shape_files_visit(Ivx_shape_files const *shapes, Tvx_box_d2 const *box, Tvx_shape_visit visit,
                                 void *user);
