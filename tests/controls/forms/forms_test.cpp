#include "controls/vxk_basic_vcl.h"
#include "user_input/user_input.h"

#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/screen.h"

#include <gtest/gtest.h>
#include <memory>

namespace input = vx::user_input;

namespace {
class asking_dialog : public Tvx_dlg_form
{
public:
    using Tvx_dlg_form::Tvx_dlg_form;
    void load_res() override
    {
        Tvx_dlg_form::load_res();
        ++loads;
    }
    bool apply_click() override
    {
        ++applies;
        return applies >= apply_agrees_at;
    }
    bool cancel_click() override
    {
        ++cancels;
        return cancels >= cancel_agrees_at;
    }

    int loads = 0;
    int applies = 0;
    int apply_agrees_at = 1;
    int cancels = 0;
    int cancel_agrees_at = 1;
};

class counting_apply_form : public Tvx_apply_upd_form
{
public:
    using Tvx_apply_upd_form::Tvx_apply_upd_form;
    bool apply_click() override { return agrees; }
    bool cancel_click() override { return agrees; }
    bool update_click() override { return agrees; }
    int help_click() override { return 77; }
    void on_applied(TObject *sender)
    {
        ++applied;
        this->sender = sender;
    }
    void on_updated(TObject * /*sender*/) { ++updated; }

    bool agrees = true;
    int applied = 0;
    int updated = 0;
    TObject *sender = nullptr;
};

class logging_vcl_form : public Tvx_vcl_dialog_form
{
public:
    using Tvx_vcl_dialog_form::Tvx_vcl_dialog_form;
    void call_apply() override { log += 'a'; }
    void call_help() override { log += 'h'; }
    void call_save() override { log += 's'; }
    void call_load() override { log += 'l'; }
    std::string log;
};

struct position_case
{
    int x, y, left, top;
};

void expect_centred(TCustomForm &form)
{
    EXPECT_NEAR(form.GetLeft() + form.GetWidth() / 2, 960, 40);
    EXPECT_NEAR(form.GetTop() + form.GetHeight() / 2, 540, 40);
}
} // namespace

TEST(dlg_form, stands_on_the_other_side_of_a_point_where_it_does_not_fit)
{
    ASSERT_EQ(Screen->GetWidth(), 1920);
    ASSERT_EQ(Screen->GetHeight(), 1080);
    position_case const cases[] = {
        {0, 5, 0, 5},         {100, 50, 100, 50},   {1620, 880, 1620, 880}, // touches both edges
        {1621, 50, 1321, 50}, {100, 881, 100, 681}, {1900, 1000, 1600, 800}, {-50, -60, -50, -60},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(testing::Message() << c.x << ", " << c.y);
        Tvx_dlg_form form(nullptr);
        form.SetBounds(0, 0, 300, 200);
        TRect shown{};
        input::on_next_modal([&](input::modal_window const &window) {
            shown = window.form()->GetBoundsRect();
            window.press_button(L"Cancel");
        });
        EXPECT_EQ(form.show_pos(c.x, c.y), mrCancel);
        EXPECT_EQ(shown.Left, c.left);
        EXPECT_EQ(shown.Top, c.top);

        Tvx_vcl_dialog_form placed(nullptr);
        placed.SetBounds(0, 0, 300, 200);
        placed.set_position(c.x, c.y);
        EXPECT_EQ(placed.GetLeft(), c.left);
        EXPECT_EQ(placed.GetTop(), c.top);
        EXPECT_FALSE(placed.GetShowing());
    }
}

TEST(dlg_form, zero_point_is_the_middle_of_the_screen)
{
    Tvx_dlg_form form(nullptr);
    form.SetBounds(10, 10, 300, 200);
    input::on_next_modal([&](input::modal_window const &window) {
        expect_centred(*window.form());
        window.press_button(L"Apply");
    });
    EXPECT_EQ(form.show_pos(0, 0), mrOk);

    Tvx_dlg_form modeless(nullptr);
    modeless.SetBounds(10, 10, 300, 200);
    modeless.show_nomodal_pos(0, 0);
    EXPECT_TRUE(modeless.GetShowing());
    expect_centred(modeless);
}

