#include "style_manager/scales/scale_grid.h"

#include "captions/style_manager.h"
#include "controls/prop/image_convert.h"
#include "style_manager/scales/detail/scale_pictures.h"
#include "style_manager/scales/detail/style_samples.h"
#include "style_manager/scales/name_menu.h"
#include "style_manager/scales/select_menu.h"
#include "style_manager/scales/style_menu.h"
#include "style_manager/scales/visible_menu.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"

#include <algorithm>

namespace {
constexpr int c_row_height = 20;
constexpr int c_col_width = 24;
constexpr int c_edge = 4; ///< pixels at both sides of a header's edge that belong to its sizing
constexpr int c_text_indent = 2;
constexpr int c_quarters = 4;
constexpr TColor c_cell_color = 0xFFFFFF;
constexpr TColor c_marked_color = 0xC0FFFF;
constexpr TColor c_active_color = 0xE0E0E0;
constexpr TColor c_marked_active_color = 0x00FFFF;

TCursor gradient_cursor()
{
    static TCursor const cursor = [] {
        int hot_x = 0, hot_y = 0;
        TBitmap picture;
        dib_2_bmp(vx_res_load_cursor(c_cursor_gradient, &hot_x, &hot_y), &picture);
        if (picture.GetEmpty())
            return crCross;
        Screen->SetCursors(c_cursor_gradient, picture, hot_x, hot_y);
        return TCursor(c_cursor_gradient);
    }();
    return cursor;
}
} // namespace

Tvx_scale_grid::Tvx_scale_grid(TComponent *owner, int text_cols)
    : Tvx_custom_grid(owner), f_text_cols(text_cols), f_active_row(GetRow()), f_prev_active_row(GetRow()),
      f_samples(std::make_unique<Tvx_style_samples>())
{
    gradient_cursor();
}

Tvx_scale_grid::~Tvx_scale_grid() = default;

void Tvx_scale_grid::create_grid()
{
    SetOptions({goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goColSizing, goRowMoving, goEditing,
                goThumbTracking});
    SetDefaultDrawing(false);
    SetDefaultRowHeight(c_row_height);
    SetDefaultColWidth(c_col_width);
    SetColCount(sel_style_col() + 1);
    SetRowCount(2);
    SetFixedCols(1);
    SetFixedRows(1);

    f_images = new TImageList(this);
    f_actions = new TActionList(this);
    f_actions->SetImages(f_images);
    auto const add = [this](int picture) {
        auto *const action = new TAction(this);
        action->SetActionList(f_actions);
        action->SetImageIndex(vx_image_list_get_res(f_images, picture));
        return action;
    };
    f_ins_action = add(c_picture_insert);
    f_ins_action->OnExecute = make_closure<&Tvx_scale_grid::on_ins_action_execute>(this);
    f_del_action = add(c_picture_delete);
    f_del_action->OnExecute = make_closure<&Tvx_scale_grid::on_del_action_execute>(this);
    f_del_action->OnUpdate = make_closure<&Tvx_scale_grid::on_del_action_update>(this);
    f_del_action->Update();
}

void Tvx_scale_grid::load_grid_res(UnicodeString const &name)
{
    auto const load = [](auto *menu) {
        if (menu)
            menu->load_res();
    };
    load(f_name_menu);
    load(f_select_menu);
    load(f_style_menu);
    load(f_visible_menu);
    f_ins_action->SetHint(vx_res_get_wstr(c_scl_insert));
    f_del_action->SetHint(vx_res_get_wstr(c_scl_delete));
    SetAccessibleName(name);
    InvalidateGrid();
}

void Tvx_scale_grid::update_controls()
{
    SetRowCount(static_cast<int>(std::max(get_n_row(), 1U)) + 1);
    f_active_row = GetRow(); // brought into a grid that has become shorter
    f_ins_action->Update();
    f_del_action->Update();
    InvalidateGrid();
}

