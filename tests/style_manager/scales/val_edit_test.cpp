#include "style_manager/scales/val_edit.h"
#include "tests/style_manager/scales/scale_edit_form.h"

#include "platform/calculator/vx_calc_filter.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
enum : int
{
    mark,
    text,
    caption,
    visible,
    style,
    sel_style
};

/// An editor over a table with a geometry and a text.
class val_edit : public scale_edit_form<Tvx_val_edit>
{
protected:
    explicit val_edit(bool rule = false) : is_rule(rule) {}
    void SetUp() override
    {
        prop_form::SetUp();
        form.SetBounds(50, 50, 460, 420);
        show(new Tvx_val_edit(&form, is_rule));
        edit->on_changed = recorder();
        edit->set_on_draw_style(make_closure<&val_edit::draw>(this));
        edit->set_on_edit_value_item(make_closure<&val_edit::edit_item>(this));
        edit->update_controls();
    }

    // ---- the owner
    /// Stripes of a pixel of its own each.
    void draw(TObject *, TBitmap *bitmap, void *, bool)
    {
        ++draws;
        vx_bitmap_set_pixel_scale(*bitmap, 1);
        for (int x = 0; x < bitmap->GetWidth(); ++x) {
            bitmap->GetCanvas()->GetBrush()->SetColor(x % 2 ? clWhite : clBlack);
            bitmap->GetCanvas()->FillRect(Rect(x, 0, x + 1, bitmap->GetHeight()));
        }
        vx_bitmap_set_pixel_scale(*bitmap, vx_screen_pixel_scale());
    }
    bool edit_item(std::wstring &item)
    {
        seen_item = item;
        item = next_item;
        return accepts;
    }
    unsigned np(TObject *) override { return 2; }
    unsigned no(TObject *) override { return static_cast<unsigned>(cells.size()); }
    char const *prop(TObject *, unsigned i, bool &usable, bool &numeric) override
    {
        usable = i == 1;
        numeric = false;
        return i == 1 ? "Kind" : "GEOM";
    }
    char const *str(TObject *, unsigned prop_index, unsigned i, bool &defined) override
    {
        EXPECT_EQ(prop_index, 1U);
        defined = cells[i] != "-";
        buffer = cells[i]; // the text lives until the next call only
        return buffer.c_str();
    }

    // ---- the scale
    unsigned size() const { return vx_val_scale_get_size(scale()); }
    void fill(std::vector<std::wstring> const &texts)
    {
        vx_val_scale_set_size(scale(), 0);
        vx_val_scale_set_size(scale(), static_cast<unsigned>(texts.size()));
        for (unsigned i = 0; i < texts.size(); ++i) {
            vx_val_scale_set_text_w(scale(), i, texts[i].c_str());
            vx_val_scale_set_caption_w(scale(), i, texts[i].c_str());
        }
        edit->update_controls();
    }
    std::wstring all(bool captions = false) const
    {
        std::wstring result;
        for (unsigned i = 0; i < size(); ++i)
            result += read(captions ? &vx_val_scale_get_caption_w : &vx_val_scale_get_text_w, i) + L"|";
        return result;
    }

    bool const is_rule;
    std::vector<std::string> cells;
    std::string buffer;
    std::wstring seen_item, next_item;
    int draws = 0;
};

class rule_edit : public val_edit
{
protected:
    rule_edit() : val_edit(true) {}
};
} // namespace

TEST_F(val_edit, marks_by_click_shift_and_ctrl)
{
    fill({L"a", L"b", L"c", L"d", L"e"});
    auto *const del = edit->get_grid()->get_del_action();
    EXPECT_FALSE(del->GetEnabled());
    struct
    {
        int col, row;
        TShiftState shift;
        char const *marks;
    } const steps[] = {
        {mark, 2, {}, ".x..."},        {mark, 2, {}, ".x..."},        {mark, 4, {ssShift}, ".xxx."},
        {mark, 3, {ssCtrl}, ".x.x."},  {mark, 5, {ssShift}, ".xxxx"}, {mark, 1, {}, "x...."},
        {visible, 3, {}, "x...."}, // another command forgets the anchor
        {mark, 4, {ssShift}, "x..x."}, {mark, 4, {ssCtrl}, "x...."},  {mark, 1, {ssCtrl}, "....."},
    };
    for (auto const &step : steps) {
        ASSERT_TRUE(click(step.col, step.row, step.shift));
        EXPECT_EQ(marks(), step.marks);
        EXPECT_EQ(del->GetEnabled(), marks() != ".....");
    }
    EXPECT_EQ(taken_events(), 1); // the visibility; marks are no change
    ASSERT_TRUE(click(mark, 2));
    ASSERT_TRUE(click(mark, 4, {ssCtrl}));
    ASSERT_TRUE(input::click(edit->get_del_btn()));
    EXPECT_EQ(all(), L"a|c|e|");
    EXPECT_EQ(taken_events(), 1);
    EXPECT_FALSE(del->GetEnabled());
    // Neither deletion nor insertion moves the anchor.
    ASSERT_TRUE(click(mark, 1));
    ASSERT_TRUE(input::click(edit->get_ins_btn()));
    ASSERT_TRUE(click(mark, 3, {ssShift}));
    EXPECT_EQ(marks(), "xxx.");
    ASSERT_TRUE(input::click(edit->get_del_btn()));
    EXPECT_EQ(all(), L"e|");
    ASSERT_TRUE(click(mark, 1, {ssShift}));
    EXPECT_EQ(marks(), "x");
}

