#include "captions/style_manager.h"
#include "style_manager/scales/rng_edit.h"
#include "style_manager/scales/rng_edit_btn.h"
#include "tests/style_manager/scales/scale_edit_form.h"

#include "platform/basic/vx_options.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <cmath>
#include <functional>
#include <limits>
#include <optional>

namespace {
enum : int
{
    mark,
    lower,
    upper,
    caption,
    visible,
    style,
    sel_style
};

template <class... Texts>
std::wstring narrow(int caption_number, Texts... texts)
{
    char filled[100];
    std::snprintf(filled, sizeof filled, vx_res_get_str(caption_number), texts...);
    return vx::text::to_wide(filled);
}

/// An editor over a table with a geometry, a text and a number.
class rng_edit : public scale_edit_form<Tvx_rng_edit>
{
protected:
    void SetUp() override
    {
        prop_form::SetUp();
        show(new Tvx_rng_edit(&form));
        edit->on_changed = make_closure<&rng_edit::on_changed>(this);
    }

    // ---- the owner
    /// Redraws the editor before it counts, as the editor of the manager does.
    void on_changed(TObject *sender)
    {
        edit->update_controls();
        on_event(sender);
    }
    unsigned np(TObject *) override { return 3; }
    unsigned no(TObject *) override { return static_cast<unsigned>(values.size()); }
    char const *prop(TObject *, unsigned i, bool &usable, bool &numeric) override
    {
        usable = i > 0;
        numeric = i == 2;
        return i == 0 ? "GEOM" : i == 1 ? "Name" : "Births";
    }
    double val(TObject *, unsigned prop_index, unsigned i, bool &defined) override
    {
        ++cells_read;
        EXPECT_EQ(prop_index, 2U);
        defined = values[i].has_value();
        return values[i].value_or(-77);
    }
    bool stat(TObject *, unsigned, double &min, double &max, double &, double &, bool &)
    {
        min = -5;
        max = 5;
        return true;
    }
    void give_stat()
    {
        auto data = edit->get_data_events();
        data.get_stat = make_closure<&rng_edit::stat>(this);
        edit->set_data_events(data);
    }

    // ---- the scale
    unsigned size() const { return vx_rng_scale_get_size(scale()); }
    /// Ranges that touch at the bounds, over a span from the first to the last.
    void fill(std::vector<double> const &bounds)
    {
        vx_rng_scale_set_size(scale(), 0);
        vx_rng_scale_set_size(scale(), static_cast<unsigned>(bounds.size() - 1));
        for (unsigned i = 0; i + 1 < bounds.size(); ++i) {
            vx_rng_scale_set_min(scale(), i, bounds[i]);
            vx_rng_scale_set_max(scale(), i, bounds[i + 1]);
        }
        vx_rng_scale_set_min_value(scale(), bounds.front());
        vx_rng_scale_set_max_value(scale(), bounds.back());
        edit->update_controls();
        taken_events();
    }
    /// "<0 0..5 5..10 >10"
    std::string bounds() const
    {
        auto const text = [](double value) {
            auto result = std::to_string(value);
            result.erase(result.find_last_not_of('0') + 1);
            return result.back() == '.' ? result.substr(0, result.size() - 1) : result;
        };
        std::string result = "<" + text(vx_rng_scale_get_min_value(scale()));
        for (unsigned i = 0; i < size(); ++i)
            result +=
                " " + text(vx_rng_scale_get_min(scale(), i)) + ".." + text(vx_rng_scale_get_max(scale(), i));
        return result + " >" + text(vx_rng_scale_get_max_value(scale()));
    }
    Tvx_color color(unsigned row, bool sel = false) const
    {
        return vx_stl_prm_get_color(
            vx_scale_prm_get_stl_prm_ptr(edit->get_grid()->get_row_scale_prm_ptr(row)), sel);
    }
    void set_color(unsigned row, Tvx_color value)
    {
        auto *const prm = vx_scale_prm_get_stl_prm_ptr(edit->get_grid()->get_row_scale_prm_ptr(row));
        vx_stl_prm_clr_set_all(prm, value, false);
        vx_stl_prm_clr_set_all(prm, value, true);
    }
    std::wstring line() const { return edit->get_row_line()->GetCaption().str(); }

