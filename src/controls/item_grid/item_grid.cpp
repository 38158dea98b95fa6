#include "controls/item_grid/item_grid.h"

#include "controls/item_grid/item_actions.h"

#include "platform/base/flag_scope.h"
#include "platform/base/text_codec.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
constexpr int c_row_height = 21;
constexpr int c_most_width = 32767;
constexpr int c_most_items = std::numeric_limits<int>::max() - 1; ///< the row of captions counts too

/// The ground of a cell by three states of it: marked, focused, in error.
TColor cell_color(bool mark, bool focus, bool error)
{
    constexpr TColor marked_focused = 0x0000FFFF;
    constexpr TColor marked = 0x00C0FFFF;
    constexpr TColor marked_error = 0x0C4400FF;
    constexpr TColor focused = 0x00E0E0E0;
    constexpr TColor focused_error = 0x0C4400FF;
    constexpr TColor plain = 0x00FFFFFF;
    constexpr TColor plain_error = 0x0C0000FF;
    if (mark && focus)
        return marked_focused;
    if (mark)
        return error ? marked_error : marked;
    if (focus)
        return error ? focused_error : focused;
    return error ? plain_error : plain;
}

/// A width or a weight that can be reckoned with.
double usable_width(double width)
{
    return std::isfinite(width) && width > 0.0 ? width : 0.0;
}
} // namespace

Tvx_item_grid::Tvx_item_grid(TComponent *owner)
    : Tvx_custom_grid(owner), f_fixed_cols(std::make_unique<Tvx_item_columns>(this)),
      f_columns(std::make_unique<Tvx_item_columns>(this)), f_draw_cbx(new Tvx_combo_box(this)),
      f_edit_cbx(new Tvx_combo_box(this)), f_color(GetColor())
{
    SetDefaultRowHeight(c_row_height);
    SetOptions(GetOptions() << goRowMoving >> goRangeSelect);
    SetColCount(1);
    SetFixedCols(0);
    SetRowCount(2);
    f_columns->on_changed = make_closure<&Tvx_item_grid::on_type_prop_change>(this);
    OnKeyPress = make_closure<&Tvx_item_grid::on_grid_key_press>(this);
    f_draw_cbx->SetVisible(false);
    f_draw_cbx->SetParent(this);
    f_edit_cbx->SetVisible(false);
    f_edit_cbx->OnExit = make_closure<&Tvx_item_grid::on_cbx_exit>(this);
    f_edit_cbx->OnKeyDown = make_closure<&Tvx_item_grid::on_cbx_key_down>(this);
}

Tvx_item_grid::~Tvx_item_grid() = default;

void Tvx_item_grid::Notification(TComponent *component, TOperation operation)
{
    Tvx_custom_grid::Notification(component, operation);
    if (operation != opRemove)
        return;
    // The parent that the box lies on may end before the grid.
    if (component == f_draw_cbx)
        f_draw_cbx = nullptr;
    if (component == f_edit_cbx)
        f_edit_cbx = nullptr;
}

// ---- items and columns

void Tvx_item_grid::set_item_count(int count)
{
    f_item_count = std::clamp(count, 0, c_most_items);
}

Tvx_item_column *Tvx_item_grid::column_at(int col) const
{
    return col < fixed_count() ? f_fixed_cols->get_col(col) : f_columns->get_col(col - fixed_count());
}

int Tvx_item_grid::item_at(int row) const
{
    int const item = row - GetFixedRows();
    return item >= 0 && item < f_item_count ? item : -1;
}

bool Tvx_item_grid::is_item_cell(int col, int row) const
{
    return col >= fixed_count() && column_at(col) && item_at(row) >= 0;
}

void Tvx_item_grid::update_controls()
{
    int const cols = std::max(fixed_count() + f_columns->get_count(), 1);
    int const rows = GetFixedRows() + std::max(f_item_count, 1);
    auto const life = Life();
    // What is being typed goes to its item, if that is there still.
    if (cols != GetColCount() || rows != GetRowCount() || f_item_count == 0)
        HideEditor();
    if (life.expired())
        return;
    {
        vx::flag_scope const updating(f_updating);
        auto *const under_box = f_cbx_cell.X < 0 ? nullptr : column_at(f_cbx_cell.X);
        if (f_cbx_cell.X >= 0 && (!under_box || !under_box->has_cbx() || item_at(f_cbx_cell.Y) < 0))
            close_cbx();
        SetColCount(cols);
        SetFixedCols(fixed_count());
        SetRowCount(rows);
        show_empty(f_item_count == 0);
        if (int const active = get_active(); active >= 0 && active < f_item_count)
            make_current(active);
        size_columns();
    }
    update_actions();
    InvalidateGrid();
}

