#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/panels.h"
#include "controls/prop/prop_combo_box.h"

/// The choice of the property that a scale classifies. The list is read from the owner's pull events.
class VX_API Tvx_prp_scale : public Tvx_panel
{
public:
    explicit Tvx_prp_scale(TComponent *owner);

    void create();
    void load_res();
    /// In place of the caption that `load_res` gives.
    void set_caption(UnicodeString const &caption) { f_label->SetCaption(caption); }
    /// Reads the list anew. Fires nothing.
    void update_controls();

    void set_on_data_open(Tvx_data_open_event event) { f_combo->on_data_open = event; }
    void set_on_data_close(Tvx_data_close_event event) { f_combo->on_data_close = event; }
    void set_on_data_get_np(Tvx_data_get_np_event event) { f_combo->on_data_get_np = event; }
    void set_on_data_get_prop(Tvx_data_get_prop_event event) { f_combo->on_data_get_prop = event; }
    void set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event)
    {
        f_combo->on_data_get_capt_prop = event;
    }
    void set_prop_name(wchar_t const *name) { f_combo->set_prop_name(name); }
    /// Lives until the property changes.
    [[nodiscard]] wchar_t const *get_prop_name() const { return f_combo->get_wprop_name().c_str(); }
    void set_only_numeric(bool value) { f_combo->set_only_numeric(value); }
    [[nodiscard]] bool get_only_numeric() const { return f_combo->get_only_numeric(); }
    [[nodiscard]] bool get_enabled() const { return GetEnabled(); }
    /// The label, the box and the panel.
    void set_enabled(bool enabled);
    [[nodiscard]] Tvx_prop_combo_box *get_combo_box() const { return f_combo; }

    /// The user chose another property.
    TNotifyEvent on_changed;

private:
    void on_combo_changed(TObject *sender);

    Tvx_label *f_label = nullptr;
    Tvx_prop_combo_box *f_combo = nullptr;
};
