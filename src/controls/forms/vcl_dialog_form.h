#pragma once

#include "controls/forms/form.h"
#include "controls/forms/panels.h"
#include "controls/forms/vcl_bottom_buttons.h"

/// A dialog with a bar of buttons under a client panel, which the derived form fills. Whoever makes the form
/// calls `create`, then `load_rc`; the operations on buttons work from then on.
class VX_API Tvx_vcl_dialog_form : public Tvx_vcl_form
{
public:
    explicit Tvx_vcl_dialog_form(TComponent *owner);

    virtual void create();
    virtual void load_rc();
    /// What the buttons do: Cancel closes the form, the others are the derived form's.
    virtual void call_cancel();
    virtual void call_apply() {}
    virtual void call_help() {}
    virtual void call_save() {}
    virtual void call_load() {}

    [[nodiscard]] bool get_cancel_visible() const { return f_bottom_buttons->get_cancel_visible(); }
    [[nodiscard]] bool get_apply_visible() const { return f_bottom_buttons->get_apply_visible(); }
    [[nodiscard]] bool get_help_visible() const { return f_bottom_buttons->get_help_visible(); }
    [[nodiscard]] bool get_save_visible() const { return f_bottom_buttons->get_save_visible(); }
    [[nodiscard]] bool get_load_visible() const { return f_bottom_buttons->get_load_visible(); }
    void set_cancel_visible(bool value) { f_bottom_buttons->set_cancel_visible(value); }
    void set_apply_visible(bool value) { f_bottom_buttons->set_apply_visible(value); }
    void set_help_visible(bool value) { f_bottom_buttons->set_help_visible(value); }
    void set_save_visible(bool value) { f_bottom_buttons->set_save_visible(value); }
    void set_load_visible(bool value) { f_bottom_buttons->set_load_visible(value); }
    [[nodiscard]] bool get_bottom_buttons_enabled() const { return f_bottom_buttons->get_enabled(); }
    void set_bottom_buttons_enabled(bool enabled) { f_bottom_buttons->set_enabled(enabled); }

    /// Places the form at a point of the screen, by the rule of `Tvx_dlg_form::show_pos`, and shows nothing.
    void set_position(int x, int y);

    [[nodiscard]] Tvx_vcl_panel *get_client_panel() const { return f_client_panel; }
    [[nodiscard]] Tvx_vcl_bottom_buttons *get_bottom_buttons() const { return f_bottom_buttons; }

private:
    void on_cancel_btn_click(TObject *) { call_cancel(); }
    void on_apply_btn_click(TObject *) { call_apply(); }
    void on_help_btn_click(TObject *) { call_help(); }
    void on_save_btn_click(TObject *) { call_save(); }
    void on_load_btn_click(TObject *) { call_load(); }

    Tvx_vcl_panel *f_client_panel;
    Tvx_vcl_bottom_buttons *f_bottom_buttons;
};
