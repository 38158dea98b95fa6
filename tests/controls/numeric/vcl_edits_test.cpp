#include "controls/vxk_basic_vcl.h"
#include "numeric_form.h"

#include <cmath>
#include <limits>

namespace input = vx::user_input;
using texts = std::vector<std::wstring>;

namespace {
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();

class number_edits : public numeric_form
{
protected:
    template <class Edit>
    Edit *edit(double min, double max)
    {
        auto *made = add<Edit>();
        made->set_min(static_cast<decltype(made->get_min())>(min));
        made->set_max(static_cast<decltype(made->get_max())>(max));
        made->set_use_min(min != 0);
        made->set_use_max(max != 0);
        made->on_change = recorder();
        return made;
    }
};
} // namespace

TEST_F(number_edits, whole_number_keys)
{
    auto *edit = add<Tvx_vcl_int_edit>();
    EXPECT_EQ(edit->GetText(), L"0");
    EXPECT_TRUE(input::enter_text(edit, L"a-1 .,e2+\u0664x3"));
    EXPECT_EQ(edit->GetText(), L"-123");
    input::press(VK_BACK);
    EXPECT_EQ(edit->GetText(), L"-12");
    EXPECT_EQ(edit->get_value(), 0);
    input::press(VK_TAB);
    EXPECT_EQ(edit->get_value(), -12);
}

TEST_F(number_edits, a_whole_number_is_taken_over_or_refused)
{
    struct
    {
        wchar_t const *pasted;
        int value; ///< 7 before
        wchar_t const *text;
        wchar_t const *message; ///< null: taken over
    } const cases[] = {
        {L"7", 7, L"7", nullptr}, // the same number is a change too
        {L"-10", -10, L"-10", nullptr},
        {L"100", 100, L"100", nullptr},
        {L"-11", 7, L"-10", L"Number must be greater than: -10"},
        {L"101", 7, L"100", L"Number must be less than: 100"},
        {L"1,5", 7, L"1,5", L"Wrong number: 1,5"},
        {L"1-2", 7, L"1-2", L"Wrong number: 1-2"},
    };
    auto *edit = this->edit<Tvx_vcl_int_edit>(-10, 100);
    for (auto const &c : cases) {
        for (bool const by_enter : {true, false}) {
            edit->set_value(7);
            EXPECT_EQ(taken_events(), 0);
            paste(edit, c.pasted);
            EXPECT_EQ(edit->get_value(), 7) << "nothing is taken over before the edit is done";
            if (c.message)
                expect_message();
            by_enter ? input::press(VK_RETURN) : input::press(VK_TAB);
            EXPECT_EQ(edit->get_value(), c.value) << c.text;
            EXPECT_EQ(edit->GetText(), c.text);
            EXPECT_EQ(taken_events(), c.message ? 0 : 1) << c.text;
            EXPECT_EQ(taken_messages(), c.message ? texts{c.message} : texts{});
            EXPECT_EQ(edit->Focused(), c.message || by_enter) << c.text;
            // What is in the edit after a refusal by limit is taken over next.
            edit->set_value(7);
            input::click(&button);
            events = 0;
        }
    }
    EXPECT_TRUE(edit->test_min(-10) && edit->test_max(100) && !edit->test_min(-11) && !edit->test_max(101));
}