/// A grid without items has another colour, and no key does anything there.
void Tvx_item_grid::show_empty(bool empty)
{
    if (empty == f_empty)
        return;
    f_empty = empty;
    if (empty) {
        f_color = GetColor();
        f_tab_stop = GetTabStop();
    }
    SetColor(empty ? GetFixedColor() : f_color);
    SetTabStop(!empty && f_tab_stop);
}

/// In the current column, or the first one that may have the current cell.
void Tvx_item_grid::make_current(int row)
{
    int col = GetCol();
    auto const *const column = column_at(col);
    if (column && !column->get_selectable()) {
        for (int other = fixed_count(); other < GetColCount(); ++other) {
            if (column_at(other)->get_selectable()) {
                col = other;
                break;
            }
        }
    }
    if (col != GetCol() || row != item_at(GetRow()))
        MoveColRow(col, GetFixedRows() + row, true, true);
    else if (column)
        set_editing(column->edits_in_place());
}

int Tvx_item_grid::get_active()
{
    return on_get_active ? on_get_active(this) : item_at(GetRow());
}

void Tvx_item_grid::set_active(int row)
{
    if (row < 0 || row >= f_item_count)
        return;
    auto const life = Life();
    if (row != get_active())
        on_set_active(this, row);
    if (life.expired() || GetFixedRows() + row >= GetRowCount())
        return;
    {
        vx::flag_scope const updating(f_updating);
        make_current(row);
    }
    update_actions();
    InvalidateGrid();
}

void Tvx_item_grid::set_row_moving(bool value)
{
    SetOptions(value ? GetOptions() << goRowMoving : GetOptions() >> goRowMoving);
}

bool Tvx_item_grid::can_add_element()
{
    if (on_can_add_element && !on_can_add_element(this))
        return false;
    for (int i = 0; i < f_columns->get_count(); ++i) {
        if (!f_columns->get_col(i)->call_get_can_add())
            return false;
    }
    return true;
}

void Tvx_item_grid::WMSize()
{
    Tvx_custom_grid::WMSize();
    close_cbx();
    size_columns();
}

void Tvx_item_grid::size_columns()
{
    int const cols = std::min(fixed_count() + f_columns->get_count(), GetColCount());
    double fixed = 0.0, heaviest = 0.0;
    auto const fixed_width = [this](Tvx_item_column const &column) {
        double const width = std::trunc(GetDefaultColWidth() * usable_width(column.get_width()));
        return static_cast<int>(std::min(width, double(c_most_width)));
    };
    for (int col = 0; col < cols; ++col) {
        auto const &column = *column_at(col);
        if (column.get_width_type() == c_item_width_fixed)
            fixed += fixed_width(column);
        else
            heaviest = std::max(heaviest, usable_width(column.get_width()));
    }
    // By the heaviest one, so that the sum stays finite.
    double weights = 0.0;
    auto const weight = [&](Tvx_item_column const &column) {
        return heaviest > 0.0 ? usable_width(column.get_width()) / heaviest : 0.0;
    };
    for (int col = 0; col < cols; ++col) {
        if (column_at(col)->get_width_type() == c_item_width_share)
            weights += weight(*column_at(col));
    }
    double const rest = std::max(GetClientRect().Width() - fixed - GetGridLineWidth() * GetColCount(), 0.0);
    for (int col = 0; col < cols; ++col) {
        auto const &column = *column_at(col);
        if (column.get_width_type() == c_item_width_fixed)
            SetColWidths(col, fixed_width(column));
        else
            SetColWidths(col, weights > 0.0 ? static_cast<int>(rest * weight(column) / weights) : 0);
    }
}

// ---- drawing

void Tvx_item_grid::Paint()
{
    auto *const canvas = GetCanvas();
    if (f_item_count == 0) {
        canvas->GetBrush()->SetStyle(bsSolid);
        canvas->GetBrush()->SetColor(clBtnFace);
        canvas->FillRect(GetClientRect());
        if (IsActiveControl())
            canvas->DrawFocusRect(GetClientRect());
        return;
    }
    int const row = item_at(GetRow());
    if (row >= 0 && (row != f_last_row || GetCol() != f_last_col)) {
        int const old_row = std::exchange(f_last_row, row);
        int const old_col = std::exchange(f_last_col, GetCol());
        auto const life = Life();
        on_change_cell(this, f_last_col, f_last_row, old_col, old_row);
        if (life.expired())
            return;
    }
    Tvx_custom_grid::Paint();
}

