#pragma once

#include "element_docker.h"

/// The pages, each made for an element of its kind.
namespace vx::layout_elements {
[[nodiscard]] rows_page *make_element_page(TComponent *owner);
[[nodiscard]] rows_page *make_page_page(TComponent *owner);
[[nodiscard]] rows_page *make_frame_page(TComponent *owner);
[[nodiscard]] rows_page *make_text_page(TComponent *owner);
[[nodiscard]] rows_page *make_legend_page(TComponent *owner);
[[nodiscard]] rows_page *make_north_arrow_page(TComponent *owner);
[[nodiscard]] rows_page *make_scale_bar_page(TComponent *owner);
[[nodiscard]] rows_page *make_scale_text_page(TComponent *owner);
[[nodiscard]] rows_page *make_image_page(TComponent *owner);
[[nodiscard]] rows_page *make_table_page(TComponent *owner);
} // namespace vx::layout_elements
