#pragma once

#include "style_manager/api/style_events.h"
#include "style_manager/scales/scale_menu.h"

#include "platform/basic/vx_palette.h"

#include <memory>

class Tvx_scale_rows;

/// Changes the styles of the rows of a scale together, all or the marked ones. Until the user has said which,
/// that follows the marks.
class VX_API Tvx_style_menu : public Tvx_scale_menu
{
public:
    explicit Tvx_style_menu(TComponent *owner);

    void create();
    void load_res();
    /// Takes up the marks, the libraries and the user's palettes as they are now.
    void update_controls();

    void set_stl_mngr(void *mngr) override;
    /// It works on the styles of selected objects.
    void set_sel_style(bool sel) { f_sel_style = sel; }
    [[nodiscard]] bool get_sel_style() const { return f_sel_style; }
    /// Only the marked rows are meant.
    void set_use_for_marked(bool marked) { f_use_for_marked = marked; }
    [[nodiscard]] bool get_use_for_marked() const { return f_use_for_marked; }
    /// Whether a row of a value or range scale is marked. Of rules all are meant until the user says
    /// otherwise.
    [[nodiscard]] bool stl_mngr_has_selected() const;
    /// Colours the rows by a palette, a user's one unless that is null: along it or, with `random`, in an
    /// order by chance.
    void set_color_palette(Tvx_clr_palette_idx idx, bool random, void *palette);
    /// Frees the lines behind the first `keep` ones.
    static void clear_user_palette_tools(Tvx_menu_item *item, int keep);

    Tvx_draw_style_event on_draw_style;
    Tvx_edit_style_event on_edit_style;
    /// Not set where libraries do not serve the scale.
    Tvx_lib_symbol_style_event on_lib_symbol_style;
    /// The user asks for a gradient, which the grid picks.
    TNotifyEvent on_clr_gradient;
    TNotifyEvent on_transparency_gradient;
    TNotifyEvent on_size_gradient;

private:
    void add_palettes();
    void add_user_palettes();
    void show_symbols(bool values);
    void show_sample(Tvx_scale_rows const &rows, int row);

    void on_item_only_selected_click(TObject *sender);
    void on_item_edt_click(TObject *sender);
    void on_item_invert_click(TObject *sender);
    void on_item_clr_gradient_click(TObject *sender);
    void on_item_size_gradient_click(TObject *sender);
    void on_item_transparency_gradient_click(TObject *sender);
    void on_item_grad_click(TObject *sender);
    void on_item_clr_click(TObject *sender);
    void on_item_user_palette_click(TObject *sender);
    void on_item_lib_symbol_click(TObject *sender);
    void on_item_user_palette_settings_click(TObject *sender);

    bool f_sel_style = false;
    bool f_use_for_marked = false;
    bool f_use_for_marked_touched = false; ///< the user has set it for this manager
    Tvx_menu_item *f_only_selected_item = nullptr;
    Tvx_menu_item *f_edit_item = nullptr;
    Tvx_menu_item *f_invert_item = nullptr;
    Tvx_menu_item *f_clr_gradient_item = nullptr;
    Tvx_menu_item *f_size_gradient_item = nullptr;
    Tvx_menu_item *f_transparency_gradient_item = nullptr;
    Tvx_menu_item *f_grad_item = nullptr;
    Tvx_menu_item *f_clr_item = nullptr;
    Tvx_menu_item *f_symbol_item = nullptr;
    Tvx_menu_item *f_user_palettes_item = nullptr;
    int f_grad_count = 0; ///< lines of the built-in palettes
    int f_clr_count = 0;
    std::shared_ptr<void const> f_life; ///< ends with the menu
};
