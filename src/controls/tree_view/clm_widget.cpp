#include "controls/tree_view/clm_widget.h"

#include "captions/tree_view.h"
#include "controls/prop/image_convert.h"

#include "platform/basic/vx_geo_column.h"
#include "platform/basic/vx_res.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <string>

namespace {
constexpr int c_columns = 5;
constexpr int c_name_column = 1;
constexpr int c_flag_column = 2;
constexpr int c_row_height = 20;
constexpr int c_text_inset = 2;
constexpr int c_picture_visible = 130;
} // namespace

Tvx_clm_widget::Tvx_clm_widget(TComponent *owner)
    : Tvx_panel(owner), f_top_panel(new Tvx_panel(this)), f_grid(new Tvx_draw_grid(this))
{
    f_top_panel->SetParent(this);
    f_top_panel->SetAlign(alTop);
    f_grid->SetParent(this);
    f_grid->SetAlign(alClient);
    f_grid->SetColCount(c_columns);
    f_grid->SetFixedCols(1);
    f_grid->SetRowCount(2);
    f_grid->SetFixedRows(1);
    f_grid->SetDefaultRowHeight(c_row_height);
    f_grid->SetOptions(
        TGridOptions{goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goEditing, goThumbTracking});
    f_grid->OnDrawCell = make_closure<&Tvx_clm_widget::on_grid_draw_cell>(this);
    f_grid->OnSelectCell = make_closure<&Tvx_clm_widget::on_grid_select_cell>(this);
    f_grid->OnGetEditText = make_closure<&Tvx_clm_widget::on_grid_get_edit_text>(this);
    f_grid->OnSetEditText = make_closure<&Tvx_clm_widget::on_grid_set_edit_text>(this);
    f_grid->OnMouseDown = make_closure<&Tvx_clm_widget::on_grid_mouse_down>(this);
    f_grid->OnResize = make_closure<&Tvx_clm_widget::on_grid_resize>(this);
}

void Tvx_clm_widget::load_res()
{
    f_title = vx_res_get_wstr(c_tree_view_title);
    f_grid->Invalidate();
}

void Tvx_clm_widget::set_column(Ivx_geo_column *column)
{
    f_column = column;
}

void Tvx_clm_widget::update_controls()
{
    f_grid->SetRowCount(1 + (f_column ? f_column->get_item_count() : 1));
    // An empty list has left none of them fixed.
    f_grid->SetFixedRows(1);
    f_grid->Invalidate();
}

Ivx_geo_column_item *Tvx_clm_widget::item_of(int row) const
{
    return f_column && row > 0 ? f_column->get_item(row - 1) : nullptr;
}

void Tvx_clm_widget::on_grid_draw_cell(TObject *, int col, int row, TRect const &rect, TGridDrawState)
{
    Ivx_geo_column_item const *const item = item_of(row);
    if (col == c_flag_column && (row == 0 || (item && item->get_flag())))
        canvas_draw_rsrc(f_grid->GetCanvas(), c_picture_visible, rect, true);
    if (col != c_name_column)
        return;
    UnicodeString text = row == 0 ? f_title : UnicodeString();
    Tvx_unicode_string_adapter adapter(text);
    if (item)
        item->get_name(adapter);
    f_grid->GetCanvas()->TextOut(rect.Left + c_text_inset, rect.Top + c_text_inset, text);
}

void Tvx_clm_widget::on_grid_select_cell(TObject *, int col, int, bool &)
{
    f_grid->SetOptions(col == c_name_column ? f_grid->GetOptions() << goEditing
                                            : f_grid->GetOptions() >> goEditing);
}

void Tvx_clm_widget::on_grid_get_edit_text(TObject *, int, int row, UnicodeString &text)
{
    Tvx_unicode_string_adapter adapter(text);
    if (Ivx_geo_column_item const *const item = item_of(row))
        item->get_name(adapter);
}

void Tvx_clm_widget::on_grid_set_edit_text(TObject *, int, int row, UnicodeString const &text)
{
    if (Ivx_geo_column_item *const item = item_of(row))
        item->set_name(text.c_str());
}

void Tvx_clm_widget::on_grid_mouse_down(TObject *, TMouseButton button, TShiftState, int x, int y)
{
    TGridCoord const cell = f_grid->MouseCoord(x, y);
    Ivx_geo_column_item *const item = item_of(cell.Y);
    if (button != mbLeft || cell.X != c_flag_column || !item)
        return;
    item->set_flag(!item->get_flag());
    f_grid->Invalidate();
}

void Tvx_clm_widget::on_grid_resize(TObject *)
{
    int const unit = f_grid->GetDefaultColWidth();
    int const line = f_grid->GetGridLineWidth();
    int const others = unit / 2 + unit + 2 * (3 * unit / 2);
    f_grid->SetColWidths(0, unit / 2);
    f_grid->SetColWidths(c_flag_column, unit);
    f_grid->SetColWidths(3, 3 * unit / 2);
    f_grid->SetColWidths(4, 3 * unit / 2);
    f_grid->SetColWidths(c_name_column, std::max(f_grid->GetClientWidth() - others - c_columns * line, 0));
}
