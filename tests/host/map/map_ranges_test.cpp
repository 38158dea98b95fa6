#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_editor.h"
#include "host/map_scene.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "map_fixture.h"
#include "style_manager/shell/stl_mngr_edit.h"
#include "support/temp_dir.h"
#include "tests/bundles/scene_editor/dialog_reader.h"
#include "user_input/user_input.h"

#include "platform/dialogs/vx_dlg_table.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/key_codes.h"

using namespace vx_test;
namespace input = vx::user_input;

namespace {
enum : int
{
    mark,
    lower,
    upper,
    caption,
    visible,
    style
};

/// Ranges made by hand, in the editor of the map.
class map_ranges : public map_fixture
{
protected:
    void SetUp() override
    {
        map_fixture::SetUp();
        dialogs.user = this;
        dialogs.color = [](void *self, HWND, int, int, Tvx_color *color, int) {
            *color = static_cast<map_ranges *>(self)->next_color;
            return true;
        };
        vx_dlg_set_table(&dialogs);
    }
    void TearDown() override
    {
        vx_dlg_set_table(nullptr);
        EXPECT_EQ(input::pending_modals(), 0);
    }

    TCustomForm *form() { return window->editor().handle()->get_form(); }
    Tvx_rng_edit *edit() { return dialog_reader::find<Tvx_stl_mngr_edit>(form(), L"")->get_rng_edit(); }
    bool click(int col, int row) { return input::click_cell(edit()->get_grid(), col, row); }
    bool type(int col, int row, wchar_t const *text)
    {
        return click(col, row) && input::press(VK_F2) && input::press('A', {ssCtrl}) && input::type(text);
    }
    /// By the dialog of the style.
    bool change_color(int row, Tvx_color color)
    {
        next_color = color;
        input::on_next_modal([](input::modal_window const &dialog) {
            auto *const button = dialog_reader::find<TButton>(dialog.form(), L"Colour");
            EXPECT_TRUE(button && input::click(button));
            dialog.press_button(L"Apply");
        });
        return click(style, row);
    }
    void *mngr() { return vx_shp_lr2d_get_stl_mngr_ptr(layers().layer_at(0)); }

    temp_dir folder;
    vx_dlg_table dialogs;
    Tvx_color next_color{};
};

TEST_F(map_ranges, made_in_the_editor_are_the_map_of_the_next_process)
{
    window->resize(1360, 860);
    ASSERT_EQ(open({"nc.shp"}), 1);
    QImage const plain = picture();
    hand::double_click(list()->viewport(), hand::text_of(list(), 0));
    auto *const shell = dialog_reader::find<Tvx_stl_mngr_edit>(form(), L"");
    ASSERT_TRUE(shell && input::choose_item(shell->get_mode_edit()->get_combo_box(), c_style_mode_range));
    ASSERT_TRUE(input::choose_item(edit()->get_prp_scale()->get_combo_box(), L"BIR74"));
    int const rows = edit()->get_grid()->GetRowCount();
    ASSERT_EQ(rows, 13);
    for (int row = 1; row < rows; ++row)
        ASSERT_TRUE(change_color(row, vx_clr_init_rgb(20 * row, 40, 255 - 20 * row)));
    EXPECT_TRUE(type(upper, 3, L"4000.1234567890123 or so\n") && type(lower, 4, L"4100\n"));
    EXPECT_TRUE(type(caption, 5, L"\"4\" < & > ж\n") && click(visible, 6));
    EXPECT_TRUE(click(caption, 3) && input::click(edit()->get_tool_panel()->get_ins_btn()));
    EXPECT_TRUE(click(mark, 10) && input::click(edit()->get_tool_panel()->get_del_btn()));
    EXPECT_TRUE(input::drag_cell(edit()->get_grid(), mark, 4, mark, 8));
    EXPECT_TRUE(type(upper, 2, L"1500")); // taken by Apply
    ASSERT_TRUE(input::click(window->editor().handle()->get_form()->get_apply_btn()));
    auto *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr());
    ASSERT_EQ(vx_rng_scale_get_size(scale), 10U);
    EXPECT_EQ(vx_rng_scale_get_max(scale, 0), 1500);

    QImage const shown = picture();
    EXPECT_NE(shown, plain);
    QString const map = QString::fromStdString((folder / "ranges_.sn").string());
    ASSERT_TRUE(vx_map_scene_save(map, layers(), canvas().view()));
    expect_shown_elsewhere(map, shown, QString::fromStdString((folder / "shots").string()));
    std::shared_ptr<void> const kept(vx_stl_mngr_clone(mngr()), &vx_stl_mngr_destroy);
    window = std::make_unique<Tvx_map_window>();
    ASSERT_EQ(window->open_files({map}), 1);
    EXPECT_TRUE(vx_stl_mngr_equal(mngr(), kept.get()));
}
} // namespace
