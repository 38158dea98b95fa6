#include "controls/prop/figure_dialog_form.h"
#include "styles/simple/bpgn_edit.h"
#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_base_style.h"

#include <algorithm>

namespace input = vx::user_input;

namespace {
/// A point editor on a form, showing a style of its own values.
class base_edits : public prop_form
{
protected:
    template <class Edit>
    Edit *add_edit()
    {
        auto *edit = add<Edit>(240);
        edit->load_res();
        edit->update_controls();
        edit->on_changed = recorder();
        input::wait_idle();
        return edit;
    }
};

/// The controls that are seen, from the top.
std::vector<TControl *> rows_of(std::vector<TControl *> controls)
{
    std::erase_if(controls, [](TControl *c) { return !c->GetShowing(); });
    std::ranges::sort(controls, {}, &TControl::GetTop);
    return controls;
}

/// Chooses a place of the table of figures, by mouse.
void choose_figure(int col, int row)
{
    input::on_next_modal([=](input::modal_window const &window) {
        auto *dialog = dynamic_cast<Tvx_basic_figure_dialog_form *>(window.form());
        input::click_cell(dialog->get_grid(), col, row);
        input::click(dialog->get_apply_btn());
    });
}
} // namespace

TEST_F(base_edits, each_control_of_a_point_writes_its_value)
{
    auto *edit = add_edit<Tvx_bpnt_edit>();
    void *const style = edit->get_bpnt_style();

    choose_figure(3, 0);
    ASSERT_TRUE(input::click(edit->get_figure()->get_button()));
    EXPECT_EQ(vx_bpnt_style_get_figure(style), 3);
    EXPECT_EQ(taken_events(), 1);

    ASSERT_TRUE(input::click(edit->get_color()->get_clr_panel()->get_button()));
    EXPECT_EQ(vx_bpnt_style_get_color(style), vx_clr_init_rgba(1, 2, 3, 4));
    EXPECT_EQ(asked_format, c_color_format_rgba);
    EXPECT_EQ(taken_events(), 1);

    ASSERT_TRUE(input::enter_text(edit->get_size()->get_edit(), L"7"));
    EXPECT_EQ(vx_bpnt_style_get_size(style), 7.0);
    EXPECT_EQ(taken_events(), 1);
    ASSERT_TRUE(input::enter_text(edit->get_size()->get_edit(), L"4.25-"));
    EXPECT_EQ(vx_bpnt_style_get_size(style), 4.2) << "one decimal, no sign";
    EXPECT_GT(taken_events(), 0);
    ASSERT_TRUE(input::press(VK_BACK) && input::press_times(VK_BACK, 2));
    EXPECT_EQ(vx_bpnt_style_get_size(style), 4.0) << "an empty text is no size";
    taken_events();

    ASSERT_TRUE(input::click(edit->get_use_symbol()->get_check_box()));
    EXPECT_FALSE(vx_bpnt_style_get_use_figure(style));
    EXPECT_EQ(taken_events(), 1);

    next_symbol = 0x416;
    ASSERT_TRUE(input::click(edit->get_symbol()->get_button()));
    EXPECT_EQ(vx_bpnt_style_get_symbol(style), 0x416u);
    EXPECT_EQ(std::wstring(vx_fnt_type_get_wname_ptr(vx_bpnt_style_get_fnt_type_ptr(style))),
              L"DejaVu Serif");
    EXPECT_EQ(taken_events(), 1);

    vx_bpnt_style_set_use_complex(style, true);
    edit->update_controls();
    EXPECT_EQ(taken_events(), 0);
    ASSERT_TRUE(input::click(edit->get_use_cpx()->get_check_box()));
    EXPECT_FALSE(vx_bpnt_style_get_use_complex(style));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, edit);

    accepts = false;
    vx::owned<void, &vx_bpnt_style_destroy> const before(vx_bpnt_style_clone(style));
    ASSERT_TRUE(input::click(edit->get_color()->get_clr_panel()->get_sample()));
    ASSERT_TRUE(input::click(edit->get_symbol()->get_button()));
    EXPECT_EQ(taken_events(), 0);
    EXPECT_TRUE(vx_bpnt_style_equal(style, before.get())) << "a dialog that was cancelled changes nothing";
}

