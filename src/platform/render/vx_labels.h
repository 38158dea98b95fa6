#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"
#include "platform/render/vx_map_view.h"

struct Ivx_layer;

/// The labels of a map, of all its layers together: those of dynamic text layers (a layer's own, and those
/// that stand in the list by themselves) and those of text settings whose list is visible. Labels are placed
/// on the map, not on what is seen of it: a map that is moved keeps them, and one that the edge would cut is
/// not drawn, and gives its place to no other. What was placed is kept until the layers or the scale change.
///
/// Labels of higher priority come first, then those of larger letters, those of the upper layer, those of
/// larger objects; among equal ones a number decides that is always the same. Those of text settings have the
/// lowest priority. No two overlap unless the later one may.
///
/// Texts are cut after 64 characters of a line and 8 lines; letters of less than 2 pixels, and of more than
/// 400 that are larger than 100 millimetres, are not drawn. Labels that are not drawn take no place. Main
/// thread only; all functions accept null.
struct Ivx_labels;

[[nodiscard]] VX_API Ivx_labels *vx_labels_create();
VX_API void vx_labels_destroy(Ivx_labels *labels);

/// A layer of the map. A new revision tells that it draws otherwise than before: another layer, others of its
/// settings or of its data.
struct Tvx_labelled_layer
{
    Ivx_layer *layer = nullptr; ///< may be null; not looked at after the call
    long long revision = 0;
};
/// Whether the layer may write something, for callers that need no drawing otherwise.
[[nodiscard]] VX_API bool vx_labels_has_any(Ivx_layer *layer);

/// Finds the places of the labels that the view shows, unless they are known. The layers come from the top.
/// `scale` is N of the map's scale 1 : N, which limits go by; 0 takes one of a map in metres. `cancelled` is
/// asked at the start and about every 12 milliseconds. False when it ended the work, which then knows no
/// labels, and when data could not be read or the view is not valid.
VX_API bool vx_labels_place(Ivx_labels *labels, Tvx_labelled_layer const *layers, unsigned count,
                            Tvx_map_view const &view, double scale, closure<bool()> cancelled = {});
/// Draws the labels of the last placing that the view shows whole on a device (vx_bmp_dc.h) of its size. The
/// view is that of the placing. False when the drawing was ended, or nothing was placed.
VX_API bool vx_labels_draw(Ivx_labels *labels, Tvx_map_view const &view, void *dc,
                           closure<bool()> cancelled = {});

// ---- what was placed

/// A label as it is drawn.
struct Tvx_label_view
{
    unsigned layer = 0;  ///< place in the list of layers
    unsigned record = 0; ///< of the layer's table
    int priority = 0;
    bool may_overlap = false;
    unsigned quad_count = 0; ///< rectangles that it takes up
    Tvx_box_d2 box;          ///< of all of them, in pixels of the view
};
/// Number of the labels that the view draws, the ones on top first.
[[nodiscard]] VX_API unsigned vx_labels_get_count(Ivx_labels const *labels, Tvx_map_view const &view);
/// False past the end.
[[nodiscard]] VX_API bool vx_labels_get(Ivx_labels const *labels, Tvx_map_view const &view, unsigned index,
                                        Tvx_label_view *label);
/// The corners of a rectangle of a label, round about, in pixels of the view. False past the end.
[[nodiscard]] VX_API bool vx_labels_get_quad(Ivx_labels const *labels, Tvx_map_view const &view,
                                             unsigned index, unsigned quad, Tvx_pnt_d2 corners[4]);
VX_API void vx_labels_get_text(Ivx_labels const *labels, Tvx_map_view const &view, unsigned index,
                               Ivx_string_adp *text);
/// How often places were looked for since the object was made.
[[nodiscard]] VX_API unsigned vx_labels_get_placings(Ivx_labels const *labels);