TEST_F(number_edits, an_empty_whole_number_is_0)
{
    auto *edit = this->edit<Tvx_vcl_int_edit>(0, 0);
    edit->set_value(5);
    input::click(edit);
    input::press_times(VK_BACK, 2);
    EXPECT_EQ(edit->GetText(), L"");
    input::click(&button);
    EXPECT_EQ(edit->GetText(), L"0");
    EXPECT_EQ(edit->get_value(), 0);
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(number_edits, a_pasted_page_is_cut_in_the_message)
{
    auto *edit = this->edit<Tvx_vcl_int_edit>(0, 0);
    paste(edit, (std::wstring(500, L'x') + L"\nsecond line").c_str());
    expect_message();
    input::click(&button);
    EXPECT_EQ(taken_messages(), texts{L"Wrong number: " + std::wstring(100, L'x') + L"\u2026"});
    EXPECT_TRUE(edit->Focused());
    EXPECT_TRUE(input::close(&form)) << "a wrong number keeps no window open";
    EXPECT_FALSE(form.GetShowing());
}

TEST_F(number_edits, two_wrong_edits_do_not_fight_for_the_focus)
{
    auto *first = this->edit<Tvx_vcl_int_edit>(5, 9);
    auto *second = this->edit<Tvx_vcl_dbl_edit>(5, 9);
    input::click(first);
    input::enter_text(first, L"1");
    expect_message();
    input::press(VK_TAB);
    EXPECT_EQ(taken_messages(), texts{L"Number must be greater than: 5"});
    EXPECT_TRUE(first->Focused());
    input::press(VK_TAB); // the limit stands in it now
    EXPECT_TRUE(second->Focused());
    EXPECT_EQ(taken_events(), 1);
    expect_message();
    input::press(VK_TAB, {ssShift});
    EXPECT_TRUE(second->Focused());
}

TEST_F(number_edits, a_refusal_swallows_the_click_that_left_the_edit)
{
    auto *edit = this->edit<Tvx_vcl_dbl_edit>(0, 10);
    int clicks = 0;
    button.OnClick = closure<void(TObject *)>([](void *n, TObject *) { ++*static_cast<int *>(n); }, &clicks);
    input::enter_text(edit, L"11");
    expect_message();
    input::click(&button);
    EXPECT_TRUE(edit->Focused());
    EXPECT_EQ(clicks, 0);
    input::enter_text(edit, L"9");
    EXPECT_TRUE(input::click(&button));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(edit->get_value(), 9.0);
}

TEST_F(number_edits, a_read_only_edit_takes_nothing_over)
{
    auto *whole = this->edit<Tvx_vcl_int_edit>(5, 9);
    auto *decimals = this->edit<Tvx_vcl_dbl_edit>(5, 9);
    whole->set_edit_enabled(false);
    decimals->set_edit_enabled(false);
    EXPECT_EQ(whole->GetColor(), clBtnFace);
    EXPECT_TRUE(decimals->GetReadOnly());
    input::enter_text(whole, L"6");
    Clipboard()->SetAsText(L"7");
    input::press(VK_TAB);
    input::press('V', {ssCtrl});
    input::press(VK_TAB);
    EXPECT_EQ(taken_events(), 0);
    EXPECT_EQ(decimals->GetText(), L"0");
    decimals->set_edit_enabled(true);
    EXPECT_EQ(decimals->GetColor(), clWindow);
    EXPECT_FALSE(decimals->GetReadOnly());
}

TEST_F(number_edits, keys_of_a_number_with_decimals)
{
    struct
    {
        bool exponent;
        int precision;
        double min;
        wchar_t const *typed;
        wchar_t const *text;
    } const cases[] = {
        {false, 2, 0, L"1,5e.3-4.x5", L"15.3-4.5"}, // the conversion refuses what the plain filter lets by
        {false, 0, -1e8, L"-1.5e3", L"-153"},
        {false, 0, 0, L"-1.5", L"15"},
        {true, 2, -1, L"-1.5.e-3E4--2,x", L"-1.5e-342"},
        {true, 2, 0, L"-1e-5", L"1e5"},
        {true, 0, -1, L"-1.5e3", L"-153"},
        {true, 0, 0, L"-1", L"1"},
    };
    for (auto const &c : cases) {
        auto *edit = add<Tvx_vcl_dbl_edit>();
        edit->set_can_empty(true); // no message on leaving
        edit->set_precision(c.precision);
        edit->set_min(c.min); // counts though it is not in force
        edit->change_key_press(c.exponent);
        next_top = 0;
        edit->BringToFront();
        EXPECT_TRUE(input::enter_text(edit, c.typed));
        EXPECT_EQ(edit->GetText(), c.text);
        // What a key replaces does not count.
        edit->SelectAll();
        input::type(L".");
        EXPECT_EQ(edit->GetText(), c.precision == 0 ? c.text : L".");
    }
}

TEST_F(number_edits, a_number_with_decimals_is_taken_over_or_refused)
{
    struct
    {
        wchar_t const *text;
        double value; ///< 7.5 before
        wchar_t const *message;
    } const cases[] = {
        {L"1.25", 1.25, nullptr},
        {L"-0.5", -0.5, nullptr},
        {L"1e2", 100, nullptr},
        {L"1e-310", 1e-310, nullptr},
        {L"-0.50000001", 7.5, L"Number must be greater than: -0.5"},
        {L"100.01", 7.5, L"Number must be less than: 100"},
        {L"1e999", 7.5, L"Wrong number: 1e999"},
        {L"1,5", 7.5, L"Wrong number: 1,5"},
        {L"1e", 7.5, L"Wrong number: 1e"},
        {L"e5", 7.5, L"Wrong number: e5"},
        {L"NaN", 7.5, L"Wrong number: NaN"},
    };
    auto *edit = this->edit<Tvx_vcl_dbl_edit>(-0.5, 100);
    for (auto const &c : cases) {
        edit->set_value(7.5);
        paste(edit, c.text);
        if (c.message)
            expect_message();
        input::press(VK_TAB);
        EXPECT_EQ(edit->get_value(), c.value) << c.value;
        EXPECT_EQ(edit->GetText(), c.text) << "the text stays as typed";
        EXPECT_EQ(edit->Focused(), c.message != nullptr);
        EXPECT_EQ(taken_messages(), c.message ? texts{c.message} : texts{});
        EXPECT_EQ(taken_events(), c.message ? 0 : 1);

        // The edit's own paste puts the value back into the text.
        edit->set_value(7.5);
        input::click(edit);
        if (c.message)
            expect_message();
        input::press('V', {ssCtrl});
        EXPECT_EQ(edit->get_value(), c.value);
        double shown = 0;
        EXPECT_TRUE(Tvx_vcl_dbl_edit::str2dbl(edit->GetText(), shown));
        EXPECT_EQ(shown, c.value);
        EXPECT_EQ(taken_messages(), c.message ? texts{c.message} : texts{});
        EXPECT_EQ(taken_events(), c.message ? 0 : 1);
        input::click(&button);
        events = 0;
    }
    input::click(edit);
    input::press_times(VK_BACK, 9);
    expect_message();
    input::click(&button);
    EXPECT_EQ(taken_messages(), texts{L"Wrong number: "});
}

TEST_F(number_edits, an_edit_that_may_be_empty_never_complains)
{
    auto *edit = this->edit<Tvx_vcl_dbl_edit>(1, 2);
    edit->set_empty(true);
    EXPECT_EQ(edit->GetText(), L"0") << "it may not be empty";
    edit->set_can_empty(true);
    edit->set_empty(false);
    EXPECT_FALSE(edit->is_empty());
    edit->set_empty(true);
    EXPECT_TRUE(edit->is_empty());
    EXPECT_TRUE(std::isnan(edit->get_value()));
    EXPECT_EQ(taken_events(), 0);
    for (wchar_t const *text : {L"1,5", L"e", L"99"}) {
        paste(edit, text);
        input::press(VK_RETURN);
        EXPECT_EQ(taken_events(), 1);
        EXPECT_EQ(edit->GetText(), text);
    }
    EXPECT_EQ(edit->get_value(), 99.0) << "limits are not looked at";
    input::enter_text(edit, L"");
    input::press_times(VK_BACK, 3);
    input::press(VK_TAB);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(edit->get_value(), 99.0);
    EXPECT_TRUE(edit->is_empty());
    edit->set_value(c_nan);
    EXPECT_TRUE(edit->is_empty());
}

TEST_F(number_edits, numbers_shown_by_set_value)
{
    struct
    {
        double value;
        int precision, digits;
        wchar_t const *text;
    } const cases[] = {
        {0.1, 2, -1, L"0.1"},
        {1e20, 2, -1, L"1E20"},
        {-2.9, 0, 0, L"-2"},
        {-0.9, 0, 0, L"0"},
        {1e19, 0, 2, L"10000000000000000000"},
        {123.456, 4, 2, L"123.5"},
        {123.456, 2, 2, L"1.2E02"},
        {c_nan, 0, 2, L"NAN"},
    };
    auto *edit = this->edit<Tvx_vcl_dbl_edit>(1, 2);
    for (auto const &c : cases) {
        edit->set_precision(c.precision);
        edit->set_format_digits(c.digits);
        edit->set_value(c.value);
        EXPECT_EQ(edit->GetText(), c.text);
    }
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(number_edits, esc_is_left_to_the_dialog)
{
    button.SetCancel(true);
    button.OnClick = recorder();
    for (TWinControl *edit : {static_cast<TWinControl *>(add<Tvx_vcl_int_edit>()),
                              static_cast<TWinControl *>(add<Tvx_vcl_dbl_edit>()),
                              static_cast<TWinControl *>(add<Tvx_vcl_spin_edit>())}) {
        input::click(edit);
        input::press(VK_ESCAPE);
        EXPECT_EQ(taken_events(), 1);
    }
}

TEST_F(number_edits, spin_edit)
{
    auto *edit = add<Tvx_vcl_spin_edit>();
    edit->on_changed = recorder();
    edit->set_min(-5);
    edit->set_max(50);
    edit->set_value(10);
    EXPECT_EQ(edit->GetText(), L"10");
    edit->set_value(400);
    EXPECT_EQ(edit->get_value(), 50);
    edit->set_max(40);
    EXPECT_EQ(edit->get_value(), 40);
    EXPECT_EQ(taken_events(), 0);

    input::click(edit);
    input::press(VK_DOWN);
    EXPECT_EQ(edit->get_value(), 39);
    EXPECT_EQ(taken_events(), 1);
    edit->SelectAll();
    input::type(L"-");
    EXPECT_EQ(edit->get_value(), 39) << "a sign alone is no number";
    EXPECT_EQ(taken_events(), 0);
    input::type(L"4x");
    EXPECT_EQ(edit->get_value(), -4);
    EXPECT_EQ(taken_events(), 1);
    input::press(VK_RETURN);
    EXPECT_EQ(taken_events(), 1) << "Enter tells in any case";
    input::click(&button);
    EXPECT_EQ(taken_events(), 1) << "so does leaving";
}

TEST_F(number_edits, a_spin_edit_gives_what_it_shows_when_it_is_left)
{
    for (auto const &[typed, shown] : {std::pair(L"1", 8), {L"3", 8}, {L"77", 8}, {L"12", 12}}) {
        auto *edit = add<Tvx_vcl_spin_edit>();
        edit->set_min(8);
        edit->set_max(40);
        edit->set_value(20);
        input::click(edit);
        edit->SelectAll();
        input::type(typed);
        edit->on_changed = recorder();
        input::press(VK_TAB);
        EXPECT_EQ(edit->GetText(), UnicodeString(shown));
        EXPECT_EQ(edit->get_value(), shown);
        EXPECT_GE(taken_events(), 1);
    }
}

TEST_F(number_edits, copy_cut_paste_and_undo_by_key)
{
    auto *whole = this->edit<Tvx_vcl_int_edit>(0, 0);
    auto *decimal = this->edit<Tvx_vcl_dbl_edit>(0, 0);
    auto *size = add<Tvx_size_panel>();
    size->set_size(0);
    for (TCustomEdit *edit : {static_cast<TCustomEdit *>(whole), static_cast<TCustomEdit *>(decimal),
                              static_cast<TCustomEdit *>(size->get_edit())}) {
        Clipboard()->Clear();
        input::enter_text(edit, L"12345");
        edit->SetSelStart(1);
        edit->SetSelLength(2);
        input::press('X', {ssCtrl});
        EXPECT_EQ(edit->GetText(), L"145");
        EXPECT_EQ(Clipboard()->GetAsText(), L"23");
        input::press('Z', {ssCtrl});
        EXPECT_EQ(edit->GetText(), L"12345");
        edit->SetReadOnly(true);
        edit->SetSelStart(3);
        edit->SetSelLength(2);
        input::press('X', {ssCtrl});
        EXPECT_EQ(edit->GetText(), L"12345");
        EXPECT_EQ(Clipboard()->GetAsText(), L"45") << "what cannot be cut is copied";
        edit->SetReadOnly(false);
    }
    input::click(whole);
    whole->SetSelStart(0);
    whole->SetSelLength(2);
    input::press('C', {ssCtrl});
    EXPECT_EQ(Clipboard()->GetAsText(), L"12");
    whole->SetSelStart(5);
    input::press('V', {ssCtrl});
    EXPECT_EQ(whole->GetText(), L"1234512");
    input::press(VK_TAB);
    EXPECT_EQ(whole->get_value(), 1234512);
}

TEST_F(number_edits, enter_ends_the_entry_and_then_presses_the_default_button)
{
    auto *whole = this->edit<Tvx_vcl_int_edit>(0, 9);
    auto *decimal = this->edit<Tvx_vcl_dbl_edit>(0, 9);
    auto *exponent = this->edit<Tvx_vcl_dbl_edit>(0, 9);
    exponent->change_key_press(true);
    struct presses
    {
        std::vector<double> values;
        closure<double()> value;
        void on_click(TObject *) { values.push_back(value()); }
    } seen;
    button.SetDefault(true);
    button.OnClick = make_closure<&presses::on_click>(&seen);
    auto const enter = [&](TCustomEdit *edit, closure<double()> value) {
        seen.value = value;
        input::enter_text(edit, L"5");
        input::press(VK_RETURN);
        EXPECT_EQ(seen.values, std::vector{5.0}) << "once, with the number that was entered";
        expect_message();
        input::enter_text(edit, L"55");
        input::press(VK_RETURN);
        EXPECT_EQ(seen.values.size(), 1u) << "a refused number is not for the dialog";
        EXPECT_EQ(taken_messages().size(), 1u);
        seen.values.clear();
        input::enter_text(edit, L"6");
    };
    enter(whole, closure<double()>(
                     [](void *e) { return double(static_cast<Tvx_vcl_int_edit *>(e)->get_value()); }, whole));
    for (Tvx_vcl_dbl_edit *edit : {decimal, exponent})
        enter(edit, closure<double()>([](void *e) { return static_cast<Tvx_vcl_dbl_edit *>(e)->get_value(); },
                                      edit));
}
