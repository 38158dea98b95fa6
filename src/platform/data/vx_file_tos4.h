#pragma once

#include "platform/base/export.h"
#include "platform/base/string_adp.h"

/// Property files: any number of named numeric properties over one set of objects, which may be the cells of
/// a grid. The values of a file never change: who has others makes a new file, which takes the place of the
/// former in one step, and whoever reads that goes on reading it. What changes in place are the statistics
/// and the histogram that lie with each property; who reads meanwhile has the old or the new ones.
///
/// Main thread only. All functions accept null.

/// An open property file, and an open property of it.
struct Ivx_tos4_file;
struct Ivx_tos4_prop;
/// A property file that is being made.
struct Ivx_tos4_writer;

inline constexpr unsigned long long c_tos4_most_objects = 1ULL << 40;
inline constexpr unsigned c_tos4_most_properties = 4096;

/// How the objects lie in space. Objects count along x first, then y, then z.
struct Tvx_tos4_grid
{
    int dimensions = 0;                      ///< 1 to 3; 0 where the objects are no cells of a grid
    unsigned long long count[3] = {0, 1, 1}; ///< cells along x, y, z; of no grid the objects, 1 and 1
    double origin[3] = {0, 0, 0};            ///< centre of the first cell
    double spacing[3] = {1, 1, 1};           ///< of the centres along rows, columns and z; not 0
    double azimuth = 0;                      ///< from the x axis to the rows, degrees, counter-clockwise
    [[nodiscard]] unsigned long long objects() const { return count[0] * count[1] * count[2]; }
};

// ---- reading

/// Whether the file calls itself a property file; it may be damaged all the same.
[[nodiscard]] VX_API bool vx_tos4_is_file_w(wchar_t const *name);
/// Null when the file cannot be opened so; `vx_tos4_get_werror` then says why. Opened for reading the file is
/// not written, nor is anything beside it.
[[nodiscard]] VX_API Ivx_tos4_file *vx_tos4_file_open_w(wchar_t const *name, bool read_only);
/// Null is accepted. The file's properties must have been closed.
VX_API void vx_tos4_file_close(Ivx_tos4_file *file);
/// The reason (platform/basic/vx_fault.h) why the last opening, writing or making of a property file failed;
/// empty after a success.
VX_API void vx_tos4_get_werror(Ivx_string_adp *error);

[[nodiscard]] VX_API unsigned vx_tos4_get_prop_count(Ivx_tos4_file const *file);
[[nodiscard]] VX_API unsigned long long vx_tos4_get_object_count_64(Ivx_tos4_file const *file);
/// Name and caption of a property, in the system code page or wide; empty past the end. The caption is the
/// name where a property has none. Valid while the file is open.
[[nodiscard]] VX_API char const *vx_tos4_get_prop_name(Ivx_tos4_file const *file, unsigned prop);
[[nodiscard]] VX_API char const *vx_tos4_get_prop_caption(Ivx_tos4_file const *file, unsigned prop);
VX_API void vx_tos4_get_prop_name_w(Ivx_tos4_file const *file, unsigned prop, Ivx_string_adp *name);
VX_API void vx_tos4_get_prop_caption_w(Ivx_tos4_file const *file, unsigned prop, Ivx_string_adp *caption);
/// Index of the property of this name, -1 when there is none.
[[nodiscard]] VX_API int vx_tos4_find_prop_w(Ivx_tos4_file const *file, wchar_t const *name);
VX_API void vx_tos4_get_grid(Ivx_tos4_file const *file, Tvx_tos4_grid *grid);
/// The coordinate system in PROJ.4 form; empty when it is not known.
VX_API void vx_tos4_get_proj4(Ivx_tos4_file const *file, Ivx_string_adp *text);

/// Null past the end. The caller closes the property.
[[nodiscard]] VX_API Ivx_tos4_prop *vx_tos4_prop_open(Ivx_tos4_file *file, unsigned prop);
VX_API void vx_tos4_prop_close(Ivx_tos4_prop *prop);
/// Gives whether the cell of the object, from 0, has a value; `*value` is 0 when it has none.
VX_API bool vx_tos4_prop_get_value_double(Ivx_tos4_prop *prop, unsigned long long object, double *value);
/// Many at once, with no number where there is no value. Gives how many there are from `first` on.
VX_API unsigned long long vx_tos4_prop_get_values(Ivx_tos4_prop *prop, unsigned long long first,
                                                  unsigned long long count, double *values);
