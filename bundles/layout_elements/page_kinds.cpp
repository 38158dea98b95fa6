#include "captions/layout_elements.h"
#include "layer_edit/layout/layout_ids.h"
#include "pages.h"

namespace vx::layout_elements {
std::vector<page_kind> const &page_kinds()
{
    static std::vector<page_kind> const kinds = {
        {L"layout_page", c_le_tab_page, c_layout_page, &make_page_page},
        {L"layout_scene_frame", c_le_tab_frame, c_layout_scene_frame, &make_frame_page},
        {L"layout_text", c_le_tab_text, c_layout_text, &make_text_page},
        {L"layout_legend", c_le_tab_legend, c_layout_legend, &make_legend_page},
        {L"layout_north_arrow", c_le_tab_north_arrow, c_layout_north_arrow, &make_north_arrow_page},
        {L"layout_scale_bar", c_le_tab_scale_bar, c_layout_scale_bar, &make_scale_bar_page},
        {L"layout_scale_text", c_le_tab_scale_text, c_layout_scale_text, &make_scale_text_page},
        {L"layout_image", c_le_tab_image, c_layout_image, &make_image_page},
        {L"layout_table", c_le_tab_table, c_layout_table, &make_table_page},
        {L"layout_element", c_le_tab_element, nullptr, &make_element_page},
    };
    return kinds;
}
} // namespace vx::layout_elements
