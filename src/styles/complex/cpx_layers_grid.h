#pragma once

#include "styles/complex/cpx_items_grid.h"

/// The layers of a complex style, the one that is drawn first at the top.
class VX_API Tvx_cpx_layers_grid : public Tvx_cpx_items_grid
{
public:
    explicit Tvx_cpx_layers_grid(TComponent *owner);

    void load_res() override;

    /// The style stays its owner's, and is changed in place. Null: no layers.
    [[nodiscard]] void *get_style() const { return f_style; }
    void set_style(void *style) { f_style = style; }
    /// Null without a style, and with no active row.
    [[nodiscard]] void *get_active_lr() const;

protected:
    [[nodiscard]] int item_count() const override;
    char const *item_text(int row) override;
    void prepare_add_menu() override;
    void delete_item() override;
    /// Those between move up or down by one.
    void move_item(int from, int to) override;
    void move_up() override;
    void move_down() override;
    void active_changed() override { call_changed(); }

private:
    void on_symb_menu_click(TObject *sender);
    void on_figr_menu_click(TObject *sender);
    void on_line_menu_click(TObject *sender);
    void on_tplt_menu_click(TObject *sender);
    void on_fill_menu_click(TObject *sender);
    void on_htch_menu_click(TObject *sender);
    void on_spot_menu_click(TObject *sender);
    void add_layer(char const *key);
    [[nodiscard]] void *layers() const;
    [[nodiscard]] bool holds(int row) const { return row >= 0 && row < item_count(); }
    void list_changed();
    void move_to(int from, int to);

    void *f_style = nullptr;
};
