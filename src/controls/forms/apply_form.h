#pragma once

#include "controls/forms/bottom_panel.h"
#include "controls/forms/form.h"

#include "platform/base/closure.h"

/// A window that applies without closing: modeless, above the others, with Apply, Cancel and Help. The
/// derived form puts its controls above the strip of buttons.
class VX_API Tvx_apply_form : public Tvx_form
{
public:
    explicit Tvx_apply_form(TComponent *owner);

    void load_res() override;
    /// Runs the apply event with the form as its argument.
    virtual void call_apply();
    /// False ends a click on Apply without applying, a click on Cancel without closing.
    virtual bool apply_click() { return true; }
    virtual bool cancel_click() { return true; }
    /// The help context that a click on Help asks the application for.
    virtual int help_click() { return 0; }

    /// Shows the form with its upper left corner at (x, y), pushed back to the screen's right and lower edge.
    /// A form that is showing stays where it is.
    void show_apply(int x, int y);

    [[nodiscard]] closure<void(TObject *)> get_on_apply() const { return f_on_apply; }
    void set_on_apply(closure<void(TObject *)> on_apply) { f_on_apply = on_apply; }

    [[nodiscard]] Tvx_bottom_panel *get_bottom_panel() const { return f_bottom_panel; }
    [[nodiscard]] Tvx_button *get_apply_btn() const { return f_bottom_panel->get_apply_btn(); }
    [[nodiscard]] Tvx_button *get_cancel_btn() const { return f_bottom_panel->get_cancel_btn(); }
    [[nodiscard]] Tvx_button *get_help_btn() const { return f_bottom_panel->get_help_btn(); }

private:
    void on_apply_btn_click(TObject *sender);
    void on_cancel_btn_click(TObject *sender);
    void on_help_btn_click(TObject *sender);

    Tvx_bottom_panel *f_bottom_panel;
    closure<void(TObject *)> f_on_apply;
};

/// Gives the keyboard back to the active document after each Apply: to the first control in the tab order of
/// the main form's active MDI child.
class VX_API Tvx_apply_and_leave_form : public Tvx_apply_form
{
public:
    using Tvx_apply_form::Tvx_apply_form;

    void call_apply() override;
};

/// With an Update button at the left.
class VX_API Tvx_apply_upd_form : public Tvx_apply_form
{
public:
    explicit Tvx_apply_upd_form(TComponent *owner);

    void load_res() override;
    /// False ends a click on Update without updating.
    virtual bool update_click() { return true; }

    /// Runs the update event with the form as its argument.
    void call_update();
    [[nodiscard]] closure<void(TObject *)> get_on_update() const { return f_on_update; }
    void set_on_update(closure<void(TObject *)> on_update) { f_on_update = on_update; }
    [[nodiscard]] Tvx_button *get_update_btn() const { return f_update_btn; }

private:
    void on_update_btn_click(TObject *sender);

    Tvx_button *f_update_btn;
    closure<void(TObject *)> f_on_update;
};

/// As `Tvx_apply_and_leave_form`, with an Update button.
class VX_API Tvx_apply_upd_and_leave_form : public Tvx_apply_upd_form
{
public:
    using Tvx_apply_upd_form::Tvx_apply_upd_form;

    void call_apply() override;
};
