#pragma once

#include "controls/forms/lists.h"
#include "controls/forms/panels.h"

#include <memory>

/// The tree of a library's items. Each node carries its item as `Data`.
class VX_API Tvx_lib_tree_panel : public Tvx_panel
{
public:
    explicit Tvx_lib_tree_panel(TComponent *owner);

    void load_res();
    /// A library (platform/styles/vx_style_lib.h) or null; shown by `update_controls`.
    void set_lib(void *lib) { f_lib = lib; }
    [[nodiscard]] void *get_lib() const { return f_lib; }
    /// Makes the nodes anew, the root's children in sight. Nothing is selected.
    void fill_tree();
    void update_controls();

    /// Searches the tree from its root for a caption with all words of the text; null if there is none, and
    /// without a library. `search_str_next` goes on behind what was found last.
    [[nodiscard]] void *search_str_first(wchar_t const *text);
    [[nodiscard]] void *search_str_next();
    /// Selects the first node of the item and brings it into sight; an item that is not in the tree clears
    /// the selection.
    void set_style_item_selected(void *item);
    /// Index and version of the selected item; false without a selection.
    [[nodiscard]] bool get_index_ver(int &index, int &version) const;
    /// Selects the first node of this index and version as `set_style_item_selected`.
    void set_index_ver(int index, int version);

    [[nodiscard]] Tvx_tree_view *get_tree() const { return f_tree; }

    /// The user selected another node. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    template <class Matches>
    void select_first(Matches matches);
    void add_items(TTreeNode *parent, void *item);
    void on_tree_change(TObject *sender, TTreeNode *node);

    void *f_lib = nullptr;
    Tvx_tree_view *f_tree;
    std::unique_ptr<void, void (*)(void *)> f_search;
};
