#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/pages.h"
#include "controls/forms/panels.h"

#include <array>

class Tvx_list_style_panel;

/// The styles of a library: an empty tab for no style, one for each kind, and the number of the style that is
/// seen.
class VX_API Tvx_lib_style_panel : public Tvx_panel
{
public:
    explicit Tvx_lib_style_panel(TComponent *owner);

    void load_res();
    /// A library (platform/styles/vx_style_lib.h) or null; shown by `update_controls`.
    void set_lib(void *lib) { f_lib = lib; }
    [[nodiscard]] void *get_lib() const { return f_lib; }
    void update_controls();
    /// Number, licence and source of the active style.
    void update_idx_panel();

    /// The indexed style on the tab in front, null if there is none.
    [[nodiscard]] void *get_active_style() const;
    /// Its index and version; false if there is none.
    [[nodiscard]] bool get_index_ver(int &index, int &version) const;
    /// Shows the style of this index and version, of several kinds that of the last tab, and fires; where
    /// there is none the empty tab comes to the front.
    void set_index_ver(int index, int version);
    /// The same by the index alone; where there is none the user is told, and what is seen stays.
    void search_index(int index);

    /// 0 the empty one, then points, lines, polygons.
    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    /// By the same numbers from 1.
    [[nodiscard]] Tvx_list_style_panel *get_list_panel(int tab) const;
    [[nodiscard]] Tvx_label *get_idx_label() const { return f_idx_label; }
    [[nodiscard]] Tvx_label *get_licence_label() const { return f_licence_label; }

    /// Another style is active. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    static constexpr int c_tab_count = 4;

    template <class Find>
    [[nodiscard]] bool show_found(Find find);
    void on_pages_change(TObject *sender);
    void on_list_changed(TObject *sender);
    void style_changed();

    void *f_lib = nullptr;
    Tvx_page_control *f_pages;
    std::array<Tvx_tab_sheet *, c_tab_count> f_tabs{};
    std::array<Tvx_list_style_panel *, c_tab_count> f_lists{}; // none on the first tab
    Tvx_panel *f_idx_panel;
    Tvx_label *f_idx_label;
    Tvx_label *f_licence_label;
    UnicodeString f_idx_text;
    UnicodeString f_no_idx_text;
};