/// True once a value could not be read, since the file is damaged; such cells have none.
[[nodiscard]] VX_API bool vx_tos4_prop_is_damaged(Ivx_tos4_prop const *prop);

// ---- statistics, of the values that are there

/// False, too, where no cell has a value.
[[nodiscard]] VX_API bool vx_tos4_prop_get_statistic_exist(Ivx_tos4_prop const *prop);
/// Goes over all cells. In a file that is open for writing the statistics are kept with the property, in one
/// for reading in memory until the file is another. False when a cell could not be read, the one who waits
/// for data sets gave up, or the file could not be written.
VX_API bool vx_tos4_prop_statistic_update(Ivx_tos4_prop *prop);
/// 0 as long as there are none. The deviation is that of a sample.
[[nodiscard]] VX_API double vx_tos4_prop_get_statistic_min(Ivx_tos4_prop const *prop);
[[nodiscard]] VX_API double vx_tos4_prop_get_statistic_max(Ivx_tos4_prop const *prop);
[[nodiscard]] VX_API double vx_tos4_prop_get_statistic_average(Ivx_tos4_prop const *prop);
[[nodiscard]] VX_API double vx_tos4_prop_get_statistic_stddev(Ivx_tos4_prop const *prop);

[[nodiscard]] VX_API bool vx_tos4_prop_get_histogram_exist(Ivx_tos4_prop const *prop);
/// The histogram from the smallest to the greatest value, whose statistics are made first where there are
/// none. Kept as they are.
VX_API bool vx_tos4_prop_histogram_update(Ivx_tos4_prop *prop);
/// Classes; 0 without a histogram, as all that follow.
[[nodiscard]] VX_API unsigned vx_tos4_prop_get_histogram_count(Ivx_tos4_prop const *prop);
/// The bounds of the whole.
[[nodiscard]] VX_API double vx_tos4_prop_get_histogram_hgbndmin(Ivx_tos4_prop const *prop);
[[nodiscard]] VX_API double vx_tos4_prop_get_histogram_hgbndmax(Ivx_tos4_prop const *prop);
/// The bounds as whole numbers, cut to what the type holds.
[[nodiscard]] VX_API unsigned vx_tos4_prop_get_histogram_hgmin(Ivx_tos4_prop const *prop);
[[nodiscard]] VX_API unsigned vx_tos4_prop_get_histogram_hgmax(Ivx_tos4_prop const *prop);
/// Cells of a class. Where one has more than the type holds, all are smaller by one factor.
[[nodiscard]] VX_API int vx_tos4_prop_get_histogram_value(Ivx_tos4_prop const *prop, unsigned i);

/// Base name of the scale files of a property, which have another extension: that of the file, with the
/// property's name before the extension, in which "/" and "\" stand as "%2F" and "%5C".
VX_API void vx_tos4_prop_get_prop_file_name_w(Ivx_tos4_file const *file, unsigned prop, Ivx_string_adp *name);

// ---- making

/// Begins a new file that will take the place of `name`. Null when that cannot be, or the grid is none:
/// counts of 0 or more than `c_tos4_most_objects` in all, spacings of 0, numbers that are not finite.
[[nodiscard]] VX_API Ivx_tos4_writer *vx_tos4_writer_create_w(wchar_t const *name, Tvx_tos4_grid const *grid,
                                                              wchar_t const *proj4);
/// Begins the next property. Names are not empty, differ from each other, and have 255 characters at most; an
/// empty caption is the name. What was left out of the property before has no values.
VX_API bool vx_tos4_writer_add_prop_w(Ivx_tos4_writer *writer, wchar_t const *name, wchar_t const *caption);
/// The next values of the property; what is not finite is a cell without one. More than there are objects is
/// a failure.
VX_API bool vx_tos4_writer_append(Ivx_tos4_writer *writer, double const *values, unsigned long long count);
/// Begins with all properties of a file that has as many objects, and goes on with the next: so a file gets
/// more properties, when what is made takes its place.
VX_API bool vx_tos4_writer_take_props(Ivx_tos4_writer *writer, Ivx_tos4_file const *from);
/// Whether statistics and histogram are made with each property, as they are unless told otherwise.
VX_API void vx_tos4_writer_set_statistics(Ivx_tos4_writer *writer, bool made);
/// Puts the new file in its place. After a failure, of this or a call before, the former file is what it was.
VX_API bool vx_tos4_writer_finish(Ivx_tos4_writer *writer);
/// Null is accepted. A file that was not finished is gone.
VX_API void vx_tos4_writer_destroy(Ivx_tos4_writer *writer);
