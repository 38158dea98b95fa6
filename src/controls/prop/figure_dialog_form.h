#pragma once

#include "controls/forms/dlg_form.h"
#include "controls/forms/grids.h"

#include <memory>

/// Lets the user choose one of the 26 point figures at a point of the screen (as `Tvx_dlg_form::show_pos`):
/// true and its code in `*figure`, or false with `*figure` left alone. `owner` may be null.
[[nodiscard]] VX_API bool vx_figure_dialog(TComponent *owner, int x, int y, int *figure);
/// The same for the figure of a figure layer of a complex style.
[[nodiscard]] VX_API bool vx_lr_figure_dialog(TComponent *owner, int x, int y, int *figure);

/// A table of the 26 figures, of which one is chosen by mouse or keyboard; a double click ends the dialog.
class VX_API Tvx_basic_figure_dialog_form : public Tvx_dlg_form
{
public:
    static constexpr int c_col_count = 10;
    static constexpr int c_row_count = 3;
    static constexpr int c_figure_count = 26;

    explicit Tvx_basic_figure_dialog_form(TComponent *owner);

    void load_res() override;
    void create_controls() override;
    /// False while the selected cell holds no figure.
    bool apply_click() override;
    /// Runs the dialog with the cell of `*figure` selected; on Apply `*figure` becomes the chosen code.
    [[nodiscard]] bool dialog(int x, int y, int *figure);

    [[nodiscard]] Tvx_draw_grid *get_grid() const { return f_grid; }
    /// The code shown at a place, counted by rows from 0; -1 behind the last.
    [[nodiscard]] static int get_code(int place);

protected:
    /// The private point style, showing figure `code`.
    [[nodiscard]] virtual void *get_sample_style(int code) = 0;

private:
    void on_grid_draw_cell(TObject *sender, int col, int row, TRect const &rect, TGridDrawState state);
    void on_grid_dbl_click(TObject *sender);
    void on_panel_resize(TObject *sender);
    [[nodiscard]] int selected_place() const;

    Tvx_panel *f_panel = nullptr;
    Tvx_draw_grid *f_grid = nullptr;
};

/// For a simple point style.
class VX_API Tvx_figure_dialog_form : public Tvx_basic_figure_dialog_form
{
public:
    explicit Tvx_figure_dialog_form(TComponent *owner);

protected:
    void *get_sample_style(int code) override;

private:
    std::unique_ptr<void, void (*)(void *)> f_style;
};

/// For a figure layer of a complex style.
class VX_API Tvx_lr_figure_dialog_form : public Tvx_basic_figure_dialog_form
{
public:
    explicit Tvx_lr_figure_dialog_form(TComponent *owner);

protected:
    void *get_sample_style(int code) override;

private:
    std::unique_ptr<void, void (*)(void *)> f_style;
};
