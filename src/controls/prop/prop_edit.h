#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/panels.h"
#include "controls/prop/prop_combo_box.h"

/// A label and a list of properties; whoever makes it calls `create` before any other use. The pull events
/// are those of the list, with the list as their sender.
class VX_API Tvx_prop_edit : public Tvx_children_enabled_panel
{
public:
    using Tvx_children_enabled_panel::Tvx_children_enabled_panel;

    /// Makes the children; once.
    virtual void create();
    /// Runs `on_changed`, with the panel as its sender.
    virtual void call_changed();
    /// Reads the list anew, as `Tvx_prop_combo_box::update_controls`.
    void update_controls();

    [[nodiscard]] std::string get_prop_name() const;
    [[nodiscard]] std::wstring const &get_wprop_name() const;
    void set_prop_name(wchar_t const *name);
    void set_prop_name(char const *name);
    [[nodiscard]] int get_prop_index() const;
    void set_prop_index(int row);
    [[nodiscard]] int get_real_index() const;
    void set_real_index(int real_index);
    /// Rows of the list.
    [[nodiscard]] int get_prop_count() const;
    [[nodiscard]] bool get_only_numeric() const;
    void set_only_numeric(bool value);
    [[nodiscard]] bool get_forbid_empty() const;
    void set_forbid_empty(bool value);

    [[nodiscard]] UnicodeString get_caption() const;
    /// Becomes the list's accessible name too.
    void set_caption(UnicodeString const &caption);
    /// Room of the label where it stands beside the list; 100 at first.
    [[nodiscard]] int get_capt_width() const;
    void set_capt_width(int width);
    /// Of the list.
    [[nodiscard]] bool get_enabled() const;
    [[nodiscard]] int get_top_location() const { return f_top_location; }
    /// 0: the label beside the list; 1: above it, in a control of 115 by 46.
    void set_top_location(int location);
    [[nodiscard]] bool get_grayed() const;
    /// Shows the label in the colour of disabled text, or in that of window text.
    void set_grayed(bool grayed);
    [[nodiscard]] int get_drop_down_count() const;
    void set_drop_down_count(int count);

    [[nodiscard]] Tvx_data_open_event get_on_data_open() const;
    void set_on_data_open(Tvx_data_open_event event);
    [[nodiscard]] Tvx_data_close_event get_on_data_close() const;
    void set_on_data_close(Tvx_data_close_event event);
    [[nodiscard]] Tvx_data_get_np_event get_on_data_get_np() const;
    void set_on_data_get_np(Tvx_data_get_np_event event);
    [[nodiscard]] Tvx_data_get_prop_event get_on_data_get_prop() const;
    void set_on_data_get_prop(Tvx_data_get_prop_event event);
    [[nodiscard]] Tvx_data_get_wprop_event get_on_data_get_wprop() const;
    void set_on_data_get_wprop(Tvx_data_get_wprop_event event);
    [[nodiscard]] Tvx_data_get_capt_prop_event get_on_data_get_capt_prop() const;
    void set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event);
    [[nodiscard]] Tvx_data_get_capt_wprop_event get_on_data_get_capt_wprop() const;
    void set_on_data_get_capt_wprop(Tvx_data_get_capt_wprop_event event);
    [[nodiscard]] TNotifyEvent get_on_changed() const { return on_changed; }
    void set_on_changed(TNotifyEvent event) { on_changed = event; }

    /// Null before `create`.
    [[nodiscard]] Tvx_prop_combo_box *get_combo_box() const { return f_combo_box; }

    /// The user chose a property.
    TNotifyEvent on_changed;

private:
    void on_combo_box_changed(TObject *sender);

    Tvx_caption_panel *f_caption_panel = nullptr;
    Tvx_prop_combo_box *f_combo_box = nullptr;
    int f_capt_width = 100;
    int f_top_location = 0;
};