void Tvx_scale_grid::set_stl_mngr(void *mngr)
{
    if (mngr != f_stl_mngr) {
        // The former manager may have ended: what was begun on it ends without touching it.
        f_scale = nullptr;
        f_edited = false;
        HideEditor();
        if (f_grad_mode)
            end_gradient();
        f_mark_anchor = -1;
        f_samples->clear();
        release_menus();
    }
    f_stl_mngr = mngr;
    f_scale = mngr ? scale_of(mngr) : nullptr;
}

void Tvx_scale_grid::enable_selection_style(bool enabled)
{
    if (enabled == f_selection_style)
        return;
    f_selection_style = enabled;
    SetColCount(enabled ? sel_style_col() + 1 : sel_style_col());
    size_columns();
}

int Tvx_scale_grid::row_at(int grid_row) const
{
    return grid_row >= 1 && static_cast<unsigned>(grid_row) <= get_n_row() ? grid_row - 1 : -1;
}

// ---- mouse

/// The click there moves the edge of a column.
bool Tvx_scale_grid::is_on_header_edge(int x, TGridCoord cell) const
{
    if (cell.Y != 0 || cell.X == c_mark_col)
        return false;
    TRect const rect = CellRect(cell.X, cell.Y);
    return x - rect.Left < c_edge || rect.Right - x < c_edge;
}

void Tvx_scale_grid::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft) {
        f_pressed = true;
        f_pressed_cell = MouseCoord(x, y);
        InvalidateCell(f_pressed_cell.X, f_pressed_cell.Y);
    }
    Tvx_custom_grid::MouseDown(button, shift, x, y);
}

void Tvx_scale_grid::MouseMove(TShiftState shift, int x, int y)
{
    Tvx_custom_grid::MouseMove(shift, x, y);
    TGridCoord const cell = MouseCoord(x, y);
    int const row = row_at(cell.Y);
    UnicodeString hint;
    if (row >= 0 && is_text_col(cell.X))
        hint = row_hint(static_cast<unsigned>(row));
    if (hint == GetHint())
        return;
    SetHint(hint);
    Application->ActivateHint(ClientToScreen({x, y}));
}

void Tvx_scale_grid::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    Tvx_custom_grid::MouseUp(button, shift, x, y);
    TGridCoord const cell = MouseCoord(x, y);
    if (button != mbLeft || cell.X < 0 || cell.Y < 0) {
        if (button == mbLeft && f_pressed) {
            f_pressed = false;
            InvalidateCell(f_pressed_cell.X, f_pressed_cell.Y);
        }
        return;
    }
    bool const was_pressed = f_pressed;
    f_pressed = false;
    InvalidateCell(f_pressed_cell.X, f_pressed_cell.Y);
    if (was_pressed && cell == f_pressed_cell && !is_on_header_edge(x, cell))
        call_click(cell.X, cell.Y, shift);
}

void Tvx_scale_grid::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    bool const asks = key == VK_APPS || (key == VK_F10 && shift.Contains(ssShift));
    Tvx_custom_grid::KeyDown(key, shift);
    if (life.expired() || !asks || key == 0 || !f_scale)
        return;
    key = 0;
    header_click(shift.Contains(ssCtrl) ? c_mark_col : GetCol());
}

// ---- clicks

void Tvx_scale_grid::call_click(int col, int grid_row, TShiftState shift)
{
    if (!f_scale || (grid_row > 0 && row_at(grid_row) < 0))
        return;
    bool const is_mark = grid_row > 0 && col == c_mark_col;
    if (grid_row == 0)
        return header_click(col);
    if (!is_mark)
        f_mark_anchor = -1;
    bool const was_picking = f_grad_mode;
    auto const row = static_cast<unsigned>(grid_row - 1);
    if (is_mark)
        mark_click(row, shift);
    else if (col == visible_col())
        visible_click(row, shift);
    else if (col == style_col() || col == sel_style_col())
        style_click(row, col == sel_style_col());
    if (was_picking)
        end_gradient();
}

