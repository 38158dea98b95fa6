#include "style_manager/widgets/init_default_txt_line.h"
#include "style_manager/widgets/other_panel.h"
#include "style_manager/widgets/prp_scale.h"
#include "style_manager/widgets/style_mode_edit.h"
#include "style_manager/widgets/style_panel.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <gtest/gtest.h>
#include <utility>

namespace input = vx::user_input;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

namespace {
class widgets : public testing::Test
{
protected:
    void SetUp() override
    {
        form.SetBounds(100, 100, 420, 300);
        form.Show();
        input::wait_idle();
    }
    template <class T>
    T *add()
    {
        auto *const control = new T(&form);
        control->SetParent(&form);
        control->SetBounds(10, 10, 380, control->GetHeight());
        control->create();
        control->load_res();
        control->on_changed = make_closure<&widgets::on_event>(this);
        return control;
    }
    void on_event(TObject *) { ++events; }
    int taken() { return std::exchange(events, 0); }

    void draw(TObject *, TBitmap *bitmap, void *stl_prm, bool sel)
    {
        ++draws;
        drawn_size = bitmap->GetWidth();
        drawn_sel = sel;
        drawn_prm = stl_prm;
    }
    bool edit(TObject *sender, int x, int y, void *, bool sel)
    {
        edited_sel = sel;
        auto *const button = dynamic_cast<TControl *>(sender);
        auto const corner = button->ClientToScreen({0, button->GetHeight()});
        EXPECT_EQ(x, corner.X);
        EXPECT_EQ(y, corner.Y);
        return accepts;
    }

    Tvx_draw_style_event draw_event() { return make_closure<&widgets::draw>(this); }
    Tvx_edit_style_event edit_event() { return make_closure<&widgets::edit>(this); }

    TForm form{nullptr};
    int events = 0, draws = 0, drawn_size = 0;
    bool drawn_sel = false, edited_sel = false, accepts = true;
    void *drawn_prm = nullptr;
};
} // namespace

TEST_F(widgets, mode_edit_reports_another_mode_only)
{
    auto *const edit = add<Tvx_style_mode_edit>();
    auto *const combo = edit->get_combo_box();
    EXPECT_EQ(combo->GetItems()->GetCount(), 3);
    ASSERT_TRUE(input::choose_item(combo, combo->GetItems()->GetStrings(2)));
    EXPECT_EQ(edit->mode, c_style_mode_range);
    EXPECT_EQ(taken(), 1);
    ASSERT_TRUE(input::choose_item(combo, combo->GetItems()->GetStrings(2)));
    EXPECT_EQ(taken(), 0);

    // What the manager says needs no entry of its own.
    std::pair<Tvx_style_mode, int> const shown[] = {
        {c_style_mode_rule, -1}, {c_style_mode_none, 0}, {9, 0}, {1, 1}};
    for (auto const &[mode, index] : shown) {
        edit->mode = mode;
        edit->update_controls();
        EXPECT_EQ(combo->GetItemIndex(), index) << mode;
    }
    edit->mode = c_style_mode_rule;
    edit->rule_enabled(true);
    edit->rule_enabled(true);
    EXPECT_EQ(combo->GetItems()->GetCount(), 4);
    EXPECT_EQ(combo->GetItemIndex(), 3);
    EXPECT_EQ(taken(), 0);
    edit->rule_enabled(false);
    EXPECT_EQ(edit->mode, c_style_mode_simple);
    EXPECT_EQ(combo->GetItemIndex(), 0);
    EXPECT_EQ(taken(), 1);
    edit->rule_enabled(true);
    edit->rule_enabled(false);
    EXPECT_EQ(taken(), 0);
}

