#include "style_manager/rotation/grid1d_clr_mngr_edit.h"
#include "style_manager/rotation/rotate_form.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <cstdlib>
#include <functional>

namespace input = vx::user_input;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

namespace {
class rotation : public prop_form
{
public:
    bool open(TObject *) { return ++opens > 0; }
    void close(TObject *) { --opens; }
    unsigned get_np(TObject *) { return 3; }
    char const *get_prop(TObject *, unsigned prop, bool &usable, bool &numeric)
    {
        usable = true;
        numeric = prop > 0;
        return prop == 0 ? "NAME" : prop == 1 ? "AZIMUTH" : "LANES";
    }
    char const *get_capt_prop(TObject *, unsigned prop) { return prop == 2 ? "Number of lanes" : "Azimuth"; }

protected:
    bool run(void *mngr, std::function<void(Tvx_rotate_form &)> act, bool apply = true)
    {
        input::on_next_modal([=](input::modal_window const &window) {
            auto &dialog = dynamic_cast<Tvx_rotate_form &>(*window.form());
            act(dialog);
            if (char const *const directory = std::getenv("VX_SHOTS"))
                (void)window.save_shot(UnicodeString(directory) + L"/rotate_form_" +
                                       UnicodeString(vx_stl_mngr_get_style_type(mngr)) + L".png");
            EXPECT_TRUE(input::click(apply ? dialog.get_apply_btn() : dialog.get_cancel_btn()));
        });
        return Tvx_rotate_form::dialog(
            200, 150, mngr, make_closure<&rotation::open>(this), make_closure<&rotation::close>(this),
            make_closure<&rotation::get_np>(this), {}, make_closure<&rotation::get_prop>(this),
            make_closure<&rotation::get_capt_prop>(this), {}, {}, {});
    }
    static std::string state_of(void *mngr)
    {
        std::wstring name;
        vx_stl_mngr_get_rotate_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
        return std::to_string(vx_stl_mngr_get_rotate_flag(mngr)) +
               std::to_string(vx_stl_mngr_get_rotate_spot_flag(mngr)) +
               std::to_string(vx_stl_mngr_get_rotate_hatch_flag(mngr)) + " " + vx::text::to_bytes(name) +
               " " + std::to_string(vx_stl_mngr_get_rotate_start(mngr)) + " " +
               std::to_string(vx_stl_mngr_get_rotate_dir(mngr));
    }

    int opens = 0;
};
} // namespace

TEST_F(rotation, a_point_manager_turns_its_symbols_by_what_the_user_chooses)
{
    owned_mngr const mngr(vx_stl_mngr_create("pnt_style"));
    vx_stl_mngr_set_rotate_spot_flag(mngr.get(), false);
    vx_stl_mngr_set_rotate_prop_name(mngr.get(), "LANES");
    vx_stl_mngr_set_rotate_start(mngr.get(), 1);
    auto const choose = [](Tvx_rotate_form &form) {
        EXPECT_EQ(form.GetHeight(), 200);
        EXPECT_FALSE(form.get_spot_check()->GetShowing() || form.get_hatch_check()->GetShowing());
        EXPECT_EQ(form.get_prop_edit()->get_prop_count(), 2) << "numeric ones";
        EXPECT_EQ(form.get_start_group()->GetItemIndex(), 2);
        EXPECT_FALSE(form.get_prop_edit()->get_enabled() || form.get_start_group()->GetEnabled() ||
                     form.get_dir_group()->GetEnabled());
        ASSERT_TRUE(input::click(form.get_rotate_check(), 8, 10));
        ASSERT_TRUE(input::choose_item(form.get_prop_edit()->get_combo_box(), L"Azimuth"));
        ASSERT_TRUE(input::click(form.get_start_group()->GetButtons(1), 8, 8));
        ASSERT_TRUE(input::click(form.get_dir_group()->GetButtons(1), 8, 8));
    };
    EXPECT_FALSE(run(mngr.get(), choose, false));
    EXPECT_EQ(state_of(mngr.get()), "000 LANES 1 0");
    EXPECT_TRUE(run(mngr.get(), choose));
    EXPECT_EQ(state_of(mngr.get()), "100 AZIMUTH 2 1");
    // With all off, what is disabled is written all the same.
    EXPECT_TRUE(run(mngr.get(), [](Tvx_rotate_form &form) {
        ASSERT_TRUE(input::click(form.get_start_group()->GetButtons(3), 8, 8));
        ASSERT_TRUE(input::click(form.get_rotate_check(), 8, 10));
        EXPECT_FALSE(form.get_prop_edit()->get_enabled() || form.get_start_group()->GetEnabled());
    }));
    EXPECT_EQ(state_of(mngr.get()), "000 AZIMUTH 3 1");
    EXPECT_EQ(opens, 0);
}

