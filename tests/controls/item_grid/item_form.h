#pragma once

#include "controls/item_grid/item_panels.h"
#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

/// Items of the test, with a value for each type of column.
struct test_item
{
    std::string str;
    std::wstring wstr;
    bool mark = false;
    bool bit = false;
    int whole = 0;
    double number = 0.0;
    int choice = 0;
    std::wstring text;
};

/// A shown form with a grid of all nine types below its commands, and a button to leave it for.
class item_form : public testing::Test
{
public:
    /// Columns of the grid: the row numbers, which are fixed, then one for each other type.
    enum column
    {
        row_col,
        mark_col,
        bit_col,
        str_col,
        wstr_col,
        int_col,
        dbl_col,
        cbx_col,
        wstr_cbx_col,
        col_count
    };

    void SetUp() override
    {
        form.SetBounds(100, 100, 800, 420);
        elsewhere.SetParent(&form);
        elsewhere.SetBounds(10, 340, 90, 25);
        elsewhere.SetCaption(L"Elsewhere");
        panel.SetParent(&form);
        panel.SetBounds(10, 10, 760, 300);
        panel.load_res();
        grid->get_fixed_cols()->set_count(1);
        at(row_col)->set_col_type(c_item_col_row);
        at(row_col)->set_width_type(c_item_width_fixed);
        at(row_col)->set_width(0.5);
        grid->get_columns()->set_count(col_count - 1);
        for (int col = mark_col; col < col_count; ++col) {
            at(col)->set_col_type(col);
            at(col)->set_capt_type(c_item_capt_text);
            at(col)->set_caption("Caption");
        }
        bind();
        fill(6);
        form.Show();
        vx::user_input::wait_idle();
    }

    void fill(int count)
    {
        items.clear();
        for (int i = 0; i < count; ++i) {
            test_item item;
            item.str = "s" + std::to_string(i);
            item.wstr = L"w" + std::to_wstring(i);
            item.whole = 10 * i;
            item.number = 0.5 * i;
            item.text = L"t" + std::to_wstring(i);
            items.push_back(item);
        }
        show();
    }
    void show()
    {
        grid->set_item_count(static_cast<int>(items.size()));
        grid->update_controls();
        vx::user_input::wait_idle();
    }

    [[nodiscard]] Tvx_item_column *at(int col) const
    {
        int const fixed = grid->get_fixed_cols()->get_count();
        return col < fixed ? grid->get_fixed_cols()->get_col(col) : grid->get_columns()->get_col(col - fixed);
    }
    [[nodiscard]] test_item &item(int row) { return items.at(static_cast<std::size_t>(row)); }
    [[nodiscard]] std::vector<int> marked() const
    {
        std::vector<int> rows;
        for (std::size_t row = 0; row < items.size(); ++row) {
            if (items[row].mark)
                rows.push_back(static_cast<int>(row));
        }
        return rows;
    }
    [[nodiscard]] std::vector<std::string> order() const
    {
        std::vector<std::string> names;
        for (test_item const &i : items)
            names.push_back(i.str);
        return names;
    }
    std::vector<std::string> taken() { return std::exchange(log, {}); }
    void note(std::string const &event) { log.push_back(event); }

    bool click(int col, int row, TShiftState shift = {})
    {
        return vx::user_input::click_cell(grid, col, row + 1, mbLeft, shift);
    }
    [[nodiscard]] bool box_open() const { return grid->get_edit_cbx()->GetVisible(); }

    void bind();

