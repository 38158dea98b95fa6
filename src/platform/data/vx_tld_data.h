#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"

#include <string>
#include <string_view>

class vx_fnt_type;

/// A text class of a dynamic text layer: which property is written at the objects of another layer, how it
/// looks and where it may stand. Lengths are in millimetres, angles in degrees counter-clockwise, `y` goes
/// up. All functions accept null: getters then give the type's zero, setters do nothing; setters also refuse
/// what is outside the range that is told here, and numbers that are not finite.

/// What the labels of a class stand at. A class has the hint of the layer that its labels belong to.
enum Tvx_textlr_hint : int
{
    c_textlr_hint_points = 0,
    c_textlr_hint_polygons = 1, ///< labels stand inside
    c_textlr_hint_lines = 2,    ///< labels run along lines
};
/// How the bytes behind a text are to be understood, see `vx_textlr_decode`.
enum Tvx_textlr_encoding : int
{
    c_textlr_encoding_plain = 0,
    c_textlr_encoding_unicode = 1,
    c_textlr_encoding_morvel = 2,
};
/// What gets a label of its own.
enum Tvx_textlr_range : int
{
    c_textlr_range_object = 0, ///< each object: its largest polygon, its longest line, its first point
    c_textlr_range_part = 1,   ///< each part of an object
    /// Each text: objects of one name are taken together, lines are joined where they meet. The largest
    /// polygon, the longest line, the first point is labelled.
    c_textlr_range_name = 2,
};
/// What happens to labels of a class that say the same.
enum Tvx_textlr_duplicates : int
{
    c_textlr_duplicates_all = 0,   ///< all are drawn
    c_textlr_duplicates_apart = 1, ///< none nearer to another than `c_textlr_apart_mm`
    c_textlr_duplicates_one = 2,   ///< each text once in a map
};
inline constexpr double c_textlr_apart_mm = 40;
/// How a label lies at its line. In all but the last the vertical position is told off the line.
enum Tvx_textlr_line_type : int
{
    c_textlr_line_bends = 0,    ///< along the line, following its bends
    c_textlr_line_straight = 1, ///< straight, in the direction of the line at its middle
    c_textlr_line_across = 2,   ///< straight, across the line
    c_textlr_line_level = 3,    ///< level, at the middle of the line, moved by the deltas
};

/// A class with the defaults of a hint; numbers that are none stand for points.
[[nodiscard]] VX_API void *vx_textlr_info_create(int hint);
[[nodiscard]] VX_API void *vx_textlr_info_clone(void const *info);
VX_API void vx_textlr_info_destroy(void *info);
/// Takes over all but the hint.
VX_API void vx_textlr_info_assign(void *target, void const *source);
[[nodiscard]] VX_API bool vx_textlr_info_equal(void const *a, void const *b);

/// The class's own name; empty unless given.
VX_API void vx_textlr_info_get_name(void const *info, Ivx_string_adp *name);
VX_API void vx_textlr_info_set_name(void *info, wchar_t const *name);

/// The property that is written, by its name; empty while none was set. The index, from 0, is what the data
/// had when it was set and -1 without one: the name counts.
VX_API void vx_textlr_info_get_property_name(void const *info, Ivx_string_adp *name);
[[nodiscard]] VX_API int vx_textlr_info_get_property_index(void const *info);
VX_API void vx_textlr_info_set_property(void *info, int index, wchar_t const *name);

/// The font, owned by the class.
[[nodiscard]] VX_API vx_fnt_type *vx_textlr_info_get_font_ptr(void *info);
VX_API void vx_textlr_info_set_font(void *info, vx_fnt_type const *font);
/// Height of the letters; 3 unless set. A size below 0 is refused, one of 0 draws nothing.
[[nodiscard]] VX_API double vx_textlr_info_get_size(void const *info);
VX_API void vx_textlr_info_set_size(void *info, double size);
[[nodiscard]] VX_API Tvx_color vx_textlr_info_get_color(void const *info);
VX_API void vx_textlr_info_set_color(void *info, Tvx_color color);
/// Labels along lines have none.
[[nodiscard]] VX_API double vx_textlr_info_get_angle(void const *info);
VX_API void vx_textlr_info_set_angle(void *info, double angle);
/// A `Tvx_textlr_encoding`.
[[nodiscard]] VX_API int vx_textlr_info_get_encoding(void const *info);
VX_API void vx_textlr_info_set_encoding(void *info, int encoding);
/// 0 to 9; labels of a higher one are placed first.
[[nodiscard]] VX_API int vx_textlr_info_get_priority(void const *info);
VX_API void vx_textlr_info_set_priority(void *info, int priority);
/// Labels may lie on those that were placed before. They are drawn in any case.
[[nodiscard]] VX_API bool vx_textlr_info_is_place_overlap(void const *info);
VX_API void vx_textlr_info_set_place_overlap(void *info, bool overlap);

