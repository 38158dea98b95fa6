#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"
#include "style_manager/api/style_mode.h"
#include "style_manager/scales/rng_edit.h"
#include "style_manager/scales/val_edit.h"
#include "style_manager/shell/smp_edit.h"
#include "style_manager/widgets/data_event_owner.h"
#include "style_manager/widgets/style_mode_edit.h"

struct Ivx_layer;

/// Edits one style manager: a choice of modes and below it the editor of the mode in force. It owns no style
/// data: everything it shows is read from the manager, and everything the user does is written into it at
/// once. Data come through the pull events (`Tvx_data_event_owner`), changes leave through `on_changed`.
///
/// Whoever makes one calls `create` and `load_res`, binds events, and calls `update_controls` after each
/// change of manager or layer; the setters only store.
class VX_API Tvx_stl_mngr_edit : public Tvx_children_enabled_panel, public Tvx_data_event_owner
{
public:
    using Tvx_children_enabled_panel::Tvx_children_enabled_panel;

    /// Whether the manager has settings of rotation.
    [[nodiscard]] virtual bool can_rotate_flag() const { return false; }
    /// A list of `vx_wstrings_create` that the caller destroys: the names of all properties, those included
    /// that are not offered. Empty without data. What an event throws passes through, with the data closed.
    [[nodiscard]] virtual void *create_property_list();

    void create();
    void load_res();
    /// Brings the screen into line with the manager. Fires nothing.
    void update_controls();
    void call_changed() { on_changed(this); }

    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    /// Not owned; null means that there is nothing to edit.
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }
    [[nodiscard]] Ivx_layer *get_lr() const { return f_lr; }
    /// The layer that the manager draws; not owned, may be null.
    void set_lr(Ivx_layer *lr) { f_lr = lr; }
    /// What the choice of modes shows; the manager is not touched.
    void set_style_mode(Tvx_style_mode mode);
    /// Whether rules are offered.
    void rule_enabled(bool enabled) { f_mode_edit->rule_enabled(enabled); }
    /// Whether the layer has styles of its own for selected objects.
    void enable_selection_style(bool enabled);
    /// The style key that goes to every load and save of a scale; static text.
    void set_mngr_style(char const *key);
    void set_on_draw_style(Tvx_draw_style_event event);
    void set_on_edit_style(Tvx_edit_style_event event);
    void set_on_lib_symbol_style(Tvx_lib_symbol_style_event event);
    void set_on_edit_value_item(Tvx_edit_value_item_event event)
    {
        f_rule_edit->set_on_edit_value_item(event);
    }
    /// Ends what is being typed into a cell: with `taken` it goes into the scale, else it is dropped.
    void end_edit(bool taken);
    /// Saves the scale in force to the file of its property, where that has one.
    void save_current_scl();

    [[nodiscard]] Tvx_style_mode_edit *get_mode_edit() const { return f_mode_edit; }
    [[nodiscard]] Tvx_bitbtn *get_rotate_btn() const { return f_rotate_btn; }
    [[nodiscard]] Tvx_smp_edit *get_smp_edit() const { return f_smp_edit; }
    [[nodiscard]] Tvx_val_edit *get_val_edit() const { return f_val_edit; }
    [[nodiscard]] Tvx_rng_edit *get_rng_edit() const { return f_rng_edit; }
    [[nodiscard]] Tvx_val_edit *get_rule_edit() const { return f_rule_edit; }

    /// Runs once after every change that the manager has taken.
    TNotifyEvent on_changed;

protected:
    void data_events_changed() override;

private:
    template <class Edit, class... Args>
    Edit *add_edit(Args... args);
    /// Runs `act` on the editor of each mode and the mode, in the order of the modes.
    template <class Act>
    void each_editor(Act const &act);
    /// The same on the editors of scales alone.
    template <class Act>
    void each_scale_editor(Act const &act);
    /// False when what the mode needs was to be read and the user gave that up, or this has ended meanwhile.
    [[nodiscard]] bool show_editor(Tvx_style_mode mode);
    [[nodiscard]] bool show_mngr();
    void show_nothing();
    void on_rotate_button_click(TObject *sender);
    void on_style_mode_changed(TObject *sender);
    void on_edit_changed(TObject *sender);

    void *f_stl_mngr = nullptr;
    Ivx_layer *f_lr = nullptr;
    Tvx_panel *f_top_panel = nullptr;
    Tvx_bitbtn *f_rotate_btn = nullptr;
    Tvx_style_mode_edit *f_mode_edit = nullptr;
    Tvx_smp_edit *f_smp_edit = nullptr;
    Tvx_val_edit *f_val_edit = nullptr;
    Tvx_rng_edit *f_rng_edit = nullptr;
    Tvx_val_edit *f_rule_edit = nullptr;
};
