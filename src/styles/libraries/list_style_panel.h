#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

class Tvx_lib_style_draw;

/// One style of a list at a time: its sample, and two buttons that step through the list.
class VX_API Tvx_list_style_panel : public Tvx_panel
{
public:
    explicit Tvx_list_style_panel(TComponent *owner);

    void load_res();
    /// A list of a style library (platform/styles/vx_style_lib.h) or null; shown by `update_controls`.
    void set_style_list(void *list) { f_style_list = list; }
    [[nodiscard]] void *get_style_list() const { return f_style_list; }
    /// The place in the list, from 0; one outside it shows nothing.
    void set_active_style_no(int number) { f_active_no = number; }
    [[nodiscard]] int get_active_style_no() const { return f_active_no; }
    /// The indexed style at that place, null if there is none.
    [[nodiscard]] void *get_active_style() const;
    /// Enables the buttons by the place in the list.
    void enable_disable();
    void update_controls();

    [[nodiscard]] Tvx_bitbtn *get_prev_btn() const { return f_prev_btn; }
    [[nodiscard]] Tvx_bitbtn *get_next_btn() const { return f_next_btn; }
    [[nodiscard]] Tvx_lib_style_draw *get_draw() const { return f_draw; }

    /// The user stepped on. The sender is the panel.
    closure<void(TObject *)> on_changed;

private:
    void on_prev_btn_click(TObject *sender);
    void on_next_btn_click(TObject *sender);
    void step(int by);

    void *f_style_list = nullptr;
    int f_active_no = 0;
    Tvx_panel *f_bottom_panel;
    Tvx_bitbtn *f_prev_btn;
    Tvx_bitbtn *f_next_btn;
    Tvx_lib_style_draw *f_draw;
};
