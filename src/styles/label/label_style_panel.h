#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/panels.h"
#include "controls/numeric/size_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "controls/prop/fnt_panel.h"
#include "controls/prop/prop_edit.h"

struct Ivx_layer;

/// Edits the text classes of a dynamic text layer (platform/layers/vx_tld_lr2d.h), of which the current one
/// is shown. Every change goes into the class at once and is reported to nobody; the dialogs write when they
/// are accepted. The properties on offer come through the pull events.
///
/// Whoever makes one calls `create` and `load_res`, and `update_controls` after each change of layer or data.
class VX_API Tvx_label_style_panel : public Tvx_panel
{
public:
    using Tvx_panel::Tvx_panel;

    virtual void create();
    virtual void load_res();
    /// Shows the current class. A class without a property takes the first one of the data at once. Without a
    /// layer all stays as it is. Fires nothing.
    virtual void update_controls();

    /// Not owned; null for none. What ends while it is set has to be taken away before.
    void set_layer(Ivx_layer *layer) { f_layer = layer; }
    [[nodiscard]] Ivx_layer *get_layer() const { return f_layer; }
    /// Shows the property; for an empty name the current class takes the first property of the data.
    void set_prop_name(UnicodeString const &name);
    /// Shows how the texts of the property are kept.
    void update_encoding();

    [[nodiscard]] Tvx_data_open_event get_on_data_open() const { return f_prop_edit->get_on_data_open(); }
    void set_on_data_open(Tvx_data_open_event event) { f_prop_edit->set_on_data_open(event); }
    [[nodiscard]] Tvx_data_close_event get_on_data_close() const { return f_prop_edit->get_on_data_close(); }
    void set_on_data_close(Tvx_data_close_event event) { f_prop_edit->set_on_data_close(event); }
    [[nodiscard]] Tvx_data_get_np_event get_on_data_get_np() const
    {
        return f_prop_edit->get_on_data_get_np();
    }
    void set_on_data_get_np(Tvx_data_get_np_event event) { f_prop_edit->set_on_data_get_np(event); }
    [[nodiscard]] Tvx_data_get_prop_event get_on_data_get_prop() const
    {
        return f_prop_edit->get_on_data_get_prop();
    }
    void set_on_data_get_prop(Tvx_data_get_prop_event event) { f_prop_edit->set_on_data_get_prop(event); }
    [[nodiscard]] Tvx_data_get_capt_prop_event get_on_data_get_capt_prop() const
    {
        return f_prop_edit->get_on_data_get_capt_prop();
    }
    void set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event)
    {
        f_prop_edit->set_on_data_get_capt_prop(event);
    }

    // Null before `create`.
    [[nodiscard]] Tvx_check_box *get_visible_check() const { return f_visible_check; }
    [[nodiscard]] Tvx_children_enabled_panel *get_content() const { return f_content; }
    [[nodiscard]] Tvx_combo_box_panel *get_class_panel() const { return f_class_panel; }
    [[nodiscard]] Tvx_tool_btn *get_class_add_btn() const { return f_class_add_btn; }
    [[nodiscard]] Tvx_tool_btn *get_class_del_btn() const { return f_class_del_btn; }
    [[nodiscard]] Tvx_prop_edit *get_prop_edit() const { return f_prop_edit; }
    [[nodiscard]] Tvx_fnt_panel *get_font_panel() const { return f_font_panel; }
    [[nodiscard]] Tvx_size_panel *get_size_panel() const { return f_size_panel; }
    [[nodiscard]] Tvx_clr_vsb_panel *get_clr_panel() const { return f_clr_panel; }
    [[nodiscard]] Tvx_size_panel *get_angle_panel() const { return f_angle_panel; }
    [[nodiscard]] Tvx_combo_box_panel *get_encode_panel() const { return f_encode_panel; }
    [[nodiscard]] Tvx_combo_box_panel *get_priority_panel() const { return f_priority_panel; }
    [[nodiscard]] Tvx_check_box *get_overlap_check() const { return f_overlap_check; }
    [[nodiscard]] Tvx_check_box *get_scale_check() const { return f_scale_check; }
    [[nodiscard]] Tvx_check_box *get_current_scale_check() const { return f_current_scale_check; }
    [[nodiscard]] Tvx_bitbtn *get_save_btn() const { return f_save_btn; }
    [[nodiscard]] Tvx_bitbtn *get_load_btn() const { return f_load_btn; }
    [[nodiscard]] Tvx_button *get_effects_btn() const { return f_effects_btn; }
    [[nodiscard]] Tvx_button *get_advanced_btn() const { return f_advanced_btn; }

private:
    template <class Control>
    Control *add_row(int height);
    void create_class_row();
    void create_font_rows();
    void create_bottom_row();
    [[nodiscard]] void *current_class() const;
    void show_scale_choice();
    template <class Dialog>
    void run_dialog(TWinControl *button);

    void on_visible_clicked(TObject *sender);
    void on_class_changed(TObject *sender);
    void on_class_add_click(TObject *sender);
    void on_class_del_click(TObject *sender);
    void on_prop_changed(TObject *sender);
    void on_font_changed(TObject *sender);
    void on_size_changed(TObject *sender);
    void on_colour_changed(TObject *sender);
    void on_angle_changed(TObject *sender);
    void on_encode_changed(TObject *sender);
    void on_priority_changed(TObject *sender);
    void on_place_overlap_clicked(TObject *sender);
    void on_scale_clicked(TObject *sender);
    void on_current_scale_clicked(TObject *sender);
    void on_save_btn_clicked(TObject *sender);
    void on_load_btn_clicked(TObject *sender);
    void on_effects_btn_clicked(TObject *sender);
    void on_advanced_btn_clicked(TObject *sender);

    Ivx_layer *f_layer = nullptr;
    int f_rows_bottom = 0;
    Tvx_check_box *f_visible_check = nullptr;
    Tvx_children_enabled_panel *f_content = nullptr;
    Tvx_combo_box_panel *f_class_panel = nullptr;
    Tvx_tool_btn *f_class_add_btn = nullptr;
    Tvx_tool_btn *f_class_del_btn = nullptr;
    Tvx_prop_edit *f_prop_edit = nullptr;
    Tvx_fnt_panel *f_font_panel = nullptr;
    Tvx_size_panel *f_size_panel = nullptr;
    Tvx_clr_vsb_panel *f_clr_panel = nullptr;
    Tvx_size_panel *f_angle_panel = nullptr;
    Tvx_combo_box_panel *f_encode_panel = nullptr;
    Tvx_combo_box_panel *f_priority_panel = nullptr;
    Tvx_check_box *f_overlap_check = nullptr;
    Tvx_check_box *f_scale_check = nullptr;
    Tvx_check_box *f_current_scale_check = nullptr;
    Tvx_bitbtn *f_save_btn = nullptr;
    Tvx_bitbtn *f_load_btn = nullptr;
    Tvx_button *f_effects_btn = nullptr;
    Tvx_button *f_advanced_btn = nullptr;
};
