#pragma once

#include "platform/base/color.h"
#include "platform/base/geometry.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/layers/vx_lr2d.h"

#include <cstddef>
#include <string>
#include <vector>

struct Ivx_scn_2d;

/// Elements of page layouts: layers of the types of layout_keys.h, made by `vx_lr2d_create`. The caption is
/// the element's name, the file name what it shows or belongs to: the name of a scene (frame), of a frame of
/// the same layout (scale bar, scale text, legend, north arrow), a picture file (image), a data set (table).
///
/// Lengths are millimetres on paper. Places are counted from the page's upper left corner, x to the right and
/// y downwards. Setters bring what is out of range to the nearest that is not, and ignore numbers that are
/// not finite. On layers of other kinds getters give what a new element has, setters do nothing.

inline constexpr double c_layout_shortest_side = 0.1; ///< mm
inline constexpr double c_layout_longest_side = 10'000;
inline constexpr double c_layout_farthest_place = 100'000; ///< mm, on either side of the page's corner
inline constexpr double c_layout_least_scale = 1e-6;       ///< N of 1 : N
inline constexpr double c_layout_greatest_scale = 1e12;
inline constexpr double c_layout_longest_division = 1e9; ///< of a scale bar, in its units
inline constexpr std::size_t c_layout_most_items = 1000; ///< lines of a legend, fields of a table

// ---- plug-ins

/// As `vx_lr2d_get_plugin_interface`, for the interface under which a layout element is served.
[[nodiscard]] VX_API void *vx_layout_lr2d_get_plugin_interface(Ivx_layer const *layer);
VX_API void vx_layout_lr2d_set_plugin_interface(Ivx_layer *layer, void *plugin);

// ---- all elements

[[nodiscard]] VX_API bool vx_layout_lr2d_is(Ivx_layer const *layer);
/// Where the element stands. That of a page begins at (0, 0): its extent is the size of the sheet, an A4
/// upright at first. Sides and places have bounds; of a side that is too long or too short the lower end
/// stays. Empty for layers of other kinds.
[[nodiscard]] VX_API Tvx_box_d2 vx_layout_lr2d_get_box(Ivx_layer const *layer);
VX_API void vx_layout_lr2d_set_box(Ivx_layer *layer, Tvx_box_d2 const &box);
/// What lies under the element and round it: a composed polygon style (vx_style.h), the element's own. Its
/// fill, white, and its outline are switched off at first, but for the fill of a page and the outline of a
/// frame and of a neatline. Null on layers of other kinds.
[[nodiscard]] VX_API void *vx_layout_lr2d_get_pgn_style_ptr(Ivx_layer *layer);

/// How an element writes.
struct Tvx_layout_writing
{
    vx_fnt_type font;
    double size = 4; ///< height of the letters, 0.5 to 500 mm
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    int align_x = -1; ///< -1 left, 0 middle, 1 right
    int align_y = -1; ///< -1 top, 0 middle, 1 bottom
    friend bool operator==(Tvx_layout_writing const &, Tvx_layout_writing const &) = default;
};
[[nodiscard]] VX_API Tvx_layout_writing vx_layout_lr2d_get_writing(Ivx_layer const *layer);
VX_API void vx_layout_lr2d_set_writing(Ivx_layer *layer, Tvx_layout_writing const &writing);

// ---- what stands in a layout

/// The page of a layout: its first layer of that type, or null.
[[nodiscard]] VX_API Ivx_layer *vx_layout_get_page(Ivx_scn_2d const *layout);
/// The scene frame of this name; the only frame there is for the empty name; else null.
[[nodiscard]] VX_API Ivx_layer *vx_layout_find_frame_w(Ivx_scn_2d const *layout, wchar_t const *name);

// ---- scene frame

/// The scene of the project that the frame names, or null.
[[nodiscard]] VX_API Ivx_scn_2d *vx_layout_scene_frame_lr2d_get_scene(Ivx_layer const *layer);
/// N of the scale 1 : N along each axis, 10,000 at first. Numbers that are not above 0 are ignored. A scene
/// whose axes have one scale is shown at the first of both.
VX_API void vx_layout_scene_frame_lr2d_get_scale(Ivx_layer const *layer, double *x, double *y);
VX_API void vx_layout_scene_frame_lr2d_set_scale(Ivx_layer *layer, double x, double y);
/// The point of the map in the middle of the frame, in map units.
[[nodiscard]] VX_API Tvx_pnt_d2 vx_layout_scene_frame_lr2d_get_center(Ivx_layer const *layer);
VX_API void vx_layout_scene_frame_lr2d_set_center(Ivx_layer *layer, Tvx_pnt_d2 center);
/// The part of the map in the frame, in map units: centre, scale and the unit of the scene (that of a map in
/// metres without one) say it. In degrees the scale holds along the parallel; that of an axis with a scale of
/// its own, which runs to the north, along the meridian. Empty where numbers do not reach so far.
[[nodiscard]] VX_API Tvx_box_d2 vx_layout_scene_frame_lr2d_get_world(Ivx_layer const *layer);
/// Centre and scale so that all of `world` shows. A box that is empty or not finite is ignored, one without
/// extent only centred.
VX_API void vx_layout_scene_frame_lr2d_fit(Ivx_layer *layer, Tvx_box_d2 const &world);

