#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

#include "platform/base/closure.h"

/// A column of buttons beside a list: add, delete, up, down.
class VX_API Tvx_order_buttons : public Tvx_panel
{
public:
    explicit Tvx_order_buttons(TComponent *owner);

    void load_res();
    /// Whether items can be added and deleted; else there are only up and down. They can at first.
    void set_can_add(bool value);
    /// For a list of `count` items with the one at `current` chosen, -1 for none; `can_delete` says whether
    /// that may go.
    void enable(int current, int count, bool can_delete);

    [[nodiscard]] Tvx_button *get_add_btn() const { return f_add_btn; }
    [[nodiscard]] Tvx_button *get_delete_btn() const { return f_delete_btn; }
    [[nodiscard]] Tvx_button *get_up_btn() const { return f_up_btn; }
    [[nodiscard]] Tvx_button *get_down_btn() const { return f_down_btn; }

    /// The sender is the panel.
    TNotifyEvent on_add;
    TNotifyEvent on_delete;
    /// Up is -1, down is 1.
    closure<void(TObject *sender, int by)> on_move;

    static constexpr int c_width = 96;

private:
    Tvx_button *add_button(TNotifyEvent event);
    void on_add_click(TObject *sender);
    void on_delete_click(TObject *sender);
    void on_up_click(TObject *sender);
    void on_down_click(TObject *sender);

    int f_bottom = 0;
    Tvx_button *f_add_btn;
    Tvx_button *f_delete_btn;
    Tvx_button *f_up_btn;
    Tvx_button *f_down_btn;
};