void Tvx_item_grid::DrawCell(int col, int row, TRect const &rect, TGridDrawState state)
{
    auto *const column = column_at(col);
    if (f_item_count == 0 || !column)
        return;
    auto *const canvas = GetCanvas();
    canvas->GetFont()->SetColor(clBtnText);
    if (row < GetFixedRows()) {
        column->draw_caption(canvas, rect);
        return;
    }
    int const item = item_at(row);
    if (item < 0)
        return;
    TColor fill = clNone;
    if (!state.Contains(gdFixed)) {
        fill = cell_color(call_get_sel(item), state.Contains(gdFocused), call_get_error(item));
        canvas->GetBrush()->SetColor(fill);
        canvas->FillRect(rect);
    }
    column->draw_item(canvas, item, rect, fill);
}

// ---- the current cell

bool Tvx_item_grid::SelectCell(int col, int row)
{
    auto const life = Life();
    close_cbx();
    if (life.expired() || !Tvx_custom_grid::SelectCell(col, row))
        return false;
    auto *const column = is_item_cell(col, row) ? column_at(col) : nullptr;
    if (f_updating || !column) {
        set_editing(column && column->edits_in_place());
        return true;
    }
    if (!column->get_selectable())
        return refuse_cell(col, row);
    HideEditor(); // its text goes to its item before another one is the active one
    if (life.expired())
        return false;
    int const new_item = item_at(row);
    int const old_item = item_at(GetRow()) < 0 ? new_item : item_at(GetRow());
    bool const col_changed = col != GetCol();
    if (new_item != old_item) {
        on_set_active(this, new_item);
        if (life.expired())
            return false;
        InvalidateGrid(); // what is marked may hang on what is active
    }
    if (!is_item_cell(col, row) || column_at(col) != column)
        return false;
    bool const allowed = column->select_cell(new_item, old_item, col_changed);
    if (life.expired())
        return false;
    update_actions();
    if (allowed && column->has_cbx())
        open_cbx(column, TGridCoord{col, row});
    return allowed && !life.expired();
}

/// The column cannot have the current cell: keys pass over it, and a click in another row makes that row the
/// current one. False, for `SelectCell`.
bool Tvx_item_grid::refuse_cell(int col, int row)
{
    auto const free = [this](int c) { return column_at(c) && column_at(c)->get_selectable(); };
    int target = GetCol();
    if (f_by_key && col != target) {
        int const step = col > target ? 1 : -1;
        int beyond = col;
        while (beyond >= fixed_count() && beyond < GetColCount() && !free(beyond))
            beyond += step;
        if (beyond < fixed_count() || beyond >= GetColCount()) {
            beyond = col;
            while (beyond != target && !free(beyond))
                beyond -= step;
        }
        target = beyond;
    }
    if (target >= fixed_count() && free(target)) {
        if (target != GetCol() || row != GetRow())
            MoveColRow(target, row, true, true);
    } else if (row != GetRow()) {
        on_set_active(this, item_at(row));
    }
    return false;
}

void Tvx_item_grid::set_editing(bool editing)
{
    if (GetOptions().Contains(goEditing) != editing)
        SetOptions(editing ? GetOptions() << goEditing : GetOptions() >> goEditing);
}

void Tvx_item_grid::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    TGridCoord const cell = MouseCoord(x, y);
    bool const again = button == mbLeft && cell == TGridCoord{GetCol(), GetRow()};
    auto const life = Life();
    Tvx_custom_grid::MouseDown(button, shift, x, y);
    if (!life.expired() && again && is_item_cell(cell.X, cell.Y))
        column_at(cell.X)->mouse_down_selected_cell(item_at(cell.Y));
}

void Tvx_item_grid::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    f_by_key = true;
    Tvx_custom_grid::KeyDown(key, shift);
    if (!life.expired())
        f_by_key = false;
}

void Tvx_item_grid::on_grid_key_press(TObject * /*sender*/, wchar_t &key)
{
    if (is_item_cell(GetCol(), GetRow()))
        column_at(GetCol())->on_key_press(key);
}

void Tvx_item_grid::RowMoved(int from, int to)
{
    Tvx_custom_grid::RowMoved(from, to);
    int const from_item = item_at(from), to_item = item_at(to);
    if (from_item < 0 || to_item < 0)
        return;
    auto const life = Life();
    on_move_item(this, from_item, to_item);
    if (life.expired())
        return;
    update_actions();
    InvalidateGrid();
}

// ---- editing in place

bool Tvx_item_grid::CanEditShow()
{
    return Tvx_custom_grid::CanEditShow() && is_item_cell(GetCol(), GetRow()) &&
           column_at(GetCol())->edits_in_place();
}

UnicodeString Tvx_item_grid::GetEditText(int col, int row)
{
    if (!is_item_cell(col, row))
        return {};
    auto *const column = column_at(col);
    column->f_enter_done = false; // Enter may have opened the editor
    return column->get_edit_text(item_at(row));
}

