#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/misc.h"
#include "controls/forms/panels.h"

#include <string>

class Tvx_lib_style_panel;
class Tvx_lib_tree_panel;

/// One library: its tree at the left, its styles at the right, a search above these. Tree and styles follow
/// each other.
class VX_API Tvx_lib_panel : public Tvx_panel
{
public:
    explicit Tvx_lib_panel(TComponent *owner);

    void load_res();
    /// A library (platform/styles/vx_style_lib.h) or null; shown by `update_controls`.
    void set_lib(void *lib);
    [[nodiscard]] void *get_lib() const { return f_lib; }
    void update_controls();

    /// Of the active style; false without one.
    [[nodiscard]] bool get_index_ver(int &index, int &version) const;
    /// In the tree, then among the styles.
    void set_index_ver(int index, int version);
    [[nodiscard]] int get_tree_width() const;
    void set_tree_width(int width);
    /// The indexed style that is seen, null if there is none.
    [[nodiscard]] void *get_active_style() const;

    [[nodiscard]] Tvx_lib_tree_panel *get_tree_panel() const { return f_tree_panel; }
    [[nodiscard]] Tvx_lib_style_panel *get_style_panel() const { return f_style_panel; }
    [[nodiscard]] Tvx_button *get_search_btn() const { return f_search_btn; }
    [[nodiscard]] Tvx_button *get_next_btn() const { return f_next_btn; }

    /// Another style is active. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    void on_tree_changed(TObject *sender);
    void on_style_changed(TObject *sender);
    void on_search_btn_click(TObject *sender);
    void on_next_btn_click(TObject *sender);
    /// Shows what a text search found, or tells by the format that there is nothing.
    void show_item(void *item, int not_found_format);

    void *f_lib = nullptr;
    Tvx_panel *f_left_panel;
    Tvx_lib_tree_panel *f_tree_panel;
    Tvx_splitter *f_splitter;
    Tvx_panel *f_right_panel;
    Tvx_panel *f_search_panel;
    Tvx_button *f_search_btn;
    Tvx_button *f_next_btn;
    Tvx_lib_style_panel *f_style_panel;
    std::wstring f_last_search;
};