    std::vector<std::optional<double>> values;
};
} // namespace

TEST_F(rng_edit, makes_ten_ranges_of_the_chosen_field)
{
    auto *const combo = edit->get_prp_scale()->get_combo_box();
    values = {250.0, std::nullopt, 0.0, 100.0, std::numeric_limits<double>::quiet_NaN()};
    EXPECT_FALSE(input::choose_item(combo, L"Name")) << "no numbers";
    for (auto const *language : {"ru", "en"}) {
        vx_options_set_language(language);
        edit->load_res();
        fill({0, 1});
        vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"");
        edit->update_controls();
        ASSERT_TRUE(input::choose_item(combo, L"Births"));
        EXPECT_EQ(taken_events(), 1);
        EXPECT_EQ(bounds(), "<0 0..25 25..50 50..75 75..100 100..125 125..150 150..175 175..200 200..225 "
                            "225..250 >250");
        bool const english = *language == 'e';
        EXPECT_EQ(read(&vx_rng_scale_get_min_caption_w), english ? L"up to 0.00" : L"до 0.00");
        EXPECT_EQ(read(&vx_rng_scale_get_caption_w, 3U), L"75.00 - 100.00");
        EXPECT_EQ(read(&vx_rng_scale_get_max_caption_w), english ? L"above 250.00" : L"более 250.00");
        // The templates serve 8-bit texts as well.
        EXPECT_EQ(narrow(c_caption_range_below, "0.00"), read(&vx_rng_scale_get_min_caption_w));
        EXPECT_EQ(narrow(c_caption_range_between, "75.00", "100.00"), L"75.00 - 100.00");
        EXPECT_EQ(narrow(c_caption_range_above, "250.00"), read(&vx_rng_scale_get_max_caption_w));
    }
    EXPECT_STREQ(vx_stl_mngr_get_rng_prop_name(mngr.get()), "Births");
    // Without data the scale stays; without values there is still something to edit.
    has_data = false;
    fill({0, 1});
    edit->generate_default_scale();
    EXPECT_EQ(size(), 1U);
    has_data = true;
    values = {std::nullopt};
    edit->generate_default_scale();
    EXPECT_EQ(size(), 10U);
    EXPECT_DOUBLE_EQ(vx_rng_scale_get_max(scale(), 9), 1);
    values = {0.1, 0.7};
    edit->generate_default_scale();
    EXPECT_GE(vx_rng_scale_get_max_value(scale()), 0.7) << "the greatest value has a range";
    // Statistics at hand are taken instead of the values.
    give_stat();
    cells_read = 0;
    edit->generate_default_scale();
    EXPECT_EQ(cells_read, 0);
    EXPECT_EQ(vx_rng_scale_get_min_value(scale()), -5);
}

