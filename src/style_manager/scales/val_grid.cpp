#include "style_manager/scales/val_grid.h"

#include "captions/style_manager.h"
#include "controls/prop/image_convert.h"
#include "style_manager/scales/detail/scale_pictures.h"
#include "style_manager/scales/detail/style_samples.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"
#include "platform/toolkit/menus/menu.h"

#include <algorithm>

namespace {
enum : int
{
    c_mark_col,
    c_text_col,
    c_caption_col,
    c_visible_col,
    c_style_col,
    c_sel_style_col,
};
constexpr int c_row_height = 20;
constexpr int c_col_width = 24;
constexpr int c_edge = 4; ///< pixels at both sides of a header's edge that belong to its sizing
constexpr int c_text_indent = 2;
constexpr TColor c_cell_color = 0xFFFFFF;
constexpr TColor c_marked_color = 0xC0FFFF;
constexpr TColor c_active_color = 0xE0E0E0;
constexpr TColor c_marked_active_color = 0x00FFFF;
constexpr wchar_t const *c_blanks = L" \t\n\r\v\f";

using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;

/// The filter as people write it.
std::wstring pretty_filter(std::wstring const &text)
{
    if (text.empty())
        return text;
    owned_filter const filter(vx_calc_filter_create());
    vx_calc_filter_from_str(filter.get(), text.c_str());
    std::wstring result;
    Tvx_std_wstring_adapter adapter(result);
    vx_calc_filter_pretty_print(filter.get(), adapter);
    return result;
}

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

Tvx_val_grid::Tvx_val_grid(TComponent *owner, bool rule)
    : Tvx_custom_grid(owner), f_rule(rule), f_active_row(GetRow()), f_prev_active_row(GetRow()),
      f_samples(std::make_unique<Tvx_style_samples>())
{
    gradient_cursor();
}

Tvx_val_grid::~Tvx_val_grid() = default;

void Tvx_val_grid::create()
{
    SetOptions({goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goColSizing, goRowMoving, goEditing,
                goThumbTracking});
    SetDefaultDrawing(false);
    SetDefaultRowHeight(c_row_height);
    SetDefaultColWidth(c_col_width);
    SetColCount(c_sel_style_col + 1);
    SetRowCount(2);
    SetFixedCols(1);
    SetFixedRows(1);
    OnDblClick = make_closure<&Tvx_val_grid::on_double_click>(this);
    f_title_value = f_rule ? L"rule" : L"value";
    f_title_caption = L"caption";

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
    f_ins_action->OnExecute = make_closure<&Tvx_val_grid::on_ins_action_execute>(this);
    f_del_action = add(c_picture_delete);
    f_del_action->OnExecute = make_closure<&Tvx_val_grid::on_del_action_execute>(this);
    f_del_action->OnUpdate = make_closure<&Tvx_val_grid::on_del_action_update>(this);
    f_del_action->Update();
}

void Tvx_val_grid::load_res()
{
    f_title_value = vx_res_get_wstr(f_rule ? c_scl_rule : c_scl_value);
    f_title_caption = vx_res_get_wstr(c_scl_caption);
    f_ins_action->SetHint(vx_res_get_wstr(c_scl_insert));
    f_del_action->SetHint(vx_res_get_wstr(c_scl_delete));
    SetAccessibleName(vx_res_get_wstr(f_rule ? c_scl_rules : c_scl_values));
    InvalidateGrid();
}

void Tvx_val_grid::update_controls()
{
    SetRowCount(static_cast<int>(std::max(size(), 1U)) + 1);
    f_del_action->Update();
    InvalidateGrid();
}

void Tvx_val_grid::set_stl_mngr(void *mngr)
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
    }
    f_stl_mngr = mngr;
    f_scale = !mngr    ? nullptr
              : f_rule ? vx_stl_mngr_get_rule_scale_ptr(mngr)
                       : vx_stl_mngr_get_val_scale_ptr(mngr);
}

void Tvx_val_grid::enable_selection_style(bool enabled)
{
    if (enabled == f_selection_style)
        return;
    f_selection_style = enabled;
    SetColCount(enabled ? c_sel_style_col + 1 : c_sel_style_col);
    size_columns();
}

unsigned Tvx_val_grid::size() const
{
    return vx_val_scale_get_size(f_scale);
}

