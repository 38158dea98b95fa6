#pragma once

#include "controls/forms/dlg_form.h"

class Tvx_lib_panel;
class Tvx_libs_select_panel;

/// The browser of the style libraries: the user takes one style over into a target of its kind. Place, size
/// and what was seen last are kept as long as the process lives.
class VX_API Tvx_style_libs_form : public Tvx_dlg_form
{
public:
    explicit Tvx_style_libs_form(TComponent *owner);
    ~Tvx_style_libs_form() override;

    void load_res() override;
    /// Assigns the active style to the target; false, and nothing done, unless there is one of its kind.
    bool apply_click() override;

    /// The target, a composed style of the kind that the name says; takes the place of the others. It is
    /// written to only on OK.
    void set_pnt_style(void *style);
    void set_pln_style(void *style);
    void set_pgn_style(void *style);
    /// Takes over the libraries of the process.
    void update_controls();
    /// OK needs an active style of the target's kind.
    void enable_disable();
    /// Goes to what was seen last.
    void set_last_params();
    /// Tells the user that there is no library.
    static void no_libs_message();

    [[nodiscard]] Tvx_libs_select_panel *get_libs_panel() const { return f_libs_panel; }
    [[nodiscard]] Tvx_lib_panel *get_lib_panel() const { return f_lib_panel; }

    static bool fs_saved;
    static int fs_top;
    static int fs_left;
    static int fs_width;
    static int fs_height;
    static int fs_tree_width;
    static int fs_lib;
    static int fs_idx;
    static int fs_ver;

private:
    void set_targets(void *pnt_style, void *pln_style, void *pgn_style);
    void fill_lib_panel();
    void on_libs_changed(TObject *sender);
    void on_lib_changed(TObject *sender);

    void *f_pnt_style = nullptr; // at most one of the three is set
    void *f_pln_style = nullptr;
    void *f_pgn_style = nullptr;
    Tvx_panel *f_top_panel;
    Tvx_libs_select_panel *f_libs_panel;
    Tvx_lib_panel *f_lib_panel;
};
