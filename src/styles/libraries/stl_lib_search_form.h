#pragma once

#include "controls/forms/dlg_form.h"
#include "controls/forms/pages.h"

#include <string>

class Tvx_capt_edit_panel;
class Tvx_size_panel;

/// Asks what to look for in a style library: a number or a text. What was asked for last is offered again as
/// long as the process lives.
class VX_API Tvx_stl_lib_search_form : public Tvx_dlg_form
{
public:
    explicit Tvx_stl_lib_search_form(TComponent *owner);

    void load_res() override;
    void create_controls() override;
    /// False, with the focus on the number, while that tab is in front and holds no whole number.
    bool apply_click() override;

    [[nodiscard]] bool is_num_search() const;
    [[nodiscard]] bool is_str_search() const { return !is_num_search(); }
    /// Cut to a whole number; 0 where there is none.
    [[nodiscard]] int get_num() const;
    [[nodiscard]] std::wstring const &get_str() const;
    /// Keeps what is entered for the next form, and takes over what was kept.
    void save_last();
    void load_last();

    /// 0 by number, 1 by text.
    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }
    [[nodiscard]] Tvx_size_panel *get_idx_panel() const { return f_idx_panel; }
    [[nodiscard]] Tvx_capt_edit_panel *get_str_panel() const { return f_str_panel; }

    static bool c_last_is_idx;
    static int c_last_idx;
    static std::wstring c_last_str;

private:
    Tvx_page_control *f_pages = nullptr;
    Tvx_tab_sheet *f_idx_tab = nullptr;
    Tvx_tab_sheet *f_str_tab = nullptr;
    Tvx_size_panel *f_idx_panel = nullptr;
    Tvx_capt_edit_panel *f_str_panel = nullptr;
    mutable std::wstring f_str;
};
