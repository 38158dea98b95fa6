#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/panels.h"
#include "style_manager/scales/rng_grid.h"
#include "style_manager/scales/scale_tool_panel.h"
#include "style_manager/widgets/data_event_owner.h"
#include "style_manager/widgets/other_panel.h"
#include "style_manager/widgets/prp_scale.h"

#include <memory>
#include <string>
#include <vector>

class TOpenDialog;
class TSaveDialog;
class Tvx_range_counts;
class Tvx_rng_edit_btn;

/// Edits the range scale of a style manager: the numeric property, commands, the ranges and the row of the
/// other values. What the user does goes straight into the scale. A line between the commands says which
/// values the current row holds and, as soon as the user goes to a row, how many objects.
class VX_API Tvx_rng_edit : public Tvx_panel, public Tvx_data_event_owner
{
public:
    explicit Tvx_rng_edit(TComponent *owner);
    ~Tvx_rng_edit() override;

    void create();
    void load_res();
    /// Shows the manager's scale. Fires nothing.
    void update_controls();

    /// Stores only; null for nothing to edit. Not owned.
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    /// The style key that goes to every load, save and export, such as "pnt_mngr_style"; a literal.
    void set_mngr_style(char const *key) { f_mngr_style = key; }
    void enable_selection_style(bool enabled);
    void call_changed();
    /// Writes the scale to the file that belongs to its property, if there is one.
    void save_current_scl();
    /// Takes the scale from the file that belongs to its property, or makes that file with a default scale.
    /// Does nothing where scales have no files. False when the reading was given up: the scale is as it was
    /// then. Fires nothing.
    bool fill_scale();

    void set_on_draw_style(Tvx_draw_style_event event);
    void set_on_edit_style(Tvx_edit_style_event event);

    /// Reads a scale file. A message and false if that fails, with the scale as the loader left it; else the
    /// change is reported.
    bool open_rng_scale(UnicodeString const &file, char const *key);
    /// Always true: the storage tells the user what goes wrong. So does the export, an XML colour map.
    bool save_rng_scale(UnicodeString const &file, char const *key);
    bool export_rng_scale(UnicodeString const &file, char const *key);
    /// The file that belongs to the scale's property; empty where scales have no files.
    [[nodiscard]] std::wstring generate_file_name_scale();
    /// Ten equal ranges over the values of the property, or from 0 to 1 where there are no values; without
    /// data the scale stays. Reads every object unless there are statistics at hand. False when that was
    /// given up: the scale is as it was then.
    bool generate_default_scale();
    /// Gives min row, ranges and max row the colours from blue over white to red, and reports that.
    void generate_default_scale_with_clr();

    [[nodiscard]] Tvx_rng_grid *get_grid() const { return f_grid; }
    [[nodiscard]] Tvx_prp_scale *get_prp_scale() const { return f_prp_scale; }
    [[nodiscard]] Tvx_other_panel *get_other_panel() const { return f_other_panel; }
    [[nodiscard]] Tvx_scale_tool_panel *get_tool_panel() const { return f_tool_panel; }
    [[nodiscard]] Tvx_rng_edit_btn *get_build_btn() const { return f_build_btn; }
    [[nodiscard]] Tvx_rng_edit_btn *get_rescale_btn() const { return f_rescale_btn; }
    /// The line about the current row; its hint says all of it.
    [[nodiscard]] Tvx_label *get_row_line() const { return f_row_line; }

    /// The user changed the scale; once for each action. A new caption of a row is not reported.
    TNotifyEvent on_changed;

protected:
    void data_events_changed() override;

private:
    [[nodiscard]] bool load(std::wstring const &file, char const *key);
    [[nodiscard]] std::wstring prop_name() const;
    bool fill_from(std::wstring const &file);
    void color_default_scale();
    void show_row_line();
    void place_row_line();
    /// Puts the longest of the texts that has room there.
    void fit_row_line(std::vector<std::wstring> texts);
    void refit_row_line();

    void on_prop_edit_changed(TObject *sender);
    void on_save_btn_click(TObject *sender);
    void on_open_btn_click(TObject *sender);
    void on_other_panel_changed(TObject *sender);
    void on_rng_grid_changed(TObject *sender);
    void on_rng_edit_changed(TObject *sender);
    void on_rescale_btn_click(TObject *sender);
    void on_row_selected(TObject *sender);
    void on_tool_panel_resize(TObject *sender);

    void *f_stl_mngr = nullptr;
    void *f_shown_mngr = nullptr; ///< that of the last update
    char const *f_mngr_style = nullptr;
    std::wstring f_file_name; ///< offered by the dialogs
    std::wstring f_load_error_text;
    std::vector<std::wstring> f_row_texts; ///< what the line may say, the longest first
    Tvx_prp_scale *f_prp_scale = nullptr;
    Tvx_scale_tool_panel *f_tool_panel = nullptr;
    Tvx_rng_edit_btn *f_build_btn = nullptr;
    Tvx_rng_edit_btn *f_rescale_btn = nullptr;
    Tvx_label *f_row_line = nullptr;
    Tvx_rng_grid *f_grid = nullptr;
    Tvx_other_panel *f_other_panel = nullptr;
    TOpenDialog *f_open_dialog = nullptr;
    TSaveDialog *f_save_dialog = nullptr;
    std::unique_ptr<Tvx_range_counts> f_counts;
    bool f_counting = false;  ///< the user has asked for counts
    bool f_reporting = false; ///< what is updated now is a change of our own
};