void Tvx_scale_grid::header_click(int col)
{
    f_mark_anchor = -1;
    // A pick that the menu starts goes on.
    if (f_grad_mode)
        end_gradient();
    TRect const rect = CellRect(col, 0);
    TPoint const at = ClientToScreen({rect.Left, rect.Bottom});
    if (col == c_mark_col)
        call_select_menu(at.X, at.Y);
    else if (is_text_col(col))
        call_title_menu(col, at);
    else if (col == visible_col())
        call_visible_menu(at.X, at.Y);
    else
        call_style_menu(at.X, at.Y, col == sel_style_col());
}

void Tvx_scale_grid::mark_click(unsigned row, TShiftState shift)
{
    if (shift.Contains(ssShift)) {
        unsigned const anchor = f_mark_anchor < 0 ? row : static_cast<unsigned>(f_mark_anchor);
        unsigned const last = std::min(std::max(row, anchor), get_n_row() - 1);
        for (unsigned i = std::min(row, anchor); i <= last; ++i)
            set_row_marked(i, true);
    } else if (shift.Contains(ssCtrl)) {
        set_row_marked(row, !get_row_marked(row));
    } else {
        unmark_all();
        set_row_marked(row, true);
    }
    f_mark_anchor = static_cast<int>(row);
    f_del_action->Update();
    InvalidateGrid();
}

void Tvx_scale_grid::visible_click(unsigned row, TShiftState shift)
{
    if (shift.Contains(ssShift)) {
        // The row left behind may lie outside of the scale by now.
        auto const other =
            static_cast<unsigned>(std::clamp(f_prev_active_row - 1, 0, static_cast<int>(get_n_row()) - 1));
        bool const visible = !vx_scale_prm_get_visible(get_row_scale_prm_ptr(other));
        for (unsigned i = std::min(row, other); i <= std::max(row, other); ++i)
            vx_scale_prm_set_visible(get_row_scale_prm_ptr(i), visible);
    } else {
        auto *const prm = get_row_scale_prm_ptr(row);
        vx_scale_prm_set_visible(prm, !vx_scale_prm_get_visible(prm));
    }
    InvalidateGrid();
    call_changed();
}

void Tvx_scale_grid::style_click(unsigned row, bool sel)
{
    if (f_grad_mode) {
        if (sel == f_grad_sel)
            apply_gradient(static_cast<int>(row), sel);
        return;
    }
    TRect const rect = CellRect(sel ? sel_style_col() : style_col(), static_cast<int>(row) + 1);
    TPoint const at = ClientToScreen({rect.Left, rect.Top});
    auto *const stl_prm = vx_scale_prm_get_stl_prm_ptr(get_row_scale_prm_ptr(row));
    if (!on_edit_style || !on_edit_style(this, at.X, at.Y, stl_prm, sel))
        return;
    InvalidateGrid();
    call_changed();
}

// ---- gradients

void Tvx_scale_grid::start_gradient(Tvx_gradient_kind kind, bool sel)
{
    if (get_current_row() < 0 || kind == c_gradient_none)
        return;
    f_grad_mode = true;
    f_grad_kind = kind;
    f_grad_row = GetRow();
    f_grad_sel = sel;
    SetCursor(gradient_cursor());
    InvalidateGrid();
}

void Tvx_scale_grid::apply_gradient(int row, bool sel)
{
    int const first = std::min(f_grad_row - 1, row), last = std::max(f_grad_row - 1, row);
    if (first >= 0 && last < static_cast<int>(get_n_row()))
        run_gradient(f_grad_kind, static_cast<unsigned>(first), static_cast<unsigned>(last), sel);
}

void Tvx_scale_grid::end_gradient()
{
    f_grad_mode = false;
    f_grad_kind = c_gradient_none;
    SetCursor(crDefault);
    InvalidateGrid();
}

// ---- cells

