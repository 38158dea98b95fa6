#include "grids_fixture.h"

#include "platform/toolkit/grids/color_grid.h"
#include "platform/toolkit/grids/string_grid.h"

#include <algorithm>
#include <chrono>
#include <set>

using namespace vx::user_input;

// ---- painting

TEST_F(grid_test, paints_what_is_seen_and_nothing_else)
{
    grid->SetRowCount(1'000'000);
    grid->SetTopRow(500'000);
    wait_idle();
    grid->drawn.clear();
    grid->Repaint();
    std::set<cell> const drawn(grid->drawn.begin(), grid->drawn.end());
    EXPECT_EQ(drawn.size(), 6u * 9u);
    EXPECT_EQ(drawn.size(), grid->drawn.size()) << "each cell once";
    EXPECT_TRUE(drawn.contains({0, 0}));
    EXPECT_TRUE(drawn.contains({0, 500'000}));
    EXPECT_TRUE(drawn.contains({5, 500'007}));
    EXPECT_FALSE(drawn.contains({0, 500'008}));

    grid->drawn.clear();
    grid->InvalidateCell(2, 500'003);
    wait_idle();
    EXPECT_EQ(grid->drawn, (std::vector<cell>{{2, 500'003}}));
    grid->drawn.clear();
    grid->InvalidateCell(2, 3); // out of sight
    wait_idle();
    EXPECT_TRUE(grid->drawn.empty());
}

TEST_F(grid_test, a_million_rows_are_scrolled_in_no_time)
{
    auto const start = std::chrono::steady_clock::now();
    grid->SetRowCount(1'000'000);
    for (int i = 0; i < 2'000; ++i)
        grid->SetRowHeights(i * 17, 30);
    for (int i = 0; i < 2'000; ++i)
        grid->SetTopRow(1 + i * 499);
    grid->SetRow(999'999);
    EXPECT_EQ(grid->GetRow(), 999'999);
    EXPECT_FALSE(grid->CellRect(1, 999'999).IsEmpty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

// ---- keyboard

namespace {
struct key_case
{
    char const *what;
    Word key;
    TShiftState shift;
    cell from;
    cell to;
    int top;
};
} // namespace

TEST_F(grid_test, keys_move_the_current_cell)
{
    std::vector<key_case> const cases{
        {"right", VK_RIGHT, {}, {1, 1}, {2, 1}, 1},
        {"left stops at the fixed columns", VK_LEFT, {}, {1, 3}, {1, 3}, 1},
        {"down", VK_DOWN, {}, {3, 1}, {3, 2}, 1},
        {"down scrolls", VK_DOWN, {}, {3, 8}, {3, 9}, 2},
        {"up stops at the fixed rows", VK_UP, {}, {3, 1}, {3, 1}, 1},
        {"page down", VK_NEXT, {}, {2, 2}, {2, 10}, 9},
        {"page down at the end", VK_NEXT, {}, {2, 38}, {2, 39}, 32},
        {"page up", VK_PRIOR, {}, {2, 3}, {2, 1}, 1},
        {"home", VK_HOME, {}, {4, 5}, {1, 5}, 1},
        {"end", VK_END, {}, {2, 5}, {5, 5}, 1},
        {"first cell", VK_HOME, {ssCtrl}, {4, 9}, {1, 1}, 1},
        {"last cell", VK_END, {ssCtrl}, {2, 2}, {5, 39}, 32},
        {"last row seen", VK_NEXT, {ssCtrl}, {2, 2}, {2, 8}, 1},
        {"top row seen", VK_PRIOR, {ssCtrl}, {2, 6}, {2, 1}, 1},
        {"scroll without the cell", VK_DOWN, {ssCtrl}, {2, 6}, {2, 6}, 2},
    };
    for (key_case const &c : cases) {
        SCOPED_TRACE(c.what);
        grid->SetCol(c.from.first);
        grid->SetRow(c.from.second);
        grid->SetTopRow(1);
        ASSERT_TRUE(press(c.key, c.shift));
        EXPECT_EQ(current(), c.to);
        EXPECT_EQ(grid->GetTopRow(), c.top);
    }
}

TEST_F(grid_test, shift_extends_the_selection)
{
    grid->SetCol(2);
    grid->SetRow(2);
    press(VK_DOWN, {ssShift});
    press(VK_RIGHT, {ssShift});
    EXPECT_EQ(grid->GetSelection(), (TGridRect{2, 2, 3, 3}));
    press(VK_DOWN);
    EXPECT_EQ(grid->GetSelection(), (TGridRect{3, 4, 3, 4}));

    grid->SetOptions(grid->GetOptions() >> goRangeSelect);
    press(VK_DOWN, {ssShift});
    EXPECT_EQ(grid->GetSelection(), (TGridRect{3, 5, 3, 5}));

    grid->SetOptions(grid->GetOptions() << goRowSelect);
    EXPECT_EQ(grid->GetSelection(), (TGridRect{1, 5, 5, 5}));
    press(VK_RIGHT);
    EXPECT_EQ(grid->GetSelection(), (TGridRect{1, 6, 5, 6}));
}

TEST_F(grid_test, tab_leaves_the_grid_or_goes_through_it)
{
    press(VK_TAB);
    EXPECT_TRUE(edit->Focused());
    grid->SetFocus();
    grid->SetOptions(grid->GetOptions() << goTabs);
    grid->SetTabStops(2, false);
    press(VK_TAB);
    EXPECT_EQ(current(), cell(3, 1));
    grid->SetCol(5);
    press(VK_TAB);
    EXPECT_EQ(current(), cell(1, 2));
    press(VK_TAB, {ssShift});
    EXPECT_EQ(current(), cell(5, 1));
    EXPECT_TRUE(grid->Focused());
}

TEST_F(grid_test, a_refused_cell_becomes_current_by_no_means)
{
    grid->refused_col = 2;
    press(VK_RIGHT);
    EXPECT_EQ(current(), cell(1, 1));
    click_cell(grid, 2, 4);
    EXPECT_EQ(current(), cell(1, 1));
    grid->SetCol(2);
    EXPECT_EQ(current(), cell(1, 1));
    EXPECT_EQ(grid->selected, (std::vector<cell>{{2, 1}, {2, 4}, {2, 1}}));
}

TEST_F(grid_test, keys_do_what_the_mouse_does)
{
    struct mouse_log
    {
        lines log;
        probe_grid *grid = nullptr;
        void on_mouse_up(TObject *, TMouseButton, TShiftState shift, int x, int y)
        {
            TGridCoord const at = grid->MouseCoord(x, y);
            log.push_back((shift.Contains(ssShift) ? "S " : "") + std::to_string(at.X) + "," +
                          std::to_string(at.Y));
        }
        void on_double_click(TObject *) { log.push_back("double"); }
    } m;
    m.grid = grid;
    grid->OnMouseUp = make_closure<&mouse_log::on_mouse_up>(&m);
    grid->OnDblClick = make_closure<&mouse_log::on_double_click>(&m);
    grid->SetCol(3);
    grid->SetRow(4);
    press(VK_SPACE);
    press(VK_SPACE, {ssShift});
    press(VK_SPACE, {ssCtrl, ssAlt});
    press(VK_RETURN, {ssCtrl, ssAlt, ssShift});
    press(VK_F2);
    EXPECT_EQ(m.log, (lines{"3,4", "S 3,4", "3,0", "S 0,4", "double"}));
    EXPECT_EQ(current(), cell(3, 4));

    m.log.clear();
    grid->SetOptions(grid->GetOptions() << goEditing);
    press(VK_SPACE);
    EXPECT_EQ(m.log, lines{}) << "a character of the text";
    EXPECT_EQ(grid->texts[cell(3, 4)], L" ");
}

// ---- mouse

TEST_F(grid_test, mouse_selects_cells)
{
    EXPECT_TRUE(click_cell(grid, 3, 4));
    EXPECT_EQ(current(), cell(3, 4));
    EXPECT_TRUE(click_cell(grid, 0, 5));
    EXPECT_EQ(current(), cell(3, 4)) << "a fixed cell";
    EXPECT_TRUE(drag_cell(grid, 2, 2, 4, 5));
    EXPECT_EQ(grid->GetSelection(), (TGridRect{2, 2, 4, 5}));
    EXPECT_TRUE(click_cell(grid, 1, 3, mbLeft, {ssShift}));
    EXPECT_EQ(grid->GetSelection(), (TGridRect{1, 2, 2, 3}));
    EXPECT_FALSE(click_cell(grid, 1, 30)) << "out of sight";
}

TEST_F(grid_test, click_runs_once_for_each_cell_that_was_chosen)
{
    struct counter
    {
        int clicks = 0;
        void on_click(TObject *) { ++clicks; }
    } c;
    grid->OnClick = make_closure<&counter::on_click>(&c);
    click_cell(grid, 3, 4);
    EXPECT_EQ(c.clicks, 1);
    press(VK_DOWN);
    EXPECT_EQ(c.clicks, 2);
    grid->SetOptions(grid->GetOptions() << goEditing);
    click_cell(grid, 2, 2);
    EXPECT_EQ(c.clicks, 3);
    click_cell(grid, 0, 2);
    EXPECT_EQ(c.clicks, 3) << "a fixed cell";
}

TEST_F(grid_test, wheel_moves_the_current_row)
{
    EXPECT_TRUE(wheel(grid, -3));
    EXPECT_EQ(current(), cell(1, 4));
    EXPECT_TRUE(wheel(grid, 5));
    EXPECT_EQ(current(), cell(1, 1));
}

TEST_F(grid_test, rows_and_columns_are_moved_by_their_fixed_cells)
{
    drag_cell(grid, 0, 2, 0, 5);
    EXPECT_EQ(take_log(), lines{}) << "not allowed yet";
    grid->SetOptions(grid->GetOptions() << goRowMoving << goColMoving);
    grid->SetRowHeights(2, 29);
    grid->SetRow(3);
    take_log();
    drag_cell(grid, 0, 2, 0, 5);
    EXPECT_EQ(take_log(), lines{"row 2 to 5"});
    EXPECT_EQ(grid->GetRowHeights(5), 29) << "the height goes along";
    EXPECT_EQ(grid->GetRow(), 2) << "and so does the current row";
    drag_cell(grid, 0, 4, 0, 4);
    EXPECT_EQ(take_log(), lines{}) << "back in its place";
    drag_cell(grid, 3, 0, 1, 0);
    EXPECT_EQ(take_log(), lines{"col 3 to 1"});

    // The same without a mouse.
    press(VK_DOWN, {ssCtrl, ssAlt});
    EXPECT_EQ(take_log(), lines{"row 2 to 3"});
    EXPECT_EQ(grid->GetRow(), 3);

    // Beyond the last row seen: the grid scrolls and the last row is the target.
    grid->SetRowCount(6);
    take_log();
    TPoint const from = cell_point(grid, 0, 1);
    drag(grid, from.X, from.Y, from.X, 175);
    EXPECT_EQ(take_log(), lines{"row 1 to 5"});

    mouse_down(grid, from.X, from.Y);
    move(grid, from.X, from.Y + 45);
    press(VK_ESCAPE);
    mouse_up(grid, from.X, from.Y + 45);
    EXPECT_EQ(take_log(), lines{}) << "given up by Esc";
}

TEST_F(grid_test, columns_are_sized_at_their_edges)
{
    TRect const header = grid->CellRect(2, 0);
    drag(grid, header.Right, 5, header.Right + 30, 5);
    EXPECT_EQ(grid->GetColWidths(2), 49) << "not allowed yet";
    grid->SetOptions(grid->GetOptions() << goColSizing << goRowSizing);
    take_log();
    drag(grid, header.Right + 2, 5, header.Right + 32, 5);
    EXPECT_EQ(grid->GetColWidths(2), 79);
    EXPECT_EQ(take_log(), lines{"widths"}) << "once, at the end";
    drag(grid, header.Right + 30 + 10, 5, header.Right + 90, 5);
    EXPECT_EQ(grid->GetColWidths(3), 49) << "not at the edge";
    drag(grid, 20, grid->CellRect(0, 1).Bottom, 20, grid->CellRect(0, 1).Bottom + 7);
    EXPECT_EQ(grid->GetRowHeights(1), 26);
    take_log();
    press(VK_RIGHT, {ssCtrl, ssAlt, ssShift});
    EXPECT_EQ(grid->GetColWidths(grid->GetCol()), 57);
    EXPECT_EQ(current(), cell(grid->GetCol(), grid->GetRow()));
}

// ---- editing in place

TEST_F(grid_test, a_click_on_the_current_cell_edits_it)
{
    grid->SetOptions(grid->GetOptions() << goEditing);
    grid->texts[{2, 2}] = L"old";
    click_cell(grid, 2, 2);
    EXPECT_FALSE(grid->GetEditorMode());
    click_cell(grid, 2, 2);
    ASSERT_TRUE(grid->GetEditorMode());
    ASSERT_TRUE(grid->GetInplaceEditor()->Focused());
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"old");
    EXPECT_EQ(grid->GetInplaceEditor()->GetBoundsRect(), grid->CellRect(2, 2));
    EXPECT_EQ(take_log(), lines{}) << "opening tells nothing";
    type(L"ab");
    EXPECT_EQ(take_log(), (lines{"typed 2,2 a", "typed 2,2 ab"}));
    press(VK_RETURN);
    EXPECT_EQ(take_log(), lines{"closed 2,2 ab"});
    EXPECT_FALSE(grid->GetEditorMode());
    EXPECT_TRUE(grid->Focused());
}

TEST_F(grid_test, keys_open_and_close_the_editor)
{
    grid->SetOptions(grid->GetOptions() << goEditing);
    grid->texts[{1, 1}] = L"old";
    press(VK_F2);
    type(L"!");
    EXPECT_EQ(take_log(), lines{"typed 1,1 old!"}) << "F2 leaves the text";
    press(VK_ESCAPE);
    EXPECT_FALSE(grid->GetEditorMode());
    EXPECT_EQ(grid->texts[cell(1, 1)], L"old") << "Esc takes it back";
    take_log();

    type(L"x");
    ASSERT_TRUE(grid->GetEditorMode());
    type(L"y");
    press(VK_DOWN);
    EXPECT_EQ(take_log(), (lines{"typed 1,1 x", "typed 1,1 xy", "closed 1,1 xy"}))
        << "typing replaces the text";
    EXPECT_EQ(current(), cell(1, 2));
    EXPECT_FALSE(grid->GetEditorMode());

    press(VK_RETURN);
    EXPECT_TRUE(grid->GetEditorMode());
    grid->SetTopRow(20);
    EXPECT_FALSE(grid->GetInplaceEditor()->GetVisible()) << "scrolled out of sight";
    grid->SetTopRow(1);
    EXPECT_TRUE(grid->GetInplaceEditor()->GetVisible());
}

TEST_F(grid_test, leaving_the_grid_ends_the_editing_first)
{
    grid->SetOptions(grid->GetOptions() << goEditing);
    press(VK_F2);
    EXPECT_EQ(take_log(), lines{}) << "the focus in the editor has not left the grid";
    type(L"q");
    click(edit);
    EXPECT_EQ(take_log(), (lines{"typed 1,1 q", "closed 1,1 q", "exit"}));
    EXPECT_TRUE(edit->Focused());
}

TEST_F(grid_test, keys_pass_the_grid_before_its_editor)
{
    struct filter
    {
        std::wstring seen;
        void on_key_press(TObject *, wchar_t &key)
        {
            seen += key;
            key = key == L',' ? L'.' : key == L'x' ? wchar_t(0) : key;
        }
    } f;
    grid->SetOptions(grid->GetOptions() << goEditing);
    grid->OnKeyPress = make_closure<&filter::on_key_press>(&f);
    press(VK_F2);
    type(L"1,x5");
    EXPECT_EQ(f.seen, L"1,x5");
    EXPECT_EQ(grid->texts[cell(1, 1)], L"1.5");
    press(VK_RETURN);
    EXPECT_EQ(f.seen, L"1,x5\r");
    // The character that opens the editor passes too, and once.
    type(L",");
    EXPECT_EQ(f.seen, L"1,x5\r,");
    EXPECT_EQ(grid->texts[cell(1, 1)], L".");
}

TEST_F(grid_test, select_cell_may_switch_editing_for_the_cell)
{
    grid->editing_col = 2;
    click_cell(grid, 2, 3);
    EXPECT_FALSE(grid->GetEditorMode());
    click_cell(grid, 2, 3);
    ASSERT_TRUE(grid->GetEditorMode());
    type(L"z");
    take_log();
    click_cell(grid, 3, 3);
    EXPECT_EQ(take_log(), lines{"closed 2,3 z"});
    click_cell(grid, 3, 3);
    EXPECT_FALSE(grid->GetEditorMode());
}

TEST_F(grid_test, always_show_editor_walks_from_cell_to_cell)
{
    grid->SetOptions(grid->GetOptions() << goEditing << goAlwaysShowEditor << goTabs);
    grid->texts[{2, 1}] = L"two";
    ASSERT_TRUE(grid->GetEditorMode());
    type(L"a");
    take_log();
    press(VK_TAB);
    EXPECT_EQ(current(), cell(2, 1));
    EXPECT_EQ(take_log(), lines{"typed 1,1 a"}) << "told once more when the editor goes on";
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"two");
    press(VK_LEFT); // all is selected: the text has no place to go to
    EXPECT_EQ(current(), cell(1, 1));
}

// ---- counts

TEST_F(grid_test, counts_keep_the_state_inside)
{
    grid->SetCol(5);
    grid->SetRow(39);
    grid->SetRowCount(10);
    EXPECT_EQ(current(), cell(5, 9));
    grid->SetColCount(3);
    EXPECT_EQ(current(), cell(2, 9));
    grid->SetRowCount(0);
    EXPECT_EQ(grid->GetRowCount(), 1);
    EXPECT_EQ(grid->GetFixedRows(), 0) << "one row is never fixed";
    grid->SetFixedCols(7);
    EXPECT_EQ(grid->GetFixedCols(), 2);
    EXPECT_EQ(current(), cell(2, 0));

    grid->refused_col = 1;
    grid->SetFixedCols(0);
    grid->SetColCount(5);
    grid->SetCol(4);
    grid->SetColCount(2);
    EXPECT_EQ(current(), cell(1, 0)) << "a refusal cannot keep a cell that is gone";
}

TEST_F(grid_test, scroll_bars_take_room_where_needed)
{
    grid->SetScrollBars(ssBoth);
    wait_idle();
    int const width = grid->GetClientWidth();
    EXPECT_LT(width, 300);
    EXPECT_LT(grid->GetClientHeight(), 180) << "the vertical bar took the room of the last column";
    grid->SetRowCount(5);
    EXPECT_EQ(grid->GetClientWidth(), 300);
    EXPECT_EQ(grid->GetClientHeight(), 180);
}

TEST_F(grid_test, scroll_bars_are_worked_by_the_mouse)
{
    grid->SetScrollBars(ssVertical);
    grid->SetOptions(grid->GetOptions() << goThumbTracking);
    wait_idle();
    int const bar = grid->GetClientWidth() + (300 - grid->GetClientWidth()) / 2;
    take_log();
    EXPECT_TRUE(click(grid, bar, 120)); // the page below the thumb
    EXPECT_EQ(take_log(), lines{"top 9"});
    EXPECT_EQ(current(), cell(1, 1)) << "the current cell stays";
    EXPECT_TRUE(drag(grid, bar, 70, bar, 400));
    EXPECT_EQ(grid->GetTopRow(), 32);
}

TEST_F(grid_test, a_drag_outside_scrolls_on)
{
    mouse_down(grid, 60, 50);
    move(grid, 60, 250);
    EXPECT_TRUE(wait_until([this] { return grid->GetTopRow() > 2; }));
    mouse_up(grid, 60, 250);
    int const top = grid->GetTopRow();
    EXPECT_EQ(grid->GetSelection().Top, 2);
    EXPECT_GE(grid->GetSelection().Bottom, top + 6);
    EXPECT_FALSE(wait_until([&] { return grid->GetTopRow() != top; }, 150)) << "it stops with the button";
}

TEST(string_grid, keeps_cells_through_moves)
{
    TForm form(nullptr);
    TStringGrid grid(nullptr);
    grid.SetParent(&form);
    grid.SetColCount(4);
    grid.SetRowCount(6);
    for (int row = 0; row < 6; ++row)
        grid.SetCells(1, row, UnicodeString(row));
    grid.SetCells(9, 9, L"outside");
    grid.MoveRow(1, 4);
    auto const column = [&grid](int col) {
        std::wstring all;
        for (int row = 0; row < grid.GetRowCount(); ++row)
            all += grid.GetCells(col, row).str();
        return all;
    };
    EXPECT_EQ(column(1), L"023415");
    grid.MoveRow(5, 0);
    EXPECT_EQ(column(1), L"502341");
    grid.MoveColumn(1, 3);
    EXPECT_EQ(column(1), L"");
    EXPECT_EQ(column(3), L"502341");
    grid.DeleteRow(2);
    EXPECT_EQ(column(3), L"50341");
    grid.SetRowCount(6);
    EXPECT_EQ(column(3), L"50341") << "the deleted row is empty when it comes back";
}

TEST(color_grid, is_worked_by_mouse_and_keys)
{
    struct counter
    {
        int changes = 0;
        void on_change(TObject *) { ++changes; }
    } c;
    TForm form(nullptr);
    auto *grid = new TColorGrid(&form);
    grid->SetParent(&form);
    grid->OnChange = make_closure<&counter::on_change>(&c);
    grid->SetForegroundIndex(3);
    form.Show();
    wait_idle();
    EXPECT_EQ(c.changes, 0) << "setters are quiet";
    click(grid, 40, 80);
    EXPECT_EQ(grid->GetForegroundColor(), clFuchsia);
    click(grid, 40, 80, mbRight);
    EXPECT_EQ(grid->GetBackgroundColor(), clFuchsia);
    click(grid, 40, 80);
    EXPECT_EQ(c.changes, 2) << "the same again is no change";
    press(VK_UP);
    press(VK_RETURN);
    EXPECT_EQ(grid->GetForegroundColor(), clRed);
    EXPECT_EQ(TColorGrid::ColorToIndex(clRed), grid->GetForegroundIndex());
    EXPECT_EQ(TColorGrid::ColorToIndex(0x123456), -1);
}