int Tvx_val_grid::entry_of(int row) const
{
    return row >= 1 && static_cast<unsigned>(row) <= size() ? row - 1 : -1;
}

std::wstring Tvx_val_grid::shown_text(int entry) const
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_val_scale_get_text_w(f_scale, static_cast<unsigned>(entry), adapter);
    return f_rule ? pretty_filter(text) : text;
}

std::wstring Tvx_val_grid::caption_of(int entry) const
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_val_scale_get_caption_w(f_scale, static_cast<unsigned>(entry), adapter);
    return text;
}

// ---- mouse

/// The click there moves the edge of a column.
bool Tvx_val_grid::is_on_header_edge(int x, TGridCoord cell) const
{
    if (cell.Y != 0 || cell.X == c_mark_col)
        return false;
    TRect const rect = CellRect(cell.X, cell.Y);
    return x - rect.Left < c_edge || rect.Right - x < c_edge;
}

void Tvx_val_grid::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    if (button == mbLeft) {
        f_pressed = true;
        f_pressed_cell = MouseCoord(x, y);
        InvalidateCell(f_pressed_cell.X, f_pressed_cell.Y);
    }
    Tvx_custom_grid::MouseDown(button, shift, x, y);
}

void Tvx_val_grid::MouseMove(TShiftState shift, int x, int y)
{
    Tvx_custom_grid::MouseMove(shift, x, y);
    TGridCoord const cell = MouseCoord(x, y);
    int const entry = entry_of(cell.Y);
    UnicodeString hint;
    if (entry >= 0 && (cell.X == c_text_col || cell.X == c_caption_col))
        hint = vx::strutil::trim(shown_text(entry), c_blanks) + L" : " +
               vx::strutil::trim(caption_of(entry), c_blanks);
    if (hint == GetHint())
        return;
    SetHint(hint);
    Application->ActivateHint(ClientToScreen({x, y}));
}

void Tvx_val_grid::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
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

// ---- clicks

void Tvx_val_grid::call_click(int col, int row, TShiftState shift)
{
    if (!f_scale || row > static_cast<int>(size()))
        return;
    bool const was_picking = f_grad_mode;
    bool const is_mark = row > 0 && col == c_mark_col;
    if (row == 0)
        header_click(col);
    else if (is_mark)
        mark_click(row - 1, shift);
    else if (col == c_visible_col)
        visible_click(row - 1, shift);
    else if (col == c_style_col || col == c_sel_style_col)
        style_click(row - 1, row, col == c_sel_style_col);
    // A pick that a menu of this very click has started goes on.
    if (was_picking)
        end_gradient();
    if (!is_mark)
        f_mark_anchor = -1;
}

void Tvx_val_grid::header_click(int col)
{
    TRect const rect = CellRect(col, 0);
    TPoint const at = ClientToScreen({rect.Left, rect.Bottom});
    switch (col) {
    case c_mark_col:
        return call_select_menu(at.X, at.Y);
    case c_text_col:
        return call_name_menu(at.X, at.Y, false);
    case c_caption_col:
        return call_name_menu(at.X, at.Y, true);
    case c_visible_col:
        return call_visible_menu(at.X, at.Y);
    default:
        return call_style_menu(at.X, at.Y, col == c_sel_style_col);
    }
}

void Tvx_val_grid::mark_click(int entry, TShiftState shift)
{
    auto const index = static_cast<unsigned>(entry);
    if (shift.Contains(ssShift)) {
        int const anchor = f_mark_anchor < 0 ? entry : f_mark_anchor;
        int const last = std::min(std::max(entry, anchor), static_cast<int>(size()) - 1);
        for (int i = std::min(entry, anchor); i <= last; ++i)
            vx_val_scale_set_marked(f_scale, static_cast<unsigned>(i), true);
    } else if (shift.Contains(ssCtrl)) {
        vx_val_scale_set_marked(f_scale, index, !vx_val_scale_get_marked(f_scale, index));
    } else {
        for (unsigned i = 0; i < size() && vx_val_scale_get_marked_count(f_scale) > 0; ++i)
            vx_val_scale_set_marked(f_scale, i, false);
        vx_val_scale_set_marked(f_scale, index, true);
    }
    f_mark_anchor = entry;
    f_del_action->Update();
    InvalidateGrid();
}

