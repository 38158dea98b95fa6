#include "style_manager/shell/typed_stl_mngr_edits.h"
#include "support/random_seeds.h"
#include "support/temp_dir.h"
#include "user_input/random_hand.h"

#include "platform/base/owned.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>

namespace hand = vx::user_hand;

namespace {
#if defined(__SANITIZE_ADDRESS__)
constexpr int c_events = 500;
#else
constexpr int c_events = 5000; ///< for each seed
#endif
constexpr int c_stray_events = 20;

/// A table of two numeric fields, the second of which has gaps, and the eyes on an editor of it.
struct numbers
{
    int opened = 0;
    int reports = 0;
    int strayed = 0; ///< events in a row in which another editor was shown
    void *mngr = nullptr;
    Tvx_stl_mngr_edit *edit = nullptr;

    bool open(TObject *) { return ++opened > 0; }
    void close(TObject *) { --opened; }
    unsigned count_fields(TObject *) { return 2; }
    unsigned count(TObject *) { return 50; }
    char const *field(TObject *, unsigned prop, bool &usable, bool &numeric)
    {
        usable = numeric = true;
        return prop == 0 ? "AREA" : "BIRTHS";
    }
    char const *text(TObject *, unsigned, unsigned, bool &) { return ""; }
    double value(TObject *, unsigned prop, unsigned object, bool &defined)
    {
        defined = prop == 0 || object % 3 > 0;
        return prop == 0 ? object * 1e-3 : object * 1e6;
    }
    void report(TObject *) { ++reports; }
    /// Brings the editor of ranges back when the hand has been elsewhere for a while.
    void before_each()
    {
        strayed = vx_stl_mngr_get_mode(mngr) == c_style_mode_range ? 0 : strayed + 1;
        if (strayed < c_stray_events)
            return;
        vx_stl_mngr_set_mode(mngr, c_style_mode_range);
        edit->update_controls();
    }
};

// VX_SEED replays one seed, VX_LOG names a file for what is done.
TEST(random_events, leave_the_editor_of_ranges_usable)
{
    vx_test::temp_dir const dir;
    std::wstring file = (dir.path() / "any").wstring();
    vx_dlg_table table;
    table.user = &file;
    table.file = [](void *user, HWND, int, int, Tvx_file_dialog_prm *prm) {
        prm->file_name = *static_cast<std::wstring *>(user);
        return true;
    };
    table.color = [](void *, HWND, int, int, Tvx_color *color, int) {
        *color = vx_clr_init_rgb(1, 2, 3);
        return true;
    };
    table.message = [](void *, HWND, Tvx_msg_kind, wchar_t const *) {};
    vx_dlg_set_table(&table);
    for (unsigned const seed : vx_test::random_seeds()) {
        SCOPED_TRACE("VX_SEED=" + std::to_string(seed));
        vx::owned<void, &vx_stl_mngr_destroy> const mngr(vx_stl_mngr_create("pgn_style"));
        vx_stl_mngr_set_mode(mngr.get(), c_style_mode_range);
        numbers data;
        TForm form(nullptr);
        form.SetBounds(50, 50, 420, 380);
        auto *const edit = new Tvx_pgn_stl_mngr_edit(&form);
        edit->SetParent(&form);
        edit->SetAlign(alClient);
        edit->create();
        edit->load_res();
        edit->set_on_data_open(make_closure<&numbers::open>(&data));
        edit->set_on_data_close(make_closure<&numbers::close>(&data));
        edit->set_on_data_get_np(make_closure<&numbers::count_fields>(&data));
        edit->set_on_data_get_no(make_closure<&numbers::count>(&data));
        edit->set_on_data_get_prop(make_closure<&numbers::field>(&data));
        edit->set_on_data_get_str(make_closure<&numbers::text>(&data));
        edit->set_on_data_get_val(make_closure<&numbers::value>(&data));
        edit->on_changed = make_closure<&numbers::report>(&data);
        edit->set_pgn_stl_mngr(mngr.get());
        data.mngr = mngr.get();
        data.edit = edit;
        form.Show();
        edit->update_controls();
        edit->get_rng_edit()->generate_default_scale();
        edit->update_controls();
        hand::random_hand user({.window = vx_qt_widget(&form),
                                .favourite = vx_qt_widget(edit->get_rng_edit()->get_grid()),
                                .seed = seed,
                                .events = c_events,
                                .before_each = make_closure<&numbers::before_each>(&data),
                                .log = vx_test::random_log()});
        ASSERT_TRUE(user.run()) << user.last_lines();
        EXPECT_EQ(data.opened, 0);
        EXPECT_GT(data.reports, c_events / 100) << "a hand that meets nothing finds nothing";
        vx_stl_mngr_set_mode(mngr.get(), c_style_mode_range);
        edit->update_controls();
        auto *const grid = edit->get_rng_edit()->get_grid();
        EXPECT_EQ(grid->GetRowCount(), int(vx_rng_scale_get_size(grid->get_scale())) + 3);
        EXPECT_LE(grid->get_current_row(), int(vx_rng_scale_get_size(grid->get_scale())) + 1);
    }
    vx_dlg_set_table(nullptr);
}
} // namespace