TEST_F(rng_edit, takes_the_number_that_a_text_begins_with)
{
    fill({0.123456, 10, 20.5});
    struct
    {
        int col, row;
        wchar_t const *text;
        std::string bounds;
        int reports;
    } const steps[] = {
        {lower, 2, L"12abc\n", "<0.123456 12..10 10..20.5 >20.5", 1}, // neighbours are not asked
        {lower, 2, L"abc\n", "<0.123456 12..10 10..20.5 >20.5", 0},
        {lower, 2, L"\n", "<0.123456 12..10 10..20.5 >20.5", 0},
        {lower, 2, L"1,5\n", "<0.123456 1..10 10..20.5 >20.5", 1},
        {upper, 2, L"-2.5e1\n", "<0.123456 1..-25 10..20.5 >20.5", 1},
        {upper, 2, L"1e999\n", "<0.123456 1..-25 10..20.5 >20.5", 0},
        {upper, 2, L"nan\n", "<0.123456 1..-25 10..20.5 >20.5", 0},
        {lower, 4, L"30\n", "<0.123456 1..-25 10..20.5 >30", 1},
        {upper, 1, L"-7\n", "<-7 1..-25 10..20.5 >30", 1},
    };
    for (auto const &step : steps) {
        type(step.col, step.row, step.text);
        EXPECT_EQ(bounds(), step.bounds) << testing::PrintToString(step.text);
        EXPECT_EQ(taken_events(), step.reports);
    }
    // Leaving the grid takes what is typed.
    type(upper, 3, L"21");
    EXPECT_EQ(taken_events(), 0);
    edit->get_prp_scale()->get_combo_box()->SetFocus();
    input::wait_idle();
    EXPECT_EQ(bounds(), "<-7 1..-25 10..21 >30");
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(rng_edit, an_edit_that_is_none_leaves_the_value_unrounded)
{
    fill({0.123456, 10.98765, 20});
    auto *const grid = edit->get_grid();
    std::string const before = bounds();
    type(upper, 2, L"7");
    ASSERT_TRUE(input::press(VK_ESCAPE));
    ASSERT_TRUE(click(upper, 1));
    ASSERT_TRUE(input::press(VK_F2));
    ASSERT_TRUE(input::press(VK_RETURN));
    EXPECT_EQ(bounds(), before);
    EXPECT_EQ(taken_events(), 0);
    // The drawn infinities have no editor.
    for (auto const &[col, row] : {std::pair{lower, 1}, {upper, 4}, {visible, 2}, {style, 2}}) {
        ASSERT_TRUE(click(caption, row));
        grid->SetCol(col);
        ASSERT_TRUE(input::press(VK_F2));
        EXPECT_FALSE(grid->GetEditorMode()) << col << ' ' << row;
    }
}

TEST_F(rng_edit, what_is_being_typed_is_taken_before_anything_else)
{
    auto *const panel = edit->get_tool_panel();
    values = {0.0, 100.0};
    next_file = (dir.path() / "typed._rg").wstring();
    struct
    {
        char const *what;
        std::function<bool()> act;
        std::string bounds;
    } const cases[] = {
        {"insert", [&] { return input::click(panel->get_ins_btn()); }, "<0 0..5 5..5.5 5.5..6 5.5..20 >20"},
        {"mark", [&] { return click(mark, 4); }, "<0 0..5 5..6 5.5..20 >20"},
        {"delete", [&] { return click(mark, 3) && input::click(panel->get_del_btn()); },
         "<0 0..5 5.5..20 >20"},
        {"move", [&] { return input::drag_cell(edit->get_grid(), mark, 3, mark, 2); },
         "<0 5..6 0..5 5.5..20 >20"},
        {"hide", [&] { return click(visible, 2); }, "<0 0..5 5..6 5.5..20 >20"},
        {"save", [&] { return input::click(panel->get_save_btn()) && input::click(panel->get_open_btn()); },
         "<0 0..5 5..6 5.5..20 >20"},
        {"next cell", [&] { return input::press(VK_TAB); }, "<0 0..5 5..6 5.5..20 >20"},
        {"next row", [&] { return input::press(VK_DOWN); }, "<0 0..5 5..6 5.5..20 >20"},
    };
    for (auto const &c : cases) {
        fill({0, 5, 5.5, 20});
        type(upper, 3, L"6");
        EXPECT_EQ(taken_events(), 0) << c.what;
        EXPECT_TRUE(c.act()) << c.what;
        EXPECT_EQ(bounds(), c.bounds) << c.what;
        taken_events();
    }
    // A field makes another scale: what was typed into the former one goes with it.
    vx_stl_mngr_set_just_loaded(mngr.get(), false);
    type(upper, 3, L"6");
    ASSERT_TRUE(input::choose_item(edit->get_prp_scale()->get_combo_box(), L"Births"));
    EXPECT_EQ(vx_rng_scale_get_max(scale(), 1), 20);
}

TEST_F(rng_edit, captions_are_taken_without_a_report)
{
    fill({0, 10});
    type(caption, 1, L"low\n");
    type(caption, 2, L"Дом\n");
    type(caption, 3, L"high\n");
    EXPECT_EQ(read(&vx_rng_scale_get_min_caption_w) + L"|" + read(&vx_rng_scale_get_caption_w, 0U) + L"|" +
                  read(&vx_rng_scale_get_max_caption_w),
              L"low|Дом|high");
    EXPECT_EQ(taken_events(), 0);
    // The hint tells a row in one line.
    auto *const grid = edit->get_grid();
    std::pair<int, wchar_t const *> const hints[] = {
        {1, L"-INDEF..0.00 : low"}, {2, L"0.00..10.00 : Дом"}, {3, L"10.00..+INDEF : high"}};
    for (auto const &[row, hint] : hints) {
        TPoint const at = input::cell_point(grid, lower, row);
        ASSERT_TRUE(input::move(grid, at.X, at.Y));
        EXPECT_EQ(grid->GetHint(), hint);
    }
    ASSERT_TRUE(input::move(grid, input::cell_point(grid, style, 1).X, input::cell_point(grid, style, 1).Y));
    EXPECT_EQ(grid->GetHint(), L"");
}

TEST_F(rng_edit, inserts_into_gaps_and_halves_a_neighbour)
{
    auto const insert_at = [&](int row) {
        ASSERT_TRUE(click(caption, row));
        ASSERT_TRUE(input::click(edit->get_tool_panel()->get_ins_btn()));
        EXPECT_EQ(taken_events(), 1);
    };
    // An empty scale shows its two outer rows.
    vx_rng_scale_set_min_value(scale(), 3);
    vx_rng_scale_set_max_value(scale(), 3);
    edit->update_controls();
    EXPECT_EQ(edit->get_grid()->GetRowCount(), 3);
    insert_at(1);
    EXPECT_EQ(bounds(), "<3 3..3 >3");
    fill({0, 10, 30});
    set_color(0, vx_clr_init_grey(0));
    set_color(1, vx_clr_init_grey(200));
    insert_at(2); // in front of the current range, which touches the min row
    EXPECT_EQ(bounds(), "<0 0..5 5..10 10..30 >30");
    EXPECT_TRUE(color(0).r < color(1).r && color(1).r < color(2).r) << "a look between its neighbours";
    EXPECT_EQ(read(&vx_rng_scale_get_caption_w, 0U), L"0.00 - 5.00");
    insert_at(5); // at the max row: behind the last one
    EXPECT_EQ(bounds(), "<0 0..5 5..10 10..20 20..30 >30");
    insert_at(1); // at the min row: in front of all
    EXPECT_EQ(bounds(), "<0 0..2.5 2.5..5 5..10 10..20 20..30 >30");
    vx_rng_scale_set_max(scale(), 1, 4);
    insert_at(4); // a gap has room
    EXPECT_EQ(bounds(), "<0 0..2.5 2.5..4 4..5 5..10 10..20 20..30 >30");
}

TEST_F(rng_edit, marks_and_deletes_ranges_but_no_outer_rows)
{
    fill({0, 1, 2, 3});
    auto *const del = edit->get_tool_panel()->get_del_btn();
    struct
    {
        int row;
        TShiftState shift;
        char const *marks;
        bool deletes;
    } const steps[] = {
        {1, {}, "x....", false},      {5, {ssShift}, "xxxxx", true}, {3, {ssCtrl}, "xx.xx", true},
        {5, {}, "....x", false},      {1, {ssCtrl}, "x...x", false}, {2, {ssShift}, "xx..x", true},
        {4, {ssCtrl}, "xx.xx", true},
    };
    for (auto const &step : steps) {
        ASSERT_TRUE(click(mark, step.row, step.shift));
        EXPECT_EQ(marks(), step.marks);
        EXPECT_EQ(del->GetEnabled(), step.deletes);
    }
    EXPECT_EQ(taken_events(), 0);
    ASSERT_TRUE(input::click(del));
    EXPECT_EQ(bounds(), "<0 1..2 >3");
    EXPECT_EQ(marks(), "x.x");
    EXPECT_FALSE(del->GetEnabled());
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(rng_edit, drags_ranges_but_no_outer_rows)
{
    fill({0, 1, 2, 3});
    auto *const grid = edit->get_grid();
    std::string const before = bounds();
    ASSERT_TRUE(input::drag_cell(grid, mark, 1, mark, 4));
    ASSERT_TRUE(input::drag_cell(grid, mark, 5, mark, 2));
    EXPECT_EQ(bounds(), before);
    EXPECT_EQ(taken_events(), 0);
    ASSERT_TRUE(input::drag_cell(grid, mark, 2, mark, 5)); // onto the max row: last of the ranges
    EXPECT_EQ(bounds(), "<0 1..2 2..3 0..1 >3");
    ASSERT_TRUE(input::drag_cell(grid, mark, 3, mark, 1));
    EXPECT_EQ(bounds(), "<0 2..3 1..2 0..1 >3");
    EXPECT_EQ(taken_events(), 2);
}

TEST_F(rng_edit, keeps_a_coloured_file_for_each_field)
{
    give_files();
    values = {0.0, 100.0};
    auto *const combo = edit->get_prp_scale()->get_combo_box();
    ASSERT_TRUE(input::choose_item(combo, L"Births"));
    EXPECT_EQ(taken_events(), 1);
    ASSERT_TRUE(std::filesystem::exists(dir.path() / "table.field._rg"));
    EXPECT_TRUE(color(0).b > color(0).r && color(11).r > color(11).b) << "from blue to red";
    type(upper, 2, L"12\n");
    type(caption, 2, L"kept");
    edit->save_current_scl(); // with what is being typed
    fill({0, 1});
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"");
    edit->update_controls();
    ASSERT_TRUE(input::choose_item(combo, L"Births"));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(vx_rng_scale_get_max(scale(), 0), 12);
    EXPECT_EQ(read(&vx_rng_scale_get_caption_w, 0U), L"kept");
    // One that cannot be read is told, and the scale on hand stays.
    vx_test::write_file(dir / "table.field._rg", "no scale");
    fill({0, 1});
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"");
    edit->update_controls();
    ASSERT_TRUE(input::choose_item(combo, L"Births"));
    EXPECT_EQ(size(), 1U);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_TRUE(messages[0].starts_with(L"The scale file cannot be read."));
    messages.clear();
}