/// All lengths grow with the map: they are what was set at one scale of the map, the initial one.
[[nodiscard]] VX_API bool vx_textlr_info_get_scale(void const *info);
/// To switch it on makes the scale of the next drawing the initial one.
VX_API void vx_textlr_info_set_scale(void *info, bool scale);
/// Whether the initial scale is settled: false makes that of the next drawing the initial one, true goes back
/// to the one before as long as nothing was drawn. Copies of the class share what the drawing settles.
VX_API void vx_textlr_info_set_scale_init(void *info, bool settled);
/// N of the initial scale 1 : N; 0 while there is none.
[[nodiscard]] VX_API double vx_textlr_info_get_init_scale(void const *info);
/// Settles it; a number that is not above 0 takes it away.
VX_API void vx_textlr_info_set_init_scale(void *info, double scale);

/// A `Tvx_textlr_hint`.
[[nodiscard]] VX_API int vx_textlr_info_get_hint(void const *info);

/// A box of colour behind the text.
[[nodiscard]] VX_API bool vx_textlr_info_is_back(void const *info);
[[nodiscard]] VX_API Tvx_color vx_textlr_info_get_back_clr(void const *info);
VX_API void vx_textlr_info_set_back(void *info, bool on, Tvx_color color);
/// A rim round the letters. The targets may be null; they are left alone for a null class.
[[nodiscard]] VX_API bool vx_textlr_info_get_outline(void const *info, Tvx_color *color, double *width);
VX_API void vx_textlr_info_set_outline(void *info, bool on, Tvx_color color, double width);
/// The text once more, behind itself, moved by `gap_x` to the right and `gap_y` up. With an outline the
/// shadow has a rim of `width` in its colour.
[[nodiscard]] VX_API bool vx_textlr_info_get_shadow(void const *info, Tvx_color *color, double *width,
                                                    double *gap_x, double *gap_y);
VX_API void vx_textlr_info_set_shadow(void *info, bool on, Tvx_color color, double width, double gap_x,
                                      double gap_y);

/// A `Tvx_textlr_range`, a `Tvx_textlr_duplicates`.
[[nodiscard]] VX_API int vx_textlr_info_get_range(void const *info);
VX_API void vx_textlr_info_set_range(void *info, int range);
[[nodiscard]] VX_API int vx_textlr_info_get_duplicates(void const *info);
VX_API void vx_textlr_info_set_duplicates(void *info, int duplicates);
/// Side of its place on which the text stands: -1 left or below, 0 on it, 1 right or above. Along lines the
/// vertical one alone counts; below and above are those of the reader.
[[nodiscard]] VX_API signed char vx_textlr_info_get_text_pos_x(void const *info);
VX_API void vx_textlr_info_set_text_pos_x(void *info, signed char pos);
[[nodiscard]] VX_API signed char vx_textlr_info_get_text_pos_y(void const *info);
VX_API void vx_textlr_info_set_text_pos_y(void *info, signed char pos);
/// A `Tvx_textlr_line_type`.
[[nodiscard]] VX_API int vx_textlr_info_get_line_type(void const *info);
VX_API void vx_textlr_info_set_line_type(void *info, int line_type);
/// The text runs as the line was drawn, upside down where that leads to the left; else it is kept upright.
[[nodiscard]] VX_API bool vx_textlr_info_is_line_direction(void const *info);
VX_API void vx_textlr_info_set_line_direction(void *info, bool by_line);
/// Distance from that place, to the right and up. Along lines only `c_textlr_line_level` has them.
[[nodiscard]] VX_API double vx_textlr_info_get_delta_x(void const *info);
VX_API void vx_textlr_info_set_delta_x(void *info, double delta);
[[nodiscard]] VX_API double vx_textlr_info_get_delta_y(void const *info);
VX_API void vx_textlr_info_set_delta_y(void *info, double delta);

/// Labels are drawn from the scale 1 : min to the scale 1 : max, both included: with a least number they
/// vanish when one looks closer, with a greatest when one looks from farther away.
[[nodiscard]] VX_API bool vx_textlr_info_use_min_scale(void const *info);
VX_API void vx_textlr_info_set_use_min_scale(void *info, bool on);
[[nodiscard]] VX_API double vx_textlr_info_get_min_scale(void const *info);
VX_API void vx_textlr_info_set_min_scale(void *info, double scale);
[[nodiscard]] VX_API bool vx_textlr_info_use_max_scale(void const *info);
VX_API void vx_textlr_info_set_use_max_scale(void *info, bool on);
[[nodiscard]] VX_API double vx_textlr_info_get_max_scale(void const *info);
VX_API void vx_textlr_info_set_max_scale(void *info, double scale);

/// A text of the data as it is written. Plain: as it is. Unicode: a text that was kept in UTF-8 and read as
/// Latin-1 is put right, any other is as it is. Morvel: the same for a text that was kept in the Cyrillic
/// code page 1251.
[[nodiscard]] VX_API std::wstring vx_textlr_decode(std::wstring_view text, int encoding);
