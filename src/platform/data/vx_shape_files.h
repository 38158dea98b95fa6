#pragma once

#include "platform/base/export.h"
#include "platform/base/geometry.h"

struct Ivx_attr_data;

/// Geometry of a vector data set, read once and then held in plain arrays: whole on first use, or in slices
/// by who asks for them. Shape `i` belongs to record `i` of the attribute table. Main thread only.
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
/// The shapes as far as they were read, which may be not at all: null only when the data object is null,
/// cannot be opened or has no vector part.
[[nodiscard]] VX_API Ivx_shape_files *vx_shape_files_begin(Ivx_attr_data *data);
/// The shapes that meet `window`, to be read by `vx_shape_files_read_on`, for a look before all are read.
/// They are visited by the numbers of their records, and are not got by index. Null where that is not faster
/// than to read what is left: the window shows much of the extent, the format has no index, all has been
/// read.
[[nodiscard]] VX_API Ivx_shape_files *vx_shape_files_begin_window(Ivx_attr_data *data,
                                                                  Tvx_box_d2 const *window);
/// Reads for about so many milliseconds. What is read can be seen at the end; views that were got before stay
/// valid. False when there is nothing left to read.
VX_API bool vx_shape_files_read_on(Ivx_shape_files *shapes, int milliseconds);
/// All shapes are read.
[[nodiscard]] VX_API bool vx_shape_files_is_whole(Ivx_shape_files const *shapes);
/// Null is accepted.
VX_API void vx_shape_files_close(Ivx_shape_files *shapes);

/// Shapes that were read so far.
[[nodiscard]] VX_API unsigned vx_shape_files_get_count(Ivx_shape_files const *shapes);
/// True when the source could not read all shapes, as of a file that was cut; those have no geometry here.
[[nodiscard]] VX_API bool vx_shape_files_is_damaged(Ivx_shape_files const *shapes);
/// True when a record that was read has parts of other kinds than its shape is of: a collection is given by
/// its areas, or by its lines where it has none. A connection string with another "geom_type" gives the rest.
[[nodiscard]] VX_API bool vx_shape_files_has_more_kinds(Ivx_shape_files const *shapes);
/// Box of all shapes; empty when none has a geometry.
[[nodiscard]] VX_API Tvx_box_d2 vx_shape_files_get_box(Ivx_shape_files const *shapes);
/// False past the end; a record without geometry gives true and an empty view.
VX_API bool vx_shape_files_get(Ivx_shape_files const *shapes, unsigned index, Tvx_shape_view *view);

/// Calls `visit` for each shape whose box meets `box`, in the order of the records, until it gives false.
using Tvx_shape_visit = bool (*)(unsigned index, Tvx_shape_view const *view, void *user);
VX_API void vx_shape_files_visit(Ivx_shape_files const *shapes, Tvx_box_d2 const *box, Tvx_shape_visit visit,
                                 void *user);
/// The same from the shape `first` on, so that what was read meanwhile is visited once.
VX_API void vx_shape_files_visit_from(Ivx_shape_files const *shapes, Tvx_box_d2 const *box, unsigned first,
                                      Tvx_shape_visit visit, void *user);