void Tvx_val_grid::visible_click(int entry, TShiftState shift)
{
    auto const prm = [this](int i) {
        return vx_val_scale_get_scale_prm_ptr(f_scale, static_cast<unsigned>(i));
    };
    if (shift.Contains(ssShift)) {
        // The row left behind may lie outside of the scale by now.
        int const other = std::clamp(f_prev_active_row - 1, 0, static_cast<int>(size()) - 1);
        bool const visible = !vx_scale_prm_get_visible(prm(other));
        for (int i = std::min(entry, other); i <= std::max(entry, other); ++i)
            vx_scale_prm_set_visible(prm(i), visible);
    } else {
        vx_scale_prm_set_visible(prm(entry), !vx_scale_prm_get_visible(prm(entry)));
    }
    InvalidateGrid();
    call_changed();
}

void Tvx_val_grid::style_click(int entry, int row, bool sel)
{
    if (f_grad_mode) {
        if (sel == f_grad_sel)
            apply_gradient(entry, sel);
        return;
    }
    auto *const prm = vx_val_scale_get_scale_prm_ptr(f_scale, static_cast<unsigned>(entry));
    TRect const rect = CellRect(sel ? c_sel_style_col : c_style_col, row);
    TPoint const at = ClientToScreen({rect.Left, rect.Top});
    if (!on_edit_style || !on_edit_style(this, at.X, at.Y, vx_scale_prm_get_stl_prm_ptr(prm), sel))
        return;
    InvalidateGrid();
    call_changed();
}

// ---- gradients

void Tvx_val_grid::start_gradient(Tvx_gradient_kind kind, bool sel)
{
    if (entry_of(GetRow()) < 0 || kind == c_gradient_none)
        return;
    f_grad_mode = true;
    f_grad_kind = kind;
    f_grad_row = GetRow();
    f_grad_sel = sel;
    SetCursor(gradient_cursor());
    InvalidateGrid();
}

void Tvx_val_grid::apply_gradient(int entry, bool sel)
{
    int const first = std::min(f_grad_row - 1, entry), last = std::max(f_grad_row - 1, entry);
    if (first < 0 || last >= static_cast<int>(size()))
        return;
    auto *const apply = f_grad_kind == c_gradient_color          ? &vx_val_scale_clr_gradient
                        : f_grad_kind == c_gradient_transparency ? &vx_val_scale_transparency_gradient
                                                                 : &vx_val_scale_size_gradient;
    apply(f_scale, static_cast<unsigned>(first), static_cast<unsigned>(last), sel);
}

void Tvx_val_grid::end_gradient()
{
    f_grad_mode = false;
    f_grad_kind = c_gradient_none;
    SetCursor(crDefault);
    InvalidateGrid();
}

// ---- cells

bool Tvx_val_grid::SelectCell(int col, int row)
{
    bool const allowed = Tvx_custom_grid::SelectCell(col, row);
    auto options = GetOptions();
    bool const editable = col == c_caption_col || (col == c_text_col && !f_rule);
    if (options.Contains(goEditing) != editable)
        SetOptions(editable ? options << goEditing : options >> goEditing);
    if (allowed && row != f_active_row) {
        f_prev_active_row = f_active_row;
        f_active_row = row;
        InvalidateGrid();
    }
    return allowed;
}

void Tvx_val_grid::RowMoved(int from, int to)
{
    Tvx_custom_grid::RowMoved(from, to);
    int const entry = entry_of(from);
    if (entry < 0)
        return;
    int const place = std::clamp(to - 1, 0, static_cast<int>(size()) - 1);
    vx_val_scale_move(f_scale, static_cast<unsigned>(entry), static_cast<unsigned>(place));
    InvalidateGrid();
    call_changed();
}

bool Tvx_val_grid::CanEditShow()
{
    apply_edited_text();
    return Tvx_custom_grid::CanEditShow() && f_scale && entry_of(GetRow()) >= 0 &&
           (GetCol() == c_caption_col || (GetCol() == c_text_col && !f_rule));
}

UnicodeString Tvx_val_grid::GetEditText(int col, int row)
{
    int const entry = entry_of(row);
    if (entry < 0)
        return {};
    if (col == c_caption_col)
        return caption_of(entry);
    return col == c_text_col ? UnicodeString(shown_text(entry)) : UnicodeString();
}

