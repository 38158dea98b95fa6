#include "controls/prop/dbf_show.h"

#include "captions/prop.h"
#include "data/filesystem/filesystem.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>

namespace {
constexpr int c_row_height = 20;
constexpr int c_number_width = 40;
constexpr int c_text_inset = 2;
constexpr int c_form_width = 600;
constexpr int c_form_height = 400;
constexpr int c_min_width = 50;
constexpr int c_max_width = 240;
constexpr int c_max_characters = 24; // of a field, for the width of its column
} // namespace

void vx_show_dbf_modal(char const *name, bool dos)
{
    Tvx_dbf_show_form form(nullptr);
    form.show_modal_dbf(UnicodeString(name).c_str(), dos);
}

Tvx_dbf_show_grid::Tvx_dbf_show_grid(TComponent *owner) : Tvx_custom_grid(owner)
{
    SetDefaultRowHeight(c_row_height);
    SetColCount(2);
    SetRowCount(2);
    SetColWidths(0, c_number_width);
    SetOptions(GetOptions() + TGridOptions{goColSizing, goThumbTracking, goDrawFocusSelected});
    SetAccessibleName(vx_res_get_wstr(c_caption_table));
}

vx::dbf_handle Tvx_dbf_show_grid::open_table() const
{
    return vx::dbf_handle(vx_dbf_open_w(f_name.c_str(), 1, f_dos));
}

void Tvx_dbf_show_grid::show(char const *name, bool dos)
{
    show(UnicodeString(name).c_str(), dos);
}

void Tvx_dbf_show_grid::show(wchar_t const *name, bool dos)
{
    f_name = name ? name : L"";
    f_dos = dos;
    vx::dbf_handle const table = open_table();
    SetColCount(std::max(vx_dbf_get_nf(table.get()) + 1, 2));
    SetRowCount(std::max(vx_dbf_get_nr(table.get()) + 1, 2));
    SetCol(GetFixedCols());
    SetRow(GetFixedRows());
    fit_columns(table.get());
    InvalidateGrid();
}

void Tvx_dbf_show_grid::fit_columns(Ivx_dbf const *table)
{
    TCanvas *const canvas = GetCanvas();
    canvas->SetFont(GetFont());
    int const inset = 2 * c_text_inset + 1;
    int const digit = canvas->TextWidth(L"0");
    SetColWidths(0, std::max(c_number_width, canvas->TextWidth(UnicodeString(GetRowCount())) + inset));
    for (int field = 0; field < vx_dbf_get_nf(table); ++field) {
        int const name = canvas->TextWidth(vx_dbf_get_field_wname(table, field));
        int const content = std::min(vx_dbf_get_field_width(table, field), c_max_characters) * digit;
        SetColWidths(field + 1, std::clamp(std::max(name, content) + inset, c_min_width, c_max_width));
    }
}

void Tvx_dbf_show_grid::Paint()
{
    // Closed again on every way out, so that no handle lives across messages.
    struct closer
    {
        vx::dbf_handle &table;
        ~closer() { table.reset(); }
    } const close_at_end{f_table};
    f_table = open_table();
    Tvx_custom_grid::Paint();
}

UnicodeString Tvx_dbf_show_grid::get_cell_text(int field, int record)
{
    bool ok = false;
    wchar_t const *const text = vx_dbf_get_wstr(f_table.get(), field, record, &ok);
    return ok ? UnicodeString(text) : UnicodeString();
}

void Tvx_dbf_show_grid::DrawCell(int col, int row, TRect const &rect, TGridDrawState /*state*/)
{
    if (!f_table)
        return;
    UnicodeString text;
    if (row == 0 && col == 0)
        text = L"#";
    else if (row == 0)
        text = vx_dbf_get_field_wname(f_table.get(), col - 1);
    else if (col == 0)
        text = UnicodeString(row);
    else
        text = get_cell_text(col - 1, row - 1);
    GetCanvas()->TextRect(rect, rect.Left + c_text_inset, rect.Top + c_text_inset, text);
}

Tvx_dbf_show_panel::Tvx_dbf_show_panel(TComponent *owner)
    : Tvx_panel(owner), f_grid(vx_new_for<Tvx_dbf_show_grid>(this, this))
{
    f_grid->SetParent(this);
    f_grid->SetAlign(alClient);
}

void Tvx_dbf_show_panel::show(wchar_t const *name, bool dos)
{
    f_grid->show(name, dos);
}

Tvx_dbf_show_form::Tvx_dbf_show_form(TComponent *owner)
    : Tvx_form(owner), f_panel(vx_new_for<Tvx_dbf_show_panel>(this, this))
{
    SetBounds(0, 0, c_form_width, c_form_height);
    SetPosition(poScreenCenter);
    SetKeyPreview(true);
    f_panel->SetParent(this);
    f_panel->SetAlign(alClient);
}

void Tvx_dbf_show_form::show_modal_dbf(wchar_t const *name, bool dos)
{
    SetCaption(vx::filesystem::filename(std::wstring(name ? name : L"")));
    f_panel->show(name, dos);
    ShowModal();
}

void Tvx_dbf_show_form::KeyDown(Word &key, TShiftState shift)
{
    if (key == VK_ESCAPE) {
        key = 0;
        return Close();
    }
    Tvx_form::KeyDown(key, shift);
}
