#include "dialog_reader.h"
#include "exports/vxk_style_dialog_api.h"
#include "styles/simple/style_panels.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_options.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/library.h"

namespace input = vx::user_input;
using namespace dialog_reader;

namespace {
class scene_dialogs : public prop_form
{
protected:
    static void SetUpTestSuite() { ASSERT_NE(LoadLibraryW(L"vxk_scene2d_editor_bdl.dll"), nullptr); }

    void add_manager(wchar_t const *name)
    {
        void *mngr = vx_stl_mngr_list_get_count(list.get()) == 1 && names() == std::vector<std::wstring>{L""}
                         ? vx_stl_mngr_list_get_mngr(list.get(), 0)
                         : vx_stl_mngr_list_add(list.get());
        vx_stl_mngr_set_name_w(mngr, name);
    }
    [[nodiscard]] std::vector<std::wstring> names() const
    {
        std::vector<std::wstring> all(vx_stl_mngr_list_get_count(list.get()));
        for (unsigned i = 0; i < all.size(); ++i)
            vx_stl_mngr_get_name_w(vx_stl_mngr_list_get_mngr(list.get(), i), Tvx_std_wstring_adapter(all[i]));
        return all;
    }
    /// Runs the settings of the list, with `act` inside them.
    template <class F>
    bool run(F act)
    {
        input::on_next_modal([=](input::modal_window const &window) {
            TCustomForm *form = window.form();
            act(form, find<TListBox>(form, L"Managers"));
        });
        return vx_stl_mngr_list_setting_dialog(0, 0, list.get());
    }

    vx::owned<void, &vx_stl_mngr_list_destroy> list{vx_stl_mngr_list_create("pnt_style")};
};

bool press(TWinControl *form, wchar_t const *name)
{
    auto *button = find<TButton>(form, name);
    return button && input::click(button);
}
using texts = std::vector<std::wstring>;

TColor middle_of(Tvx_basic_style_btn *button)
{
    return button->GetGlyph()->GetCanvas()->GetPixel(10, 10);
}
} // namespace

TEST_F(scene_dialogs, style_buttons_work_with_the_module)
{
    auto *panel = add<Tvx_pgn_style_panel>(26);
    panel->on_changed = recorder();
    panel->update_controls();
    input::wait_idle();
    TPoint const below = panel->get_btn()->ClientToScreen({0, panel->get_btn()->GetHeight()});
    next_color = vx_clr_init_rgb(10, 190, 40);
    TColor const before = middle_of(panel->get_btn());
    for (bool const apply : {false, true}) {
        input::on_next_modal([&](input::modal_window const &window) {
            EXPECT_EQ(window.title(), L"Polygon style");
            EXPECT_EQ(window.form()->GetLeft(), below.X);
            EXPECT_EQ(window.form()->GetTop(), below.Y);
            EXPECT_TRUE(press(window.form(), L"Colour"));
            window.press_button(apply ? L"Apply" : L"Cancel");
        });
        ASSERT_TRUE(input::click(panel->get_btn()));
        EXPECT_EQ(taken_events(), apply ? 1 : 0);
        EXPECT_EQ(vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(panel->get_pgn_style())) ==
                      next_color,
                  apply);
        EXPECT_EQ(middle_of(panel->get_btn()) != before, apply);
    }
    auto *point = add<Tvx_pnt_style_panel>(26);
    auto *line = add<Tvx_pln_style_panel>(26);
    for (Tvx_basic_style_btn *button : {static_cast<Tvx_basic_style_btn *>(point->get_btn()),
                                        static_cast<Tvx_basic_style_btn *>(line->get_btn())}) {
        UnicodeString title;
        input::on_next_modal([&](input::modal_window const &window) {
            title = window.title();
            window.reject();
        });
        ASSERT_TRUE(input::click(button));
        EXPECT_EQ(title, button == point->get_btn() ? L"Point style" : L"Line style");
    }
    EXPECT_FALSE(vx_pnt_style_dialog(0, 0, nullptr));
}

