#include "controls/numeric/size_updown_panels.h"
#include "numeric_form.h"

#include <cmath>
#include <limits>

namespace input = vx::user_input;

namespace {
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();

class size_panel : public numeric_form
{
protected:
    void SetUp() override
    {
        numeric_form::SetUp();
        panel = add<Tvx_size_panel>();
        panel->on_changed = recorder();
    }
    Tvx_size_panel *panel = nullptr;
};
} // namespace

TEST_F(size_panel, keys)
{
    struct
    {
        int precision, min;
        wchar_t const *typed;
        wchar_t const *text;
        double size;
    } const cases[] = {
        {-1, -1, L"-1,5e-3x", L"-1.5e-3", -0.0015},
        {-1, -1, L"--1-", L"--1", 0},
        {-1, 0, L"-1e-5", L"1e5", 1e5},
        {-1, -1, L"1.2.3,4e5e6", L"1.234e56", 1.234e56},
        {-1, -1, L"e", L"e", 0},
        {-1, -1, L".5", L".5", 0.5},
        {2, -1, L"1.256", L"1.25", 1.25},
        {2, -1, L"12345.6789", L"12345.67", 12345.67},
        {2, -1, L"1.25e1", L"1.25e", 1.25},
        {0, -1, L"1e,5", L"1.", 1},
        {0, 0, L" +1a2", L"12", 12},
    };
    for (auto const &c : cases) {
        panel->set_precision(c.precision);
        panel->set_min(c.min);
        panel->set_size(0);
        events = 0;
        EXPECT_TRUE(input::enter_text(panel->get_edit(), c.typed));
        EXPECT_EQ(panel->get_edit()->GetText(), c.text);
        EXPECT_DOUBLE_EQ(panel->get_size(), c.size);
        EXPECT_EQ(taken_events(), static_cast<int>(wcslen(c.text))) << "one for each character";
        EXPECT_EQ(last_sender, panel);
    }
}

TEST_F(size_panel, decimals_end_wherever_the_caret_stands)
{
    panel->set_precision(2);
    panel->set_size(1.25);
    TEdit *const edit = panel->get_edit();
    input::click(edit);
    for (int const at : {0, 1, 2, 4}) {
        edit->SetSelStart(at);
        input::type(L"3");
        EXPECT_EQ(edit->GetText(), L"1.25");
    }
    // A digit in place of another one is no further one.
    edit->SetSelStart(3);
    edit->SetSelLength(1);
    input::type(L"7");
    EXPECT_EQ(edit->GetText(), L"1.27");
    input::tab_to(&button);
    input::tab_to(edit); // selects all
    input::type(L"3");
    EXPECT_EQ(panel->get_size(), 3.0);
}

TEST_F(size_panel, numbers_shown_by_set_size)
{
    struct
    {
        double size;
        int precision, both_way;
        bool trim;
        wchar_t const *text;
    } const cases[] = {
        {0.5, -1, -10, false, L"0.500000"}, {0.5, -1, -10, true, L"0.5"},
        {100, 2, -10, true, L"100"},        {100, 0, -10, true, L"100"},
        {1.005, 1, -10, false, L"1.0"},     {1234, 1, 2, false, L"1200.0"},
        {-1299, 0, 2, false, L"-1200"},     {-50, 0, 2, false, L"0"},
        {-0.25, 2, -10, false, L"-0.25"},   {0, 3, -10, true, L"0"},
        {c_nan, 2, 3, true, L""},
    };
    for (auto const &c : cases) {
        panel->set_trim_trailing_zeros(c.trim);
        panel->set_precision(c.precision);
        panel->set_precision_both_way(c.both_way);
        panel->set_size(c.size);
        EXPECT_EQ(panel->get_edit()->GetText(), c.text);
        EXPECT_TRUE(panel->get_size() == c.size || std::isnan(c.size)) << "kept unrounded";
    }
    EXPECT_TRUE(panel->is_empty());
    EXPECT_EQ(taken_events(), 0);
    panel->set_precision_both_way(0);
    panel->set_size(std::numeric_limits<double>::max());
    EXPECT_EQ(panel->get_edit()->GetText().Length(), 309);
}

TEST_F(size_panel, any_pasted_text_is_read_as_far_as_it_goes)
{
    struct
    {
        wchar_t const *text;
        double size;
    } const cases[] = {
        {L"1,5", 1},
        {L"3 mm", 3},
        {L"-1e999", -std::numeric_limits<double>::max()},
        {L"12 rivers\nand a second line", 12},
    };
    TEdit *const edit = panel->get_edit();
    panel->set_precision(0);
    input::click(edit);
    for (auto const &c : cases) {
        Clipboard()->SetAsText(c.text);
        edit->SetSelStart(0);
        input::press('V', {ssCtrl});
        EXPECT_EQ(panel->get_size(), c.size);
        EXPECT_EQ(taken_events(), 1);
        Clipboard()->Clear();
        input::press('C', {ssCtrl});
        EXPECT_EQ(Clipboard()->GetAsText(), edit->GetText()) << "the whole text, nothing is selected";
    }
    // The same keys of a Cyrillic layout.
    for (Word const letter : {Word{1057}, Word{1089}}) {
        Word key = letter;
        Clipboard()->Clear();
        edit->OnKeyDown(edit, key, {ssCtrl});
        EXPECT_EQ(key, 0);
        EXPECT_EQ(Clipboard()->GetAsText(), edit->GetText());
    }
    for (Word const letter : {Word{1052}, Word{1084}}) {
        Word key = letter;
        Clipboard()->SetAsText(UnicodeString(letter));
        edit->OnKeyDown(edit, key, {ssCtrl});
        EXPECT_EQ(panel->get_size(), letter);
    }
    Word plain = 1057;
    edit->OnKeyDown(edit, plain, {});
    EXPECT_EQ(plain, 1057) << "without Ctrl it is a letter";
}

