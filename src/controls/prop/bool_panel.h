#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

/// A check box with its caption at the left of the box.
class VX_API Tvx_bool_panel : public Tvx_children_enabled_panel
{
public:
    explicit Tvx_bool_panel(TComponent *owner);

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] bool get_flag() const;
    /// Fires nothing.
    void set_flag(bool flag);
    [[nodiscard]] TNotifyEvent get_on_changed() const { return on_changed; }
    void set_on_changed(TNotifyEvent event) { on_changed = event; }
    [[nodiscard]] Tvx_check_box *get_check_box() const { return f_check_box; }

    /// The user turned the flag; the sender is the panel.
    TNotifyEvent on_changed;

private:
    void on_check_box_click(TObject *sender);

    Tvx_check_box *f_check_box;
};