TEST_F(rng_edit, saves_opens_and_exports_by_the_filter)
{
    fill({0, 0.123456789, 2});
    auto *const panel = edit->get_tool_panel();
    next_file = (dir.path() / "mine.txt").wstring();
    ASSERT_TRUE(input::click(panel->get_save_btn()));
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "mine._rg"));
    next_filter_index = 2;
    ASSERT_TRUE(input::click(panel->get_save_btn()));
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "mine.xml"));
    EXPECT_NE(vx_test::read_file(dir / "mine.xml").find("<ColorMap"), std::string::npos);
    EXPECT_EQ(asked_file.file_name, (dir.path() / "mine._rg").wstring())
        << "an export is not the scale's file";
    says_yes = false;
    vx_test::write_file(dir / "mine.xml", "precious");
    ASSERT_TRUE(input::click(panel->get_save_btn()));
    EXPECT_EQ(vx_test::read_file(dir / "mine.xml"), "precious");

    std::string const before = bounds();
    fill({5, 6});
    ASSERT_TRUE(input::click(panel->get_open_btn())); // the suffix of scales, whatever was chosen
    EXPECT_EQ(bounds(), before);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_TRUE(vx_stl_mngr_get_just_loaded(mngr.get()));
    values = {0.0, 100.0};
    ASSERT_TRUE(input::choose_item(edit->get_prp_scale()->get_combo_box(), L"Births"));
    EXPECT_EQ(bounds(), before) << "what was loaded survives the first field";
    EXPECT_EQ(taken_events(), 1);
    EXPECT_FALSE(vx_stl_mngr_get_just_loaded(mngr.get()));

    next_file = (dir.path() / "none._rg").wstring();
    ASSERT_TRUE(input::click(panel->get_open_btn()));
    EXPECT_EQ(messages.size(), 1U);
    messages.clear();
    EXPECT_EQ(bounds(), before);
    EXPECT_EQ(taken_events(), 0);
    EXPECT_FALSE(vx_stl_mngr_get_just_loaded(mngr.get()));
}