TEST_F(val_edit, shows_and_hides_entries)
{
    fill({L"a", L"b", L"c", L"d"});
    ASSERT_TRUE(click(visible, 2));
    EXPECT_EQ(visibles(), "x.xx");
    ASSERT_TRUE(click(visible, 4, {ssShift})); // from the row left behind, by its inverse
    EXPECT_EQ(visibles(), "xxxx");
    ASSERT_TRUE(click(visible, 1, {ssShift}));
    EXPECT_EQ(visibles(), "....");
    EXPECT_EQ(taken_events(), 3);
    // The row left behind is gone by now.
    ASSERT_TRUE(click(visible, 4));
    ASSERT_TRUE(click(text, 1));
    vx_val_scale_set_size(scale(), 2);
    edit->update_controls();
    ASSERT_TRUE(click(visible, 2, {ssShift}));
    EXPECT_EQ(size(), 2U);
}

TEST_F(val_edit, inserts_moves_and_keeps_an_empty_row)
{
    EXPECT_EQ(edit->get_grid()->GetRowCount(), 2);
    ASSERT_TRUE(click(visible, 1));
    ASSERT_TRUE(click(mark, 1));
    EXPECT_EQ(taken_events(), 0);
    ASSERT_TRUE(input::click(edit->get_ins_btn()));
    EXPECT_EQ(size(), 1U);
    EXPECT_EQ(taken_events(), 1);
    fill({L"a", L"b", L"c"});
    ASSERT_TRUE(click(text, 2));
    ASSERT_TRUE(input::click(edit->get_ins_btn()));
    EXPECT_EQ(all(), L"a||b|c|");
    EXPECT_EQ(taken_events(), 1);
    fill({L"a", L"b", L"c"});
    ASSERT_TRUE(input::drag_cell(edit->get_grid(), 0, 1, 0, 3));
    EXPECT_EQ(all(), L"b|c|a|");
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(val_edit, makes_the_default_scale_of_the_property)
{
    cells = {" b ", "a", "-", "", "b", "Z"};
    auto *const combo = edit->get_prp_scale()->get_combo_box();
    ASSERT_TRUE(input::choose_item(combo, L"Kind"));
    EXPECT_EQ(all(), L"|Z|a|b|");
    EXPECT_EQ(all(true), L"|Z|a|b|");
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(questions, 0);
    EXPECT_STREQ(vx_stl_mngr_get_val_prop_name(mngr.get()), "Kind");
    // A missing data set keeps the old scale.
    has_data = false;
    edit->generate_default_scale();
    EXPECT_EQ(size(), 4U);
    has_data = true;

    for (int const count : {999, 1000, 1500}) {
        cells.clear();
        for (int i = 0; i < count; ++i)
            cells.push_back(std::to_string(100000 + i));
        for (bool const goes_on : {false, true}) {
            says_yes = goes_on;
            questions = 0;
            edit->generate_default_scale();
            EXPECT_EQ(questions, count >= 1000 ? 1 : 0);
            EXPECT_EQ(size(), static_cast<unsigned>(count < 1000 || goes_on ? count : 1000));
        }
    }
}

TEST_F(val_edit, keeps_a_file_for_each_property_and_spares_a_loaded_scale)
{
    give_files();
    cells = {"a", "b"};
    auto *const combo = edit->get_prp_scale()->get_combo_box();
    ASSERT_TRUE(input::choose_item(combo, L"Kind"));
    auto const file = dir.path() / "table.field._vl";
    ASSERT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(taken_events(), 1);
    vx_val_scale_set_caption_w(scale(), 0, L"kept");
    edit->save_current_scl();
    fill({L"x"});
    vx_stl_mngr_set_val_prop_name_w(mngr.get(), L"");
    edit->update_controls();
    ASSERT_TRUE(input::choose_item(combo, L"Kind"));
    EXPECT_EQ(all(true), L"kept|b|");
    EXPECT_EQ(taken_events(), 1);

    // Saved and opened by hand, with whatever is typed behind the name.
    next_file = (dir.path() / "mine.txt").wstring();
    ASSERT_TRUE(input::click(edit->get_save_btn()));
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "mine._vl"));
    fill({L"x"});
    vx_stl_mngr_set_val_prop_name_w(mngr.get(), L"");
    ASSERT_TRUE(input::click(edit->get_open_btn()));
    EXPECT_EQ(all(true), L"kept|b|");
    EXPECT_EQ(taken_events(), 1);
    cells = {"q"};
    ASSERT_TRUE(input::choose_item(combo, L"Kind"));
    EXPECT_EQ(all(true), L"kept|b|");
    EXPECT_FALSE(vx_stl_mngr_get_just_loaded(mngr.get()));
    EXPECT_EQ(taken_events(), 1);

    next_file = (dir.path() / "none._vl").wstring();
    ASSERT_TRUE(input::click(edit->get_open_btn()));
    EXPECT_EQ(std::exchange(messages, {}).size(), 1U);
    vx_test::write_file(dir / "none._vl", "<vx_scale version=\"1\"\n kind=value/>");
    ASSERT_TRUE(input::click(edit->get_open_btn()));
    EXPECT_EQ(std::exchange(messages, {}),
              (std::vector{L"The scale file cannot be read.\n\nThe file \"" + next_file.str() +
                           L"\" was not loaded; line 2: an attribute is not written as name=\"value\"."}));
    EXPECT_EQ(all(true), L"kept|b|");
    EXPECT_EQ(taken_events(), 0);
    EXPECT_FALSE(vx_stl_mngr_get_just_loaded(mngr.get()));
}

