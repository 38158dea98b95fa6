#include "controls/item_grid/item_column.h"

#include "controls/forms/keys.h"
#include "controls/item_grid/item_columns.h"
#include "controls/item_grid/item_grid.h"
#include "controls/numeric/detail/number_text.h"

#include "platform/base/strutil.h"
#include "platform/base/text_codec.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/paint_to.h"

#include <algorithm>

namespace {
constexpr int c_indent = 2; ///< of texts, from the corner of the cell
constexpr int c_drop_button_width = 18;
constexpr double c_check_share = 0.4; ///< half a check frame, of the smaller side of the cell
constexpr int c_dbl_precision = 7;
constexpr int c_dbl_digits = 5;
constexpr TColor c_incorrect_color = 0x0C0000FF;
constexpr wchar_t c_backspace = L'\b';
constexpr wchar_t c_enter = L'\r';

bool is_digit(wchar_t key)
{
    return key >= L'0' && key <= L'9';
}

std::wstring trimmed(wchar_t const *text)
{
    return text ? vx::strutil::trim(std::wstring(text), L" \t\r\n\v\f") : std::wstring();
}

/// From the indent of a cell to its end. A text that is cut off must not look like another one.
void draw_text(TCanvas *canvas, TRect const &rect, UnicodeString const &text)
{
    TRect inner = rect;
    inner.Left += c_indent;
    inner.Top += c_indent;
    auto *const brush = canvas->GetBrush();
    brush->SetStyle(bsClear);
    canvas->TextRect(inner, text, {tfSingleLine, tfEndEllipsis, tfNoPrefix});
    brush->SetStyle(bsSolid);
}
} // namespace

Tvx_item_column::Tvx_item_column(Tvx_item_columns *owner) : f_owner(owner)
{
    f_capt_bmp.SetTransparent(true);
}

Tvx_item_column::~Tvx_item_column() = default;

Tvx_item_grid *Tvx_item_column::get_grid() const
{
    return f_owner->get_grid();
}

void Tvx_item_column::set_capt_type(int type)
{
    if (type >= c_item_capt_none && type <= c_item_capt_text)
        f_capt_type = type;
}

void Tvx_item_column::set_caption(char const *caption)
{
    f_caption = caption ? caption : "";
}

void Tvx_item_column::set_capt_bmp(TBitmap const *bitmap)
{
    if (!bitmap) {
        f_capt_bmp.ReleaseHandle();
        return;
    }
    f_capt_bmp.Assign(bitmap);
    f_capt_bmp.SetTransparent(true);
}

void Tvx_item_column::set_width_type(int type)
{
    if (type == c_item_width_fixed || type == c_item_width_share)
        f_width_type = type;
}

void Tvx_item_column::set_col_type(int type)
{
    if (type >= c_item_col_row && type <= c_item_col_wstr_cbx)
        f_col_type = type;
}

void Tvx_item_column::set_enabled(bool enabled)
{
    f_enabled = enabled;
    if (!enabled && f_col_type == c_item_col_cbx)
        f_col_type = c_item_col_str;
}

bool Tvx_item_column::has_cbx() const
{
    return f_col_type == c_item_col_cbx || f_col_type == c_item_col_wstr_cbx;
}

bool Tvx_item_column::edits_in_place() const
{
    return f_enabled && f_col_type >= c_item_col_str && f_col_type <= c_item_col_dbl;
}

// ---- events

char const *Tvx_item_column::call_get_str(int row)
{
    char const *const text = on_get_str(this, row);
    f_str = text ? text : "";
    return f_str.c_str();
}

wchar_t const *Tvx_item_column::call_get_wstr(int row)
{
    wchar_t const *const text = on_get_wstr(this, row);
    f_wstr = text ? text : L"";
    return f_wstr.c_str();
}

bool Tvx_item_column::call_get_correct(int row)
{
    return !on_get_correct || on_get_correct(this, row);
}

bool Tvx_item_column::call_get_can_add()
{
    return !on_get_can_add || on_get_can_add(this);
}

bool Tvx_item_column::call_get_bit(int row)
{
    return on_get_bit(this, row);
}

int Tvx_item_column::call_get_int(int row)
{
    return on_get_int(this, row);
}

double Tvx_item_column::call_get_dbl(int row)
{
    return on_get_dbl(this, row);
}

void Tvx_item_column::call_get_cbx(int row, Tvx_combo_box *combo)
{
    on_get_cbx(this, row, combo);
}

void Tvx_item_column::call_set_str(int row, char const *text)
{
    on_set_str(this, row, text ? text : "");
}

void Tvx_item_column::call_set_wstr(int row, wchar_t const *text)
{
    on_set_wstr(this, row, text ? text : L"");
}

