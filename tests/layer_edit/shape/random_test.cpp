#include "shape_fixture.h"
#include "support/random_seeds.h"
#include "user_input/random_hand.h"

#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QWidget>

namespace {
#if defined(__SANITIZE_ADDRESS__)
constexpr int c_events = 400;
#else
constexpr int c_events = 5000; ///< for each seed
#endif

/// Anything that a hand can do to the editor of a layer.
class random_hands : public shape_fixture,
                     public testing::WithParamInterface<std::pair<wchar_t const *, Tvx_style_mode>>
{
protected:
    /// The host's layer is what it was since the last Apply.
    void check_layer()
    {
        void *const now = vx_shp_lr2d_get_style_mngr_list_ptr(layer.get());
        void *const was = vx_shp_lr2d_get_style_mngr_list_ptr(kept.get());
        ASSERT_EQ(vx_stl_mngr_list_get_count(now), vx_stl_mngr_list_get_count(was));
        for (unsigned i = 0; i < vx_stl_mngr_list_get_count(now); ++i)
            ASSERT_TRUE(
                vx_stl_mngr_equal(vx_stl_mngr_list_get_mngr(now, i), vx_stl_mngr_list_get_mngr(was, i)));
    }
    void before_apply() override { check_layer(); }
    void after_apply() override { kept.reset(vx_lr2d_clone(layer.get())); }

    owned_layer kept;
};
} // namespace

// VX_SEED replays one seed; VX_LOG names a file that ends with what was done before a crash.
TEST_P(random_hands, leave_the_editor_usable_and_the_layer_of_the_host_alone)
{
    vx_dlg_set_table(nullptr);
    auto const [file, mode] = GetParam();
    open(file);
    after_apply();
    ASSERT_TRUE(choose_mode(int(mode)));
    TWinControl *favourite = val_edit()->get_grid();
    if (mode == c_style_mode_range) {
        mngr_edit()->get_rng_edit()->generate_default_scale();
        mngr_edit()->update_controls();
        favourite = mngr_edit()->get_rng_edit()->get_grid();
    }
    apply();
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        std::string done;
        {
            vx::user_hand::random_hand user({.window = vx_qt_widget(record->get_form())->window(),
                                             .favourite = vx_qt_widget(favourite),
                                             .seed = seed,
                                             .events = c_events,
                                             .log = vx_test::random_log()});
            bool const usable = user.run();
            done = user.last_lines();
            ASSERT_TRUE(usable) << done;
        }
        check_layer();
        // Everything can still be done.
        vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
        vx_lr2d_edt_form_show(record.get());
        record->get_form()->SetBounds(50, 50, 480, 600);
        input::wait_idle();
        auto *const pages = dialog_reader::find<TPageControl>(record->get_form(), L"");
        ASSERT_TRUE(input::click_tab(pages, L"Style")) << done;
        ASSERT_TRUE(choose_mode(1)) << done;
        ASSERT_TRUE(input::click(val_edit()->get_ins_btn())) << done;
        apply();
    }
}

INSTANTIATE_TEST_SUITE_P(layers, random_hands,
                         testing::Values(std::pair(L"nc.shp", c_style_mode_value),
                                         std::pair(L"streets.shp", c_style_mode_range),
                                         std::pair(L"naturalearth_cities.shp", c_style_mode_value)));
