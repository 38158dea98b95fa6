#include "item_form.h"

#include "platform/toolkit/core/clipboard.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/grids/inplace_edit.h"

#include <cmath>
#include <limits>

namespace {
namespace ui = vx::user_input;
using events = std::vector<std::string>;

/// What the cells of the types do under mouse and keys.
class item_cells : public item_form
{
public:
    void set_str(Tvx_item_column *, int row, char const *text) { item(row).str = text; }
    void update(TObject *) { grid->update_controls(); }
    /// Goes to the cell and opens its editor.
    void edit(int col, int row)
    {
        ASSERT_TRUE(click(col, row));
        ASSERT_TRUE(ui::press(VK_F2));
        ASSERT_TRUE(grid->GetEditorMode());
        taken();
    }
    void retype(UnicodeString const &text)
    {
        ui::press('A', {ssCtrl});
        grid->GetInplaceEditor()->SelectAll();
        ui::type(text);
    }
    /// Past the filter of keys.
    void paste(wchar_t const *text)
    {
        Clipboard()->SetAsText(text);
        grid->GetInplaceEditor()->SelectAll();
        ui::press(VK_INSERT, {ssShift});
    }
};

TEST_F(item_cells, marks)
{
    ASSERT_TRUE(click(mark_col, 1));
    EXPECT_EQ(taken(), (events{"active 1"})) << "the first click chooses the cell";
    EXPECT_TRUE(click(mark_col, 1));
    EXPECT_EQ(marked(), (std::vector{1}));
    EXPECT_EQ(taken(), (events{"sel 1", "changed"}));
    // A span, either way round, with the row that was current.
    EXPECT_TRUE(click(mark_col, 4, {ssShift}));
    EXPECT_EQ(marked(), (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(taken(), (events{"active 4", "sel 1", "sel 2", "sel 3", "sel 4"})) << "marks are no change";
    EXPECT_TRUE(click(mark_col, 2, {ssAlt}));
    EXPECT_EQ(marked(), (std::vector{1}));
    taken();
    // On the current cell the one mark, without a report.
    EXPECT_TRUE(click(mark_col, 2, {ssShift}));
    EXPECT_EQ(marked(), (std::vector{1, 2}));
    EXPECT_TRUE(click(mark_col, 2, {ssAlt}));
    EXPECT_EQ(marked(), (std::vector{1}));
    EXPECT_EQ(taken(), (events{"sel 2", "sel 2"}));
    // From another column the span is the one row.
    EXPECT_TRUE(click(bit_col, 2));
    EXPECT_TRUE(click(mark_col, 5, {ssShift}));
    EXPECT_EQ(marked(), (std::vector{1, 5}));
    // By keys.
    EXPECT_TRUE(ui::press(VK_SPACE));
    EXPECT_EQ(marked(), (std::vector{1}));
    EXPECT_TRUE(ui::press(VK_UP, {ssShift}));
    EXPECT_EQ(marked(), (std::vector{1, 4, 5}));
}

TEST_F(item_cells, bits)
{
    ASSERT_TRUE(click(bit_col, 2));
    taken();
    EXPECT_TRUE(click(bit_col, 2));
    EXPECT_TRUE(item(2).bit);
    EXPECT_EQ(taken(), (events{"bit 2", "changed"}));
    EXPECT_TRUE(click(bit_col, 2, {ssShift}));
    EXPECT_TRUE(item(2).bit);
    EXPECT_TRUE(click(bit_col, 2, {ssAlt}));
    EXPECT_FALSE(item(2).bit);
    EXPECT_EQ(taken(), (events{"bit 2", "changed", "bit 2", "changed"}));
    EXPECT_TRUE(click(bit_col, 4, {ssShift}));
    EXPECT_FALSE(item(3).bit || item(4).bit) << "a span is for marks only";
    // The right button and a click on the captions or the row numbers change nothing.
    taken();
    ui::click_cell(grid, bit_col, 5, mbRight);
    ui::click_cell(grid, bit_col, 0);
    ui::click_cell(grid, row_col, 3);
    EXPECT_EQ(taken(), events());
    EXPECT_EQ(active, 4);
}

TEST_F(item_cells, narrow_text_is_applied_at_the_end)
{
    edit(str_col, 1);
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"s1");
    retype(L"Rhein 1.5");
    EXPECT_EQ(taken(), events());
    EXPECT_TRUE(ui::press(VK_RETURN));
    EXPECT_EQ(taken(), (events{"wstr 1 Rhein 1.5"}));
    EXPECT_EQ(item(1).str, "Rhein 1.5");
    // Leaving applies too, before the other row becomes the active one; Esc drops.
    EXPECT_TRUE(ui::press(VK_RETURN));
    ui::type(L"a");
    EXPECT_TRUE(click(str_col, 2));
    EXPECT_EQ(taken(), (events{"wstr 1 a", "active 2"}));
    ui::type(L"b");
    EXPECT_TRUE(ui::click(&elsewhere));
    EXPECT_EQ(taken(), (events{"wstr 2 b"}));
    edit(str_col, 3);
    retype(L"dropped");
    EXPECT_TRUE(ui::press(VK_ESCAPE));
    EXPECT_EQ(item(3).str, "s3");
    EXPECT_EQ(taken(), events());
    // An owner that knows the narrow form only.
    at(str_col)->on_set_wstr = nullptr;
    at(str_col)->on_set_str = make_closure<&item_cells::set_str>(this);
    edit(str_col, 3);
    retype(L"ü");
    EXPECT_TRUE(ui::press(VK_RETURN));
    EXPECT_EQ(item(3).str, "\u00FC");
}

TEST_F(item_cells, wide_text_is_applied_at_each_keystroke)
{
    edit(wstr_col, 1);
    retype(L"Ob");
    EXPECT_EQ(taken(), (events{"wstr 1 O", "wstr 1 Ob"}));
    EXPECT_TRUE(ui::press(VK_RETURN));
    EXPECT_EQ(taken(), (events{"enter " + std::to_string(wstr_col) + " 1"})) << "not applied again";
    EXPECT_FALSE(grid->GetEditorMode());
    // Enter that opens the editor ends nothing: what is pasted then counts.
    EXPECT_TRUE(ui::press(VK_RETURN));
    taken();
    paste(L"Лена");
    EXPECT_EQ(item(1).wstr, L"Лена");
    // Esc brings back what the editing began with.
    EXPECT_TRUE(ui::press(VK_ESCAPE));
    EXPECT_EQ(item(1).wstr, L"Ob");
    // The owner may change a key, and swallow it.
    at(wstr_col)->on_key_wstr = {[](void *, Tvx_item_column *, wchar_t &key, int row) {
                                     key = key == L'x' ? L'\0' : row == 1 && key == L'a' ? L'A' : key;
                                 },
                                 nullptr};
    edit(wstr_col, 1);
    retype(L"xab");
    EXPECT_EQ(item(1).wstr, L"Ab");
}

TEST_F(item_cells, whole_numbers)
{
    item(1).whole = -7;
    edit(int_col, 1);
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"-7");
    retype(L"4-e.,x2");
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"42");
    EXPECT_TRUE(ui::press(VK_BACK));
    ui::type(L"5");
    EXPECT_TRUE(ui::press(VK_RETURN));
    EXPECT_EQ(item(1).whole, 45);
    EXPECT_EQ(taken(), (events{"int 1"}));
    // What no key gives may be pasted: it is a whole number that fits, or nothing happens.
    for (auto const &[text, expected] :
         {std::pair(L" -12 ", -12), std::pair(L"2147483647", 2147483647), std::pair(L"2147483648", 45),
          std::pair(L"1e300", 45), std::pair(L"12 km", 45), std::pair(L"  ", 45), std::pair(L"", 45)}) {
        item(1).whole = 45;
        edit(int_col, 1);
        paste(text);
        EXPECT_TRUE(ui::press(VK_RETURN));
        EXPECT_EQ(item(1).whole, expected) << UnicodeString(text).to_utf8();
    }
}

