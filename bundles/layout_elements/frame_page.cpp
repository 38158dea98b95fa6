#include "captions/layout_elements.h"
#include "layer_edit/layout/layout_scene_edit.h"
#include "pages.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/toolkit/core/screen.h"

namespace vx::layout_elements {
namespace {
constexpr int c_any_decimals = -1;
/// What a map that tells its view is taken to show each way from its middle.
constexpr double c_view_pixels = 300;

template <auto Axis>
constexpr value center = {
    [](Ivx_layer const *layer) { return vx_layout_scene_frame_lr2d_get_center(layer).*Axis; },
    [](Ivx_layer *layer, double to) {
        auto at = vx_layout_scene_frame_lr2d_get_center(layer);
        at.*Axis = to;
        vx_layout_scene_frame_lr2d_set_center(layer, at);
    },
};

/// All data of the scene, or what its map shows; empty when neither is known.
Tvx_box_d2 extent_of(Ivx_scn_2d *scene)
{
    vx_wait_cursor const wait;
    Tvx_box_d2 box;
    if (vx_scn_2d_get_extent(scene, &box))
        return box;
    Tvx_pnt_d2 middle;
    double pixel = 0;
    if (!vx_scn_2d_get_view(scene, &middle, &pixel))
        return {};
    double const reach = pixel * c_view_pixels;
    box = {};
    box.add(middle.x - reach, middle.y - reach);
    box.add(middle.x + reach, middle.y + reach);
    return box;
}

/// Which scene a frame shows, and which part of it.
class frame_page final : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        auto *const scene = add_page<Tvx_layout_scene_edit>();
        scene->get_scene_prop()->set_capt_width(c_label_width);
        scene->get_scale_x()->set_text_width(c_label_width);
        scene->get_scale_y()->set_text_width(c_label_width);
        add_number({c_le_center_x, 0, c_any_decimals, true, center<&Tvx_pnt_d2::x>});
        add_number({c_le_center_y, 0, c_any_decimals, true, center<&Tvx_pnt_d2::y>});
        f_show_all = add_button(c_le_show_all, make_closure<&frame_page::on_show_all_click>(this));
    }

private:
    void show_others() override
    {
        f_show_all->SetEnabled(vx_layout_scene_frame_lr2d_get_scene(f_lr2d) != nullptr);
    }
    void on_show_all_click(TObject * /*sender*/)
    {
        if (!f_lr2d)
            return;
        auto const box = extent_of(vx_layout_scene_frame_lr2d_get_scene(f_lr2d));
        if (box.is_empty()) {
            vx_show_wmessage(vx_res_get_wstr(c_le_no_extent));
            return;
        }
        vx_layout_scene_frame_lr2d_fit(f_lr2d, box);
        update_controls();
        call_changed();
    }

    Tvx_button *f_show_all = nullptr;
};
} // namespace

rows_page *make_frame_page(TComponent *owner)
{
    return new frame_page(owner);
}
} // namespace vx::layout_elements
