#include "controls/vxk_basic_vcl.h"
#include "numeric_form.h"

namespace input = vx::user_input;

namespace {
class value_panels : public numeric_form
{
protected:
    template <class T>
    T *made()
    {
        auto *panel = add<T>();
        panel->create();
        return panel;
    }
};
} // namespace

TEST_F(value_panels, captioned_edits)
{
    auto const check = [this](auto *panel, auto value, wchar_t const *typed, auto result) {
        panel->set_caption(L"&Step");
        panel->set_on_change(recorder());
        panel->set_value(value);
        EXPECT_EQ(panel->get_value(), value);
        EXPECT_EQ(taken_events(), 0);
        EXPECT_EQ(panel->get_edit()->GetAccessibleName(), L"Step");
        EXPECT_EQ(panel->get_edit()->GetWidth(), 70);
        EXPECT_TRUE(input::click(panel, 10, 10));
        EXPECT_TRUE(panel->get_edit()->Focused()) << "the caption leads to the edit";
        EXPECT_TRUE(input::enter_text(panel->get_edit(), typed));
        input::press(VK_TAB);
        EXPECT_GE(taken_events(), 1);
        EXPECT_EQ(last_sender, panel);
        EXPECT_EQ(panel->get_value(), result);
        panel->set_end_caption_visible(true);
        EXPECT_EQ(panel->get_edit()->GetWidth(), 40);
    };
    check(made<Tvx_vcl_int_edit_panel>(), 5, L"12", 12);
    check(made<Tvx_vcl_dbl_edit_panel>(), 0.5, L"1.25", 1.25);
    check(made<Tvx_vcl_spin_edit_panel>(), 3, L"4", 4);
    check(made<Tvx_vcl_text_edit_panel>(), UnicodeString(L"a"), L"bc", UnicodeString(L"bc"));
}

TEST_F(value_panels, shown_numbers)
{
    auto *whole = made<Tvx_vcl_int_show_panel>();
    EXPECT_EQ(whole->get_text(), L"0");
    whole->set_value(-1234567);
    EXPECT_EQ(whole->get_text(), L"-1234567");
    auto *decimals = made<Tvx_vcl_dbl_show_panel>();
    decimals->set_value(1234.56789012);
    EXPECT_EQ(decimals->get_text(), L"1234.5679");
    decimals->set_precision(3);
    EXPECT_EQ(decimals->get_text(), L"1.23E003");
    decimals->set_digits(0);
    EXPECT_EQ(decimals->get_text(), L"1.23E3");
    EXPECT_EQ(decimals->get_value(), 1234.56789012);
}

TEST_F(value_panels, shares)
{
    auto *ratio = made<Tvx_vcl_ratio_panel>();
    EXPECT_EQ(ratio->get_text(), L"100%  :  0%");
    ratio->set_value(30);
    EXPECT_EQ(ratio->get_text(), L"70%  :  30%");
    ratio->set_value(130);
    EXPECT_EQ(ratio->get_value(), 100);
    ratio->set_lft_caption(L"Area");
    ratio->set_rgt_caption(L"Count");
    EXPECT_EQ(ratio->get_track_bar()->GetAccessibleName(), L"Area : Count");
    ratio->SetWidth(300);
    auto const *top = static_cast<TWinControl *>(ratio->GetControls(0));
    EXPECT_EQ(top->GetControls(0)->GetWidth(), 100);
    EXPECT_EQ(top->GetControls(1)->GetLeft(), 200);
    input::tab_to(ratio->get_track_bar());
    input::press(VK_LEFT);
    EXPECT_EQ(ratio->get_text(), L"1%  :  99%");
}

TEST_F(value_panels, fast_whole_number)
{
    auto *panel = add<Tvx_fast_int_panel>();
    panel->on_changed = recorder();
    auto const shown = [panel] { return panel->get_size_panel()->get_edit()->GetText(); };
    auto const expect = [&](int position, wchar_t const *text, int fired) {
        EXPECT_EQ(panel->get_position(), position);
        EXPECT_EQ(shown(), text);
        EXPECT_EQ(panel->get_track_bar()->GetPosition(), position);
        EXPECT_EQ(panel->get_updown()->GetPosition(), position);
        EXPECT_EQ(taken_events(), fired);
    };
    expect(1, L"2", 0);
    panel->set_min(-1);
    panel->set_max(99);
    panel->set_position(0);
    panel->set_caption(L"Opacity");
    panel->update_controls();
    expect(0, L"1", 0);
    EXPECT_EQ(panel->get_track_bar()->GetFrequency(), 10);
    EXPECT_EQ(panel->get_track_bar()->GetAccessibleName(), L"Opacity");
    EXPECT_EQ(panel->get_size_panel()->get_edit()->GetAccessibleName(), L"Opacity");

    EXPECT_TRUE(input::click(panel->get_updown(), 5, 5));
    expect(1, L"2", 1);
    EXPECT_TRUE(input::click(panel->get_updown(), 5, 15));
    expect(0, L"1", 1);
    input::tab_to(panel->get_track_bar());
    input::press(VK_RIGHT);
    expect(1, L"2", 1);
    input::press(VK_END);
    expect(99, L"100", 1);
    input::press(VK_HOME);
    expect(-1, L"0", 1);

    TEdit *const edit = panel->get_size_panel()->get_edit();
    input::enter_text(edit, L"57");
    expect(56, L"57", 2); // 5, then 57
    input::type(L"9");
    expect(99, L"100", 1); // beyond the limit
    input::type(L"9");
    expect(99, L"100", 0);
    input::type(L"-e");
    expect(99, L"100", 0);
    input::press_times(VK_BACK, 3);
    EXPECT_EQ(shown(), L"");
    EXPECT_EQ(panel->get_position(), 0) << "the last digit that stood there";
    events = 0;
    input::click(&button);
    expect(0, L"1", 0);
    for (auto const &[text, position] : {std::pair(L"1e300", 99), {L"-1e300", -1}, {L"7.9", 6}, {L"x", -1}}) {
        Clipboard()->SetAsText(text);
        input::click(edit);
        input::press('V', {ssCtrl});
        EXPECT_EQ(panel->get_position(), position);
    }
    // A range that is upside down has one position.
    panel->set_min(5);
    panel->set_max(3);
    panel->update_controls();
    input::enter_text(edit, L"9");
    EXPECT_EQ(panel->get_position(), 5);
}

TEST_F(value_panels, fast_whole_number_with_a_least_number_above_1)
{
    auto *panel = add<Tvx_fast_int_panel>();
    panel->set_min(9);
    panel->set_max(99);
    panel->set_position(50);
    panel->update_controls();
    panel->on_changed = recorder();
    TEdit *const edit = panel->get_size_panel()->get_edit();
    input::enter_text(edit, L"2");
    EXPECT_EQ(panel->get_position(), 50) << "a number on its way";
    EXPECT_EQ(taken_events(), 0);
    input::type(L"5");
    EXPECT_EQ(edit->GetText(), L"25");
    EXPECT_EQ(panel->get_position(), 24);
    EXPECT_EQ(taken_events(), 1);
    for (int const key : {VK_TAB, VK_RETURN}) {
        input::enter_text(edit, L"30");
        input::enter_text(edit, L"3");
        taken_events();
        input::press(key);
        EXPECT_EQ(panel->get_position(), 9) << "the least one, when the entry ends";
        EXPECT_EQ(edit->GetText(), L"10");
        EXPECT_EQ(taken_events(), 1);
    }
}
