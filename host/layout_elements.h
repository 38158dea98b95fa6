#pragma once

#include "platform/base/geometry.h"
#include "platform/base/owned.h"
#include "platform/layers/vx_layout_lr2d.h"

#include <QString>

#include <string_view>

struct Ivx_scns_2d;

/// Elements of page layouts as the layout window makes and names them.

using Tvx_layout_element_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// What elements of this type key are called.
[[nodiscard]] QString vx_layout_kind_name(std::string_view key);
[[nodiscard]] bool vx_layout_is(Ivx_layer const *element, std::string_view key);
[[nodiscard]] bool vx_layout_has_page_kind(Ivx_layer const *element);
/// Whether elements of the kind name a frame of their layout in their file name.
[[nodiscard]] bool vx_layout_names_frame(Ivx_layer const *element);
[[nodiscard]] QString vx_layout_file_of(Ivx_layer const *element);
void vx_layout_set_file(Ivx_layer *element, QString const &file);

/// A new element in the middle of a page, as large as its kind needs.
[[nodiscard]] Tvx_layout_element_ptr vx_layout_make_element(char const *key, QString const &name,
                                                            Ivx_scn_2d const *layout);
/// Shows all of the box, in units of the frame's scene, at a round scale. An empty box changes nothing.
void vx_layout_show_box(Ivx_layer *frame, Tvx_box_d2 const &box);
/// N of a scale that is easily remembered, not below `scale`.
[[nodiscard]] double vx_layout_round_scale(double scale);

/// Fills an empty layout with a page ready to be printed: this part of the scene in a frame, the title, a
/// legend, scale and north arrow, upright or across by the proportions of the part.
void vx_layout_make_page(Ivx_scn_2d *layout, Ivx_scn_2d *scene, Tvx_box_d2 const &shown,
                         QString const &title);

/// Puts copies of the layouts at the end of a list; which of them is active goes along.
void vx_layouts_copy(Ivx_scns_2d const &from, Ivx_scns_2d &to);

/// Whether two elements of one kind are the same in all that they keep.
[[nodiscard]] bool vx_layout_are_alike(Ivx_layer *a, Ivx_layer *b);
