#pragma once

#include "controls/forms/bottom_panel.h"
#include "controls/forms/form.h"

/// A modal dialog with Apply, Cancel and Help. The derived form puts its controls on the content panel.
class VX_API Tvx_dlg_form : public Tvx_form
{
public:
    explicit Tvx_dlg_form(TComponent *owner);

    void load_res() override;
    /// Makes the controls of the derived form. Called by whoever makes the form.
    virtual void create_controls() {}
    /// False keeps the dialog open, without a modal result.
    virtual bool apply_click() { return true; }
    virtual bool cancel_click() { return true; }
    /// Asks the application for help on the form's help context.
    virtual void help_click();
    /// Fills in the texts and runs the dialog; gives the modal result: `mrOk` after Apply, else `mrCancel`.
    virtual int show_modal();
    /// The same, with the texts filled in only if `load` is true.
    virtual int show_modal(bool load);

    /// Runs the dialog at a point of the screen: (0, 0) is the middle of the screen, any other point the
    /// upper left corner. Where it does not fit, the dialog stands to the left of the point, or above it.
    int show_pos(int x, int y);
    int show_pos(int x, int y, bool load);
    /// Shows the form at the same place without waiting for its end.
    void show_nomodal_pos(int x, int y);

    [[nodiscard]] Tvx_panel *get_content_panel() const { return f_content_panel; }
    [[nodiscard]] Tvx_bottom_panel *get_bottom_panel() const { return f_bottom_panel; }
    [[nodiscard]] Tvx_button *get_apply_btn() const { return f_bottom_panel->get_apply_btn(); }
    [[nodiscard]] Tvx_button *get_cancel_btn() const { return f_bottom_panel->get_cancel_btn(); }
    [[nodiscard]] Tvx_button *get_help_btn() const { return f_bottom_panel->get_help_btn(); }

protected:
    void set_position(int x, int y);

private:
    void on_apply_btn_click(TObject *sender);
    void on_cancel_btn_click(TObject *sender);
    void on_help_btn_click(TObject *sender);
    void close_with(int modal_result);

    Tvx_bottom_panel *f_bottom_panel;
    Tvx_panel *f_content_panel;
};
