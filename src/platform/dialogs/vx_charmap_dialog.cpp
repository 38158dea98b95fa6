#include "captions/dialogs.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/font_chars.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/paint_box.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/font.h"
#include "platform/toolkit/grids/draw_grid.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vx::dialogs {
namespace {
constexpr int c_columns = 16;
constexpr int c_rows = 9;
constexpr int c_cell = 30;
constexpr int c_scroll_bar = 22;
constexpr int c_preview = 88;
constexpr int c_grid_width = c_columns * (c_cell + 1) + c_scroll_bar;
constexpr int c_grid_height = c_rows * (c_cell + 1) + 3;
constexpr int c_width = c_grid_width + 3 * common_form::c_edge + c_preview;
constexpr int c_grid_top = common_form::c_edge + 2 * (common_form::c_edit_height + common_form::c_gap);
constexpr int c_name_height = 34; ///< two lines, beside the buttons
constexpr int c_name_width = c_width - 3 * common_form::c_edge - 180;
constexpr int c_height =
    c_grid_top + c_grid_height + common_form::c_edge + c_name_height + common_form::c_gap;
constexpr int c_caption_width = 76;
constexpr int c_char_height = -20; ///< pixels
constexpr char32_t c_symbol_base = 0xF000;
constexpr unsigned char c_default_charset = 1;

class charmap_form final : public common_form
{
public:
    charmap_form(vx_fnt_type const &font, char32_t symbol);

    [[nodiscard]] vx_fnt_type const &get_font() const { return f_font; }
    [[nodiscard]] char32_t get_symbol() const { return f_symbol; }

private:
    void on_font_change(TObject *sender);
    void on_find_change(TObject *sender);
    void on_grid_click(TObject *sender);
    void on_grid_dbl_click(TObject *sender);
    void on_grid_draw(TObject *sender, int col, int row, TRect const &rect, TGridDrawState state);
    void on_preview_paint(TObject *sender);
    void take_family();
    void show_characters();
    void show_symbol();
    void draw_char(TCanvas *canvas, TRect const &rect, char32_t c, int height) const;
    /// -1: the cell is behind the last character.
    [[nodiscard]] int index_at(int col, int row) const;