TEST_F(size_panel, empty_is_no_number_and_no_change)
{
    panel->set_size(4);
    panel->set_empty();
    EXPECT_TRUE(std::isnan(panel->get_size()));
    panel->set_precision(0);
    panel->set_size(4);
    input::click(panel->get_edit());
    input::press(VK_BACK);
    EXPECT_TRUE(panel->is_empty());
    EXPECT_TRUE(std::isnan(panel->get_size()));
    EXPECT_EQ(taken_events(), 0);
    input::type(L"6");
    EXPECT_EQ(panel->get_size(), 6.0);
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(size_panel, tells_when_it_is_entered_left_and_done)
{
    panel->on_changed = {};
    panel->on_enter = recorder();
    input::click(panel->get_edit());
    EXPECT_EQ(taken_events(), 1);
    panel->on_enter = {};
    panel->on_apply = recorder();
    input::press(VK_RETURN);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, panel);
    input::press(VK_TAB);
    EXPECT_EQ(taken_events(), 1);
    // Enter and Esc go on to the dialog.
    panel->on_apply = {};
    button.OnClick = recorder();
    button.SetDefault(true);
    button.SetCancel(true);
    input::click(panel->get_edit());
    input::press(VK_RETURN);
    input::press(VK_ESCAPE);
    EXPECT_EQ(taken_events(), 2);
}

TEST_F(size_panel, buttons_tied_to_the_edit)
{
    auto *tied = add<Tvx_size_updown_panel>();
    tied->on_changed = recorder();
    tied->set_max_pos(5);
    tied->set_min_pos(1);
    EXPECT_EQ(tied->get_edit()->GetText(), L"1");
    EXPECT_EQ(tied->get_size(), 1.0) << "the size follows";
    tied->set_position(9);
    EXPECT_EQ(tied->get_size(), 5.0);
    EXPECT_EQ(tied->get_min(), 1);
    EXPECT_EQ(tied->get_max(), 5);
    EXPECT_EQ(taken_events(), 0);
    int steps = 0;
    tied->on_updown_changed =
        closure<void(TObject *)>([](void *n, TObject *) { ++*static_cast<int *>(n); }, &steps);
    EXPECT_TRUE(input::click(tied->get_updown(), 5, 15)); // down
    EXPECT_EQ(tied->get_size(), 4.0);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(tied->GetTag(), -1);
    input::enter_text(tied->get_edit(), L"2");
    input::press(VK_UP);
    EXPECT_EQ(tied->get_size(), 3.0);
    EXPECT_EQ(tied->GetTag(), 0);
    EXPECT_EQ(steps, 2);
    EXPECT_EQ(tied->get_updown()->GetLeft(), tied->get_edit()->GetBoundsRect().Right);
}

TEST_F(size_panel, buttons_step_from_what_the_edit_shows)
{
    auto *tied = add<Tvx_size_updown_panel>();
    tied->set_min_pos(-50);
    tied->set_max_pos(50);
    struct
    {
        double size;
        double after; ///< a step up
    } const cases[] = {{20, 21}, {7.75, 8}, {-3.5, -2}, {1e9, 50}};
    for (auto const &[size, after] : cases) {
        tied->set_size(size);
        EXPECT_TRUE(input::click(tied->get_updown(), 5, 5));
        EXPECT_EQ(tied->get_size(), after);
    }
    tied->set_empty();
    EXPECT_TRUE(input::click(tied->get_updown(), 5, 15));
    EXPECT_EQ(tied->get_size(), 49.0) << "from the last position";
}

TEST_F(size_panel, buttons_that_count_by_themselves)
{
    auto *free = add<Tvx_edit_val_updown_panel>();
    free->on_changed = recorder();
    free->set_precision(1);
    free->set_increment(10);
    free->set_position(20);
    EXPECT_EQ(free->get_edit()->GetText(), L"20.0");
    input::enter_text(free->get_edit(), L"3.5");
    EXPECT_EQ(free->get_position(), 20);
    EXPECT_FALSE(free->is_change_by_updown());
    free->on_updown_changed = recorder();
    events = 0;
    EXPECT_TRUE(input::click(free->get_updown(), 5, 5)); // up
    EXPECT_EQ(taken_events(), 1);
    EXPECT_TRUE(free->is_change_by_updown());
    EXPECT_EQ(free->get_size(), 30.0);
    EXPECT_EQ(free->GetTag(), 1);
}
