#pragma once

#include "style_manager/api/data_events.h"

#include "platform/base/export.h"

/// The setters of an editor that keeps the pull events and hands them on to its children.
class VX_API Tvx_data_event_owner
{
public:
    void set_on_data_open(Tvx_data_open_event event) { take(f_data.open, event); }
    void set_on_data_close(Tvx_data_close_event event) { take(f_data.close, event); }
    void set_on_data_get_np(Tvx_data_get_np_event event) { take(f_data.get_np, event); }
    void set_on_data_get_no(Tvx_data_get_no_event event) { take(f_data.get_no, event); }
    void set_on_data_get_prop(Tvx_data_get_prop_event event) { take(f_data.get_prop, event); }
    void set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event) { take(f_data.get_capt_prop, event); }
    void set_on_data_get_stat(Tvx_data_get_stat_event event) { take(f_data.get_stat, event); }
    void set_on_data_get_str(Tvx_data_get_str_event event) { take(f_data.get_str, event); }
    void set_on_data_get_val(Tvx_data_get_val_event event) { take(f_data.get_val, event); }
    void set_on_data_get_prop_file_name(Tvx_data_get_prop_file_name_event event)
    {
        take(f_data.get_prop_file_name, event);
    }
    /// All of them at once.
    void set_data_events(Tvx_data_events const &events) { take(f_data, events); }
    [[nodiscard]] Tvx_data_events const &get_data_events() const { return f_data; }

protected:
    Tvx_data_event_owner() = default;
    ~Tvx_data_event_owner() = default;

    /// Hands the events on.
    virtual void data_events_changed() = 0;

private:
    template <class Event>
    void take(Event &own, Event const &event)
    {
        own = event;
        data_events_changed();
    }

    Tvx_data_events f_data;
};