void Tvx_val_grid::SetEditText(int col, int row, UnicodeString const &text)
{
    if (entry_of(row) < 0 || (col != c_text_col && col != c_caption_col))
        return;
    f_edited = true;
    f_edit_cell = {col, row};
    f_edit_text = vx::text::to_bytes(text.str());
    if (!GetEditorMode())
        apply_edited_text();
}

void Tvx_val_grid::DoExit()
{
    apply_edited_text();
    Tvx_custom_grid::DoExit();
}

void Tvx_val_grid::end_edit(bool taken)
{
    if (!taken) {
        CancelEditor();
        f_edited = false;
        return;
    }
    HideEditor();
    apply_edited_text();
}

void Tvx_val_grid::apply_edited_text()
{
    if (!f_edited)
        return;
    f_edited = false;
    int const entry = entry_of(f_edit_cell.Y);
    bool const is_caption = f_edit_cell.X == c_caption_col;
    if (entry < 0 || (!is_caption && f_rule))
        return;
    // What was typed and taken back is no edit.
    if (vx::text::to_wide(f_edit_text) == (is_caption ? caption_of(entry) : shown_text(entry)))
        return;
    auto *const set = is_caption ? &vx_val_scale_set_caption : &vx_val_scale_set_text;
    set(f_scale, static_cast<unsigned>(entry), f_edit_text.c_str());
    InvalidateRow(f_edit_cell.Y);
    call_changed();
}

void Tvx_val_grid::WMSize()
{
    Tvx_custom_grid::WMSize();
    size_columns();
}

void Tvx_val_grid::size_columns()
{
    int const cols = GetColCount();
    if (cols < c_sel_style_col)
        return;
    int const h = GetDefaultColWidth();
    int rest = GetClientWidth() - 9 * h / 2 - cols * GetGridLineWidth();
    if (cols == c_sel_style_col)
        rest += 3 * h / 2;
    rest = std::max(rest, 2);
    int const widths[] = {h / 2, rest / 2, rest - rest / 2, h, 3 * h / 2, 3 * h / 2};
    for (int col = 0; col < cols; ++col)
        SetColWidths(col, widths[col]);
}

// ---- painting

void Tvx_val_grid::DrawCell(int col, int row, TRect const &rect, TGridDrawState state)
{
    if (row == 0)
        return draw_header(col, rect);
    draw_entry_cell(col, row, rect);
    if (state.Contains(gdFocused) && Focused())
        GetCanvas()->DrawFocusRect(rect);
}

void Tvx_val_grid::draw_entry_cell(int col, int row, TRect const &rect)
{
    int const entry = entry_of(row);
    bool const marked = entry >= 0 && vx_val_scale_get_marked(f_scale, static_cast<unsigned>(entry));
    if (col == c_mark_col)
        return draw_mark(entry, rect);
    draw_marked_active_rect(rect, marked, row == f_active_row);
    if (entry < 0)
        return;
    auto *const canvas = GetCanvas();
    switch (col) {
    case c_text_col:
    case c_caption_col:
        canvas->TextRect(rect, rect.Left + c_text_indent, rect.Top + c_text_indent,
                         col == c_text_col ? shown_text(entry) : caption_of(entry));
        break;
    case c_visible_col:
        if (vx_scale_prm_get_visible(vx_val_scale_get_scale_prm_ptr(f_scale, static_cast<unsigned>(entry))))
            canvas_draw_rsrc(canvas, c_picture_visible, rect, true);
        break;
    default: {
        bool const sel = col == c_sel_style_col;
        draw_style(entry, rect, sel);
        if (f_grad_mode && row == f_grad_row && sel == f_grad_sel)
            draw_gradient_start(rect);
    }
    }
}

void Tvx_val_grid::draw_header(int col, TRect const &rect)
{
    auto *const canvas = GetCanvas();
    bool const pressed = f_pressed && f_pressed_cell == TGridCoord{col, 0};
    DrawFrameControl(canvas, rect, fcButton, pressed ? TFrameStates{fsPushed} : TFrameStates{});
    auto *const brush = canvas->GetBrush();
    switch (col) {
    case c_text_col:
    case c_caption_col: {
        brush->SetStyle(bsClear);
        TRect inner = rect;
        inner.Inflate(-c_text_indent - 2, 0);
        canvas->TextRect(inner, col == c_text_col ? f_title_value : f_title_caption,
                         {tfSingleLine, tfVerticalCenter, tfEndEllipsis});
        brush->SetStyle(bsSolid);
        break;
    }
    case c_visible_col:
        canvas_draw_rsrc(canvas, c_picture_visible, rect, true);
        break;
    case c_style_col:
        canvas_draw_rsrc(canvas, c_picture_style, rect, true);
        break;
    case c_sel_style_col:
        canvas_draw_rsrc(canvas, c_picture_sel_style, rect, true);
        break;
    default:
        break;
    }
}