TEST_F(item_cells, numbers)
{
    item(1).number = 1.0 / 3;
    edit(dbl_col, 1);
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"0.3333333");
    EXPECT_TRUE(ui::press(VK_RETURN));
    EXPECT_EQ(taken(), events());
    EXPECT_EQ(item(1).number, 1.0 / 3) << "looking at a number does not round it";
    edit(dbl_col, 1);
    retype(L"-1,5x3Ee2");
    EXPECT_EQ(grid->GetInplaceEditor()->GetText(), L"-1.53E2");
    EXPECT_TRUE(ui::press(VK_RETURN));
    EXPECT_EQ(item(1).number, -153.0);
    EXPECT_EQ(taken(), (events{"dbl 1"}));
    for (auto const &[text, expected] :
         {std::pair(L"0", 7.0), std::pair(L"0.0", 0.0), std::pair(L" 2.5 ", 2.5), std::pair(L"1E300", 1e300),
          std::pair(L"1E999", 7.0), std::pair(L"NAN", 7.0), std::pair(L"INF", 7.0), std::pair(L"1.2.3", 7.0),
          std::pair(L"", 7.0), std::pair(L"E", 7.0)}) {
        item(1).number = 7.0;
        edit(dbl_col, 1);
        paste(text);
        EXPECT_TRUE(ui::press(VK_RETURN));
        EXPECT_EQ(item(1).number, expected) << UnicodeString(text).to_utf8();
    }
    // Numbers of all kinds have a text, and stay what they are.
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (auto const &[value, text] :
         {std::pair(nan, L"NAN"), std::pair(1e300, L"1E300"), std::pair(-1.25e-12, L"-1.25E-12"),
          std::pair(-std::numeric_limits<double>::infinity(), L"-INF")}) {
        item(1).number = value;
        edit(dbl_col, 1);
        EXPECT_EQ(grid->GetInplaceEditor()->GetText(), text);
        EXPECT_TRUE(ui::press(VK_RETURN));
        EXPECT_TRUE(item(1).number == value || (std::isnan(item(1).number) && std::isnan(value)));
    }
}