TEST_F(widgets, style_panel_shows_and_edits_both_styles)
{
    auto *const panel = add<Tvx_style_panel>();
    panel->set_on_draw_style(draw_event());
    panel->set_on_edit_style(edit_event());
    panel->update_controls();
    EXPECT_EQ(draws, 0); // without parameters there is nothing to show
    EXPECT_TRUE(input::click(panel->get_btn()));
    EXPECT_EQ(taken(), 0);

    vx::owned<void, &vx_stl_prm_destroy> const prm(vx_stl_prm_create("pnt_style"));
    panel->set_stl_prm(prm.get());
    panel->update_controls();
    EXPECT_EQ(draws, 2);
    EXPECT_EQ(drawn_prm, prm.get());
    EXPECT_EQ(drawn_size, panel->get_btn()->GetWidth() - 4);
    EXPECT_LT(panel->get_btn()->GetLeft(), panel->get_btn_s()->GetLeft());
    EXPECT_TRUE(input::click(panel->get_btn_s()));
    EXPECT_TRUE(edited_sel);
    EXPECT_TRUE(drawn_sel);
    EXPECT_EQ(taken(), 1);
    accepts = false;
    EXPECT_TRUE(input::click(panel->get_btn()));
    EXPECT_FALSE(edited_sel);
    EXPECT_EQ(taken(), 0);
    panel->enable_selection_style(false);
    EXPECT_FALSE(panel->get_btn_s()->GetVisible());
    panel->enable_selection_style(true);
    EXPECT_LT(panel->get_btn()->GetLeft(), panel->get_btn_s()->GetLeft());
}

TEST_F(widgets, other_panel_writes_its_flag_and_keeps_its_caption)
{
    owned_mngr const mngr(vx_stl_mngr_create("pgn_style"));
    auto *const prm = vx_val_scale_get_other_prm_ptr(vx_stl_mngr_get_val_scale_ptr(mngr.get()));
    vx_scale_prm_set_visible(prm, false);
    auto *const panel = add<Tvx_other_panel>();
    panel->set_on_draw_style(draw_event());
    panel->set_scl_prm(prm);
    panel->set_caption(L"the rest");
    panel->update_controls();
    EXPECT_EQ(taken(), 0);
    EXPECT_FALSE(panel->get_cpt_edit()->GetShowing());
    ASSERT_TRUE(input::click(panel->get_use_panel()->get_check_box()));
    EXPECT_TRUE(vx_scale_prm_get_visible(prm));
    EXPECT_EQ(taken(), 1);
    EXPECT_EQ(panel->get_cpt_edit()->GetText(), L"the rest");
    EXPECT_EQ(draws, 2);
    ASSERT_TRUE(input::enter_text(panel->get_cpt_edit(), L"x"));
    EXPECT_STREQ(panel->get_caption(), L"x");
    EXPECT_GE(taken(), 1);
    panel->set_scl_prm(nullptr);
    panel->update_controls();
    EXPECT_EQ(panel->get_cpt_edit()->GetText(), L"");
    EXPECT_STREQ(panel->get_caption(), L"x");
    panel->set_caption(nullptr);
    EXPECT_STREQ(panel->get_caption(), L"");
    EXPECT_EQ(taken(), 0);
}

TEST(init_default_txt_line, gives_a_first_line_to_text_styles_without_one)
{
    char const *const types[] = {"txt_pnt_style", "txt_pln_style", "txt_pgn_style"};
    void *(*const styles[])(void *, bool) = {&vx_stl_prm_get_txt_pnt_style_ptr,
                                             &vx_stl_prm_get_txt_pln_style_ptr,
                                             &vx_stl_prm_get_txt_pgn_style_ptr};
    for (int i = 0; i < 3; ++i) {
        owned_mngr const mngr(vx_stl_mngr_create(types[i]));
        auto *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
        vx_rng_scale_set_size(scale, 2);
        auto const lines_of = [&](void *scale_prm) {
            return vx_txt_style_get_txt_stl_line(styles[i](vx_scale_prm_get_stl_prm_ptr(scale_prm), false));
        };
        auto *const first = lines_of(vx_rng_scale_get_scale_prm_ptr(scale, 0));
        vx_txt_stl_line_clear(first);
        vx_txt_stl_line_add(first, 2);
        auto *const max = lines_of(vx_rng_scale_get_max_prm_ptr(scale));
        vx_txt_stl_line_clear(max);
        for (int again = 0; again < 2; ++again)
            Tvx_init_default_txt_line::execute_rng(scale, L"NAME");
        EXPECT_EQ(vx_txt_stl_line_count(first), 2U);
        ASSERT_EQ(vx_txt_stl_line_count(max), 1U);
        std::wstring text;
        Tvx_std_wstring_adapter adapter(text);
        vx_txt_stl_line_get_str(max, adapter, 0);
        EXPECT_EQ(text, L"NAME");
    }
    owned_mngr const plain(vx_stl_mngr_create("pnt_style"));
    Tvx_init_default_txt_line::execute_val(vx_stl_mngr_get_val_scale_ptr(plain.get()), L"NAME");
    Tvx_init_default_txt_line::init_stl_prm_default_txt(nullptr, L"NAME");
}
