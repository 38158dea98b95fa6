#include "controls/prop/clr_vsb_panel.h"
#include "range_table.h"
#include "scale_builders/vxk_rng_type_form.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_options.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/gauge.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/strings.h"

namespace input = vx::user_input;

namespace {
class rng_dialog : public range_table
{
protected:
    rng_dialog() { vx_options_set_language("en"); }
    ~rng_dialog() override
    {
        vx_rng_type_set_offer_natural(false);
        EXPECT_EQ(input::pending_modals(), 0);
        input::forget_pending_modals();
    }

    /// Opens the dialog, does something in it and gives what it gave.
    template <class F>
    bool in_dialog(F act)
    {
        auto const events = data();
        input::on_next_modal([this, act](input::modal_window const &window) {
            panel = dynamic_cast<Tvx_vcl_rng_type_form &>(*window.form()).get_rng_panel();
            act(window);
            if (window.form()) // the action left it open
                window.reject();
        });
        return vx_rng_type_dlg(100, 100, mngr.get(), events.open, events.close, events.get_np, events.get_no,
                               events.get_prop, events.get_stat, events.get_str, events.get_val);
    }
    [[nodiscard]] Tvx_vcl_rng_params_panel *params() const { return panel->get_params_panel(); }
    [[nodiscard]] Tvx_vcl_min_max_params_panel *equal() const { return params()->get_min_max_panel(); }
    [[nodiscard]] Tvx_vcl_logarithm_params_panel *logarithm() const
    {
        return params()->get_logarithm_panel();
    }
    [[nodiscard]] bool choose_kind(UnicodeString const &kind) const
    {
        return input::choose_item(panel->get_type_panel()->get_box()->get_select_box(), kind);
    }
    template <class Panel>
    static bool choose(Panel *row, UnicodeString const &text)
    {
        return input::choose_item(row->get_box()->get_select_box(), text);
    }
    /// Types over an edit and leaves it.
    template <class Panel>
    static void enter(Panel *row, wchar_t const *text)
    {
        ASSERT_TRUE(input::enter_text(row->get_edit(), text));
        ASSERT_TRUE(input::press(VK_TAB));
    }
    /// Count, step, minimum and maximum as they are shown.
    [[nodiscard]] std::string shown() const
    {
        std::string result = equal()->get_count_panel()->get_text().to_utf8();
        for (auto *const edit :
             {equal()->get_step_panel(), equal()->get_min_panel(), equal()->get_max_panel()})
            result += " " + edit->get_text().to_utf8();
        return result;
    }

    Tvx_vcl_rng_panel *panel = nullptr;
};
} // namespace

TEST_F(rng_dialog, count_step_and_span_of_equal_ranges_hold_each_other)
{
    fill(c_rng_type_equal_ranges);
    vx_rng_scale_set_round_digits(scale(), -2);
    vx_rng_scale_set_max_value(scale(), 10);
    values = {1.0, 20.0};
    enum edit
    {
        count,
        step,
        min,
        max
    };
    struct
    {
        edit which;
        wchar_t const *text;
        std::string shown;
    } const steps[] = {
        {count, L"4", "4 2.5 0 10"},
        {count, L"0", "4 2.5 0 10"},
        {count, L"-3", "4 2.5 0 10"},
        {step, L"2", "5 2 0 10"},
        {step, L"0", "5 2 0 10"},
        {step, L"-1", "5 2 0 10"},
        {step, L"3", "3 3 0 10"},
        {min, L"4", "3 2 4 10"},
        {min, L"12", "3 2 12 10"}, // above the maximum: it stands
        {min, L"1", "3 3 1 10"},
        {max, L"4", "3 1 1 4"},
        {max, L"-1", "3 1 1 -1"},
        {step, L"0.5", "-3 0.5 1 -1"},
        {count, L"6", "6 -0.33 1 -1"},
        {max, L"10", "6 1.5 1 10"},
        {step, L"19", "0 19 1 10"},
        {count, L"-1", "0 0 1 10"}, // no ranges have no step
        {max, L"11", "0 0 1 11"},
        {step, L"0.000001", "10000000 0 1 11"},
        {step, L"1000000000", "0 1000000000 1 11"},
        {step, L"0.000000000001", "2147483647 0 1 11"},
        {count, L"2", "2 5 1 11"},
    };
    EXPECT_TRUE(in_dialog([&](input::modal_window const &window) {
        EXPECT_EQ(shown(), "2 5 0 10") << "it opens on the scale, not on the values";
        for (auto const &s : steps) {
            if (s.which == count)
                enter(equal()->get_count_panel(), s.text);
            else
                enter(s.which == step  ? equal()->get_step_panel()
                      : s.which == min ? equal()->get_min_panel()
                                       : equal()->get_max_panel(),
                      s.text);
            EXPECT_EQ(shown(), s.shown) << testing::PrintToString(s.text);
            if (s.shown[0] == '0' || s.shown[0] == '-') {
                // No such scale is made, and nothing of the one that is there is lost.
                window.press_button(L"Apply");
                EXPECT_TRUE(window.form() && equal()->get_count_panel()->get_edit()->Focused());
                EXPECT_EQ(bounds(), "0 -2: <0 0..4 4..8 >10");
            }
        }
        window.press_button(L"Apply");
    }));
    EXPECT_EQ(bounds(), "0 -2: <1 1..6 6..11 >11");
    EXPECT_EQ(captions(), L"up to 1|1 - 6|6 - 11|above 11");
}

