#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/panels.h"

class TCustomImageList;
struct Ivx_layer;

/// The strip that shows a list of style managers in a combo box, chooses the active one, and adds and deletes
/// managers. It keeps no selection of its own: the owner calls `update_controls` after each change. With the
/// option of inverted lists the last manager stands first.
class VX_API Tvx_stl_mngr_list_edit : public Tvx_panel
{
public:
    /// With `show_check` a box above the strip says whether the list as a whole is drawn.
    explicit Tvx_stl_mngr_list_edit(TComponent *owner, bool show_check = false);

    virtual void create();
    virtual void load_res();
    /// Shows the list; without one the strip is hidden. Fires nothing.
    virtual void update_controls();
    /// Appends a manager and makes it the active one.
    virtual void on_add_click(TObject *sender);
    virtual void on_setting_click(TObject *sender);

    /// Store only; not owned.
    void set_stl_mngr_list(void *list) { f_list = list; }
    [[nodiscard]] void *get_stl_mngr_list() const { return f_list; }
    void set_lr2d(Ivx_layer *layer) { f_lr2d = layer; }
    void call_changed() { on_changed(this); }
    /// The place in the list of the manager that the combo box shows.
    [[nodiscard]] unsigned get_active_index() const;
    [[nodiscard]] Tvx_combo_box *get_combo_box() const { return f_combo_panel->get_combo_box(); }
    /// Null without `show_check`.
    [[nodiscard]] Tvx_check_box *get_check_box() const { return f_check_box; }
    [[nodiscard]] Tvx_tool_btn *get_add_btn() const { return f_add_btn; }
    [[nodiscard]] Tvx_tool_btn *get_del_btn() const { return f_del_btn; }
    [[nodiscard]] Tvx_tool_btn *get_setting_btn() const { return f_setting_btn; }

    /// The user chose, added, deleted or changed managers, or hid the list.
    TNotifyEvent on_changed;

protected:
    [[nodiscard]] Ivx_layer *get_lr2d() const { return f_lr2d; }

private:
    void on_check_click(TObject *sender);
    void on_active_changed(TObject *sender);
    void on_del_click(TObject *sender);
    [[nodiscard]] unsigned list_index(unsigned row) const;

    bool f_show_check;
    Ivx_layer *f_lr2d = nullptr;
    void *f_list = nullptr;
    Tvx_check_box *f_check_box = nullptr;
    Tvx_combo_box_panel *f_combo_panel = nullptr;
    TToolBar *f_tool_bar = nullptr;
    Tvx_tool_btn *f_add_btn = nullptr;
    Tvx_tool_btn *f_del_btn = nullptr;
    Tvx_tool_btn *f_setting_btn = nullptr;
};

/// Of style managers: the settings are those of the list.
class VX_API Tvx_style_stl_mngr_list_edit : public Tvx_stl_mngr_list_edit
{
public:
    using Tvx_stl_mngr_list_edit::Tvx_stl_mngr_list_edit;

    void on_setting_click(TObject *sender) override;
};

/// Of text managers: a new one writes the first column of the layer's table, and the settings are what all
/// texts of the active manager have in common.
class VX_API Tvx_txt_stl_mngr_list_edit : public Tvx_stl_mngr_list_edit
{
public:
    using Tvx_stl_mngr_list_edit::Tvx_stl_mngr_list_edit;

    void load_res() override;
    void on_add_click(TObject *sender) override;
    void on_setting_click(TObject *sender) override;

private:
    void init_default_txt_style(void *mngr);
};