    // ---- events of the columns and the grid
    char const *get_str(Tvx_item_column *, int row) { return item(row).str.c_str(); }
    wchar_t const *get_wstr(Tvx_item_column *, int row) { return item(row).wstr.c_str(); }
    bool get_bit(Tvx_item_column *, int row) { return item(row).bit; }
    int get_int(Tvx_item_column *, int row) { return item(row).whole; }
    double get_dbl(Tvx_item_column *, int row) { return item(row).number; }
    wchar_t const *get_text(Tvx_item_column *, int row) { return item(row).text.c_str(); }
    bool get_correct(Tvx_item_column *, int row) { return item(row).text != L"wrong"; }
    void get_cbx(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        combo->SetStyle(csDropDownList);
        for (wchar_t const *name : {L"one", L"two", L"three"})
            combo->GetItems()->Add(name);
        combo->SetItemIndex(item(row).choice);
    }
    void get_text_cbx(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        combo->SetStyle(csDropDown);
        combo->GetItems()->Add(L"offered");
        combo->SetText(item(row).text);
    }
    void set_wstr(Tvx_item_column *sender, int row, wchar_t const *text)
    {
        UnicodeString const given(text);
        note("wstr " + std::to_string(row) + " " + given.to_utf8());
        if (sender == at(str_col))
            item(row).str = given.to_utf8();
        else
            item(row).wstr = text;
    }
    void set_bit(Tvx_item_column *, int row, bool value)
    {
        note("bit " + std::to_string(row));
        item(row).bit = value;
    }
    void set_int(Tvx_item_column *, int row, int value)
    {
        note("int " + std::to_string(row));
        item(row).whole = value;
    }
    void set_dbl(Tvx_item_column *, int row, double value)
    {
        note("dbl " + std::to_string(row));
        item(row).number = value;
    }
    void set_cbx(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        note("cbx " + std::to_string(row));
        item(row).choice = combo->GetItemIndex();
    }
    void set_text_cbx(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        note("text " + std::to_string(row));
        item(row).text = combo->GetText().str();
    }
    void enter(Tvx_item_column *, int col, int row)
    {
        note("enter " + std::to_string(col) + " " + std::to_string(row));
    }
    bool get_sel(TObject *, int row) { return item(row).mark; }
    void set_sel(TObject *, int row, bool value)
    {
        note("sel " + std::to_string(row));
        item(row).mark = value;
    }
    bool get_error(TObject *, int row) { return row == error_row; }
    void set_active(TObject *, int row)
    {
        note("active " + std::to_string(row));
        active = row;
    }
    int get_active(TObject *) { return active; }
    void changed(TObject *) { note("changed"); }
    void change_cell(TObject *, int col, int row, int old_col, int old_row)
    {
        cells.push_back({col, row, old_col, old_row});
    }

    TForm form{nullptr};
    TButton elsewhere{&form};
    Tvx_item_panel_adv panel{&form};
    Tvx_item_grid *grid = panel.get_item_grid();
    std::vector<test_item> items;
    std::vector<std::string> log;
    std::vector<std::vector<int>> cells;
    int active = 0;
    int error_row = -1;
};

inline void item_form::bind()
{
    at(bit_col)->on_get_bit = make_closure<&item_form::get_bit>(this);
    at(bit_col)->on_set_bit = make_closure<&item_form::set_bit>(this);
    at(str_col)->on_get_str = make_closure<&item_form::get_str>(this);
    at(str_col)->on_set_wstr = make_closure<&item_form::set_wstr>(this);
    at(wstr_col)->on_get_wstr = make_closure<&item_form::get_wstr>(this);
    at(wstr_col)->on_set_wstr = make_closure<&item_form::set_wstr>(this);
    at(wstr_col)->on_enter_wstr = make_closure<&item_form::enter>(this);
    at(int_col)->on_get_int = make_closure<&item_form::get_int>(this);
    at(int_col)->on_set_int = make_closure<&item_form::set_int>(this);
    at(dbl_col)->on_get_dbl = make_closure<&item_form::get_dbl>(this);
    at(dbl_col)->on_set_dbl = make_closure<&item_form::set_dbl>(this);
    at(cbx_col)->on_get_cbx = make_closure<&item_form::get_cbx>(this);
    at(cbx_col)->on_set_cbx = make_closure<&item_form::set_cbx>(this);
    at(wstr_cbx_col)->on_get_wstr = make_closure<&item_form::get_text>(this);
    at(wstr_cbx_col)->on_get_correct = make_closure<&item_form::get_correct>(this);
    at(wstr_cbx_col)->on_get_cbx = make_closure<&item_form::get_text_cbx>(this);
    at(wstr_cbx_col)->on_set_cbx = make_closure<&item_form::set_text_cbx>(this);
    grid->on_get_sel = make_closure<&item_form::get_sel>(this);
    grid->on_set_sel = make_closure<&item_form::set_sel>(this);
    grid->on_get_error = make_closure<&item_form::get_error>(this);
    grid->on_get_active = make_closure<&item_form::get_active>(this);
    grid->on_set_active = make_closure<&item_form::set_active>(this);
    grid->on_changed = make_closure<&item_form::changed>(this);
    grid->on_change_cell = make_closure<&item_form::change_cell>(this);
}
