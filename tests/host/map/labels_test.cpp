#include "controls/forms/dlg_form.h"
#include "host/map_scene.h"
#include "layer_edit/text/dtld_lr2d_edit.h"
#include "map_fixture.h"
#include "styles/label/label_style_panel.h"
#include "support/temp_dir.h"
#include "tests/bundles/scene_editor/dialog_reader.h"
#include "user_input/user_input.h"

#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

namespace input = vx::user_input;
using namespace vx_test;

namespace {
class map_labels : public map_fixture
{
protected:
    /// Names the cities by a field in the editor of labels that opens next.
    static void name_by(wchar_t const *field, bool apply)
    {
        input::on_next_modal([=](input::modal_window const &window) {
            auto *const form = dynamic_cast<Tvx_dlg_form *>(window.form());
            ASSERT_TRUE(form);
            auto *const panel = dialog_reader::find<Tvx_label_style_panel>(form, L"");
            ASSERT_TRUE(panel);
            EXPECT_TRUE(input::choose_item(panel->get_prop_edit()->get_combo_box(), field));
            EXPECT_TRUE(input::click(apply ? form->get_apply_btn() : form->get_cancel_btn()));
        });
    }
    /// The line below the layer that tells what is written; an invalid index without one.
    QModelIndex row_of_labels(char const *kind = "Labels: ")
    {
        QAbstractItemModel const *const model = list()->model();
        QModelIndex const layer = model->index(0, 0);
        for (int i = 0; i < model->rowCount(layer); ++i)
            if (model->index(i, 0, layer).data().toString().startsWith(kind))
                return model->index(i, 0, layer);
        return {};
    }
};
} // namespace

TEST_F(map_labels, are_said_shown_ticked_and_kept)
{
    window->resize(1360, 860); // that of a window that nobody has sized
    ASSERT_EQ(open({"L7_ETMs.tif", "large_cities.shp"}), 2);
    select(1);
    EXPECT_FALSE(window->command("labels")->isEnabled()) << "a raster";
    select(0);
    QImage const bare = picture();
    name_by(L"name", false);
    run("labels");
    EXPECT_EQ(picture(), bare);
    EXPECT_FALSE(row_of_labels().isValid());

    name_by(L"name", true);
    run("labels");
    QImage const named = picture();
    EXPECT_NE(named, bare);
    ASSERT_TRUE(row_of_labels().isValid());
    EXPECT_EQ(row_of_labels().data().toString(), "Labels: name");
    EXPECT_TRUE(window->is_changed());
    EXPECT_EQ(input::pending_modals(), 0);

    // The tick below the layer takes the names off and brings them back, and moving the map keeps them.
    for (bool const on : {false, true}) {
        QRect const line = list()->visualRect(row_of_labels());
        hand::click(list()->viewport(), {line.left() + 8, line.center().y()});
        EXPECT_EQ(picture() == named, on);
        EXPECT_EQ(picture() == bare, !on);
    }

    vx_test::temp_dir const folder;
    QString const map = QString::fromStdString((folder.path() / "names.sn").string());
    ASSERT_TRUE(vx_map_scene_save(map, layers(), canvas().view()));
    expect_shown_elsewhere(map, named, QString::fromStdString(folder.path().string()));
}

TEST_F(map_labels, of_text_managers_have_a_line_with_a_tick_too)
{
    ASSERT_EQ(open({"large_cities.shp"}), 1);
    QImage const bare = picture();
    void *const list_of_texts =
        vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(layers().layer_at(0)));
    vx_txt_stl_mngr_init(vx_stl_mngr_list_get_active_mngr(list_of_texts), L"name");
    EXPECT_EQ(row_of_labels().isValid(), false);
    ASSERT_TRUE(
        layers().replace(layers().id_at(0), Tvx_layer_list::layer_ptr(vx_lr2d_clone(layers().layer_at(0)))));
    ASSERT_EQ(row_of_labels("Texts: ").data().toString(), "Texts: name");
    name_by(L"country", true);
    run("labels");
    ASSERT_TRUE(row_of_labels().isValid());
    QImage const named = picture();
    for (bool const on : {true, false}) {
        QRect const line = list()->visualRect(row_of_labels("Texts: "));
        hand::click(list()->viewport(), {line.left() + 8, line.center().y()});
        EXPECT_EQ(picture() == named, !on);
    }
    EXPECT_NE(named, bare);
}
