#include "style_manager/lists/stl_mngr_list_edit.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"

#include <gtest/gtest.h>
#include <utility>

namespace input = vx::user_input;

namespace {
class list_edit : public testing::Test
{
protected:
    ~list_edit() override { vx_options_set_invert_layers(false); }
    template <class Edit>
    Edit *show(bool check)
    {
        form.SetBounds(100, 100, 400, 200);
        auto *const edit = new Edit(&form, check);
        edit->SetParent(&form);
        edit->create();
        edit->SetAlign(alTop);
        edit->load_res();
        edit->on_changed = make_closure<&list_edit::on_event>(this);
        edit->set_stl_mngr_list(list.get());
        form.Show();
        edit->update_controls();
        input::wait_idle();
        strip = edit;
        return edit;
    }
    /// The owner shows the strip anew after each change.
    void on_event(TObject *)
    {
        ++events;
        strip->update_controls();
    }
    int taken() { return std::exchange(events, 0); }

    vx::owned<void, &vx_stl_mngr_list_destroy> list{vx_stl_mngr_list_create("pnt_style")};
    TForm form{nullptr};
    Tvx_stl_mngr_list_edit *strip = nullptr;
    int events = 0;
};
} // namespace

TEST_F(list_edit, chooses_adds_and_deletes_in_either_order)
{
    auto *const edit = show<Tvx_style_stl_mngr_list_edit>(false);
    auto *const combo = edit->get_combo_box();
    EXPECT_EQ(combo->GetItems()->GetStrings(0), L"1");
    EXPECT_FALSE(edit->get_del_btn()->GetEnabled());
    ASSERT_TRUE(input::click(edit->get_add_btn()));
    EXPECT_EQ(taken(), 1);
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 1U);
    ASSERT_TRUE(input::click(edit->get_add_btn()));
    vx_stl_mngr_set_name_w(vx_stl_mngr_list_get_mngr(list.get(), 2), L"last");
    taken();
    for (bool const inverted : {false, true}) {
        vx_options_set_invert_layers(inverted);
        edit->update_controls();
        EXPECT_EQ(combo->GetItems()->GetStrings(inverted ? 0 : 2), L"last");
        EXPECT_EQ(combo->GetItems()->GetStrings(1), L"2");
        EXPECT_EQ(combo->GetItemIndex(), inverted ? 0 : 2);
        ASSERT_TRUE(input::choose_item(combo, L"1"));
        EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 0U);
        EXPECT_EQ(edit->get_active_index(), 0U);
        EXPECT_EQ(taken(), 1);
        ASSERT_TRUE(input::choose_item(combo, L"1"));
        EXPECT_EQ(taken(), 0);
        ASSERT_TRUE(input::choose_item(combo, L"last"));
        taken();
    }
    // The list is still shown inverted: the first entry is the last manager, and it goes.
    ASSERT_TRUE(input::click(edit->get_del_btn()));
    EXPECT_EQ(taken(), 1);
    EXPECT_EQ(vx_stl_mngr_list_get_count(list.get()), 2U);
    EXPECT_EQ(combo->GetItems()->IndexOf(L"last"), -1);
}

TEST_F(list_edit, is_disabled_while_the_list_is_not_drawn)
{
    auto *const edit = show<Tvx_style_stl_mngr_list_edit>(true);
    vx_stl_mngr_list_add(list.get());
    edit->update_controls();
    EXPECT_TRUE(edit->get_check_box()->GetChecked());
    ASSERT_TRUE(input::click(edit->get_check_box(), 8, 8));
    EXPECT_EQ(taken(), 1);
    EXPECT_FALSE(vx_stl_mngr_list_get_visible(list.get()));
    for (TControl *const control :
         {static_cast<TControl *>(edit->get_combo_box()), static_cast<TControl *>(edit->get_add_btn()),
          static_cast<TControl *>(edit->get_del_btn()), static_cast<TControl *>(edit->get_setting_btn())})
        EXPECT_FALSE(control->GetEnabled());
    ASSERT_TRUE(input::click(edit->get_check_box(), 8, 8));
    EXPECT_TRUE(edit->get_del_btn()->GetEnabled());
    edit->set_stl_mngr_list(nullptr);
    edit->update_controls();
    EXPECT_FALSE(edit->GetVisible());
}

TEST_F(list_edit, a_layer_without_a_table_gets_a_bare_text_manager)
{
    list.reset(vx_stl_mngr_list_create("txt_pnt_style"));
    auto *const edit = show<Tvx_txt_stl_mngr_list_edit>(false);
    ASSERT_TRUE(input::click(edit->get_add_btn()));
    EXPECT_EQ(vx_stl_mngr_list_get_count(list.get()), 2U);
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 1U);
    EXPECT_EQ(taken(), 1);
}
