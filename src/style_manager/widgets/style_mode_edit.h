#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/lists.h"
#include "controls/forms/panels.h"
#include "style_manager/api/style_mode.h"

/// The choice of the way in which a style manager draws; 22 high.
class VX_API Tvx_style_mode_edit : public Tvx_panel
{
public:
    explicit Tvx_style_mode_edit(TComponent *owner);

    void create();
    void load_res();
    /// Shows `mode`: entry 3 for rules if there is one, else none; entry 0 for every mode without an entry.
    void update_controls();
    /// Whether there is an entry for rules; false after `create`. If it goes while its mode is chosen, mode 0
    /// takes over, and that is reported.
    void rule_enabled(bool enabled);
    [[nodiscard]] bool get_rule_enabled() const { return f_rule_enabled; }
    [[nodiscard]] Tvx_combo_box *get_combo_box() const { return f_combo; }

    Tvx_style_mode mode = c_style_mode_simple;
    /// Another mode was chosen.
    TNotifyEvent on_changed;

private:
    void on_cb_change(TObject *sender);

    Tvx_label *f_label = nullptr;
    Tvx_combo_box *f_combo = nullptr;
    bool f_rule_enabled = false;
};