TEST_F(item_cells, combo_boxes)
{
    ASSERT_FALSE(box_open());
    ASSERT_TRUE(click(cbx_col, 1));
    auto *const box = grid->get_edit_cbx();
    ASSERT_TRUE(box_open());
    EXPECT_TRUE(box->Focused());
    EXPECT_EQ(box->GetItems()->GetCount(), 3);
    TRect const cell = grid->CellRect(cbx_col, 2);
    EXPECT_EQ(grid->ClientToScreen({cell.Left, cell.Top}), box->ClientToScreen({0, 0}));
    EXPECT_EQ(box->GetWidth(), cell.Width());
    EXPECT_EQ(box->GetHeight(), cell.Height());
    taken();
    EXPECT_TRUE(ui::choose_item(box, L"three"));
    EXPECT_EQ(item(1).choice, 2);
    EXPECT_EQ(taken(), (events{"cbx 1"})) << "no change beside";
    // Another row: filled anew, for that one.
    EXPECT_TRUE(click(cbx_col, 3));
    EXPECT_EQ(box->GetItems()->GetCount(), 3);
    EXPECT_EQ(box->GetItemIndex(), 0);
    EXPECT_TRUE(ui::choose_item(box, 1));
    EXPECT_EQ(item(3).choice, 1);
    EXPECT_EQ(item(1).choice, 2);
    // Esc and Enter lead back to the grid, Space opens again, leaving and other cells hide.
    for (int const key : {VK_ESCAPE, VK_RETURN}) {
        EXPECT_TRUE(ui::press(key));
        EXPECT_FALSE(box_open());
        EXPECT_TRUE(grid->Focused());
        EXPECT_TRUE(ui::press(VK_SPACE));
        EXPECT_TRUE(box_open());
    }
    EXPECT_TRUE(ui::click(&elsewhere));
    EXPECT_FALSE(box_open());
    EXPECT_TRUE(elsewhere.Focused());
    EXPECT_TRUE(click(cbx_col, 3));
    EXPECT_TRUE(box_open());
    EXPECT_TRUE(click(str_col, 3));
    EXPECT_FALSE(box_open());
    // A column that is disabled holds narrow strings from then on.
    at(cbx_col)->set_enabled(false);
    at(cbx_col)->set_enabled(true);
    EXPECT_EQ(at(cbx_col)->get_col_type(), c_item_col_str);
    show();
    EXPECT_TRUE(click(cbx_col, 2));
    EXPECT_FALSE(box_open());
}