TEST_F(rng_dialog, edits_show_and_take_rounded_values)
{
    values = {1.0, 20.0};
    vx_rng_scale_set_size(scale(), 3);
    vx_rng_scale_set_max_value(scale(), 1);
    EXPECT_TRUE(in_dialog([&](input::modal_window const &window) {
        EXPECT_EQ(shown(), "3 0.33 0 1");
        EXPECT_TRUE(choose(equal()->get_round_panel(), L"d.dddd"));
        EXPECT_EQ(shown(), "3 0.3333 0 1") << "the step itself was kept";
        EXPECT_EQ(equal()->get_step_panel()->get_precision(), 4);
        EXPECT_TRUE(choose(equal()->get_round_panel(), L"d"));
        EXPECT_EQ(shown(), "3 0 0 1");
        EXPECT_EQ(equal()->get_min_panel()->get_precision(), 0);
        EXPECT_TRUE(choose(equal()->get_round_panel(), L"dddd"));
        EXPECT_EQ(shown(), "3 0 0 0");
        EXPECT_EQ(equal()->get_min_panel()->get_precision(), 0);
        EXPECT_TRUE(choose(equal()->get_round_panel(), L"d.d"));
        // Who passes through the edit of the step takes what it shows.
        EXPECT_TRUE(input::click(equal()->get_step_panel()->get_edit()));
        EXPECT_TRUE(input::press(VK_TAB));
        EXPECT_TRUE(choose(equal()->get_round_panel(), L"d.dddd"));
        EXPECT_EQ(shown(), "3 0.3 0 1");
        window.press_button(L"Apply");
    }));
    EXPECT_EQ(bounds(), "0 -4: <0 0..0.3 0.3..0.6 0.6..0.9 >0.9");
}