TEST_F(rng_edit, tells_what_the_current_row_holds)
{
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"births");
    values = {0.0, 0.5, 10.0, 10.5, 20.0, 20.5, 21.0, 22.0, std::nullopt};
    fill({0, 10, 20});
    vx_rng_scale_set_max(scale(), 0, 9);
    edit->update_controls();
    cells_read = 0;
    EXPECT_EQ(line(), L"x ≤ 0.00");
    EXPECT_EQ(cells_read, 0) << "nobody has asked yet";
    std::pair<int, wchar_t const *> const lines[] = {{2, L"0.00 < x ≤ 9.00: objects 1, other values 2"},
                                                     {3, L"10.00 < x ≤ 20.00: objects 2, other values 2"},
                                                     {4, L"x > 20.00: objects 3, other values 2"},
                                                     {1, L"x ≤ 0.00: objects 1, other values 2"}};
    for (auto const &[row, text] : lines) {
        ASSERT_TRUE(click(caption, row));
        EXPECT_EQ(line(), text);
    }
    ASSERT_TRUE(click(visible, 2));
    type(caption, 3, L"x\n");
    EXPECT_EQ(cells_read, 9) << "kept through what moves no object";
    type(upper, 2, L"10\n");
    EXPECT_EQ(line(), L"0.00 < x ≤ 10.00: objects 2, other values 1");
    EXPECT_EQ(cells_read, 18);
    // Bounds that take a number in are written as the number.
    vx_rng_scale_set_round_digits(scale(), -30);
    vx_rng_scale_set_min(scale(), 0, std::nextafter(0.5, 0));
    vx_rng_scale_set_min_value(scale(), std::nextafter(0.0, -1));
    edit->update_controls();
    EXPECT_EQ(line(), L"0.5 ≤ x ≤ 10: objects 2, other values 2");
    ASSERT_TRUE(click(caption, 1));
    EXPECT_EQ(line(), L"x < 0: objects 0, other values 2");
    vx_rng_scale_set_round_digits(scale(), -2);
    vx_rng_scale_set_min(scale(), 0, 0);
    vx_rng_scale_set_min_value(scale(), 0);
    ASSERT_TRUE(click(caption, 2));
    cells_read = 18;
    values.emplace_back(3.0);
    edit->update_controls(); // the owner has other data
    EXPECT_EQ(line(), L"0.00 < x ≤ 10.00: objects 3, other values 1");
    EXPECT_EQ(cells_read, 28);
    // Little room takes the less important away, never a part of a number.
    form.SetWidth(460);
    input::wait_idle();
    EXPECT_EQ(line(), L"0.00 < x ≤ 10.00: objects 3, other values 1");
    form.SetWidth(290);
    input::wait_idle();
    EXPECT_EQ(line(), L"3");
    EXPECT_NE(edit->get_row_line()->GetHint().str().find(L"0.00 < x ≤ 10.00"), std::wstring::npos);
    EXPECT_EQ(cells_read, 28);
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"gone");
    edit->update_controls();
    EXPECT_EQ(line(), L"0");
    has_data = false;
    edit->update_controls();
    EXPECT_EQ(cells_read, 28);
}

