#include "controls/prop/figure_dialog_form.h"

#include "captions/prop.h"
#include "controls/prop/figure_style_priv.h"
#include "controls/prop/image_convert.h"
#include "styles/preview/style_example.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>

namespace {
constexpr double c_sample_size = 6.0; // mm
constexpr int c_form_width = 400;
constexpr int c_panel_edge = 20; // of the panel's width is left free beside the cells
constexpr int c_grid_frame = 4;  // above and below the cells
constexpr int c_bitmap_inset = 2;
constexpr int c_frame_inset = 3;
constexpr int c_frame_radius = 3;
constexpr int c_frame_width = 3;

/// Codes in the order in which they are shown.
constexpr int c_codes[Tvx_basic_figure_dialog_form::c_figure_count] = {
    0, 1, 2, 3, 4, 5, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 6, 7, 8, 9, 10};

template <class Form>
bool run_dialog(TComponent *owner, int x, int y, int *figure)
{
    if (!figure)
        return false;
    auto const form = std::make_unique<Form>(owner);
    return form->dialog(x, y, figure);
}
} // namespace

bool vx_figure_dialog(TComponent *owner, int x, int y, int *figure)
{
    return run_dialog<Tvx_figure_dialog_form>(owner, x, y, figure);
}

bool vx_lr_figure_dialog(TComponent *owner, int x, int y, int *figure)
{
    return run_dialog<Tvx_lr_figure_dialog_form>(owner, x, y, figure);
}

Tvx_basic_figure_dialog_form::Tvx_basic_figure_dialog_form(TComponent *owner) : Tvx_dlg_form(owner)
{
    int const cell = (c_form_width - c_panel_edge) / c_col_count;
    SetBounds(0, 0, c_form_width, (cell + 1) * c_row_count + c_grid_frame + Tvx_bottom_panel::c_height);
}

void Tvx_basic_figure_dialog_form::load_res()
{
    Tvx_dlg_form::load_res();
    SetCaption(vx_res_get_wstr(c_caption_figures));
    if (f_grid)
        f_grid->SetAccessibleName(vx_res_get_wstr(c_caption_figures));
}

int Tvx_basic_figure_dialog_form::get_code(int place)
{
    return place >= 0 && place < c_figure_count ? c_codes[place] : -1;
}

void Tvx_basic_figure_dialog_form::create_controls()
{
    if (f_grid)
        return;
    f_panel = get_content_panel();
    f_grid = vx_new_on<Tvx_draw_grid>(f_panel, this);
    f_grid->SetAlign(alClient);
    f_grid->SetFixedCols(0);
    f_grid->SetFixedRows(0);
    f_grid->SetColCount(c_col_count);
    f_grid->SetRowCount(c_row_count);
    f_grid->SetOptions(f_grid->GetOptions() - TGridOptions{goRangeSelect} +
                       TGridOptions{goDrawFocusSelected});
    f_grid->SetDefaultDrawing(false);
    f_grid->OnDrawCell = make_closure<&Tvx_basic_figure_dialog_form::on_grid_draw_cell>(this);
    f_grid->OnDblClick = make_closure<&Tvx_basic_figure_dialog_form::on_grid_dbl_click>(this);
    f_panel->OnResize = make_closure<&Tvx_basic_figure_dialog_form::on_panel_resize>(this);
    on_panel_resize(nullptr);
    SetActiveControl(f_grid);
}

void Tvx_basic_figure_dialog_form::on_panel_resize(TObject * /*sender*/)
{
    int const size = std::max((f_panel->GetWidth() - c_panel_edge) / c_col_count, 1);
    f_grid->SetDefaultColWidth(size);
    f_grid->SetDefaultRowHeight(size);
}

int Tvx_basic_figure_dialog_form::selected_place() const
{
    return f_grid->GetRow() * c_col_count + f_grid->GetCol();
}

bool Tvx_basic_figure_dialog_form::apply_click()
{
    return f_grid && selected_place() < c_figure_count && Tvx_dlg_form::apply_click();
}

bool Tvx_basic_figure_dialog_form::dialog(int x, int y, int *figure)
{
    create_controls();
    int const place = static_cast<int>(std::ranges::find(c_codes, *figure) - c_codes);
    if (place < c_figure_count) {
        f_grid->SetCol(place % c_col_count);
        f_grid->SetRow(place / c_col_count);
    }
    if (show_pos(x, y) != mrOk)
        return false;
    if (int const code = get_code(selected_place()); code >= 0)
        *figure = code;
    return true;
}

void Tvx_basic_figure_dialog_form::on_grid_dbl_click(TObject * /*sender*/)
{
    get_apply_btn()->Click();
}

void Tvx_basic_figure_dialog_form::on_grid_draw_cell(TObject * /*sender*/, int col, int row,
                                                     TRect const &rect, TGridDrawState state)
{
    TCanvas *const canvas = f_grid->GetCanvas();
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(f_grid->GetColor());
    canvas->FillRect(rect);
    int const code = get_code(row * c_col_count + col);
    if (code >= 0) {
        // In the screen's own pixels, as many of them as the inner part of the cell has.
        TRect place = rect;
        place.Inflate(-c_bitmap_inset, -c_bitmap_inset);
        int const scale = vx_screen_pixel_scale();
        TBitmap bitmap(place.Width() * scale, place.Height() * scale);
        vx_bmp_fill_color(&bitmap, clWhite);
        vx_pnt_style_example_bmp(get_sample_style(code), &bitmap);
        canvas->StretchDraw(place, &bitmap);
    }
    if (!state.Contains(gdFocused) && !state.Contains(gdSelected))
        return;
    canvas->GetBrush()->SetStyle(bsClear);
    canvas->GetPen()->SetStyle(psSolid);
    canvas->GetPen()->SetColor(clRed);
    canvas->GetPen()->SetWidth(c_frame_width);
    canvas->RoundRect(rect.Left + c_frame_inset, rect.Top + c_frame_inset, rect.Right - c_frame_inset,
                      rect.Bottom - c_frame_inset, c_frame_radius, c_frame_radius);
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetPen()->SetWidth(1);
    if (state.Contains(gdFocused))
        canvas->DrawFocusRect(rect);
}

Tvx_figure_dialog_form::Tvx_figure_dialog_form(TComponent *owner)
    : Tvx_basic_figure_dialog_form(owner),
      f_style(vx::detail::make_figure_style(c_sample_size * vx_screen_pixel_scale()))
{
}

void *Tvx_figure_dialog_form::get_sample_style(int code)
{
    vx::detail::set_style_figure(f_style.get(), code);
    return f_style.get();
}

Tvx_lr_figure_dialog_form::Tvx_lr_figure_dialog_form(TComponent *owner)
    : Tvx_basic_figure_dialog_form(owner),
      f_style(vx::detail::make_lr_figure_style(c_sample_size * vx_screen_pixel_scale()))
{
}

void *Tvx_lr_figure_dialog_form::get_sample_style(int code)
{
    vx::detail::set_style_lr_figure(f_style.get(), code);
    return f_style.get();
}