TEST_F(rotation, areas_offer_spots_and_hatches_and_all_keep_what_is_not_changed)
{
    for (char const *type : {"pnt_style", "pln_style", "pgn_style"}) {
        SCOPED_TRACE(type);
        owned_mngr const mngr(vx_stl_mngr_create(type));
        vx_stl_mngr_set_rotate_hatch_flag(mngr.get(), true);
        vx_stl_mngr_set_rotate_prop_name(mngr.get(), "LANES");
        for (int start = 0; start < 4; ++start)
            for (int dir = 0; dir < 2; ++dir) {
                vx_stl_mngr_set_rotate_start(mngr.get(), start);
                vx_stl_mngr_set_rotate_dir(mngr.get(), dir);
                std::string const before = state_of(mngr.get());
                EXPECT_TRUE(run(mngr.get(), [](Tvx_rotate_form &form) {
                    EXPECT_TRUE(form.get_dir_group()->GetEnabled()) << "a hidden one counts";
                }));
                EXPECT_EQ(state_of(mngr.get()), before);
            }
    }
    owned_mngr const areas(vx_stl_mngr_create("pgn_style"));
    EXPECT_TRUE(run(areas.get(), [](Tvx_rotate_form &form) {
        EXPECT_EQ(form.GetHeight(), 250);
        EXPECT_FALSE(form.get_rotate_check()->GetShowing());
        ASSERT_TRUE(input::click(form.get_spot_check(), 8, 10));
    }));
    EXPECT_EQ(state_of(areas.get()), "010 AZIMUTH 0 0") << "the first property, where none was chosen";
}

TEST_F(rotation, the_manager_of_a_curve_shows_and_edits_its_line)
{
    owned_mngr const mngr(vx_stl_mngr_create("grid1d_clr_style"));
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(mngr.get());
    void *const line = vx_stl_prm_get_pln_style_ptr(prm, false);
    vx_pln_style_set_pln_visible(line, false);
    auto *const edit = add<Tvx_grid1d_clr_mngr_edit>(120);
    edit->create();
    edit->load_res();
    edit->on_changed = recorder();
    EXPECT_FALSE(edit->get_smp_edit()->GetShowing());
    edit->set_grid1d_clr_mngr(mngr.get());
    edit->update_controls();
    EXPECT_TRUE(edit->get_smp_edit()->GetShowing());
    EXPECT_FALSE(edit->get_smp_edit()->get_avl_panel()->GetShowing());
    EXPECT_TRUE(vx_pln_style_get_pln_visible(line)) << "the example shows the line";
    EXPECT_EQ(taken_events(), 0);

    // Whoever replaces the way to edit is asked by the button.
    bool accepted = true;
    edit->set_on_edit_style(Tvx_edit_style_event(
        [](void *self, TObject *, int, int, void *, bool) { return *static_cast<bool *>(self); }, &accepted));
    ASSERT_TRUE(input::click(edit->get_smp_edit()->get_style_panel()->get_btn()));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, edit);
    accepted = false;
    ASSERT_TRUE(input::click(edit->get_smp_edit()->get_style_panel()->get_btn()));
    EXPECT_EQ(taken_events(), 0);

    // What has no line is drawn and edited by nothing.
    TBitmap bitmap;
    owned_mngr const colors(vx_stl_mngr_create("clr_style"));
    edit->on_self_draw_style(edit, &bitmap, vx_stl_mngr_get_simple_sp_ptr(colors.get()), false);
    EXPECT_TRUE(bitmap.GetEmpty());
    EXPECT_FALSE(edit->on_self_edit_style(edit, 0, 0, vx_stl_mngr_get_simple_sp_ptr(colors.get()), false));

    edit->set_grid1d_clr_mngr(nullptr);
    edit->update_controls();
    EXPECT_FALSE(edit->get_smp_edit()->GetShowing());
}
