#pragma once

#include "layer_edit/layout/layout_scalebar_edit.h"
#include "rows_page.h"

namespace vx::layout_elements {
/// Base of the pages of what belongs to a frame: the choice of that frame stands first.
class framed_page : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        auto *const frame = add_page<Tvx_layout_scalebar_edit>();
        frame->SetHeight(c_row_height + 2 * frame->get_scene_prop()->GetMargins()->GetTop());
        frame->get_scene_prop()->set_capt_width(c_label_width);
    }
};
} // namespace vx::layout_elements