TEST_F(rng_edit, writes_the_other_row_and_does_nothing_without_a_manager)
{
    vx_scale_prm_set_visible(vx_rng_scale_get_other_prm_ptr(scale()), true);
    edit->update_controls();
    ASSERT_TRUE(input::enter_text(edit->get_other_panel()->get_cpt_edit(), L"z"));
    EXPECT_EQ(read(&vx_rng_scale_get_other_caption_w), L"z");
    EXPECT_EQ(taken_events(), 1);
    edit->set_stl_mngr(nullptr);
    edit->update_controls();
    EXPECT_EQ(edit->get_grid()->GetRowCount(), 2);
    EXPECT_FALSE(edit->get_build_btn()->GetEnabled());
    EXPECT_FALSE(edit->get_rescale_btn()->GetEnabled());
    EXPECT_EQ(line(), L"");
    for (int col = mark; col <= sel_style; ++col)
        EXPECT_TRUE(click(col, 1));
    EXPECT_FALSE(edit->get_tool_panel()->get_ins_btn()->GetEnabled());
    EXPECT_TRUE(input::click(edit->get_tool_panel()->get_open_btn()));
    EXPECT_TRUE(input::click(edit->get_tool_panel()->get_save_btn()));
    edit->save_current_scl();
    edit->fill_scale();
    edit->generate_default_scale();
    edit->generate_default_scale_with_clr();
    EXPECT_EQ(taken_events(), 0);
}