TEST_F(rng_dialog, opens_on_what_the_scale_is)
{
    values = {-4.0, 6.0};
    struct
    {
        int type;
        bool natural;
        int chosen;
    } const cases[] = {
        {c_rng_type_equal_ranges, false, 1},
        {c_rng_type_stdev, false, 3},
        {c_rng_type_log, false, 4},
        {c_rng_type_equal_area, false, 1},
        {c_rng_type_natural_breaks, false, 0},
        {c_rng_type_natural_breaks, true, 2},
        {c_rng_type_log_space, false, 5},
        {99, true, 1},
    };
    for (auto const &c : cases) {
        fill(c.type);
        vx_rng_scale_set_round_digits(scale(), 3);
        vx_rng_type_set_offer_natural(c.natural);
        auto const before = bounds();
        EXPECT_FALSE(in_dialog([&](input::modal_window const &window) {
            auto *const list = panel->get_type_panel()->get_box()->get_select_box()->GetItems();
            EXPECT_EQ(list->GetCount(), c.natural ? 5 : 4);
            EXPECT_EQ(list->GetStrings(list->GetCount() - 1),
                      c.natural ? L"Natural breaks" : L"Logarithmic spacing");
            EXPECT_EQ(panel->get_type_panel()->get_rng_type(), c.chosen);
            EXPECT_EQ(params()->get_rng_type(), c.chosen);
            EXPECT_EQ(equal()->GetShowing(), c.chosen == 1);
            EXPECT_EQ(logarithm()->GetShowing(), c.chosen == 4);
            // The values are in the statistics, the scale in the edits.
            EXPECT_EQ(panel->get_stat_panel()->get_max_panel()->get_text(), L"6");
            EXPECT_EQ(panel->get_stat_panel()->get_average_panel()->get_text(), L"1");
            EXPECT_FALSE(panel->get_stat_panel()->get_total_panel()->GetVisible());
            EXPECT_EQ(params()->get_logspace_panel()->get_max_panel()->get_text(), L"8");
            EXPECT_EQ(params()->get_natural_panel()->get_count_panel()->get_value(), 2);
            EXPECT_EQ(params()->get_std_dev_panel()->get_round_panel()->get_digits_count(), 3);
            EXPECT_FALSE(logarithm()->get_can_color());
            EXPECT_TRUE(logarithm()->get_two_sided_box()->GetChecked());
            if (c.chosen == 0) {
                window.press_button(L"Apply");
                EXPECT_TRUE(window.form()) << "nothing is chosen";
            }
        }));
        EXPECT_EQ(bounds(), before);
    }
    struct
    {
        int digits, shown_digits;
        double coeff, shown_coeff;
    } const settings[] = {{11, -2, 1.5, 1}, {-11, -2, 2.95, 3}, {10, 10, 0.45, 0.5}, {-10, -10, -2, 1}};
    for (auto const &s : settings) {
        vx_rng_scale_set_round_digits(scale(), s.digits);
        vx_rng_scale_set_deviation_coeff(scale(), s.coeff);
        in_dialog([&](input::modal_window const &) {
            EXPECT_EQ(equal()->get_round_panel()->get_digits_count(), s.shown_digits);
            EXPECT_EQ(params()->get_std_dev_panel()->get_coeff_panel()->get_coeff(), s.shown_coeff);
        });
    }
    // A scale without ranges, and a field without values.
    vx_rng_scale_set_size(scale(), 0);
    values.clear();
    in_dialog([&](input::modal_window const &) { EXPECT_EQ(shown(), "0 0 0 8"); });
}

TEST_F(rng_dialog, first_steps_and_rows_of_a_logarithmic_scale)
{
    struct
    {
        wchar_t const *pattern;
        std::vector<std::wstring> steps;
        int rows; ///< from the second step to 300, to one side
    } const cases[] = {
        {L"d.dd", {L"0.01", L"0.02", L"0.05"}, 16},
        {L"d.d", {L"0.1", L"0.2", L"0.5"}, 13},
        {L"d", {L"1", L"2", L"5"}, 10},
        {L"ddd", {L"100", L"200", L"500"}, 4},
        {L"dddd", {L"1000", L"2000", L"5000"}, 3},
    };
    values = {0.0, 300.0};
    fill(c_rng_type_log);
    set_style("clr_style");
    fill(c_rng_type_log);
    EXPECT_TRUE(in_dialog([&](input::modal_window const &window) {
        auto *const list = logarithm()->get_start_panel()->get_box()->get_select_box();
        EXPECT_TRUE(input::choose_item(list, 1));
        for (auto const &c : cases) {
            EXPECT_TRUE(choose(logarithm()->get_round_panel(), c.pattern));
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(list->GetItems()->GetStrings(i), c.steps[static_cast<std::size_t>(i)]);
            EXPECT_EQ(logarithm()->get_start_panel()->get_base_index(), 1) << "the choice stays";
            EXPECT_EQ(logarithm()->get_count_panel()->get_value(), c.rows);
        }
        EXPECT_FALSE(logarithm()->get_two_sided_box()->GetChecked());
        EXPECT_TRUE(input::click(logarithm()->get_two_sided_box()));
        EXPECT_EQ(logarithm()->get_count_panel()->get_value(), 3);
        EXPECT_TRUE(choose(logarithm()->get_round_panel(), L"dd"));
        EXPECT_EQ(logarithm()->get_count_panel()->get_value(), 7);
        EXPECT_TRUE(logarithm()->get_can_color());
        logarithm()->get_zero_color_panel()->set_color(vx_clr_init_rgb(1, 2, 3));
        window.press_button(L"Apply");
    }));
    EXPECT_EQ(bounds(), "2 1: <-20 -20..20 20..50 50..100 100..200 200..500 >500");
    EXPECT_EQ(color(0), vx_clr_init_rgb(0, 0, 255));
    EXPECT_EQ(color(1), vx_clr_init_rgb(1, 2, 3));
    EXPECT_EQ(color(6), vx_clr_init_rgb(255, 0, 0));
}