bool Tvx_scale_grid::SelectCell(int col, int row)
{
    bool const allowed = Tvx_custom_grid::SelectCell(col, row);
    auto options = GetOptions();
    bool const editable = is_edit_col(col);
    if (options.Contains(goEditing) != editable)
        SetOptions(editable ? options << goEditing : options >> goEditing);
    if (allowed && row != f_active_row) {
        f_prev_active_row = f_active_row;
        f_active_row = row;
        InvalidateGrid();
        on_row_selected(this);
    }
    return allowed;
}

void Tvx_scale_grid::RowMoved(int from, int to)
{
    Tvx_custom_grid::RowMoved(from, to);
    // The current row has gone along; so has what it shows, if the scale follows.
    f_active_row = GetRow();
    InvalidateGrid();
    bool const moved = move_entry(from, to);
    on_row_selected(this);
    if (moved)
        call_changed();
}

bool Tvx_scale_grid::CanEditShow()
{
    apply_edited_text();
    int const row = get_current_row();
    return Tvx_custom_grid::CanEditShow() && row >= 0 && is_edit_col(GetCol()) &&
           is_edit_cell(static_cast<unsigned>(row), GetCol());
}

UnicodeString Tvx_scale_grid::GetEditText(int col, int row)
{
    int const at = row_at(row);
    return at >= 0 && is_text_col(col) ? UnicodeString(cell_text(static_cast<unsigned>(at), col))
                                       : UnicodeString();
}

void Tvx_scale_grid::SetEditText(int col, int row, UnicodeString const &text)
{
    int const at = row_at(row);
    if (at < 0 || !is_text_col(col))
        return;
    f_edited = true;
    f_edit_row = static_cast<unsigned>(at);
    f_edit_col = col;
    f_edit_text = vx::text::to_bytes(text.str());
    if (!GetEditorMode())
        apply_edited_text();
}

void Tvx_scale_grid::DoExit()
{
    apply_edited_text();
    Tvx_custom_grid::DoExit();
}

void Tvx_scale_grid::end_edit(bool taken)
{
    if (!taken) {
        CancelEditor();
        f_edited = false;
        return;
    }
    HideEditor();
    apply_edited_text();
}

void Tvx_scale_grid::apply_edited_text()
{
    if (!f_edited)
        return;
    f_edited = false;
    if (f_edit_row >= get_n_row() || !is_edit_col(f_edit_col) || !is_edit_cell(f_edit_row, f_edit_col))
        return;
    // What was typed and taken back is no edit.
    if (vx::text::to_wide(f_edit_text) == cell_text(f_edit_row, f_edit_col))
        return;
    bool const changed = take_text(f_edit_row, f_edit_col, f_edit_text.c_str());
    InvalidateRow(static_cast<int>(f_edit_row) + 1);
    if (changed)
        call_changed();
}

void Tvx_scale_grid::WMSize()
{
    Tvx_custom_grid::WMSize();
    size_columns();
}

void Tvx_scale_grid::size_columns()
{
    int const cols = GetColCount();
    if (cols < sel_style_col())
        return;
    int const h = GetDefaultColWidth();
    int rest = GetClientWidth() - 9 * h / 2 - cols * GetGridLineWidth();
    if (cols == sel_style_col())
        rest += 3 * h / 2;
    rest = std::max(rest, f_text_cols);
    SetColWidths(c_mark_col, h / 2);
    int quarters = 0, used = 0;
    for (int col = c_first_text_col; col < visible_col(); ++col) {
        quarters += text_col_share(col);
        int const end = rest * quarters / c_quarters;
        SetColWidths(col, end - used);
        used = end;
    }
    SetColWidths(visible_col(), h);
    for (int col = style_col(); col < cols; ++col)
        SetColWidths(col, 3 * h / 2);
}

// ---- painting

