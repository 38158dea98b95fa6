#include "item_form.h"
#include "support/temp_dir.h"

#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <limits>
#include <memory>

namespace {
namespace ui = vx::user_input;
using events = std::vector<std::string>;

class item_grid : public item_form
{
public:
    /// The picture of the grid as it is on the screen.
    void look(TBitmap &picture)
    {
        grid->Invalidate();
        ui::wait_idle();
        vx_test::temp_dir const folder;
        UnicodeString const path((folder.path() / "grid.png").string());
        ASSERT_TRUE(ui::save_shot(grid, path));
        ASSERT_TRUE(picture.LoadFromFile(path));
    }
    /// The ground of a cell, beside its content.
    [[nodiscard]] TColor ground(TBitmap &picture, int col, int row) const
    {
        TRect const cell = grid->CellRect(col, row + 1);
        return picture.GetCanvas()->GetPixel(cell.Left + 3, cell.Bottom - 2);
    }
    Tvx_item_grid_action_list *actions() { return panel.get_tool_panel()->get_actions(); }
    bool push(TBasicAction *action) { return ui::click(panel.get_tool_panel()->get_button(action)); }

    void add(TObject *)
    {
        test_item item;
        item.str = "new";
        items.push_back(item);
        grid->set_item_count(static_cast<int>(items.size()));
    }
    void del(TObject *)
    {
        std::erase_if(items, [](test_item const &item) { return item.mark; });
        grid->set_item_count(static_cast<int>(items.size()));
    }
    void shift_item(int from, int to)
    {
        note("move " + std::to_string(from) + " " + std::to_string(to));
        auto const moved = items[static_cast<std::size_t>(from)];
        items.erase(items.begin() + from);
        items.insert(items.begin() + to, moved);
        grid->update_controls();
    }
    void swap_items(int from, int to)
    {
        note("move " + std::to_string(from) + " " + std::to_string(to));
        std::swap(item(from), item(to));
        grid->update_controls();
    }
    void move_item(TObject *, int from, int to) { shift_item(from, to); }
    void swap_item(TObject *, int from, int to) { swap_items(from, to); }
};

TEST_F(item_grid, colours_of_rows)
{
    item(1).mark = item(3).mark = true;
    item(5).text = L"wrong";
    ASSERT_TRUE(click(mark_col, 1));
    TBitmap picture;
    look(picture);
    EXPECT_EQ(ground(picture, mark_col, 1), TColor(0x00FFFF)) << "marked, with the focus";
    EXPECT_EQ(ground(picture, bit_col, 1), TColor(0xC0FFFF)) << "marked";
    EXPECT_EQ(ground(picture, bit_col, 0), TColor(0xFFFFFF));
    EXPECT_EQ(ground(picture, wstr_cbx_col, 5), TColor(0x0000FF)) << "a text that is not right";
    EXPECT_NE(ground(picture, wstr_cbx_col, 4), TColor(0x0000FF));
    TColor const fixed = ground(picture, row_col, 1);
    EXPECT_NE(fixed, TColor(0xC0FFFF)) << "row numbers keep their ground";
    error_row = 3;
    look(picture);
    EXPECT_EQ(ground(picture, bit_col, 3), TColor(0x4400FF)) << "marked, in error";
    error_row = 0;
    look(picture);
    EXPECT_EQ(ground(picture, bit_col, 0), TColor(0x0000FF)) << "in error";
    error_row = 1;
    look(picture);
    EXPECT_EQ(ground(picture, mark_col, 1), TColor(0x00FFFF)) << "marked, with the focus, in error";
    error_row = -1;
    item(1).mark = false;
    look(picture);
    EXPECT_EQ(ground(picture, mark_col, 1), TColor(0xE0E0E0)) << "with the focus";
    error_row = 1;
    look(picture);
    EXPECT_EQ(ground(picture, mark_col, 1), TColor(0x4400FF)) << "with the focus, in error";
}

TEST_F(item_grid, combo_boxes_are_painted_into_their_cells)
{
    auto const inked = [this](TBitmap &picture, int row) {
        TRect const cell = grid->CellRect(cbx_col, row + 1);
        int count = 0;
        for (int y = cell.Top; y < cell.Bottom; ++y) {
            for (int x = cell.Left; x < cell.Right - 20; ++x)
                count += (picture.GetCanvas()->GetPixel(x, y) & 0xFF) < 0x60 ? 1 : 0;
        }
        return count;
    };
    item(0).choice = 2;  // the longest text
    item(1).choice = -1; // none
    TColor const color = grid->get_draw_cbx()->GetColor();
    TBitmap picture;
    look(picture);
    EXPECT_GT(inked(picture, 0), inked(picture, 1) + 20);
    EXPECT_FALSE(grid->get_draw_cbx()->GetVisible());
    EXPECT_EQ(grid->get_draw_cbx()->GetColor(), color);
}

TEST_F(item_grid, widths)
{
    auto const width = [this](int col) { return grid->GetColWidths(col); };
    for (int col = mark_col; col < col_count; ++col)
        at(col)->set_width_type(c_item_width_fixed);
    at(mark_col)->set_width(0.25);
    at(str_col)->set_width_type(c_item_width_share);
    at(wstr_col)->set_width_type(c_item_width_share);
    at(wstr_col)->set_width(3.0);
    grid->update_controls();
    EXPECT_EQ(width(row_col), 32);
    EXPECT_EQ(width(mark_col), 16);
    EXPECT_EQ(width(bit_col), 64);
    int const rest = grid->GetClientRect().Width() - 32 - 16 - 5 * 64 - col_count;
    EXPECT_EQ(width(str_col), rest / 4);
    EXPECT_EQ(width(wstr_col), rest * 3 / 4);
    panel.SetWidth(panel.GetWidth() + 100);
    EXPECT_EQ(width(wstr_col), (rest + 100) * 3 / 4);
    panel.SetWidth(60);
    EXPECT_EQ(width(wstr_col), 0) << "nothing is left to share";
    panel.SetWidth(760);
    // Numbers that are none.
    double const huge = std::numeric_limits<double>::max();
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (double const bad : {nan, -1.0, -1e300, huge, std::numeric_limits<double>::infinity(), 0.0}) {
        for (int const type : {c_item_width_fixed, c_item_width_share}) {
            for (int const col : {str_col, wstr_col}) {
                at(col)->set_width_type(type);
                at(col)->set_width(bad);
            }
            grid->update_controls();
            EXPECT_GE(width(str_col), 0);
            EXPECT_LE(width(str_col), 32767);
            ui::wait_idle();
        }
    }
    at(str_col)->set_width(huge);
    at(wstr_col)->set_width(huge);
    grid->update_controls();
    EXPECT_EQ(width(str_col), rest / 2) << "two equal shares, however large";
}

TEST_F(item_grid, current_row_and_active_one)
{
    cells.clear();
    ASSERT_TRUE(click(mark_col, 2));
    ASSERT_EQ(cells.size(), 1U);
    EXPECT_EQ(cells[0], (std::vector<int>{mark_col, 2, mark_col, 0}));
    EXPECT_EQ(active, 2);
    EXPECT_TRUE(ui::press(VK_DOWN));
    EXPECT_EQ(active, 3);
    EXPECT_TRUE(ui::press(VK_RIGHT));
    EXPECT_EQ(taken(), (events{"active 2", "active 3"})) << "another column is the same row";
    // The owner's active row becomes the current one, and nobody is told.
    active = 5;
    grid->update_controls();
    EXPECT_EQ(grid->GetRow(), 6);
    active = 77;
    grid->update_controls();
    EXPECT_EQ(grid->GetRow(), 6);
    items.resize(3);
    show();
    EXPECT_EQ(grid->GetRow(), 3);
    EXPECT_EQ(taken(), events());
    grid->set_active(1);
    EXPECT_EQ(active, 1);
    EXPECT_EQ(grid->GetRow(), 2);
    grid->set_active(1);
    grid->set_active(3);
    grid->set_active(-1);
    EXPECT_EQ(taken(), (events{"active 1"}));
    grid->on_get_active = nullptr;
    EXPECT_EQ(grid->get_active(), 1);
}

TEST_F(item_grid, no_items)
{
    item(0).mark = true;
    show();
    EXPECT_TRUE(actions()->get_del_action()->GetEnabled());
    ASSERT_TRUE(click(cbx_col, 0));
    taken();
    items.clear();
    show();
    EXPECT_EQ(grid->GetRowCount(), 2);
    EXPECT_FALSE(box_open());
    EXPECT_FALSE(actions()->get_del_action()->GetEnabled());
    EXPECT_FALSE(actions()->get_up_action()->GetEnabled());
    EXPECT_TRUE(actions()->get_ins_action()->GetEnabled());
    TBitmap picture;
    look(picture);
    TColor const face = picture.GetCanvas()->GetPixel(100, 8);
    EXPECT_NE(face, TColor(0xFFFFFF));
    EXPECT_EQ(picture.GetCanvas()->GetPixel(100, 100), face);
    for (int col = 0; col < col_count; ++col) {
        click(col, 0);
        ui::type(L"1");
        ui::press(VK_RETURN);
    }
    EXPECT_EQ(taken(), events());
    EXPECT_FALSE(grid->GetTabStop());
    fill(2);
    EXPECT_TRUE(grid->GetTabStop());
    look(picture);
    EXPECT_EQ(ground(picture, bit_col, 1), TColor(0xFFFFFF));
    // Counts that are none; no columns.
    grid->set_item_count(-5);
    grid->update_controls();
    EXPECT_EQ(grid->get_item_count(), 0);
    grid->get_columns()->clear();
    grid->get_fixed_cols()->clear();
    grid->update_controls();
    grid->set_item_count(2);
    grid->update_controls();
    ui::wait_idle();
    EXPECT_EQ(grid->GetColCount(), 1);
}

TEST_F(item_grid, commands)
{
    grid->on_add_item = make_closure<&item_grid::add>(this);
    grid->on_del_item = make_closure<&item_grid::del>(this);
    EXPECT_FALSE(actions()->get_del_action()->GetEnabled());
    EXPECT_TRUE(push(actions()->get_ins_action()));
    EXPECT_EQ(items.size(), 7U);
    EXPECT_EQ(grid->GetRowCount(), 8);
    ASSERT_TRUE(click(mark_col, 6));
    ASSERT_TRUE(click(mark_col, 6));
    EXPECT_TRUE(actions()->get_del_action()->GetEnabled()) << "a mark by the mouse enables at once";
    EXPECT_TRUE(push(actions()->get_del_action()));
    EXPECT_EQ(items.size(), 6U);
    EXPECT_FALSE(actions()->get_del_action()->GetEnabled());
    // Whether items can be added is asked of the grid and of its columns.
    at(int_col)->on_get_can_add = {[](void *, Tvx_item_column *) { return false; }, nullptr};
    grid->update_controls();
    EXPECT_FALSE(actions()->get_ins_action()->GetEnabled());
    at(int_col)->on_get_can_add = nullptr;
    grid->on_can_add_element = {[](void *, TObject *) { return false; }, nullptr};
    grid->update_controls();
    EXPECT_FALSE(actions()->get_ins_action()->GetEnabled());
    // The others, by the actions: each runs its one event.
    int done = 0;
    TNotifyEvent const count{[](void *n, TObject *) { ++*static_cast<int *>(n); }, &done};
    grid->on_save_item = count;
    EXPECT_TRUE(actions()->get_sav_action()->Execute());
    grid->on_save_item = nullptr;
    grid->on_open_item = count;
    EXPECT_TRUE(actions()->get_open_action()->Execute());
    grid->on_open_item = nullptr;
    grid->on_parm_3d_item = count;
    EXPECT_TRUE(actions()->get_parm_action()->Execute());
    EXPECT_EQ(done, 3);
    // An action may do without a grid, and outlive one.
    Tvx_item_del_action loose(nullptr);
    EXPECT_FALSE(loose.Execute());
    {
        Tvx_item_grid other(nullptr);
        loose.set_item_grid(&other);
    }
    EXPECT_EQ(loose.get_item_grid(), nullptr);
    Tvx_item_parm_action parm(nullptr);
    EXPECT_TRUE(parm.Execute());
}

TEST_F(item_grid, drag_of_a_row_is_the_owners_move_or_swap)
{
    grid->on_move_item = make_closure<&item_grid::move_item>(this);
    ASSERT_TRUE(ui::drag_cell(grid, row_col, 1, row_col, 4));
    EXPECT_EQ(taken(), (events{"move 0 3"}));
    EXPECT_EQ(order(), (events{"s1", "s2", "s3", "s0", "s4", "s5"})) << "those between go along";
    fill(6);
    grid->on_move_item = make_closure<&item_grid::swap_item>(this);
    ASSERT_TRUE(ui::drag_cell(grid, row_col, 4, row_col, 1));
    EXPECT_EQ(taken(), (events{"move 3 0"}));
    EXPECT_EQ(order(), (events{"s3", "s1", "s2", "s0", "s4", "s5"})) << "those between stay";
    // By keys, and not at all where it is forbidden.
    active = 2;
    grid->update_controls();
    ASSERT_TRUE(click(mark_col, 2));
    taken();
    EXPECT_TRUE(ui::press(VK_DOWN, {ssCtrl, ssAlt}));
    EXPECT_EQ(taken(), (events{"move 2 3"}));
    grid->set_row_moving(false);
    EXPECT_FALSE(grid->get_row_moving());
    ui::drag_cell(grid, row_col, 1, row_col, 3);
    EXPECT_EQ(taken(), events());
}

TEST_F(item_grid, a_caption_may_be_a_picture)
{
    TBitmap symbol(8, 8);
    symbol.GetCanvas()->GetBrush()->SetColor(clRed);
    symbol.GetCanvas()->FillRect(Rect(0, 0, 8, 8));
    symbol.GetCanvas()->GetBrush()->SetColor(clBlue);
    symbol.GetCanvas()->FillRect(Rect(1, 1, 7, 7));
    at(mark_col)->set_capt_type(c_item_capt_bmp);
    at(mark_col)->set_capt_bmp(&symbol);
    symbol.SetSize(1, 1);
    TBitmap picture;
    look(picture);
    TPoint const middle = grid->CellRect(mark_col, 0).CenterPoint();
    EXPECT_EQ(picture.GetCanvas()->GetPixel(middle.X, middle.Y), clBlue) << "a copy, in the middle";
    at(mark_col)->set_capt_bmp(nullptr);
    at(mark_col)->set_capt_type(7);
    at(mark_col)->set_width_type(-1);
    EXPECT_EQ(at(mark_col)->get_capt_type(), c_item_capt_bmp);
    EXPECT_EQ(at(mark_col)->get_width_type(), c_item_width_share);
}

TEST_F(item_grid, ends_with_its_parent_under_the_open_box)
{
    TForm window(nullptr);
    auto *const base = new TPanel(&window);
    base->SetParent(&window);
    base->SetBounds(0, 0, 300, 200);
    Tvx_item_grid own(nullptr);
    own.SetParent(base);
    own.SetBounds(0, 0, 300, 200);
    own.get_columns()->set_count(1);
    own.get_columns()->get_col(0)->set_col_type(c_item_col_wstr_cbx);
    own.set_item_count(3);
    own.update_controls();
    window.Show();
    ui::wait_idle();
    ASSERT_TRUE(ui::click_cell(&own, 0, 2));
    ASSERT_TRUE(own.get_edit_cbx()->GetVisible());
    own.SetParent(&window);
    delete base;
    EXPECT_EQ(own.get_edit_cbx(), nullptr);
    EXPECT_TRUE(ui::click_cell(&own, 0, 1));
    EXPECT_EQ(own.GetRow(), 1);
}

TEST_F(item_grid, its_end_asks_and_tells_nothing)
{
    int asked = 0;
    for (int const type : {c_item_col_wstr, c_item_col_int, c_item_col_wstr_cbx}) {
        auto window = std::make_unique<TForm>(nullptr);
        auto *const own = new Tvx_item_grid(window.get());
        own->SetParent(window.get());
        own->SetBounds(0, 0, 300, 200);
        own->get_columns()->set_count(1);
        auto *const column = own->get_columns()->get_col(0);
        column->set_col_type(type);
        column->on_get_wstr = {[](void *n, Tvx_item_column *, int) -> wchar_t const * {
                                   ++*static_cast<int *>(n);
                                   return L"1";
                               },
                               &asked};
        column->on_get_int = {[](void *n, Tvx_item_column *, int) { return ++*static_cast<int *>(n); },
                              &asked};
        column->on_set_int = {[](void *n, Tvx_item_column *, int, int) { ++*static_cast<int *>(n); }, &asked};
        column->on_set_cbx = {
            [](void *n, Tvx_item_column *, int, Tvx_combo_box *) { ++*static_cast<int *>(n); }, &asked};
        own->set_item_count(3);
        own->update_controls();
        window->Show();
        ui::wait_idle();
        ASSERT_TRUE(ui::click_cell(own, 0, 2));
        ui::type(L"2");
        asked = 0;
        window.reset();
        EXPECT_EQ(asked, 0) << type;
    }
}
} // namespace