void Tvx_item_grid::SetEditText(int col, int row, UnicodeString const &text)
{
    if (!is_item_cell(col, row))
        return;
    auto *const column = column_at(col);
    if (GetEditorMode() && column->get_col_type() != c_item_col_wstr)
        return;
    int const item = item_at(row);
    // A number has more digits than its text: only what was edited is applied.
    if (!column->is_unchanged(item, text))
        column->set_edit_text(item, vx::text::to_bytes(text.str()).c_str());
}

// ---- the combo box

/// Lays the combo box over a cell and fills it.
void Tvx_item_grid::open_cbx(Tvx_item_column *column, TGridCoord cell)
{
    auto *const parent = GetParent();
    if (!f_edit_cbx || !parent)
        return;
    // The box covers a whole cell: what is in sight by half comes in before.
    if (cell.Y < GetTopRow())
        SetTopRow(cell.Y);
    else if (cell.Y >= GetTopRow() + GetVisibleRowCount())
        SetTopRow(cell.Y - std::max(GetVisibleRowCount(), 1) + 1);
    if (cell.X < GetLeftCol() || cell.X >= GetLeftCol() + GetVisibleColCount())
        SetLeftCol(cell.X);
    TRect const rect = CellRect(cell.X, cell.Y);
    if (rect.IsEmpty())
        return;
    f_cbx_cell = cell;
    column->f_cbx_row = item_at(cell.Y);
    f_edit_cbx->SetParent(parent);
    f_edit_cbx->OnChange = nullptr;
    f_edit_cbx->Clear();
    column->call_get_cbx(column->f_cbx_row, f_edit_cbx);
    f_edit_cbx->OnChange = make_closure<&Tvx_item_column::on_cbx_changed>(column);
    TPoint const at = parent->ScreenToClient(ClientToScreen({rect.Left, rect.Top}));
    f_edit_cbx->SetBounds(at.X, at.Y, rect.Width(), rect.Height());
    f_edit_cbx->SetVisible(true);
    f_edit_cbx->BringToFront();
    f_edit_cbx->SetTabOrder(GetTabOrder() + 1);
    f_edit_cbx->SetFocus();
}

/// Hides the combo box; the grid takes the focus that it had.
void Tvx_item_grid::close_cbx()
{
    f_cbx_cell = {};
    if (!f_edit_cbx || !f_edit_cbx->GetVisible())
        return;
    f_edit_cbx->OnChange = nullptr;
    auto const life = Life();
    if (f_edit_cbx->Focused())
        SetFocus();
    if (!life.expired() && f_edit_cbx)
        f_edit_cbx->SetVisible(false);
}

void Tvx_item_grid::on_cbx_exit(TObject * /*sender*/)
{
    f_cbx_cell = {};
    f_edit_cbx->OnChange = nullptr;
    f_edit_cbx->SetVisible(false);
}

void Tvx_item_grid::on_cbx_key_down(TObject * /*sender*/, Word &key, TShiftState /*shift*/)
{
    if (key != VK_ESCAPE && key != VK_RETURN)
        return;
    key = 0;
    close_cbx();
}

/// The box does not go along.
void Tvx_item_grid::TopLeftChanged()
{
    Tvx_custom_grid::TopLeftChanged();
    close_cbx();
}

// ---- commands

void Tvx_item_grid::run_command(TNotifyEvent const &command)
{
    auto const life = Life();
    command(this);
    if (!life.expired())
        update_controls();
}

void Tvx_item_grid::call_del_item()
{
    run_command(on_del_item);
}

void Tvx_item_grid::call_add_item()
{
    run_command(on_add_item);
}

void Tvx_item_grid::call_open_item()
{
    run_command(on_open_item);
}

void Tvx_item_grid::call_save_item()
{
    run_command(on_save_item);
}

void Tvx_item_grid::call_parm_3d_item()
{
    run_command(on_parm_3d_item);
}

void Tvx_item_grid::call_up_item()
{
    run_command(on_up_item);
}

void Tvx_item_grid::call_down_item()
{
    run_command(on_down_item);
}

void Tvx_item_grid::call_changed()
{
    on_changed(this);
}

bool Tvx_item_grid::call_get_sel(int row)
{
    return on_get_sel(this, row);
}

void Tvx_item_grid::call_set_sel(int row, bool value)
{
    on_set_sel(this, row, value);
}

bool Tvx_item_grid::call_get_error(int row)
{
    return on_get_error(this, row);
}

bool Tvx_item_grid::has_marked()
{
    if (!on_get_sel)
        return false;
    for (int row = 0; row < f_item_count; ++row) {
        if (call_get_sel(row))
            return true;
    }
    return false;
}

void Tvx_item_grid::on_type_prop_change(Tvx_item_columns * /*sender*/)
{
    call_changed();
}

/// Whether commands can be given may have changed.
void Tvx_item_grid::update_actions()
{
    for (auto *const action : f_actions)
        action->Update();
}