TEST_F(item_cells, text_with_drop_button)
{
    ASSERT_TRUE(click(wstr_cbx_col, 2));
    auto *const box = grid->get_edit_cbx();
    ASSERT_TRUE(box_open());
    EXPECT_EQ(box->GetText(), L"t2");
    taken();
    EXPECT_TRUE(ui::choose_item(box, L"offered"));
    EXPECT_EQ(item(2).text, L"offered");
    EXPECT_EQ(taken(), (events{"text 2", "changed"}));
    ui::enter_text(box, L"no");
    EXPECT_EQ(item(2).text, L"no");
    EXPECT_EQ(taken(), (events{"text 2", "changed", "text 2", "changed"}));
    // A change that the owner answers with an update leaves the box where it is.
    grid->on_changed = make_closure<&item_cells::update>(this);
    ui::type(L"w");
    EXPECT_TRUE(box_open());
    EXPECT_TRUE(box->Focused());
    EXPECT_EQ(item(2).text, L"now");
    // The item goes away under the box.
    items.resize(2);
    show();
    EXPECT_FALSE(box_open());
}

TEST_F(item_cells, combo_box_in_a_row_out_of_sight)
{
    fill(60);
    active = 0;
    ASSERT_TRUE(click(cbx_col, 10));
    for (int row = 10; row < 20; ++row) {
        ASSERT_TRUE(ui::press(VK_ESCAPE));
        ASSERT_TRUE(ui::press(VK_DOWN));
    }
    EXPECT_EQ(active, 20);
    ASSERT_TRUE(box_open());
    TRect const cell = grid->CellRect(cbx_col, 21);
    ASSERT_FALSE(cell.IsEmpty());
    EXPECT_EQ(grid->ClientToScreen({cell.Left, cell.Top}), grid->get_edit_cbx()->ClientToScreen({0, 0}));
    ui::wheel(grid, -3);
    EXPECT_FALSE(box_open()) << "it would stand over another row";
    EXPECT_TRUE(grid->Focused());
}

TEST_F(item_cells, a_column_that_cannot_be_chosen)
{
    at(bit_col)->set_selectable(false);
    ASSERT_TRUE(click(mark_col, 0));
    taken();
    EXPECT_TRUE(click(bit_col, 3));
    EXPECT_EQ(taken(), (events{"active 3"}));
    EXPECT_EQ(grid->GetCol(), mark_col);
    EXPECT_EQ(grid->GetRow(), 4);
    EXPECT_TRUE(ui::press(VK_RIGHT));
    EXPECT_EQ(grid->GetCol(), str_col);
    EXPECT_TRUE(ui::press(VK_LEFT));
    EXPECT_EQ(grid->GetCol(), mark_col);
    at(mark_col)->set_selectable(false);
    EXPECT_TRUE(ui::press(VK_RIGHT));
    EXPECT_TRUE(ui::press(VK_HOME));
    EXPECT_EQ(grid->GetCol(), str_col);
    EXPECT_FALSE(item(3).bit);
}

} // namespace