void Tvx_val_grid::draw_mark(int entry, TRect const &rect)
{
    auto *const canvas = GetCanvas();
    canvas->GetBrush()->SetColor(GetFixedColor());
    canvas->FillRect(rect);
    if (entry >= 0 && vx_val_scale_get_marked(f_scale, static_cast<unsigned>(entry)))
        DrawFrameControl(canvas, rect, fcButton, {fsPushed});
}

void Tvx_val_grid::draw_marked_active_rect(TRect const &rect, bool marked, bool active)
{
    auto *const canvas = GetCanvas();
    canvas->GetBrush()->SetColor(marked ? (active ? c_marked_active_color : c_marked_color)
                                        : (active ? c_active_color : c_cell_color));
    canvas->FillRect(rect);
}

void Tvx_val_grid::draw_style(int entry, TRect const &rect, bool sel)
{
    if (rect.IsEmpty())
        return;
    auto *const canvas = GetCanvas();
    auto *const prm = vx_val_scale_get_scale_prm_ptr(f_scale, static_cast<unsigned>(entry));
    auto *const sample = f_samples->get(this, on_draw_style, vx_scale_prm_get_stl_prm_ptr(prm), sel,
                                        {rect.Width(), rect.Height()}, vx_canvas_pixel_scale(canvas),
                                        canvas->GetBrush()->GetColor());
    canvas->StretchDraw(rect, sample);
}

void Tvx_val_grid::draw_gradient_start(TRect const &rect)
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

// ---- commands

void Tvx_val_grid::on_double_click(TObject * /*sender*/)
{
    if (f_rule && GetCol() == c_text_col && entry_of(GetRow()) >= 0)
        call_value_click(static_cast<unsigned>(entry_of(GetRow())));
}

void Tvx_val_grid::call_value_click(unsigned entry)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_val_scale_get_text_w(f_scale, entry, adapter);
    if (!on_edit_value_item || !on_edit_value_item(text))
        return;
    vx_val_scale_set_text_w(f_scale, entry, text.c_str());
    InvalidateGrid();
    call_changed();
}

void Tvx_val_grid::on_ins_action_execute(TObject * /*sender*/)
{
    if (!f_scale)
        return;
    int const pos = size() == 0 ? 0 : entry_of(GetRow());
    if (pos < 0)
        return;
    auto const index = static_cast<unsigned>(pos);
    if (f_rule) {
        std::wstring text;
        if (!on_edit_value_item || !on_edit_value_item(text))
            return;
        vx_val_scale_ins(f_scale, index);
        vx_val_scale_set_text_w(f_scale, index, text.c_str());
        if (!text.empty())
            vx_val_scale_set_caption_w(f_scale, index, pretty_filter(text).c_str());
    } else {
        vx_val_scale_ins(f_scale, index);
    }
    update_controls();
    call_changed();
}

void Tvx_val_grid::on_del_action_execute(TObject * /*sender*/)
{
    vx_val_scale_del_marked(f_scale);
    update_controls();
    call_changed();
}

void Tvx_val_grid::on_del_action_update(TObject * /*sender*/)
{
    f_del_action->SetEnabled(vx_val_scale_get_marked_count(f_scale) > 0);
}

// ---- menus

void Tvx_val_grid::call_select_menu(int x, int y)
{
    if (f_select_menu)
        f_select_menu->Popup(x, y);
}

void Tvx_val_grid::call_name_menu(int x, int y, bool caption)
{
    if (auto *const menu = f_rule && !caption ? f_rule_import_menu : f_name_menu)
        menu->Popup(x, y);
}

void Tvx_val_grid::call_style_menu(int x, int y, bool /*sel*/)
{
    if (f_style_menu)
        f_style_menu->Popup(x, y);
}

void Tvx_val_grid::call_visible_menu(int x, int y)
{
    if (f_visible_menu)
        f_visible_menu->Popup(x, y);
}
