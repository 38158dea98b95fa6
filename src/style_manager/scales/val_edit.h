#pragma once

#include "controls/forms/panels.h"
#include "style_manager/scales/scale_tool_panel.h"
#include "style_manager/scales/val_grid.h"
#include "style_manager/widgets/data_event_owner.h"
#include "style_manager/widgets/other_panel.h"
#include "style_manager/widgets/prp_scale.h"

#include <string>

class TOpenDialog;
class TSaveDialog;
class Tvx_val_edit_btn;

/// Edits the value scale of a style manager or, with the rule flag, its rule scale: the property, commands,
/// the entries and the row of the other values. What the user does goes straight into the scale.
class VX_API Tvx_val_edit : public Tvx_children_enabled_panel, public Tvx_data_event_owner
{
public:
    Tvx_val_edit(TComponent *owner, bool rule);

    void create();
    void load_res();
    /// Shows the manager's scale. Fires nothing.
    void update_controls();

    /// Stores only; null for nothing to edit. Not owned.
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    /// The style key that goes to every load and save, such as "pnt_mngr_style"; a literal.
    void set_mngr_style(char const *key) { f_mngr_style = key; }
    void enable_selection_style(bool enabled);
    void call_changed() { on_changed(this); }
    /// Writes the scale to the file that belongs to its property, if there is one.
    void save_current_scl();

    void set_on_draw_style(Tvx_draw_style_event event);
    void set_on_edit_style(Tvx_edit_style_event event);
    void set_on_lib_symbol_style(Tvx_lib_symbol_style_event event) { f_grid->on_lib_symbol_style = event; }
    void set_on_edit_value_item(Tvx_edit_value_item_event event) { f_grid->on_edit_value_item = event; }

    /// Reads a scale file. A message and false if that fails, with the scale as the loader left it; else the
    /// change is reported.
    bool open_val_scale(UnicodeString const &file, char const *key);
    /// Always true: the storage tells the user what goes wrong.
    bool save_val_scale(UnicodeString const &file, char const *key);
    /// The file that belongs to the scale's property; empty where scales have no files.
    [[nodiscard]] std::wstring generate_file_name_scale();
    /// Fills the scale with the different values of its property, in ordinal order. Reads every object; asks
    /// once, at a thousand different values, whether to go on. False when the reading was given up: the scale
    /// is as it was then.
    bool generate_default_scale();

    [[nodiscard]] Tvx_val_grid *get_grid() const { return f_grid; }
    [[nodiscard]] Tvx_prp_scale *get_prp_scale() const { return f_prp_scale; }
    [[nodiscard]] Tvx_other_panel *get_other_panel() const { return f_other_panel; }
    /// Not seen in the editor of rules.
    [[nodiscard]] Tvx_val_edit_btn *get_build_btn() const { return f_build_btn; }
    [[nodiscard]] Tvx_bitbtn *get_save_btn() const { return f_tool_panel->get_save_btn(); }
    [[nodiscard]] Tvx_bitbtn *get_open_btn() const { return f_tool_panel->get_open_btn(); }
    [[nodiscard]] Tvx_bitbtn *get_ins_btn() const { return f_tool_panel->get_ins_btn(); }
    [[nodiscard]] Tvx_bitbtn *get_del_btn() const { return f_tool_panel->get_del_btn(); }

    /// The user changed the scale; once for each action.
    TNotifyEvent on_changed;

protected:
    void data_events_changed() override;

private:
    [[nodiscard]] bool load(std::wstring const &file, char const *key);
    [[nodiscard]] std::wstring prop_name() const;
    [[nodiscard]] std::wstring with_suffix(std::wstring const &file) const;

    void on_prop_edit_changed(TObject *sender);
    void on_save_btn_click(TObject *sender);
    void on_open_btn_click(TObject *sender);
    void on_other_panel_changed(TObject *sender);
    void on_val_grid_changed(TObject *sender);
    void on_val_edit_changed(TObject *sender);

    bool f_rule;
    void *f_stl_mngr = nullptr;
    char const *f_mngr_style = nullptr;
    std::wstring f_file_name; ///< offered by the dialogs
    std::wstring f_load_error_text;
    Tvx_prp_scale *f_prp_scale = nullptr;
    Tvx_scale_tool_panel *f_tool_panel = nullptr;
    Tvx_val_edit_btn *f_build_btn = nullptr; ///< not seen in the editor of rules
    Tvx_val_grid *f_grid = nullptr;
    Tvx_other_panel *f_other_panel = nullptr;
    TOpenDialog *f_open_dialog = nullptr;
    TSaveDialog *f_save_dialog = nullptr;
};