// ---- text

/// Lines are parted by line feeds.
VX_API void vx_layout_text_lr2d_get_wtext(Ivx_layer const *layer, Ivx_string_adp *text);
VX_API void vx_layout_text_lr2d_set_wtext(Ivx_layer *layer, wchar_t const *text);
/// Degrees, counter-clockwise.
[[nodiscard]] VX_API double vx_layout_text_lr2d_get_angle(Ivx_layer const *layer);
VX_API void vx_layout_text_lr2d_set_angle(Ivx_layer *layer, double angle);

// ---- scale bar

enum Tvx_layout_bar_kind : int
{
    c_layout_bar_boxes,  ///< boxes in two colours by turns
    c_layout_bar_double, ///< two rows of them
    c_layout_bar_ticks,  ///< a line with ticks
};
enum Tvx_layout_unit : int
{
    c_layout_unit_automatic, ///< metres or kilometres, by the length
    c_layout_unit_m,
    c_layout_unit_km,
    c_layout_unit_ft,
    c_layout_unit_mi,
    c_layout_unit_nmi,
};
struct Tvx_layout_scale_bar
{
    Tvx_layout_bar_kind kind = c_layout_bar_boxes;
    Tvx_layout_unit unit = c_layout_unit_automatic;
    int divisions = 4; ///< 1 to 20
    double length = 0; ///< of one division in units; 0 takes a round one that fits the element
    double height = 2; ///< of the bar, 0.2 to 100 mm
    friend bool operator==(Tvx_layout_scale_bar const &, Tvx_layout_scale_bar const &) = default;
};
[[nodiscard]] VX_API Tvx_layout_scale_bar vx_layout_scale_bar_lr2d_get(Ivx_layer const *layer);
VX_API void vx_layout_scale_bar_lr2d_set(Ivx_layer *layer, Tvx_layout_scale_bar const &bar);

// ---- north arrow

enum Tvx_layout_arrow_kind : int
{
    c_layout_arrow_needle,
    c_layout_arrow_plain,
    c_layout_arrow_rose,
};
struct Tvx_layout_north_arrow
{
    Tvx_layout_arrow_kind kind = c_layout_arrow_needle;
    double angle = 0;       ///< degrees, clockwise from the page's upper edge
    bool has_letter = true; ///< the letter at its tip
    friend bool operator==(Tvx_layout_north_arrow const &, Tvx_layout_north_arrow const &) = default;
};
[[nodiscard]] VX_API Tvx_layout_north_arrow vx_layout_north_arrow_lr2d_get(Ivx_layer const *layer);
VX_API void vx_layout_north_arrow_lr2d_set(Ivx_layer *layer, Tvx_layout_north_arrow const &arrow);

// ---- legend

/// A line of a legend that the user has put there.
struct Tvx_layout_legend_item
{
    bool is_text = false; ///< a line of text, else the classes of a layer
    std::wstring text;    ///< the line, or the layer's caption
    bool visible = true;
    friend bool operator==(Tvx_layout_legend_item const &, Tvx_layout_legend_item const &) = default;
};
/// Without items all visible layers of the scene are shown, the topmost first; with items these, in their
/// order, and no others.
struct Tvx_layout_legend
{
    std::wstring title;
    int columns = 1;         ///< 1 to 20
    double sample_width = 9; ///< of a sample, 1 to 100 mm
    double sample_height = 5;
    double gap = 1.5; ///< between lines, 0 to 100 mm
    std::vector<Tvx_layout_legend_item> items;
    friend bool operator==(Tvx_layout_legend const &, Tvx_layout_legend const &) = default;
};
[[nodiscard]] VX_API Tvx_layout_legend vx_layout_legend_lr2d_get(Ivx_layer const *layer);
VX_API void vx_layout_legend_lr2d_set(Ivx_layer *layer, Tvx_layout_legend const &legend);

// ---- image

/// Whether the picture keeps its proportions, as at first, in the middle of the element; else it fills it.
[[nodiscard]] VX_API bool vx_layout_image_lr2d_get_keep_ratio(Ivx_layer const *layer);
VX_API void vx_layout_image_lr2d_set_keep_ratio(Ivx_layer *layer, bool keep);

// ---- table

struct Tvx_layout_table
{
    int rows = 10;                    ///< records shown at most, 1 to 1000
    std::vector<std::wstring> fields; ///< names of the columns; empty takes the first ones that fit
    friend bool operator==(Tvx_layout_table const &, Tvx_layout_table const &) = default;
};
[[nodiscard]] VX_API Tvx_layout_table vx_layout_table_lr2d_get(Ivx_layer const *layer);
VX_API void vx_layout_table_lr2d_set(Ivx_layer *layer, Tvx_layout_table const &table);
