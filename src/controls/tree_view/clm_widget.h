#pragma once

#include "controls/forms/grids.h"
#include "controls/forms/panels.h"

class Ivx_geo_column;

/// A small grid over a list of named switches: a click, or Space, in the column with the eye turns an item on
/// or off, names are edited in place. The list stays its owner's and outlives its being shown here.
class VX_API Tvx_clm_widget : public Tvx_panel
{
public:
    explicit Tvx_clm_widget(TComponent *owner);

    void load_res();
    [[nodiscard]] Ivx_geo_column *get_column() const { return f_column; }
    /// `update_controls` shows it; null shows an empty row.
    void set_column(Ivx_geo_column *column);
    void update_controls();

    [[nodiscard]] Tvx_panel *get_top_panel() const { return f_top_panel; }
    [[nodiscard]] Tvx_draw_grid *get_grid() const { return f_grid; }

private:
    [[nodiscard]] class Ivx_geo_column_item *item_of(int row) const;
    void on_grid_draw_cell(TObject *sender, int col, int row, TRect const &rect, TGridDrawState state);
    void on_grid_select_cell(TObject *sender, int col, int row, bool &can_select);
    void on_grid_get_edit_text(TObject *sender, int col, int row, UnicodeString &text);
    void on_grid_set_edit_text(TObject *sender, int col, int row, UnicodeString const &text);
    void on_grid_mouse_down(TObject *sender, TMouseButton button, TShiftState shift, int x, int y);
    void on_grid_resize(TObject *sender);

    Tvx_panel *f_top_panel;
    Tvx_draw_grid *f_grid;
    Ivx_geo_column *f_column = nullptr;
    UnicodeString f_title = L"Title";
};