TEST_F(rng_dialog, what_was_cancelled_is_gone_and_what_was_applied_is_where_it_opens)
{
    values = {0.0, 100.0};
    fill(c_rng_type_equal_ranges);
    owned_mngr const before(vx_stl_mngr_clone(mngr.get()));
    auto const change = [&] {
        EXPECT_TRUE(choose_kind(L"Standard deviation"));
        enter(params()->get_std_dev_panel()->get_count_panel(), L"5");
        EXPECT_TRUE(choose(params()->get_std_dev_panel()->get_coeff_panel(), L"2 std. dev."));
        EXPECT_TRUE(choose(params()->get_std_dev_panel()->get_round_panel(), L"ddd"));
    };
    for (bool const by_button : {true, false})
        EXPECT_FALSE(in_dialog([&](input::modal_window const &window) {
            EXPECT_EQ(params()->get_rng_type(), c_rng_builder_equal_ranges);
            EXPECT_EQ(params()->get_std_dev_panel()->get_count_panel()->get_value(), 2);
            change();
            if (by_button)
                window.press_button(L"Cancel");
            else
                input::press(VK_ESCAPE);
        }));
    EXPECT_TRUE(vx_stl_mngr_equal(mngr.get(), before.get()));
    EXPECT_TRUE(in_dialog([&](input::modal_window const &window) {
        change();
        window.press_button(L"Apply");
    }));
    EXPECT_EQ(bounds(), "1 2: <-100 -100..0 0..0 0..100 100..100 100..200 >200"); // 50 and its double, by 40
    EXPECT_FALSE(in_dialog([&](input::modal_window const &) {
        auto *const opened_on = params()->get_std_dev_panel();
        EXPECT_TRUE(opened_on->GetShowing());
        EXPECT_EQ(opened_on->get_count_panel()->get_value(), 5);
        EXPECT_EQ(opened_on->get_coeff_panel()->get_coeff(), 2);
        EXPECT_EQ(opened_on->get_round_panel()->get_digits_count(), 2);
        EXPECT_EQ(equal()->get_max_panel()->get_value(), 200);
    }));
}

TEST_F(rng_dialog, stopped_reading_opens_nothing)
{
    values.assign(5000, 3.0);
    fill(c_rng_type_equal_ranges);
    stop_what_lasts();
    auto const events = data();
    EXPECT_FALSE(vx_rng_type_dlg(0, 0, mngr.get(), events.open, events.close, events.get_np, events.get_no,
                                 events.get_prop, events.get_stat, events.get_str, events.get_val));
    // The values of natural breaks are read at Apply: the dialog stays.
    vx_rng_type_set_offer_natural(true);
    stop_after = 1'000'000;
    EXPECT_FALSE(in_dialog([&](input::modal_window const &window) {
        EXPECT_TRUE(choose_kind(L"Natural breaks"));
        stop_after = 0;
        window.press_button(L"Apply");
        EXPECT_TRUE(window.form());
    }));
    EXPECT_EQ(bounds(), "0 -1: <0 0..4 4..8 >8");
}

TEST_F(rng_dialog, long_reading_shows_a_window_that_holds_the_others_back)
{
    values.assign(100'000, 3.0);
    fill(c_rng_type_equal_ranges);
    microseconds_a_cell = 100;
    TForm form(nullptr);
    auto *const button = new TButton(&form);
    button->SetParent(&form);
    form.Show();
    input::wait_idle();
    auto const window = [&form] {
        auto *const active = Screen->GetActiveForm();
        return active != &form ? active : nullptr;
    };
    bool was_blocked = false;
    on_cell = [&] {
        if (cells_read % 1000 != 0 || !window() || was_blocked)
            return;
        was_blocked = !input::click(button);
        auto *const gauge = dynamic_cast<TGauge *>(window()->GetControls(2));
        EXPECT_TRUE(gauge && gauge->GetProgress() < 50);
        EXPECT_TRUE(input::press(VK_ESCAPE)); // as its button does
    };
    EXPECT_FALSE(Tvx_rng_rescale::execute(mngr.get(), data()));
    EXPECT_TRUE(was_blocked);
    EXPECT_LT(cells_read, 50'000);
    EXPECT_EQ(bounds(), "0 -1: <0 0..4 4..8 >8");
    EXPECT_TRUE(input::click(button));
}
