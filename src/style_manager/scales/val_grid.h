#pragma once

#include "style_manager/scales/scale_grid.h"

class Tvx_rule_import_menu;

/// The entries of a value scale or, with the rule flag, of a rule scale: entry i is row i.
class VX_API Tvx_val_grid : public Tvx_scale_grid
{
public:
    Tvx_val_grid(TComponent *owner, bool rule);

    void create();
    void load_res();

    [[nodiscard]] bool is_rule() const { return f_rule; }
    /// The menu of the texts or the captions, at a point of the screen; for the texts of rules that which
    /// imports other scales.
    void call_name_menu(int x, int y, bool caption);
    /// Lets the user edit the filter of an entry.
    virtual void call_value_click(unsigned entry);

    [[nodiscard]] unsigned get_n_row() const override;
    [[nodiscard]] bool get_row_marked(unsigned row) const override;
    void set_row_marked(unsigned row, bool marked) override;
    [[nodiscard]] void *get_row_scale_prm_ptr(unsigned row) const override;

    Tvx_lib_symbol_style_event on_lib_symbol_style;
    Tvx_edit_value_item_event on_edit_value_item;

protected:
    [[nodiscard]] void *scale_of(void *mngr) const override;
    void unmark_all() override;
    [[nodiscard]] bool can_delete() const override;
    [[nodiscard]] UnicodeString title(int col) const override;
    [[nodiscard]] std::wstring cell_text(unsigned row, int col) const override;
    [[nodiscard]] std::wstring row_hint(unsigned row) const override;
    [[nodiscard]] bool is_edit_col(int col) const override;
    [[nodiscard]] bool is_edit_cell(unsigned, int) const override { return true; }
    bool take_text(unsigned row, int col, char const *text) override;
    void run_gradient(Tvx_gradient_kind kind, unsigned first, unsigned last, bool sel) override;
    bool move_entry(int from, int to) override;
    void call_title_menu(int col, TPoint at) override;
    [[nodiscard]] int text_col_share(int) const override { return 2; }
    void on_ins_action_execute(TObject *sender) override;
    void on_del_action_execute(TObject *sender) override;

    [[nodiscard]] Tvx_lib_symbol_style_event lib_symbol_event() override;
    void release_menus() override;

private:
    void on_double_click(TObject *sender);
    bool on_menu_lib_symbol_style(TObject *sender, int lib_idx, int code, void *stl_prm, bool sel,
                                  std::wstring &caption);

    bool f_rule;
    UnicodeString f_title_value;
    UnicodeString f_title_caption;
    Tvx_rule_import_menu *f_rule_import_menu = nullptr; ///< null until it is needed
};