TEST(dlg_form, a_refused_click_leaves_it_open)
{
    asking_dialog form(nullptr);
    form.apply_agrees_at = 2;
    form.cancel_agrees_at = 2;
    input::on_next_modal([&](input::modal_window const &window) {
        EXPECT_TRUE(window.press_button(L"Cancel"));
        EXPECT_TRUE(form.GetShowing());
        EXPECT_EQ(form.GetModalResult(), mrNone);
        EXPECT_TRUE(window.press_button(L"Apply"));
        EXPECT_TRUE(form.GetShowing());
        EXPECT_EQ(form.GetModalResult(), mrNone);
        EXPECT_TRUE(window.press_button(L"Apply"));
    });
    EXPECT_EQ(form.show_pos(100, 100, true), mrOk);
    EXPECT_FALSE(form.GetShowing());
    EXPECT_EQ(form.applies, 2);
    EXPECT_EQ(form.cancels, 1);
    EXPECT_EQ(form.loads, 1);

    input::on_next_modal([&](input::modal_window const &window) { window.reject(); });
    EXPECT_EQ(form.show_pos(100, 100, false), mrCancel);
    EXPECT_EQ(form.loads, 1) << "the texts were to stay";
}

TEST(dlg_form, help_asks_for_the_context_of_the_form)
{
    static int asked = 0;
    Application->OnHelp = {[](void *, THelpContext context) { return (asked = context) != 0; }, nullptr};
    Tvx_dlg_form form(nullptr);
    form.SetHelpContext(41);
    form.get_help_btn()->SetVisible(true);
    input::on_next_modal([&](input::modal_window const &window) {
        EXPECT_TRUE(window.press_button(L"Help"));
        EXPECT_EQ(asked, 41);
        window.reject();
    });
    EXPECT_EQ(form.show_pos(10, 10), mrCancel);

    counting_apply_form apply_form(nullptr);
    apply_form.SetWidth(500);
    apply_form.get_help_btn()->SetVisible(true);
    apply_form.load_res();
    apply_form.show_apply(10, 10);
    EXPECT_TRUE(input::click(apply_form.get_help_btn()));
    EXPECT_EQ(asked, 77);
    Application->OnHelp = {};
}

TEST(apply_form, applies_without_closing)
{
    counting_apply_form form(nullptr);
    form.SetWidth(500);
    form.load_res();
    form.set_on_apply(make_closure<&counting_apply_form::on_applied>(&form));
    form.set_on_update(make_closure<&counting_apply_form::on_updated>(&form));
    form.show_apply(100, 100);
    EXPECT_EQ(form.GetFormStyle(), fsStayOnTop);
    EXPECT_EQ(form.GetBorderStyle(), bsSizeToolWin);

    EXPECT_TRUE(input::click(form.get_apply_btn()));
    EXPECT_TRUE(input::click(form.get_update_btn()));
    EXPECT_EQ(form.applied, 1);
    EXPECT_EQ(form.sender, &form);
    EXPECT_EQ(form.updated, 1);
    EXPECT_TRUE(form.GetShowing());

    form.agrees = false;
    EXPECT_TRUE(input::click(form.get_apply_btn()));
    EXPECT_TRUE(input::click(form.get_update_btn()));
    EXPECT_TRUE(input::click(form.get_cancel_btn()));
    EXPECT_EQ(form.applied, 1);
    EXPECT_EQ(form.updated, 1);
    EXPECT_TRUE(form.GetShowing());

    form.agrees = true;
    EXPECT_TRUE(input::click(form.get_cancel_btn()));
    EXPECT_FALSE(form.GetShowing());
}

TEST(apply_form, is_pushed_back_to_the_edge_of_the_screen)
{
    position_case const cases[] = {
        {10000, 10000, 1620, 880}, {1621, 5, 1620, 5}, {5, 881, 5, 880}, {-50, -50, -50, -50}, {0, 0, 0, 0},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(testing::Message() << c.x << ", " << c.y);
        Tvx_apply_form form(nullptr);
        form.SetBounds(33, 44, 300, 200);
        form.show_apply(c.x, c.y);
        EXPECT_EQ(form.GetLeft(), c.left);
        EXPECT_EQ(form.GetTop(), c.top);
        form.show_apply(7, 7);
        EXPECT_EQ(form.GetLeft(), c.left) << "moved while it was showing";
        EXPECT_TRUE(form.GetShowing());
        if (c.x == 0)
            continue; // (0, 0) is the middle for a tool form
        Tvx_tool_form tool(nullptr);
        tool.SetBounds(33, 44, 300, 200);
        tool.show_pos(c.x, c.y);
        EXPECT_EQ(tool.GetLeft(), c.left);
        EXPECT_EQ(tool.GetTop(), c.top);
    }
    Tvx_apply_form wide(nullptr);
    wide.SetBounds(0, 0, 2000, 200);
    wide.show_apply(10, 10);
    EXPECT_EQ(wide.GetLeft(), -80);
}