void Tvx_scale_grid::DrawCell(int col, int row, TRect const &rect, TGridDrawState state)
{
    if (row == 0)
        return draw_header(col, rect);
    draw_row_cell(col, row, rect);
    if (state.Contains(gdFocused) && Focused())
        GetCanvas()->DrawFocusRect(rect);
}

void Tvx_scale_grid::draw_row_cell(int col, int grid_row, TRect const &rect)
{
    int const at = row_at(grid_row);
    auto const row = static_cast<unsigned>(at);
    bool const marked = at >= 0 && get_row_marked(row);
    if (col == c_mark_col)
        return draw_mark(marked, rect);
    draw_marked_active_rect(rect, marked, grid_row == f_active_row);
    if (at < 0)
        return;
    if (is_text_col(col)) {
        draw_text_cell(row, col, rect);
    } else if (col == visible_col()) {
        if (vx_scale_prm_get_visible(get_row_scale_prm_ptr(row)))
            canvas_draw_rsrc(GetCanvas(), c_picture_visible, rect, true);
    } else {
        bool const sel = col == sel_style_col();
        draw_style(row, rect, sel);
        if (f_grad_mode && grid_row == f_grad_row && sel == f_grad_sel)
            draw_gradient_start(rect);
    }
}

void Tvx_scale_grid::draw_text_cell(unsigned row, int col, TRect const &rect)
{
    TRect inner = rect;
    inner.Left += c_text_indent;
    inner.Top += c_text_indent;
    // A number that is cut off must not look like another one.
    GetCanvas()->TextRect(inner, cell_text(row, col), {tfSingleLine, tfEndEllipsis, tfNoPrefix});
}

void Tvx_scale_grid::draw_header(int col, TRect const &rect)
{
    auto *const canvas = GetCanvas();
    bool const pressed = f_pressed && f_pressed_cell == TGridCoord{col, 0};
    DrawFrameControl(canvas, rect, fcButton, pressed ? TFrameStates{fsPushed} : TFrameStates{});
    if (is_text_col(col)) {
        auto *const brush = canvas->GetBrush();
        brush->SetStyle(bsClear);
        TRect inner = rect;
        inner.Inflate(-c_text_indent - 2, 0);
        canvas->TextRect(inner, title(col), {tfSingleLine, tfVerticalCenter, tfEndEllipsis});
        brush->SetStyle(bsSolid);
    } else if (col != c_mark_col) {
        canvas_draw_rsrc(canvas,
                         col == visible_col() ? c_picture_visible
                         : col == style_col() ? c_picture_style
                                              : c_picture_sel_style,
                         rect, true);
    }
}

void Tvx_scale_grid::draw_mark(bool marked, TRect const &rect)
{
    auto *const canvas = GetCanvas();
    canvas->GetBrush()->SetColor(GetFixedColor());
    canvas->FillRect(rect);
    if (marked)
        DrawFrameControl(canvas, rect, fcButton, {fsPushed});
}

void Tvx_scale_grid::draw_marked_active_rect(TRect const &rect, bool marked, bool active)
{
    auto *const canvas = GetCanvas();
    canvas->GetBrush()->SetColor(marked ? (active ? c_marked_active_color : c_marked_color)
                                        : (active ? c_active_color : c_cell_color));
    canvas->FillRect(rect);
}

void Tvx_scale_grid::draw_style(unsigned row, TRect const &rect, bool sel)
{
    if (rect.IsEmpty())
        return;
    auto *const canvas = GetCanvas();
    auto *const sample = f_samples->get(
        this, on_draw_style, vx_scale_prm_get_stl_prm_ptr(get_row_scale_prm_ptr(row)), sel,
        {rect.Width(), rect.Height()}, vx_canvas_pixel_scale(canvas), canvas->GetBrush()->GetColor());
    canvas->StretchDraw(rect, sample);
}

