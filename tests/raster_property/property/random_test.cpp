#include "property_fixture.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"
#include "support/random_seeds.h"
#include "user_input/random_hand.h"

#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtWidgets/QWidget>

#include <filesystem>

namespace {
#if defined(__SANITIZE_ADDRESS__)
constexpr int c_events = 120;
#else
constexpr int c_events = 1000; ///< for each seed and layer
#endif

/// Anything that a hand can do to the editor of a layer of cells or of placed points.
class random_cells : public property_fixture,
                     public testing::WithParamInterface<std::wstring property_fixture::files::*>
{
protected:
    /// The host's layer is what it was since the last Apply or live change.
    void check_layer()
    {
        ASSERT_EQ(told_by(layer.get()), told_by(kept.get()));
        void *const now = mngr_of(layer.get());
        ASSERT_TRUE(!now || vx_stl_mngr_equal(now, mngr_of(kept.get())));
    }
    void before_apply() override { check_layer(); }
    void after_apply() override { kept.reset(vx_lr2d_clone(layer.get())); }

    owned_layer kept;

private:
    static void *mngr_of(Ivx_layer *of)
    {
        void *const colors = vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(of);
        return colors ? colors : vx_tos_2crd_lr2d_get_stl_mngr(of);
    }
    static std::wstring told_by(Ivx_layer *of)
    {
        std::wstring x, y;
        vx_tos_2crd_lr2d_get_wprop_name_x(of, Tvx_std_wstring_adapter(x));
        vx_tos_2crd_lr2d_get_wprop_name_y(of, Tvx_std_wstring_adapter(y));
        return x + L" " + y + L" " + std::to_wstring(vx_tos_grid_lr2d_get_draw_type(of)) + L" " +
               std::to_wstring(vx_tos_grid_lr2d_get_opacity(of)) + L" " +
               std::to_wstring(vx_tos_grid_lr2d_get_interpolate(of)) + L" " +
               std::to_wstring(vx_tos_slice_lr2d_get_zslice(of)) + L" " +
               std::to_wstring(vx_rtr_lr2d_get_draw_type(of)) + L" " +
               std::to_wstring(vx_rtr_lr2d_get_opacity(of));
    }
};
} // namespace

// VX_SEED replays one seed; VX_LOG names a file that ends with what was done before a crash.
TEST_P(random_cells, leave_the_editor_usable_and_the_layer_of_the_host_alone)
{
    vx_test::temp_dir const folder;
    std::wstring const &shared_file = GetParam() ? shared().*GetParam() : L"" VX_EXAMPLE_DATA "/L7_ETMs.tif";
    auto const path = folder.path() / std::filesystem::path(shared_file).filename();
    std::filesystem::copy_file(shared_file, path);
    vx_dlg_set_table(nullptr);
    if (GetParam()) {
        open_file(path.wstring());
    } else {
        shared();
        layer.reset(vx_rtr_lr2d_create(path.wstring().c_str()));
        ASSERT_TRUE(layer);
        edit();
    }
    after_apply();
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        std::string done;
        {
            vx::user_hand::random_hand user({.window = vx_qt_widget(record->get_form())->window(),
                                             .favourite = vx_qt_widget(tabs()),
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
        ASSERT_TRUE(input::click_tab(tabs(), L"Style")) << done;
        if (auto *const page = shown<Tvx_tos_grid_lr2d_edit>()) {
            auto *const types = page->get_draw_type_cb()->get_combo_box();
            ASSERT_TRUE(input::choose_item(types, L"Gray")) << done;
            ASSERT_TRUE(input::choose_item(types, L"Colour scale")) << done;
            EXPECT_EQ(vx_tos_grid_lr2d_get_draw_type(copy()), int{c_grid_draw_scale});
        } else if (auto *const raster = shown<Tvx_rtr_id_lr2d_edit>()) {
            auto *const types = dialog_reader::find<Tvx_rtr_draw_type_combo_box>(raster, L"");
            ASSERT_TRUE(types && input::choose_item(types->get_combo_box(), 1)) << done;
            ASSERT_TRUE(input::choose_item(types->get_combo_box(), 0)) << done;
            EXPECT_EQ(vx_rtr_lr2d_get_draw_type(copy()), 0);
        } else {
            auto *const edit = shown<Tvx_tos_2crd_lr2d_edit>()->get_stl_mngr_edit();
            ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 1)) << done;
            EXPECT_EQ(vx_stl_mngr_get_mode(vx_tos_2crd_lr2d_get_stl_mngr(copy())), c_style_mode_value);
        }
        apply();
        // The file of the layer is what it was, but for statistics.
        if (GetParam()) {
            EXPECT_EQ(values_of(path.wstring(), 0), values_of(shared_file, 0));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(layers, random_cells,
                         testing::Values(&property_fixture::files::heights, &property_fixture::files::bands,
                                         &property_fixture::files::slices, &property_fixture::files::points,
                                         nullptr));
