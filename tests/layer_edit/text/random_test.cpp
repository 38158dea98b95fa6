#include "layer_edit/text/dtld_lr2d_edit.h"
#include "layer_edit/text/txt_mngr_lr2d_edit.h"
#include "support/random_seeds.h"
#include "tests/layer_edit/shape/shape_fixture.h"
#include "user_input/random_hand.h"

#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/styles/vx_txt_settings.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QWidget>

// Anything that a hand can do to the pages of texts. VX_SEED replays one seed; VX_LOG names a file that ends
// with what was done before a crash.

namespace {
#if defined(__SANITIZE_ADDRESS__)
constexpr int c_events = 200;
#else
constexpr int c_events = 2500; ///< for each seed and window
#endif

class random_text : public shape_fixture
{
protected:
    void SetUp() override { vx_dlg_set_table(nullptr); }
    static void work(TControl *window, unsigned seed)
    {
        vx::user_hand::random_hand user({.window = vx_qt_widget(window)->window(),
                                         .seed = seed,
                                         .events = c_events,
                                         .log = vx_test::random_log()});
        ASSERT_TRUE(user.run()) << user.last_lines();
    }
    [[nodiscard]] static void *list_of(Ivx_layer *of)
    {
        return vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(of));
    }
};
} // namespace

TEST_F(random_text, leaves_the_classes_usable)
{
    layer.reset(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/streets.shp", nullptr));
    ASSERT_TRUE(layer);
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(layer.get());
    TForm form(nullptr);
    auto *const page = new Tvx_dtld_lr2d_edit(&form);
    page->SetParent(&form);
    page->create();
    page->SetAlign(alClient);
    page->load_res();
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        form.SetBounds(50, 50, 480, 480);
        vx_lr2d_set_visible(labels, true);
        page->set_lr2d(labels);
        page->update_controls();
        form.Show();
        input::wait_idle();
        work(&form, seed);
        form.SetBounds(50, 50, 480, 480);
        vx_lr2d_set_visible(labels, true);
        page->update_controls();
        form.Show();
        input::wait_idle();
        int const count = vx_dtld_lr2d_count_text_class(labels);
        ASSERT_GT(count, 0);
        ASSERT_TRUE(input::click(page->get_label_panel()->get_class_add_btn()));
        EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels), count + 1);
        ASSERT_TRUE(input::enter_text(page->get_label_panel()->get_size_panel()->get_edit(), L"4.5"));
        EXPECT_EQ(vx_textlr_info_get_size(vx_dtld_lr2d_get_text_class(labels)), 4.5);
    }
}
