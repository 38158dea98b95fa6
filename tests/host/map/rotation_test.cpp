#include "controls/forms/apply_form.h"
#include "host/layer_editor.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/shape/shp_lr2d_edit.h"
#include "map_fixture.h"
#include "style_manager/rotation/rotate_form.h"
#include "tests/bundles/scene_editor/dialog_reader.h"
#include "user_input/user_input.h"

#include "platform/base/string_adp.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_life.h"

#include <QLabel>

namespace input = vx::user_input;
using namespace vx_test;

namespace {
class map_rotation : public map_fixture
{
protected:
    static std::wstring field_of(Ivx_layer *layer)
    {
        std::wstring name;
        void *const mngr = vx_shp_lr2d_get_stl_mngr_ptr(layer);
        vx_stl_mngr_get_rotate_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
        return vx_stl_mngr_get_rotate_flag(mngr) ? name : L"off " + name;
    }
    /// Turns the symbols by the field in the dialog of rotation that opens next.
    static void turn_by(wchar_t const *field, bool apply)
    {
        input::on_next_modal([=](input::modal_window const &window) {
            auto *const form = dynamic_cast<Tvx_rotate_form *>(window.form());
            ASSERT_TRUE(form);
            if (!form->get_rotate_check()->GetChecked()) {
                EXPECT_TRUE(input::click(form->get_rotate_check(), 8, 10));
            }
            EXPECT_TRUE(input::choose_item(form->get_prop_edit()->get_combo_box(), field));
            EXPECT_TRUE(input::click(apply ? form->get_apply_btn() : form->get_cancel_btn()));
        });
    }
};
} // namespace

TEST_F(map_rotation, is_a_command_of_layers_whose_styles_turn)
{
    ASSERT_EQ(open({"L7_ETMs.tif", "large_cities.shp"}), 2);
    select(1);
    EXPECT_FALSE(window->command("rotation")->isEnabled()) << "a raster";
    select(0);
    ASSERT_TRUE(window->command("rotation")->isEnabled());
    int const row = layers().row_of(window->panel().selected_id());
    for (bool const apply : {false, true}) {
        turn_by(L"population", apply);
        run("rotation");
        EXPECT_EQ(field_of(layers().layer_at(row)), apply ? L"population" : L"off ");
    }
    EXPECT_TRUE(window->is_changed());
    EXPECT_EQ(input::pending_modals(), 0);
}

TEST_F(map_rotation, stands_in_the_advanced_settings_of_the_editor)
{
    ASSERT_EQ(open({"large_cities.shp"}), 1);
    select(0);
    run("properties");
    input::wait_idle();
    Tvx_lr2d_edit_form *const editor = window->editor().handle();
    auto *const page = dialog_reader::find<Tvx_shp_lr2d_edit>(editor->get_form(), L"");
    ASSERT_TRUE(page);
    Ivx_layer *const copy = editor->get_lr2d();
    for (wchar_t const *const button : {L"Cancel", L"OK"}) {
        bool told = false;
        input::on_next_modal([&](input::modal_window const &advanced) {
            QWidget *const dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(qobject_cast<Tvx_advanced_dialog *>(dialog));
            auto *const text = dialog->findChild<QLabel *>("rotation_text");
            EXPECT_EQ(text->text(), "nothing is turned");
            turn_by(L"population", true);
            EXPECT_TRUE(advanced.press_button(L"Rotation..."));
            EXPECT_TRUE(text->text().contains("population")) << text->text().toStdString();
            if (char const *const folder = std::getenv("VX_SHOTS"))
                (void)advanced.save_shot(UnicodeString(folder) + L"/advanced.png");
            told = true;
            EXPECT_TRUE(advanced.press_button(button));
        });
        ASSERT_TRUE(input::click(page->get_edit()->get_rotate_btn()));
        EXPECT_TRUE(told);
        EXPECT_EQ(field_of(copy), button == std::wstring(L"OK") ? L"population" : L"off ");
    }
    EXPECT_EQ(input::pending_modals(), 0);
}

TEST_F(map_rotation, of_a_layer_that_has_gone_meanwhile_is_given_up)
{
    ASSERT_EQ(open({"large_cities.shp"}), 1);
    select(0);
    run("properties");
    input::wait_idle();
    auto *const page = dialog_reader::find<Tvx_shp_lr2d_edit>(window->editor().handle()->get_form(), L"");
    ASSERT_TRUE(page);
    bool told = false;
    input::on_next_modal([&](input::modal_window const &advanced) {
        void *const mngr = vx_shp_lr2d_get_stl_mngr_ptr(window->editor().handle()->get_lr2d());
        auto const life = vx_stl_mngr_life(mngr);
        EXPECT_FALSE(life.expired());
        layers().remove(0);
        EXPECT_TRUE(life.expired());
        told = true;
        EXPECT_TRUE(advanced.press_button(L"OK"));
    });
    (void)input::click(page->get_edit()->get_rotate_btn());
    EXPECT_TRUE(told);
    EXPECT_EQ(input::pending_modals(), 0);
}