void Tvx_item_column::call_set_bit(int row, bool value)
{
    on_set_bit(this, row, value);
}

void Tvx_item_column::call_set_int(int row, int value)
{
    on_set_int(this, row, value);
}

void Tvx_item_column::call_set_dbl(int row, double value)
{
    on_set_dbl(this, row, value);
}

void Tvx_item_column::call_set_cbx(int row, Tvx_combo_box *combo)
{
    on_set_cbx(this, row, combo);
}

void Tvx_item_column::call_changed()
{
    on_changed(this);
}

// ---- texts

UnicodeString Tvx_item_column::get_edit_text(int row)
{
    switch (f_col_type) {
    case c_item_col_mark:
        return get_grid()->call_get_sel(row) ? L"1" : L"0";
    case c_item_col_bit:
        return call_get_bit(row) ? L"1" : L"0";
    case c_item_col_str:
        return vx::text::to_wide(call_get_str(row));
    case c_item_col_wstr:
        return call_get_wstr(row);
    case c_item_col_int:
        return UnicodeString(call_get_int(row));
    case c_item_col_dbl:
        return vx::float_to_str(call_get_dbl(row), c_dbl_precision, c_dbl_digits);
    default:
        return {};
    }
}

void Tvx_item_column::set_edit_text(int row, char const *text)
{
    set_edit_wtext(row, vx::text::to_wide(text ? text : "").c_str());
}

void Tvx_item_column::set_edit_wtext(int row, wchar_t const *text)
{
    switch (f_col_type) {
    case c_item_col_str:
        if (on_set_wstr)
            call_set_wstr(row, text);
        else
            call_set_str(row, vx::text::to_bytes(text ? text : L"").c_str());
        break;
    case c_item_col_wstr:
    case c_item_col_wstr_cbx:
        if (!f_enter_done)
            call_set_wstr(row, text);
        break;
    case c_item_col_int: {
        int value = 0;
        if (wstr_to_int(text, value))
            call_set_int(row, value);
        break;
    }
    case c_item_col_dbl: {
        double value = 0.0;
        if (wstr_to_dbl(text, value))
            call_set_dbl(row, value);
        break;
    }
    default:
        break;
    }
}

bool Tvx_item_column::is_unchanged(int row, UnicodeString const &text)
{
    bool const known =
        (f_col_type == c_item_col_str && on_get_str) || (f_col_type == c_item_col_wstr && on_get_wstr) ||
        (f_col_type == c_item_col_int && on_get_int) || (f_col_type == c_item_col_dbl && on_get_dbl);
    return known && get_edit_text(row) == text;
}

bool Tvx_item_column::wstr_to_int(wchar_t const *text, int &value)
{
    return vx::str_to_int(trimmed(text), value);
}

bool Tvx_item_column::str_to_int(char const *text, int &value)
{
    return text && wstr_to_int(vx::text::to_wide(text).c_str(), value);
}

bool Tvx_item_column::wstr_to_dbl(wchar_t const *text, double &value)
{
    return text && std::wstring_view(text) != L"0" && vx::str_to_float(trimmed(text), value);
}

bool Tvx_item_column::str_to_dbl(char const *text, double &value)
{
    return text && wstr_to_dbl(vx::text::to_wide(text).c_str(), value);
}

// ---- drawing

void Tvx_item_column::draw_caption(TCanvas *canvas, TRect const &rect)
{
    if (f_capt_type == c_item_capt_text)
        draw_text(canvas, rect, vx::text::to_wide(f_caption));
    else if (f_capt_type == c_item_capt_bmp && !f_capt_bmp.GetEmpty())
        canvas->Draw(rect.Left + (rect.Width() - f_capt_bmp.GetWidth()) / 2,
                     rect.Top + (rect.Height() - f_capt_bmp.GetHeight()) / 2, &f_capt_bmp);
}

void Tvx_item_column::draw_item(TCanvas *canvas, int row, TRect const &rect, TColor fill)
{
    switch (f_col_type) {
    case c_item_col_row:
        draw_text(canvas, rect, UnicodeString(row + 1));
        break;
    case c_item_col_mark:
        draw_check(canvas, rect, get_grid()->call_get_sel(row));
        break;
    case c_item_col_bit:
        draw_check(canvas, rect, call_get_bit(row));
        break;
    case c_item_col_cbx:
        draw_cbx(canvas, row, rect, fill);
        break;
    case c_item_col_wstr_cbx:
        draw_wstr_cbx(canvas, row, rect);
        break;
    default:
        draw_text(canvas, rect, get_edit_text(row));
        break;
    }
}