TEST_F(val_edit, draws_samples_in_the_pixels_of_the_screen)
{
    fill({L"a", L"b"});
    input::wait_idle();
    auto *const grid = edit->get_grid();
    ASSERT_TRUE(input::save_shot(grid, (dir.path() / "grid.png").wstring()));
    TBitmap shot;
    ASSERT_TRUE(shot.LoadFromFile((dir.path() / "grid.png").wstring()));
    int const scale = vx_screen_pixel_scale();
    ASSERT_EQ(shot.GetWidth(), grid->GetWidth() * scale);
    TPoint const middle = input::cell_point(grid, 4, 1);
    for (int x = middle.X * scale; x < middle.X * scale + 8; ++x)
        EXPECT_NE(shot.GetCanvas()->GetPixel(x, middle.Y * scale),
                  shot.GetCanvas()->GetPixel(x + 1, middle.Y * scale))
            << x << ": a stripe has lost its edge at " << scale << " pixels";
}

TEST_F(val_edit, draws_samples_once_and_never_an_old_one)
{
    std::vector<std::wstring> texts(3000, L"t");
    fill(texts);
    auto *const grid = edit->get_grid();
    input::wait_idle();
    for (int row = 1; row + 20 < 900; row += 10) {
        grid->SetTopRow(row);
        grid->Update();
    }
    int const drawn = std::exchange(draws, 0);
    EXPECT_LE(drawn, 2 * (900 + 40));
    for (int row = 870; row > 0; row -= 10) {
        grid->SetTopRow(row);
        grid->Update();
    }
    EXPECT_EQ(std::exchange(draws, 0), 0);
    auto *const prm = vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale(), 4));
    vx_stl_prm_set_color(prm, false, vx_clr_init_rgb(9, 9, 9));
    grid->SetTopRow(1);
    edit->update_controls();
    grid->Update();
    EXPECT_GE(draws, 1);
    EXPECT_LE(draws, 4); // both styles of the entry, and of the other row, which is painted with its panel
}

TEST_F(rule_edit, edits_filters_by_its_owner)
{
    EXPECT_FALSE(edit->get_prp_scale()->GetVisible());
    vx::owned<void, &vx_calc_filter_destroy> const filter(vx_calc_filter_create());
    vx_calc_filter_add(filter.get(), 1, L"A", c_calc_filter_rel_equal, L"5", c_calc_filter_logic_empty, 0);
    Tvx_std_wstring_adapter adapter(next_item);
    vx_calc_filter_to_str(filter.get(), adapter);
    std::wstring const rule = next_item;
    ASSERT_TRUE(input::click(edit->get_ins_btn()));
    ASSERT_EQ(size(), 1U);
    EXPECT_EQ(seen_item, L"");
    EXPECT_EQ(read(&vx_val_scale_get_text_w, 0), rule);
    auto const shown = read(&vx_val_scale_get_caption_w, 0);
    EXPECT_NE(shown.find(L"="), std::wstring::npos);
    EXPECT_EQ(taken_events(), 1);
    // No editing in place of the filter; a double click asks the owner, and the caption stays.
    ASSERT_TRUE(click(text, 1));
    ASSERT_TRUE(input::press(VK_F2));
    EXPECT_FALSE(edit->get_grid()->GetEditorMode());
    taken_events();
    next_item = L"";
    ASSERT_TRUE(input::double_click_cell(edit->get_grid(), text, 1));
    EXPECT_EQ(seen_item, rule);
    EXPECT_EQ(read(&vx_val_scale_get_text_w, 0), L"");
    EXPECT_EQ(read(&vx_val_scale_get_caption_w, 0), shown);
    EXPECT_EQ(taken_events(), 1);
    accepts = false;
    ASSERT_TRUE(input::click(edit->get_ins_btn()));
    EXPECT_EQ(size(), 1U);
    EXPECT_EQ(taken_events(), 0);
}