TEST_F(scene_dialogs, managers_are_named_ordered_added_and_deleted)
{
    for (wchar_t const *name : {L"a", L"b", L"c"})
        add_manager(name);
    vx_stl_mngr_list_set_active_by_idx(list.get(), 1);
    auto const edit = [](TCustomForm *form, TListBox *rows) {
        EXPECT_EQ(rows->GetItemIndex(), 1);
        EXPECT_EQ(rows->GetItems()->GetStrings(1), L"b (active)");
        EXPECT_TRUE(press(form, L"Down"));
        EXPECT_EQ(rows->GetItems()->GetStrings(2), L"b (active)") << "the manager is active, not its place";
        EXPECT_TRUE(input::click_item(rows, 0));
        EXPECT_TRUE(input::enter_text(find<TEdit>(form, L"Name"), L"first"));
        EXPECT_EQ(rows->GetItems()->GetStrings(0), L"first");
        EXPECT_TRUE(press(form, L"Add"));
        EXPECT_EQ(rows->GetItems()->GetStrings(3), L"4") << "a manager without a name shows its number";
        EXPECT_TRUE(input::click_item(rows, 1));
        EXPECT_TRUE(press(form, L"Delete"));
        EXPECT_EQ(rows->GetItems()->GetCount(), 3);
    };
    EXPECT_FALSE(run([&](TCustomForm *form, TListBox *rows) {
        edit(form, rows);
        press(form, L"Cancel");
    }));
    EXPECT_EQ(names(), (texts{L"a", L"b", L"c"}));
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 1u);
    void *const first = vx_stl_mngr_list_get_mngr(list.get(), 0);
    EXPECT_TRUE(run([&](TCustomForm *form, TListBox *rows) {
        edit(form, rows);
        press(form, L"Apply");
    }));
    EXPECT_EQ(names(), (texts{L"first", L"b", L""}));
    EXPECT_EQ(vx_stl_mngr_list_get_mngr(list.get(), 0), first) << "an editor may hold on to it";
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 1u);
}

TEST_F(scene_dialogs, one_manager_is_active_and_one_is_always_left)
{
    add_manager(L"a");
    add_manager(L"b");
    EXPECT_TRUE(run([](TCustomForm *form, TListBox *rows) {
        auto *active = find<TCheckBox>(form, L"Active");
        ASSERT_NE(active, nullptr);
        EXPECT_TRUE(active->GetChecked() && !active->GetEnabled());
        EXPECT_TRUE(input::click_item(rows, 1));
        EXPECT_FALSE(active->GetChecked());
        EXPECT_TRUE(input::click(active, 10, active->GetHeight() / 2));
        EXPECT_TRUE(active->GetChecked() && !active->GetEnabled());
        EXPECT_EQ(rows->GetItems()->GetStrings(0), L"a");
        EXPECT_TRUE(input::click_item(rows, 0));
        EXPECT_TRUE(press(form, L"Delete"));
        EXPECT_FALSE(find<TButton>(form, L"Delete")->GetEnabled());
        EXPECT_FALSE(find<TButton>(form, L"Up")->GetEnabled());
        EXPECT_FALSE(find<TButton>(form, L"Down")->GetEnabled());
        press(form, L"Apply");
    }));
    EXPECT_EQ(names(), texts{L"b"});
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 0u);
    EXPECT_FALSE(vx_stl_mngr_list_setting_dialog(0, 0, nullptr));
}

TEST_F(scene_dialogs, managers_stand_in_display_order)
{
    add_manager(L"a");
    add_manager(L"b");
    add_manager(L"c");
    vx_options_set_invert_layers(true);
    EXPECT_TRUE(run([](TCustomForm *form, TListBox *rows) {
        EXPECT_EQ(rows->GetItems()->GetStrings(0), L"c");
        EXPECT_EQ(rows->GetItems()->GetStrings(2), L"a (active)");
        EXPECT_EQ(rows->GetItemIndex(), 2);
        EXPECT_TRUE(press(form, L"Up"));
        EXPECT_EQ(rows->GetItems()->GetStrings(1), L"a (active)");
        EXPECT_TRUE(input::click_item(rows, 0));
        EXPECT_TRUE(press(form, L"Delete"));
        press(form, L"Apply");
    }));
    vx_options_set_invert_layers(false);
    EXPECT_EQ(names(), (texts{L"b", L"a"}));
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 1u);
}
