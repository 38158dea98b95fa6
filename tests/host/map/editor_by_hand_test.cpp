#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_classes.h"
#include "host/layer_editor.h"
#include "host/layer_style.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/shape/shp_lr2d_edit.h"
#include "map_fixture.h"
#include "raster_property/channels/channels_edit.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"
#include "tests/bundles/scene_editor/dialog_reader.h"
#include "user_input/user_input.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/styles/vx_val_scale.h"

using namespace vx_test;
namespace input = vx::user_input;

// From the list of the map's window to the map again, by mouse and keyboard alone.
TEST_F(map_fixture, a_class_that_the_editor_hides_goes_from_the_map_and_from_the_ticks)
{
    ASSERT_EQ(open({"nc.shp"}), 1);
    Tvx_screen_point const at = canvas().view().to_screen({-78.64, 35.78});
    QPoint const wake(int(at.x), int(at.y));
    QRgb const nothing = qRgb(255, 255, 255);
    ASSERT_NE(picture().pixel(wake), nothing);

    hand::press(list(), Qt::Key_Return);
    ASSERT_TRUE(window->editor().is_showing());
    Tvx_apply_form *const form = window->editor().handle()->get_form();
    auto *const page = dialog_reader::find<Tvx_shp_lr2d_edit>(form, L"");
    ASSERT_TRUE(page);
    Tvx_val_edit *const edit = page->get_edit()->get_val_edit();
    ASSERT_TRUE(input::choose_item(page->get_edit()->get_mode_edit()->get_combo_box(), 1));
    ASSERT_TRUE(input::choose_item(edit->get_prp_scale()->get_combo_box(), L"NAME"));
    int row = 0;
    for (std::wstring text; text != L"Wake";)
        vx_val_scale_get_text_w(edit->get_grid()->get_scale(), unsigned(row++),
                                Tvx_std_wstring_adapter(text));
    edit->get_grid()->SetTopRow(row);
    ASSERT_TRUE(input::click_cell(edit->get_grid(), 3, row));
    EXPECT_EQ(layers().rowCount(layers().index(0)), 0) << "nothing is applied yet";
    ASSERT_NE(picture().pixel(wake), nothing);
    ASSERT_TRUE(input::click(form->get_apply_btn()));

    EXPECT_EQ(layers().rowCount(layers().index(0)), 101);
    EXPECT_EQ(vx_layer_class_visible(layers().layer_at(0), unsigned(row) - 1), false);
    EXPECT_EQ(picture().pixel(wake), nothing);
    // The tick of the list brings it back, here and in the editor.
    QModelIndex const wake_class = layers().index(row - 1, 0, layers().index(0));
    EXPECT_EQ(layers().data(wake_class, Qt::DisplayRole), "Wake");
    list()->setExpanded(layers().index(0), true);
    list()->setCurrentIndex(wake_class);
    hand::press(list(), Qt::Key_Space);
    EXPECT_NE(picture().pixel(wake), nothing);
    EXPECT_EQ(
        vx_layer_class_visible(vx_lr2d_edt_form_get_lr2d_ptr(window->editor().handle()), unsigned(row) - 1),
        true);
}

TEST_F(map_fixture, a_raster_that_is_stretched_in_the_editor_is_drawn_so_with_apply)
{
    ASSERT_EQ(open({"L7_ETMs.tif"}), 1);
    hand::press(list(), Qt::Key_Return);
    ASSERT_TRUE(window->editor().is_showing());
    Tvx_apply_form *const form = window->editor().handle()->get_form();
    auto *const page = dialog_reader::find<Tvx_rtr_id_lr2d_edit>(form, L"");
    ASSERT_TRUE(page);
    auto const has_changes = [&] {
        return !vx_layer_has_style_of(vx_lr2d_edt_form_get_lr2d_ptr(window->editor().handle()),
                                      layers().layer_at(0));
    };
    QImage const as_it_is = picture();
    ASSERT_TRUE(input::choose_item(page->get_draw_type_cb()->get_combo_box(), L"Gray"));
    EXPECT_TRUE(has_changes());
    ASSERT_TRUE(input::click(form->get_apply_btn()));
    EXPECT_FALSE(has_changes());
    QImage const gray = picture();
    EXPECT_NE(gray, as_it_is);
    auto *const high = page->get_channels()->get_edit(3)->get_track_max();
    ASSERT_TRUE(input::enter_text(high->get_size_panel()->get_edit(), L"100"));
    EXPECT_TRUE(has_changes()) << "a stretch alone is one";
    EXPECT_EQ(picture(), gray);
    ASSERT_TRUE(input::click(form->get_apply_btn()));
    EXPECT_FALSE(has_changes());
    QImage const bright = picture();
    // No pixel is darker, and most are lighter.
    int lighter = 0, darker = 0;
    for (int y = 0; y < gray.height(); ++y)
        for (int x = 0; x < gray.width(); ++x) {
            int const more = qGray(bright.pixel(x, y)) - qGray(gray.pixel(x, y));
            lighter += more > 0;
            darker += more < 0;
        }
    EXPECT_EQ(darker, 0);
    EXPECT_GT(lighter, gray.width() * gray.height() / 4);

    // Pasted on a raster of one band, the stretch of that band goes with the style; other bands stay away.
    Tvx_layer_list::layer_ptr const other(vx_rtr_lr2d_create(L"" VX_EXAMPLE_DATA "/olinda_dem_utm25s.tif"));
    ASSERT_TRUE(vx_layer_copy_style(other.get(), layers().layer_at(0)));
    EXPECT_EQ(vx_rtr_lr2d_get_draw_type(other.get()), c_rtr_draw_gray);
    void *const all = vx_rtr_lr2d_get_rgb_channels_ptr(other.get());
    EXPECT_EQ(vx_clr_channel_get_max(vx_rgb_channels_get_gray(all)), 100);
    std::wstring band;
    vx_clr_channel_get_prop_name_w(vx_rgb_channels_get_green(all), Tvx_std_wstring_adapter(band));
    EXPECT_EQ(band, vx_rtr_lr2d_get_prop_name(other.get(), 0));
}