void Tvx_scale_grid::draw_gradient_start(TRect const &rect)
{
    auto *const canvas = GetCanvas();
    auto *const pen = canvas->GetPen();
    std::pair<TColor, int> const strokes[] = {{clBlack, 3}, {clWhite, 1}};
    for (auto const &[color, width] : strokes) {
        pen->SetColor(color);
        pen->SetWidth(width);
        canvas->MoveTo(rect.Left, rect.Top);
        canvas->LineTo(rect.Right, rect.Bottom);
        canvas->MoveTo(rect.Right, rect.Top);
        canvas->LineTo(rect.Left, rect.Bottom);
    }
}

void Tvx_scale_grid::on_del_action_update(TObject * /*sender*/)
{
    f_del_action->SetEnabled(can_delete());
}

// ---- menus

bool Tvx_scale_grid::prepare_menu()
{
    // A sort would carry the entry away from below what is typed.
    end_edit(true);
    return f_scale != nullptr;
}

void Tvx_scale_grid::release_menu(Tvx_scale_menu *menu)
{
    if (!menu)
        return;
    menu->CloseMenu();
    menu->set_stl_mngr(nullptr);
}

void Tvx_scale_grid::release_menus()
{
    release_menu(f_name_menu);
    release_menu(f_select_menu);
    release_menu(f_style_menu);
    release_menu(f_visible_menu);
}

void Tvx_scale_grid::open_name_menu(int x, int y, bool caption, bool is_min)
{
    if (!prepare_menu())
        return;
    auto *const menu = need_menu(f_name_menu);
    menu->set_stl_mngr(f_stl_mngr);
    menu->set_caption_flag(caption);
    menu->set_is_min_flag(is_min);
    menu->update_controls();
    menu->Popup(x, y);
}

void Tvx_scale_grid::call_select_menu(int x, int y)
{
    if (!prepare_menu())
        return;
    auto *const menu = need_menu(f_select_menu);
    menu->set_stl_mngr(f_stl_mngr);
    menu->on_changed = make_closure<&Tvx_scale_grid::on_select_menu_changed>(this);
    menu->Popup(x, y);
}

void Tvx_scale_grid::call_style_menu(int x, int y, bool sel)
{
    if (!prepare_menu())
        return;
    auto *const menu = need_menu(f_style_menu);
    menu->set_stl_mngr(f_stl_mngr);
    menu->set_sel_style(sel);
    menu->on_draw_style = on_draw_style;
    menu->on_edit_style = on_edit_style;
    menu->on_lib_symbol_style = lib_symbol_event();
    menu->on_clr_gradient = make_closure<&Tvx_scale_grid::on_clr_gradient_click>(this);
    menu->on_transparency_gradient = make_closure<&Tvx_scale_grid::on_transparency_gradient_click>(this);
    menu->on_size_gradient = make_closure<&Tvx_scale_grid::on_size_gradient_click>(this);
    menu->update_controls();
    menu->Popup(x, y);
}

void Tvx_scale_grid::call_visible_menu(int x, int y)
{
    if (!prepare_menu())
        return;
    auto *const menu = need_menu(f_visible_menu);
    menu->set_stl_mngr(f_stl_mngr);
    menu->update_controls();
    menu->Popup(x, y);
}

void Tvx_scale_grid::on_menu_changed(TObject * /*sender*/)
{
    update_controls();
    call_changed();
}

/// Marks are no change of the scale.
void Tvx_scale_grid::on_select_menu_changed(TObject * /*sender*/)
{
    f_del_action->Update();
    InvalidateGrid();
}

void Tvx_scale_grid::on_clr_gradient_click(TObject * /*sender*/)
{
    start_gradient(c_gradient_color, f_style_menu->get_sel_style());
}

void Tvx_scale_grid::on_transparency_gradient_click(TObject * /*sender*/)
{
    start_gradient(c_gradient_transparency, f_style_menu->get_sel_style());
}

void Tvx_scale_grid::on_size_gradient_click(TObject * /*sender*/)
{
    start_gradient(c_gradient_size, f_style_menu->get_sel_style());
}