TEST_F(base_edits, rows_that_count_are_seen_and_close_up)
{
    auto *edit = add_edit<Tvx_bpnt_edit>();
    void *const style = edit->get_bpnt_style();
    TControl *const use_symbol = edit->get_use_symbol();
    TControl *const figure = edit->get_figure();
    TControl *const symbol = edit->get_symbol();
    TControl *const color = edit->get_color();
    TControl *const size = edit->get_size();
    TControl *const complex = edit->get_cpx_panel();
    std::vector<TControl *> const all{use_symbol, figure, symbol, color, size, complex};
    struct
    {
        bool use_complex, use_figure;
        std::vector<TControl *> rows;
    } const cases[] = {
        {false, true, {use_symbol, figure, color, size}},
        {false, false, {use_symbol, symbol, color, size}},
        {true, true, {complex}},
        {true, false, {complex}},
        {false, true, {use_symbol, figure, color, size}},
    };
    for (auto const &c : cases) {
        vx_bpnt_style_set_use_complex(style, c.use_complex);
        vx_bpnt_style_set_use_figure(style, c.use_figure);
        edit->update_controls();
        input::wait_idle();
        EXPECT_EQ(rows_of(all), c.rows);
        int const gap = 2 * c.rows[0]->GetTop();
        for (std::size_t i = 1; i < c.rows.size(); ++i)
            EXPECT_EQ(c.rows[i]->GetTop(), c.rows[i - 1]->GetTop() + c.rows[i - 1]->GetHeight() + gap);
        EXPECT_EQ(c.rows[0]->GetTop(), 3);
        EXPECT_TRUE(edit->get_use_cpx()->GetShowing());
        EXPECT_EQ(edit->get_use_cpx()->get_flag(), c.use_complex);
        EXPECT_EQ(edit->get_use_symbol()->get_flag(), !c.use_figure);
    }
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(base_edits, lines_and_fills_have_fewer_rows)
{
    auto *line = add_edit<Tvx_bpln_edit>();
    void *const bpln = line->get_bpln_style();
    ASSERT_TRUE(input::click(line->get_color()->get_clr_panel()->get_button()));
    EXPECT_EQ(vx_bpln_style_get_color(bpln), vx_clr_init_rgba(1, 2, 3, 4));
    EXPECT_EQ(taken_events(), 1);
    ASSERT_TRUE(input::enter_text(line->get_width()->get_edit(), L"0.755"));
    EXPECT_EQ(vx_bpln_style_get_width(bpln), 0.75) << "two decimals";
    EXPECT_GT(taken_events(), 0);
    vx_bpln_style_set_use_complex(bpln, true);
    line->update_controls();
    EXPECT_EQ(rows_of({line->get_color(), line->get_width(), line->get_cpx_panel()}),
              std::vector<TControl *>{line->get_cpx_panel()});
    ASSERT_TRUE(input::click(line->get_use_cpx()->get_check_box()));
    EXPECT_FALSE(vx_bpln_style_get_use_complex(bpln));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(rows_of({line->get_cpx_panel(), line->get_width(), line->get_color()}),
              (std::vector<TControl *>{line->get_color(), line->get_width()}));
    EXPECT_EQ(line->get_width()->get_size(), 0.75);
    line->SetVisible(false);
    next_top = 10;
    taken_events();

    auto *fill = add_edit<Tvx_bpgn_edit>();
    void *const bpgn = fill->get_bpgn_style();
    next_color = vx_clr_init_rgb(70, 80, 90);
    ASSERT_TRUE(input::click(fill->get_color()->get_clr_panel()->get_button()));
    EXPECT_EQ(vx_bpgn_style_get_color(bpgn), next_color);
    EXPECT_EQ(taken_events(), 1);
    vx_bpgn_style_set_use_complex(bpgn, true);
    fill->update_controls();
    EXPECT_EQ(rows_of({fill->get_color(), fill->get_cpx_panel()}),
              std::vector<TControl *>{fill->get_cpx_panel()});
    ASSERT_TRUE(input::click(fill->get_use_cpx()->get_check_box()));
    EXPECT_EQ(rows_of({fill->get_color(), fill->get_cpx_panel()}),
              std::vector<TControl *>{fill->get_color()});
    EXPECT_EQ(fill->get_color()->get_color(), next_color);
}