    vx_fnt_type f_font;
    vx_fnt_type f_former;
    char32_t f_symbol;
    std::vector<char32_t> f_all;
    std::vector<char32_t> f_shown;
    TComboBox *f_family;
    TEdit *f_find;
    TDrawGrid *f_grid;
    TPaintBox *f_preview;
    TLabel *f_name;
};

charmap_form::charmap_form(vx_fnt_type const &font, char32_t symbol)
    : common_form(c_dlg_charmap, c_width, c_height), f_font(font), f_former(font), f_symbol(symbol)
{
    constexpr int edit_left = c_edge + c_caption_width;
    f_family = new TComboBox(this);
    f_family->SetParent(this);
    f_family->SetStyle(csDropDownList);
    f_family->SetBounds(edit_left, c_edge, c_grid_width - c_caption_width, c_edit_height);
    for (auto const &family : font_families())
        f_family->GetItems()->Add(family);
    f_family->SetItemIndex(f_family->GetItems()->IndexOf(f_font.wname()));
    add_label(c_dlg_charmap_font, c_edge, c_edge + 4, f_family);
    constexpr int find_top = c_edge + c_edit_height + c_gap;
    f_find = new TEdit(this);
    f_find->SetParent(this);
    f_find->SetBounds(edit_left, find_top, c_grid_width - c_caption_width, c_edit_height);
    f_find->SetTextHint(vx_res_get_wstr(c_dlg_charmap_hint));
    add_label(c_dlg_charmap_find, c_edge, find_top + 4, f_find);

    f_grid = new TDrawGrid(this);
    f_grid->SetParent(this);
    f_grid->SetBounds(c_edge, c_grid_top, c_grid_width, c_grid_height);
    f_grid->SetFixedCols(0);
    f_grid->SetFixedRows(0);
    f_grid->SetColCount(c_columns);
    f_grid->SetDefaultColWidth(c_cell);
    f_grid->SetDefaultRowHeight(c_cell);
    f_grid->SetScrollBars(ssVertical);
    f_grid->SetOptions({goVertLine, goHorzLine, goThumbTracking});
    f_grid->SetDefaultDrawing(false);
    f_grid->SetColor(clWindow);
    f_grid->SetAccessibleName(vx_res_get_wstr(c_dlg_charmap_grid));

    f_preview = new TPaintBox(this);
    f_preview->SetParent(this);
    f_preview->SetBounds(2 * c_edge + c_grid_width, c_grid_top, c_preview, c_preview);
    f_preview->OnPaint = make_closure<&charmap_form::on_preview_paint>(this);
    f_name = new TLabel(this);
    f_name->SetParent(this);
    f_name->SetAutoSize(false);
    f_name->SetShowAccelChar(false);
    f_name->SetWordWrap(true);
    f_name->SetBounds(c_edge, c_grid_top + c_grid_height + c_edge, c_name_width, c_name_height);
    add_buttons();
    take_family();

    f_family->OnChange = make_closure<&charmap_form::on_font_change>(this);
    f_find->OnChange = make_closure<&charmap_form::on_find_change>(this);
    f_grid->OnClick = make_closure<&charmap_form::on_grid_click>(this);
    f_grid->OnDblClick = make_closure<&charmap_form::on_grid_dbl_click>(this);
    f_grid->OnDrawCell = make_closure<&charmap_form::on_grid_draw>(this);
}

void charmap_form::take_family()
{
    f_all = font_characters(f_font.wname());
    auto const has = [this](char32_t c) { return std::binary_search(f_all.begin(), f_all.end(), c); };
    // Symbol fonts hold their bytes in the area of private use.
    if (f_symbol < 256 && has(c_symbol_base + f_symbol) && (f_symbol == 0 || !has(f_symbol)))
        f_symbol += c_symbol_base;
    show_characters();
}

void charmap_form::show_characters()
{
    f_shown = find_characters(f_all, f_find->GetText().str());
    int const rows = (static_cast<int>(f_shown.size()) + c_columns - 1) / c_columns;
    f_grid->SetRowCount(std::max(rows, 1));
    auto const at = std::find(f_shown.begin(), f_shown.end(), f_symbol);
    // Who looks for a character means the first that is found. A symbol that the font lacks stays as it is.
    if (at == f_shown.end() && f_shown.size() < f_all.size() && !f_shown.empty())
        f_symbol = f_shown.front();
    int const index = at == f_shown.end() ? 0 : static_cast<int>(at - f_shown.begin());
    auto const handler = f_grid->OnClick;
    f_grid->OnClick = {};
    f_grid->SetCol(index % c_columns);
    f_grid->SetRow(index / c_columns);
    f_grid->OnClick = handler;
    f_grid->Invalidate();
    show_symbol();
}

void charmap_form::show_symbol()
{
    bool const any = !f_shown.empty();
    set_ok_enabled(any);
    f_name->SetText(any ? UnicodeString(describe(f_symbol))
                        : UnicodeString(vx_res_get_wstr(c_dlg_charmap_none)));
    f_preview->Invalidate();
}

int charmap_form::index_at(int col, int row) const
{
    int const index = row * c_columns + col;
    return index < static_cast<int>(f_shown.size()) ? index : -1;
}

void charmap_form::on_font_change(TObject *)
{
    f_font.set_wname(f_family->GetText().c_str());
    f_font.charset =
        f_family->GetText() == UnicodeString(f_former.wname()) ? f_former.charset : c_default_charset;
    take_family();
}

void charmap_form::on_find_change(TObject *)
{
    show_characters();
}

void charmap_form::on_grid_click(TObject *)
{
    int const index = index_at(f_grid->GetCol(), f_grid->GetRow());
    if (index < 0)
        return;
    f_symbol = f_shown[static_cast<std::size_t>(index)];
    f_grid->Invalidate();
    show_symbol();
}

void charmap_form::on_grid_dbl_click(TObject *)
{
    if (index_at(f_grid->GetCol(), f_grid->GetRow()) >= 0)
        SetModalResult(mrOk);
}

void charmap_form::draw_char(TCanvas *canvas, TRect const &rect, char32_t c, int height) const
{
    assign_font(canvas->GetFont(), f_font);
    canvas->GetFont()->SetHeight(height);
    UnicodeString const text(std::wstring(1, static_cast<wchar_t>(c)));
    auto const size = canvas->TextExtent(text);
    canvas->GetBrush()->SetStyle(bsClear);
    canvas->TextRect(rect, (rect.Left + rect.Right - size.cx) / 2, (rect.Top + rect.Bottom - size.cy) / 2,
                     text);
    canvas->GetBrush()->SetStyle(bsSolid);
}

void charmap_form::on_grid_draw(TObject *, int col, int row, TRect const &rect, TGridDrawState)
{
    auto *canvas = f_grid->GetCanvas();
    int const index = index_at(col, row);
    char32_t const c = index < 0 ? 0 : f_shown[static_cast<std::size_t>(index)];
    bool const chosen = index >= 0 && c == f_symbol;
    canvas->GetBrush()->SetColor(index < 0 ? clBtnFace : chosen ? clHighlight : clWindow);
    canvas->FillRect(rect);
    if (index < 0)
        return;
    canvas->GetFont()->SetColor(chosen ? clHighlightText : clWindowText);
    draw_char(canvas, rect, c, c_char_height);
    if (chosen && f_grid->Focused())
        canvas->DrawFocusRect(rect);
}

void charmap_form::on_preview_paint(TObject *)
{
    auto *canvas = f_preview->GetCanvas();
    TRect rect = Rect(0, 0, f_preview->GetWidth(), f_preview->GetHeight());
    canvas->GetBrush()->SetColor(clWindow);
    canvas->FillRect(rect);
    canvas->GetBrush()->SetColor(clBtnShadow);
    canvas->FrameRect(rect);
    rect.Inflate(-1, -1);
    canvas->GetFont()->SetColor(clWindowText);
    if (!f_shown.empty())
        draw_char(canvas, rect, f_symbol, -c_preview * 6 / 10);
}
} // namespace
} // namespace vx::dialogs

bool vx_charmap_dialog(HWND parent, int x, int y, vx_fnt_type *font, int *symbol)
{
    if (!font || !symbol)
        return false;
    if (auto const &table = vx::dialogs::table(); table.charmap)
        return table.charmap(table.user, vx::dialogs::owner_window(parent), x, y, font, symbol);
    vx::dialogs::charmap_form form(*font, *symbol < 0 ? 0 : static_cast<char32_t>(*symbol));
    if (!form.run(parent, x, y))
        return false;
    *font = form.get_font();
    *symbol = static_cast<int>(form.get_symbol());
    return true;
}
