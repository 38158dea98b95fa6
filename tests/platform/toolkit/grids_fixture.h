#pragma once

#include "user_input/user_input.h"

#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/grids/draw_grid.h"
#include "platform/toolkit/grids/inplace_edit.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// A grid that writes down what it is asked.
class probe_grid : public TCustomGrid
{
public:
    explicit probe_grid(TComponent *owner) : TCustomGrid(owner) {}

    using TCustomGrid::CancelEditor;
    using TCustomGrid::DeleteRow;
    using TCustomGrid::MoveRow;
    using TCustomGrid::ShowEditor;

    std::map<std::pair<int, int>, UnicodeString> texts;
    std::vector<std::pair<int, int>> drawn;
    std::vector<std::pair<int, int>> selected; ///< asked of SelectCell
    std::vector<std::string> log;
    int refused_col = -1;
    int editing_col = -1; ///< when set, goEditing follows the column

protected:
    void DrawCell(int col, int row, TRect const &, TGridDrawState) override { drawn.emplace_back(col, row); }
    bool SelectCell(int col, int row) override
    {
        selected.emplace_back(col, row);
        if (editing_col >= 0)
            SetOptions(col == editing_col ? GetOptions() << goEditing : GetOptions() >> goEditing);
        return col != refused_col;
    }
    UnicodeString GetEditText(int col, int row) override { return texts[{col, row}]; }
    void SetEditText(int col, int row, UnicodeString const &text) override
    {
        texts[{col, row}] = text;
        log.push_back((GetEditorMode() ? "typed " : "closed ") + std::to_string(col) + "," +
                      std::to_string(row) + " " + text.to_utf8());
    }
    void RowMoved(int from, int to) override
    {
        log.push_back("row " + std::to_string(from) + " to " + std::to_string(to));
    }
    void ColumnMoved(int from, int to) override
    {
        log.push_back("col " + std::to_string(from) + " to " + std::to_string(to));
    }
    void ColWidthsChanged() override { log.push_back("widths"); }
    void RowHeightsChanged() override { log.push_back("heights"); }
    void TopLeftChanged() override { log.push_back("top " + std::to_string(GetTopRow())); }
    void DoExit() override
    {
        TCustomGrid::DoExit();
        log.push_back("exit");
    }
};

/// A form with an edit at the top and a grid of 6 columns and 40 rows below it, shown and active; the grid
/// has the focus and room for 5 columns of 50 and 8 rows of 20 besides the fixed ones.
class grid_test : public testing::Test
{
protected:
    grid_test() : form(nullptr)
    {
        form.SetBounds(100, 100, 400, 300);
        edit = new TEdit(&form);
        edit->SetParent(&form);
        edit->SetBounds(0, 0, 200, 25);
        grid = new probe_grid(&form);
        grid->SetParent(&form);
        grid->SetColCount(6);
        grid->SetRowCount(40);
        grid->SetDefaultColWidth(49);
        grid->SetDefaultRowHeight(19);
        grid->SetScrollBars(ssNone);
        grid->SetBounds(10, 40, 300, 180);
        form.Show();
        vx::user_input::wait_idle();
        grid->SetFocus();
        vx::user_input::wait_idle();
        grid->log.clear();
        grid->selected.clear();
        grid->drawn.clear();
    }

    [[nodiscard]] std::pair<int, int> current() const { return {grid->GetCol(), grid->GetRow()}; }
    std::vector<std::string> take_log() { return std::exchange(grid->log, {}); }

    TForm form;
    TEdit *edit = nullptr;
    probe_grid *grid = nullptr;
};

using cell = std::pair<int, int>;
using lines = std::vector<std::string>;