void Tvx_item_column::draw_check(TCanvas *canvas, TRect const &rect, bool checked)
{
    auto const half = static_cast<int>(c_check_share * std::min(rect.Width(), rect.Height()));
    TPoint const middle = rect.CenterPoint();
    DrawFrameControl(canvas, Rect(middle.X - half, middle.Y - half, middle.X + half, middle.Y + half),
                     fcCheckBox, checked ? TFrameStates{fsChecked} : TFrameStates{});
}

void Tvx_item_column::draw_cbx(TCanvas *canvas, int row, TRect const &rect, TColor fill)
{
    auto *const combo = get_grid()->get_draw_cbx();
    if (!combo)
        return;
    combo->Clear();
    call_get_cbx(row, combo);
    TColor const color = combo->GetColor();
    combo->SetBounds(0, 0, rect.Width(), rect.Height());
    if (fill != clNone)
        combo->SetColor(fill);
    vx_paint_to(combo, canvas, rect.Left, rect.Top);
    combo->SetColor(color);
}

void Tvx_item_column::draw_wstr_cbx(TCanvas *canvas, int row, TRect const &rect)
{
    TRect text = rect;
    text.Right = std::max(text.Left, text.Right - c_drop_button_width);
    if (!call_get_correct(row)) {
        canvas->GetBrush()->SetColor(c_incorrect_color);
        canvas->FillRect(text);
    }
    draw_text(canvas, text, call_get_wstr(row));
    DrawEdge(canvas, rect, esSunken);
    DrawFrameControl(canvas, Rect(text.Right, rect.Top + 1, rect.Right - 1, rect.Bottom - 1), fcComboButton,
                     {});
}

// ---- what the user does

/// What the cell at the column does when it becomes the current one.
bool Tvx_item_column::select_cell(int new_row, int old_row, bool col_changed)
{
    if (!f_selectable)
        return false;
    auto *const grid = get_grid();
    grid->set_editing(edits_in_place());
    bool const same = !col_changed && new_row == old_row;
    if (f_col_type == c_item_col_mark && !same && (vx_shift_pressed() || vx_alt_pressed())) {
        int const other = col_changed ? new_row : old_row;
        bool const mark = vx_shift_pressed();
        auto const life = grid->Life();
        for (int row = std::min(other, new_row); row <= std::max(other, new_row); ++row) {
            grid->call_set_sel(row, mark);
            if (life.expired())
                return false;
        }
        grid->InvalidateGrid();
    }
    return true;
}

void Tvx_item_column::mouse_down_selected_cell(int row)
{
    bool const marks = f_col_type == c_item_col_mark;
    if (!marks && f_col_type != c_item_col_bit)
        return;
    auto *const grid = get_grid();
    bool const shift = vx_shift_pressed();
    bool const alt = !shift && vx_alt_pressed();
    bool const value = shift || (!alt && !(marks ? grid->call_get_sel(row) : call_get_bit(row)));
    auto const life = grid->Life();
    if (marks)
        grid->call_set_sel(row, value);
    else
        call_set_bit(row, value);
    if (!life.expired() && (!marks || (!shift && !alt)))
        call_changed();
    if (life.expired())
        return;
    grid->InvalidateGrid();
    grid->update_actions();
}

void Tvx_item_column::on_key_press(wchar_t &key)
{
    auto *const grid = get_grid();
    int const row = grid->item_at(grid->GetRow());
    f_enter_done = false;
    if (key == L',')
        key = L'.';
    if (key == c_enter) {
        bool const ends =
            f_col_type == c_item_col_wstr || f_col_type == c_item_col_int || f_col_type == c_item_col_dbl;
        f_enter_done = ends;
        if (f_col_type == c_item_col_wstr)
            on_enter_wstr(this, grid->GetCol(), row);
        return;
    }
    switch (f_col_type) {
    case c_item_col_dbl:
        if (!is_digit(key) && key != L'-' && key != L'E' && key != L'.' && key != c_backspace)
            key = 0;
        break;
    case c_item_col_int:
        if (!is_digit(key) && key != c_backspace)
            key = 0;
        else
            on_key_wstr(this, key, row);
        break;
    case c_item_col_wstr:
        on_key_wstr(this, key, row);
        break;
    default:
        break;
    }
}

void Tvx_item_column::on_cbx_changed(TObject * /*sender*/)
{
    auto *const grid = get_grid();
    int const row = f_cbx_row;
    if (row < 0 || row >= grid->get_item_count())
        return;
    bool const reports = f_col_type == c_item_col_wstr_cbx;
    auto const life = grid->Life();
    call_set_cbx(row, grid->get_edit_cbx());
    if (reports && !life.expired())
        call_changed();
}
