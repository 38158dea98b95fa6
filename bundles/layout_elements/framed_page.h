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
        f_frame = add_page<Tvx_layout_scalebar_edit>();
        f_frame->SetHeight(c_row_height + 2 * f_frame->get_scene_prop()->GetMargins()->GetTop());
        f_frame->get_scene_prop()->set_capt_width(c_label_width);
    }

protected:
    /// Where the element stands.
    [[nodiscard]] Ivx_scn_2d *layout() const { return f_frame->get_layout(); }

private:
    Tvx_layout_scalebar_edit *f_frame = nullptr;
};
} // namespace vx::layout_elements