TEST(tool_form, is_placed_once)
{
    Tvx_tool_form form(nullptr);
    form.SetBounds(33, 44, 300, 200);
    form.show_pos(0, 0);
    expect_centred(form);
    form.SetBounds(500, 600, 300, 200);
    form.Hide();
    form.show_pos(10, 10);
    EXPECT_TRUE(form.GetShowing());
    EXPECT_EQ(form.GetLeft(), 500);
    EXPECT_EQ(form.GetTop(), 600);
}

TEST(apply_form, gives_the_keyboard_back_to_the_active_document)
{
    auto main_form = std::make_unique<TForm>(nullptr);
    main_form->SetBounds(0, 0, 900, 700);
    main_form->SetFormStyle(fsMDIForm);
    Application->SetMainForm(main_form.get());
    main_form->Show();
    auto *document = new Tvx_mdi_child_form(main_form.get());
    auto *second = new Tvx_edit(document);
    second->SetParent(document);
    auto *first = new Tvx_edit(document);
    first->SetParent(document);
    first->SetTabOrder(0);
    document->Show();
    ASSERT_EQ(main_form->GetActiveMDIChild(), document);

    Tvx_apply_and_leave_form leaving(nullptr);
    leaving.load_res();
    leaving.show_apply(1000, 100);
    EXPECT_TRUE(input::click(leaving.get_apply_btn()));
    EXPECT_TRUE(first->Focused());

    Tvx_apply_form staying(nullptr);
    staying.load_res();
    staying.show_apply(1000, 500);
    EXPECT_TRUE(input::click(staying.get_apply_btn()));
    EXPECT_FALSE(first->Focused());

    Application->SetMainForm(nullptr);
    EXPECT_TRUE(input::click(leaving.get_apply_btn())) << "without a main form";
}

TEST(vcl_dialog_form, buttons_run_its_calls)
{
    logging_vcl_form form(nullptr);
    form.SetBounds(0, 0, 500, 300);
    form.create();
    form.load_rc();
    EXPECT_EQ(form.GetPosition(), poScreenCenter);
    form.set_help_visible(true);
    form.set_save_visible(true);
    form.set_load_visible(true);
    form.Show();
    auto *buttons = form.get_bottom_buttons();
    for (auto *button : {buttons->get_apply_btn(), buttons->get_help_btn(), buttons->get_save_btn(),
                         buttons->get_load_btn()})
        EXPECT_TRUE(input::click(button));
    EXPECT_EQ(form.log, "ahsl");
    EXPECT_TRUE(form.GetShowing());
    form.set_bottom_buttons_enabled(false);
    EXPECT_FALSE(form.get_bottom_buttons_enabled());
    input::click(buttons->get_cancel_btn());
    EXPECT_TRUE(form.GetShowing());
    form.set_bottom_buttons_enabled(true);
    EXPECT_TRUE(input::click(buttons->get_cancel_btn()));
    EXPECT_FALSE(form.GetShowing());
}

namespace {
class applied_dialog : public Tvx_vcl_dialog_form
{
public:
    using Tvx_vcl_dialog_form::Tvx_vcl_dialog_form;
    void call_apply() override { ++applies; }
    int applies = 0;
};
} // namespace

TEST(forms, enter_applies_in_every_dialog)
{
    asking_dialog dialog(nullptr);
    dialog.apply_agrees_at = 100;
    auto *edit = new Tvx_edit(&dialog);
    edit->SetParent(dialog.get_content_panel());
    auto *grid = new Tvx_string_grid(&dialog);
    grid->SetParent(dialog.get_content_panel());
    grid->SetTop(40);
    grid->SetOptions({goEditing, goVertLine});
    dialog.Show();
    input::wait_idle();
    input::enter_text(edit, L"x");
    input::press(VK_RETURN);
    EXPECT_EQ(dialog.applies, 1);
    input::click_cell(grid, 1, 1);
    input::type(L"y");
    input::press(VK_RETURN);
    EXPECT_EQ(grid->GetCells(1, 1), L"y");
    EXPECT_EQ(dialog.applies, 1) << "the key has ended the entry";
    dialog.Hide();

    counting_apply_form stays(nullptr);
    auto *text = new Tvx_edit(&stays);
    text->SetParent(&stays);
    stays.set_on_apply(make_closure<&counting_apply_form::on_applied>(&stays));
    stays.Show();
    input::enter_text(text, L"x");
    input::press(VK_RETURN);
    EXPECT_EQ(stays.applied, 1);
    stays.Hide();

    applied_dialog late(nullptr);
    late.create();
    auto *number = new Tvx_vcl_edit(&late);
    number->SetParent(late.get_client_panel());
    late.Show();
    input::enter_text(number, L"1");
    input::press(VK_RETURN);
    EXPECT_EQ(late.applies, 1);
    late.Hide();
}
